#include "editors/zoom_nodes.h"

#include <utility>

#include "zoom/view_filters.h"

namespace orvent::editors {

void ZoomNodes::prepare(canvas::CanvasForm& form, canvas::LabelsD& node) {
    if (auto* zoom = dynamic_cast<zoom::ZoomView*>(&form)) {
        zoom::ExpandedState before(*zoom);
        CollapseForAWhile(*zoom, node);
        collapsed_.insert_or_assign(&form,
                                    Collapsed{std::move(before), zoom::DrawnMembers(*zoom, node), node.entityShare()});
    }
}

void ZoomNodes::refresh(canvas::CanvasForm& form, canvas::LabelsD& node) {
    auto* zoom = dynamic_cast<zoom::ZoomView*>(&form);
    const auto collapsed = collapsed_.extract(&form);
    if (!zoom || collapsed.empty()) {
        return;
    }
    const bool ready = node.Ready();
    collapsed.mapped().drawn.restore(*zoom, node);
    collapsed.mapped().before.restore(*zoom);
    node.setReady(ready);
    refreshFilters(*zoom);
    if (node.entityShare() != collapsed.mapped().entity) {
        zoom->touch();  // the dialog gave it another record
    }
}

}  // namespace orvent::editors
