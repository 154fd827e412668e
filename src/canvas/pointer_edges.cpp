// Drawing an edge, and dragging the handles of one.

#include <utility>

#include "canvas/canvas_pointer.h"

namespace orvent::canvas {

namespace {

bool isEnd(const LinesD& edge, const LabelsD& node) {
    return node.Index() == edge.FromLabel || node.Index() == edge.ToLabel;
}

}  // namespace

void CanvasPointer::beginEdge(LabelsD& source, Point inside, EdgeTypeCode edgeType) {
    if (grabNode_ != source.Index()) {
        showGrabber(source, inside);
    }
    canvas_.ConnectFromLabel = source.Index();
    const Point at = canvas_.GrabMark;
    LinesD& edge = canvas_.Lines.Add(at, at, at, source.Index(), edgeType);
    edge.FromGrabbingPoint = static_cast<std::int16_t>(canvas_.GrabbingPoint);
    drawnEdge_ = edge.Index();
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
    edge.ToLabel = target->Index();
    edge.setEnd(canvas_.GrabMark);
    edge.setToGrabbingPoint(static_cast<std::int16_t>(canvas_.GrabbingPoint));
    canvas_.Labels.byIndex(source)->StartingLines.Add(edge.Index());
    target->EndingLines.Add(edge.Index());
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
    const Point place = target.DrawRect(inside.x, inside.y);
    const auto grab = static_cast<std::int16_t>(canvas_.GrabbingPoint);
    grabNode_ = -1;
    LineNumbers LabelsD::*list = atStart ? &LabelsD::StartingLines : &LabelsD::EndingLines;
    std::int32_t& label = atStart ? edge.FromLabel : edge.ToLabel;
    if (LabelsD* former = canvas_.Labels.byIndex(label)) {
        (former->*list).Remove(edge.Index());
    }
    (target.*list).Add(edge.Index());
    label = target.Index();
    if (atStart) {
        edge.FromGrabbingPoint = grab;
        edge.setStart(place);
    } else {
        edge.setEnd(place);
        edge.setToGrabbingPoint(grab);
    }
    canvas_.rules().edgeCompleted(canvas_, edge);
}

}  // namespace orvent::canvas
