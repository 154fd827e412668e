// Moves without a button: the grab point and the handles under the pointer, and its shape.

#include "canvas/pointer_hover.h"

#include "canvas/canvas_rules.h"
#include "canvas/resize_zones.h"

namespace orvent::canvas {

namespace {

constexpr std::int16_t kPointerDefault = 0;
constexpr std::int16_t kPointerSizeAll = 5;

}  // namespace

void PointerHover::overPicture() {
    if (canvas_.OverLabel) {
        hideGrabber();
        leaveNode();
    }
    if (canvas_.OverLine) {
        canvas_.ActiveEdge = kNoEdge;
        leaveEdge();
    }
    tools_.pictureReached();
}

void PointerHover::overNode(LabelsD& node, Point inside) {
    leaveEdge();
    if (canvas_.CurrentNode != node.Index()) {
        leaveNode();
    }
    canvas_.OverLabel = true;
    canvas_.CurrentNode = node.Index();
    const std::string& tool = tools_.DrawMode();
    if (canvas_.rules().edgeTypeOf(tool)) {
        showGrabber(node, inside);
        return;
    }
    hideGrabber();
    if (tool == "Resize") {
        const ResizeZone& zone = resizeZoneAt(inside.x, inside.y, node.Width(), node.Height());
        view_.ResizeLabel.Tag = zone.number;
        node.setMousePointer(zone.MousePointer);
    } else {
        node.setMousePointer(tool == "Move" ? kPointerSizeAll : kPointerDefault);
    }
}

void PointerHover::overHandle(LinesD& edge) {
    hideGrabber();
    leaveNode();
    if (canvas_.CurrentEdge != edge.Index()) {
        leaveEdge();
    }
    canvas_.CurrentEdge = edge.Index();
    canvas_.OverLine = edge.Selected();
    if (edge.HighLighted() != edge.Selected()) {
        edge.setHighLighted(edge.Selected());
    }
}

void PointerHover::leaveNode() {
    if (LabelsD* node = canvas_.OverLabel ? canvas_.Labels.byIndex(canvas_.CurrentNode) : nullptr) {
        node->setMousePointer(kPointerDefault);
    }
    canvas_.OverLabel = false;
}

void PointerHover::leaveEdge() {
    if (LinesD* edge = canvas_.OverLine ? canvas_.Lines.byIndex(canvas_.CurrentEdge) : nullptr) {
        edge->setHighLighted(false);
    }
    canvas_.OverLine = false;
}

void PointerHover::showGrabber(LabelsD& node, Point inside) {
    view_.GrabberVisible = true;
    view_.Grabber = canvas_.GrabMark = node.DrawRect(inside.x, inside.y);
    grabNode_ = node.Index();
    view_.tell();
}

void PointerHover::hideGrabber() {
    grabNode_ = kNoNode;
    if (view_.GrabberVisible) {
        view_.GrabberVisible = false;
        view_.tell();
    }
}

}  // namespace orvent::canvas
