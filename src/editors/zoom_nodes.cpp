#include "editors/zoom_nodes.h"

#include <utility>

#include "zoom/view_filters.h"

namespace orvent::editors {

void ZoomNodes::prepare(canvas::CanvasForm& form, canvas::LabelsD& node) {
    if (auto* zoom = dynamic_cast<zoom::ZoomForm*>(&form)) {
        zoom::Unfolded before(*zoom);
        foldNode(*zoom, node);
        folded_.insert_or_assign(&form, Folded{std::move(before), zoom::DrawnMembers(*zoom, node), node.Properties});
    }
}

void ZoomNodes::refresh(canvas::CanvasForm& form, canvas::LabelsD& node) {
    auto* zoom = dynamic_cast<zoom::ZoomForm*>(&form);
    const auto folded = folded_.extract(&form);
    if (!zoom || folded.empty()) {
        return;
    }
    const bool ready = node.Ready();
    folded.mapped().drawn.restore(*zoom, node);
    folded.mapped().before.restore(*zoom);
    node.setReady(ready);
    refreshFilters(*zoom);
    if (node.Properties != folded.mapped().entity) {
        zoom->touch();  // the dialog gave it another record
    }
}

}  // namespace orvent::editors
