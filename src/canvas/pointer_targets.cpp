#include "canvas/pointer_targets.h"

#include <string>

#include "canvas/canvas_rules.h"

namespace orvent::canvas {

Hit PointerTargets::meant(const Hit& hit) const {
    if (hit.element == Element::line) {
        const std::string& tool = tools_.DrawMode();
        return tool == "Crop" || canvas_.rules().places(tool) ? Hit{} : hit;
    }
    const LinesD* edge = edgeAt(hit);
    const bool drawing = canvas_.rules().edgeTypeOf(tools_.DrawMode()).has_value();
    return edge && drawing && isGiven(hit.node) && !edge->Selected() ? Hit::onNode(hit.node) : hit;
}

LabelsD* PointerTargets::nodeAt(const Hit& hit) const {
    return hit.element == Element::node ? canvas_.Labels.byIndex(hit.node) : nullptr;
}

LinesD* PointerTargets::edgeAt(const Hit& hit) const {
    return canvas_.Lines.byIndex(hit.edge);
}

}  // namespace orvent::canvas
