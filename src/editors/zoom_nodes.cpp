#include "editors/zoom_nodes.h"

#include <utility>

#include "zoom/view_filters.h"

namespace orvent::editors {

void ZoomNodes::prepare(canvas::CanvasForm& form, canvas::LabelsD& node) {
    if (auto* zoom = dynamic_cast<zoom::ZoomForm*>(&form)) {
        unfolded_.emplace(*zoom);
        foldNode(*zoom, node);
        entity_ = node.Properties;
    }
}

void ZoomNodes::refresh(canvas::CanvasForm& form, canvas::LabelsD& node) {
    auto* zoom = dynamic_cast<zoom::ZoomForm*>(&form);
    if (!zoom || !unfolded_) {
        return;
    }
    const bool ready = node.Ready();
    std::exchange(unfolded_, std::nullopt)->restore(*zoom);
    node.setReady(ready);
    refreshFilters(*zoom);
    if (node.Properties != entity_) {
        zoom->touch();  // the dialog gave it another record
    }
    entity_ = std::int16_t{0};
}

}  // namespace orvent::editors
