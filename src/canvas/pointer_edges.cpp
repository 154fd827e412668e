// Drawing an edge, and dragging the handles of one.

#include "canvas/pointer_edges.h"

#include "canvas/canvas_rules.h"
#include "canvas/pointer_boxes.h"

namespace orvent::canvas {

namespace {

bool isEnd(const LinesD& edge, const LabelsD& node) {
    return node.Index() == edge.FromLabel() || node.Index() == edge.ToLabel();
}

}  // namespace

EdgeDrawing::EdgeDrawing(CanvasForm& canvas, PointerHover& hover, LabelsD& source, Point inside, EdgeTypeCode edgeType)
    : canvas_(canvas), source_(source.Index()) {
    if (hover.grabNode() != source_) {
        hover.showGrabber(source, inside);
    }
    const Point at = canvas_.GrabMark;
    const auto grab = static_cast<std::int16_t>(canvas_.GrabbingPoint);
    edge_ = canvas_.Lines.Add(at, at, at, source_, edgeType, grab).Index();
    canvas_.ConnectFromLabel = source_;
    canvas_.RubberBand = true;
    canvas_.tellMarkers();
}

PointerState EdgeDrawing::state() const {
    return canvas_.ConnectPending ? PointerState::pending : PointerState::drawing;
}

void EdgeDrawing::follow(const PointerEvent& event) {
    canvas_.Lines.byIndex(edge_)->setEnd(event.at);
}

void EdgeDrawing::pressAside(Point at) {
    canvas_.Lines.byIndex(edge_)->setMiddle(at);
}

bool EdgeDrawing::release(const PointerEvent&) {
    canvas_.ConnectPending = true;
    return false;
}

/// The canvas draws nothing any more, and the edge is on its own.
LinesD& EdgeDrawing::takeEdge() {
    canvas_.RubberBand = false;
    canvas_.ConnectPending = false;
    canvas_.ConnectFromLabel = -1;
    canvas_.tellMarkers();
    return *canvas_.Lines.byIndex(edge_);
}

bool EdgeDrawing::hover(const Hit& hit) {
    if (!canvas_.ConnectPending || (hit.element != Element::node && hit.element != Element::picture)) {
        return false;
    }
    LabelsD* target = hit.element == Element::node ? canvas_.Labels.byIndex(hit.number) : nullptr;
    LinesD& edge = takeEdge();
    if (!target || target->Index() == source_) {
        canvas_.Lines.Remove(edge_);
        return true;
    }
    edge.attach(EdgeEnd::start, *canvas_.Labels.byIndex(source_), edge.FromGrabbingPoint());
    edge.attach(EdgeEnd::end, *target, static_cast<std::int16_t>(canvas_.GrabbingPoint));
    canvas_.rules().edgeCompleted(canvas_, edge);
    return true;
}

void EdgeDrawing::cancel() {
    takeEdge();
    canvas_.Lines.Remove(edge_);
}

void HandleDrag::follow(const PointerEvent& event) {
    begun_ = true;
    showDragged(canvas_, {event.at.x - kHandleSize / 2, event.at.y - kHandleSize / 2, kHandleSize, kHandleSize},
                event.at);
}

void HandleDrag::cancel() {
    hideMarker(canvas_, canvas_.DragOutline);
}

bool HandleDrag::release(const PointerEvent& event) {
    if (begun_) {
        hideMarker(canvas_, canvas_.DragOutline);
        if (event.hit.element != Element::outside) {
            drop(*canvas_.Lines.byIndex(edgeOfHandle(handle_)),
                 event.hit.element == Element::node ? canvas_.Labels.byIndex(event.hit.number) : nullptr, event.at);
        }
    }
    return true;
}

void HandleDrag::drop(LinesD& edge, LabelsD* node, Point at) {
    const HandlePart part = partOfHandle(handle_);
    if (part != HandlePart::middle) {
        if (node && !isEnd(edge, *node)) {
            dropEnd(edge, part, *node, node->inside(at));
        }
    } else if (node && isEnd(edge, *node)) {
        canvas_.rules().middleOnOwnEnd(edge);
    } else {
        edge.setMiddle(at);
    }
}

void HandleDrag::dropEnd(LinesD& edge, HandlePart part, LabelsD& target, Point inside) {
    const bool atStart = part == HandlePart::start;
    if (!canvas_.rules().mayRedirect(canvas_, edge, atStart, target)) {
        return;
    }
    target.DrawRect(inside.x, inside.y);
    hover_.forgetGrabNode();
    edge.attach(atStart ? EdgeEnd::start : EdgeEnd::end, target, static_cast<std::int16_t>(canvas_.GrabbingPoint));
    canvas_.rules().edgeCompleted(canvas_, edge);
}

}  // namespace orvent::canvas
