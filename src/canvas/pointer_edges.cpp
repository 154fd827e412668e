// Drawing an edge, and dragging the handles of one.

#include <utility>

#include "canvas/canvas_pointer.h"

namespace orvent::canvas {

namespace {

bool isEnd(const LinesD& edge, const LabelsD& node) {
    return node.Index() == edge.FromLabel() || node.Index() == edge.ToLabel();
}

}  // namespace

void CanvasPointer::beginEdge(LabelsD& source, Point inside, EdgeTypeCode edgeType) {
    if (grabNode_ != source.Index()) {
        showGrabber(source, inside);
    }
    canvas_.ConnectFromLabel = source.Index();
    const Point at = canvas_.GrabMark;
    const auto grab = static_cast<std::int16_t>(canvas_.GrabbingPoint);
    drawnEdge_ = canvas_.Lines.Add(at, at, at, source.Index(), edgeType, grab).Index();
    canvas_.RubberBand = true;
    begin(PointerState::drawing);
    canvas_.tellMarkers();
}

void CanvasPointer::followEdge(Point at) {
    canvas_.Lines.byIndex(drawnEdge_)->setEnd(at);
}

void CanvasPointer::setCorner(Point at) {
    canvas_.Lines.byIndex(drawnEdge_)->setMiddle(at);
}

/// The number of the edge that was being drawn; nothing is being drawn any more.
std::int32_t CanvasPointer::takeDrawnEdge() {
    canvas_.RubberBand = false;
    canvas_.ConnectPending = false;
    canvas_.ConnectFromLabel = -1;
    return std::exchange(drawnEdge_, -1);
}

void CanvasPointer::decideEdge(LabelsD* target) {
    const std::int32_t source = canvas_.ConnectFromLabel;
    LinesD& edge = *canvas_.Lines.byIndex(takeDrawnEdge());
    end();
    if (!target || target->Index() == source) {
        canvas_.Lines.Remove(edge.Index());
        return;
    }
    edge.attach(EdgeEnd::start, *canvas_.Labels.byIndex(source), edge.FromGrabbingPoint());
    edge.attach(EdgeEnd::end, *target, static_cast<std::int16_t>(canvas_.GrabbingPoint));
    canvas_.rules().edgeCompleted(canvas_, edge);
}

void CanvasPointer::dropHandle(const PointerEvent& event) {
    LinesD& edge = *edgeAt(captured_);
    const HandlePart part = partOfHandle(captured_.number);
    LabelsD* node = nodeAt(event.hit);
    end();
    if (event.hit.element == Element::outside) {
        return;
    }
    if (part != HandlePart::middle) {
        if (node && !isEnd(edge, *node)) {
            dropEnd(edge, part, *node, node->inside(event.at));
        }
    } else if (node && isEnd(edge, *node)) {
        canvas_.rules().middleOnOwnEnd(edge);
    } else {
        edge.setMiddle(event.at);
    }
}

void CanvasPointer::dropEnd(LinesD& edge, HandlePart part, LabelsD& target, Point inside) {
    const bool atStart = part == HandlePart::start;
    if (!canvas_.rules().mayRedirect(canvas_, edge, atStart, target)) {
        return;
    }
    target.DrawRect(inside.x, inside.y);
    grabNode_ = -1;
    edge.attach(atStart ? EdgeEnd::start : EdgeEnd::end, target, static_cast<std::int16_t>(canvas_.GrabbingPoint));
    canvas_.rules().edgeCompleted(canvas_, edge);
}

}  // namespace orvent::canvas
