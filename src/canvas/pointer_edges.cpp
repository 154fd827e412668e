// Drawing an edge, and dragging the handles of one.

#include "canvas/pointer_edges.h"

#include <algorithm>
#include <utility>

#include "canvas/canvas_rules.h"
#include "canvas/pointer_boxes.h"
#include "canvas/straighten.h"

namespace orvent::canvas {

namespace {

bool isEnd(const LinesD& edge, const LabelsD& node) {
    return node.Index() == edge.FromLabel() || node.Index() == edge.ToLabel();
}

/// Dims the nodes at which an edge of that kind from the source could not end.
void lightEnds(CanvasForm& canvas, EdgeTypeCode edgeType, const LabelsD& source) {
    Light light;
    light.dimsEdges = false;
    for (const LabelsD& node : canvas.Labels) {
        if (node.Index() == source.Index() || canvas.rules().mayRelate(canvas, edgeType, source, node)) {
            light.nodes.push_back(node.Index());
        }
    }
    std::sort(light.nodes.begin(), light.nodes.end());
    canvas.setLight(std::move(light));
}

}  // namespace

EdgeDrawing::EdgeDrawing(CanvasForm& canvas, ViewState& view, ToolState& tools, PointerHover& hover, LabelsD& source,
                         Point inside, EdgeTypeCode edgeType)
    : canvas_(canvas), view_(view), tools_(tools), hover_(hover), source_(source.Index()) {
    if (hover.grabNode() != source_) {
        hover.showGrabber(source, inside);
    }
    const Point at = canvas_.GrabMark;
    const auto grab = static_cast<std::int16_t>(canvas_.GrabbingPoint);
    edge_ = canvas_.Lines.Add(at, at, at, source_, edgeType, grab).Index();
    canvas_.ConnectFromLabel = source_;
    canvas_.RubberBand = true;
    view_.tell();
}

PointerState EdgeDrawing::state() const {
    return canvas_.ConnectPending ? PointerState::pending : PointerState::drawing;
}

void EdgeDrawing::follow(const PointerEvent& event) {
    LinesD& edge = *canvas_.Lines.byIndex(edge_);
    const LabelsD& source = *canvas_.Labels.byIndex(source_);
    if (!std::exchange(lit_, true)) {
        lightEnds(canvas_, edge.EdgeType(), source);
    }
    edge.setEnd(event.at);
    LabelsD* target = canvas_.Labels.byIndex(event.hit.node);
    if (target && target->Index() != source_ && canvas_.light().holdsNode(target->Index())) {
        hover_.showGrabber(*target, target->inside(event.at));
    } else {
        hover_.hideGrabber();
    }
}

void EdgeDrawing::pressAside(Point at) {
    canvas_.Lines.byIndex(edge_)->placeMiddle(at);
}

bool EdgeDrawing::release(const PointerEvent&) {
    canvas_.ConnectPending = true;
    return false;
}

/// The canvas draws nothing any more, and the edge is on its own.
void EdgeDrawing::letGo() {
    canvas_.RubberBand = false;
    canvas_.ConnectPending = false;
    canvas_.ConnectFromLabel = kNoNode;
    canvas_.setLight({});
    view_.tell();
}

bool EdgeDrawing::hover(const Hit& hit) {
    if (!canvas_.ConnectPending || hit.element == Element::handle || hit.element == Element::outside) {
        return false;
    }
    LabelsD* target = hit.element == Element::node ? canvas_.Labels.byIndex(hit.node) : nullptr;
    letGo();
    LinesD& edge = *canvas_.Lines.byIndex(edge_);
    if (!target || target->Index() == source_) {
        canvas_.Lines.Remove(edge_);
        tools_.hint(target ? "An edge ends at another node than it starts from." : "An edge ends at a node.");
        return true;
    }
    edge.attach(EdgeEnd::start, *canvas_.Labels.byIndex(source_), edge.FromGrabbingPoint());
    edge.attach(EdgeEnd::end, *target, static_cast<std::int16_t>(canvas_.GrabbingPoint));
    const NodeNumber to = target->Index();
    const EdgeTypeCode kind = edge.EdgeType();
    canvas_.rules().edgeCompleted(canvas_, edge);
    const LinesD* drawn = canvas_.Lines.byIndex(edge_);
    if (!drawn) {  // refused, or turned round
        drawn = canvas_.Lines.FindConnectingLine(to, source_, kind, false);
    }
    if (drawn && drawn->Index() >= edge_) {
        canvas_.edgeDrawn(*drawn);
    }
    return true;
}

void EdgeDrawing::cancel() {
    letGo();
    canvas_.Lines.Remove(edge_);
}

EdgeJoining::EdgeJoining(CanvasForm& canvas, ToolState& tools, const LabelsD& source, EdgeTypeCode edgeType)
    : canvas_(canvas), tools_(tools), source_(source.Index()), edgeType_(edgeType) {
    lightEnds(canvas_, edgeType, source);
    tools_.hint("Go to the other node and press Enter.");
}

void EdgeJoining::cancel() {
    canvas_.setLight({});
}

void EdgeJoining::join(const LabelsD& target) {
    canvas_.setLight({});
    if (target.Index() == source_) {
        tools_.hint("An edge ends at another node than it starts from.");
        return;
    }
    const GrabPair points = nearestGrabPoints(*canvas_.Labels.byIndex(source_), target);
    if (LinesD* edge =
            canvas_.Lines.addFullLine(source_, points.from, target.Index(), points.to, edgeType_, AngleNone, 0)) {
        const EdgeNumber number = edge->Index();
        canvas_.rules().edgeCompleted(canvas_, *edge);
        if (const LinesD* drawn = canvas_.Lines.byIndex(number)) {
            canvas_.edgeDrawn(*drawn);
        }
    }
}

void HandleDrag::follow(const PointerEvent& event) {
    begun_ = true;
    showDragged(canvas_, view_, {event.at.x - kHandleSize / 2, event.at.y - kHandleSize / 2, kHandleSize, kHandleSize},
                event.at);
}

void HandleDrag::cancel() {
    hideMarker(view_, view_.DragOutline);
}

bool HandleDrag::release(const PointerEvent& event) {
    if (begun_) {
        hideMarker(view_, view_.DragOutline);
        if (event.hit.element == Element::outside) {
            tools_.hint("Nothing is moved out of the picture.");
        } else {
            drop(*canvas_.Lines.byIndex(edgeOfHandle(handle_)),
                 event.hit.element == Element::node ? canvas_.Labels.byIndex(event.hit.node) : nullptr, event.at);
        }
    }
    return true;
}

void HandleDrag::drop(LinesD& edge, LabelsD* node, Point at) {
    const HandlePart part = partOfHandle(handle_);
    if (part != HandlePart::middle) {
        if (!node) {
            tools_.hint("The end of an edge goes to a node.");
        } else if (!isEnd(edge, *node)) {
            dropEnd(edge, part, *node, node->inside(at));
        }
    } else if (node && isEnd(edge, *node)) {
        canvas_.rules().middleOnOwnEnd(edge);
    } else {
        edge.placeMiddle(at);
    }
}

void HandleDrag::dropEnd(LinesD& edge, HandlePart part, LabelsD& target, Point inside) {
    const bool atStart = part == HandlePart::start;
    if (!canvas_.rules().mayRedirect(canvas_, edge, atStart, target)) {
        tools_.hint(atStart ? "This edge cannot start there." : "This edge cannot end there.");
        return;
    }
    target.DrawRect(inside.x, inside.y);
    hover_.forgetGrabNode();
    edge.attach(atStart ? EdgeEnd::start : EdgeEnd::end, target, static_cast<std::int16_t>(canvas_.GrabbingPoint));
    canvas_.rules().edgeCompleted(canvas_, edge);
}

}  // namespace orvent::canvas
