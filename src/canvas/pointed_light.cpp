#include "canvas/pointed_light.h"

namespace orvent::canvas {

void PointedLight::follow() {
    const PointerState state = pointer_.state();
    if (state == PointerState::drawing || state == PointerState::pending || state == PointerState::joining) {
        node_ = kNoNode;
        stale_ = true;
        return;
    }
    const bool rests = state == PointerState::idle && form_.OverLabel;
    const LabelsD* node = rests ? form_.Labels.byIndex(form_.CurrentNode) : nullptr;
    const NodeNumber now = node ? node->Index() : kNoNode;
    if ((now == node_ || form_.light().lasts) && !stale_) {
        return;
    }
    node_ = now;
    stale_ = false;
    form_.setLight(node ? form_.rules().pathOf(form_, *node) : Light{});
}

}  // namespace orvent::canvas
