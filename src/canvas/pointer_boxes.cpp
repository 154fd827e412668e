// Moving and resizing nodes, and the crop rectangle.

#include "canvas/pointer_boxes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "canvas/node_moves.h"
#include "canvas/resize_zones.h"

namespace orvent::canvas {

namespace {

constexpr float kLeastOutline = 10;  // the node itself has larger minimums
constexpr float kLeastCrop = 15;
constexpr int kTagAtRest = 8;

bool holds(const Box& rect, const Box& node) {
    return node.Left > rect.Left && node.right() < rect.right() && node.Top > rect.Top && node.bottom() < rect.bottom();
}

}  // namespace

void showDragged(CanvasForm& canvas, ViewState& view, const Box& box, Point at) {
    view.DragOutline.show(box);
    if (view.window.dragOver(at, box.Width, box.Height)) {
        canvas.tellPicture();
    }
    view.tell();
}

void hideMarker(const ViewState& view, MarkerBox& marker) {
    marker.Visible = false;
    view.tell();
}

NodeDrag::NodeDrag(CanvasForm& canvas, ViewState& view, ToolState& tools, const LabelsD& node, DragStart start,
                   std::vector<NodeNumber> group)
    : canvas_(canvas), view_(view), tools_(tools), node_(node.Index()), start_(start), group_(std::move(group)) {
    const Point inside = node.inside(start.pressed());
    canvas_.DragStartX = inside.x;
    canvas_.DragStartY = inside.y;
}

void NodeDrag::follow(const PointerEvent& event) {
    const bool before = start_.begun();
    if (!start_.reach(event.at)) {
        return;
    }
    if (!before) {
        for (const NodeNumber index : group_) {
            canvas_.SelectedLabels.Add(index);
        }
    }
    const LabelsD& node = *canvas_.Labels.byIndex(node_);
    const Box box{event.at.x - canvas_.DragStartX, event.at.y - canvas_.DragStartY, node.Width(), node.Height()};
    view_.DragOutlines.clear();
    for (const NodeNumber index : group_) {
        const LabelsD* other = index == node_ ? nullptr : canvas_.Labels.byIndex(index);
        if (other && other->Visible()) {
            view_.DragOutlines.push_back({other->Left() + box.Left - node.Left(), other->Top() + box.Top - node.Top(),
                                          other->Width(), other->Height()});
        }
    }
    showDragged(canvas_, view_, box, event.at);
}

void NodeDrag::hide() {
    view_.DragOutlines.clear();
    hideMarker(view_, view_.DragOutline);
}

bool NodeDrag::release(const PointerEvent& event) {
    hide();
    const bool moved = event.at.x != start_.pressed().x || event.at.y != start_.pressed().y;
    if (!start_.begun() || !moved) {
        return true;
    }
    if (event.hit.element == Element::outside) {
        tools_.hint("Nothing is moved out of the picture.");
        return true;
    }
    LabelsD& node = *canvas_.Labels.byIndex(node_);
    const Box box{event.at.x - canvas_.DragStartX, event.at.y - canvas_.DragStartY, node.Width(), node.Height()};
    if (group_.empty()) {
        reshape(canvas_, node, box);
    } else {
        moveNodes(canvas_, group_, box.Left - node.Left(), box.Top - node.Top());
    }
    return true;
}

void NodeDrag::cancel() {
    if (start_.begun() && !group_.empty()) {
        canvas_.SelectedLabels.Clear();
        canvas_.SelectedLabels.Add(node_);
    }
    hide();
}

NodeResize::NodeResize(CanvasForm& canvas, ViewState& view, const LabelsD& node, Point inside)
    : canvas_(canvas), view_(view), node_(node.Index()) {
    view_.ResizeLabel.show(node.box());
    view_.ResizeLabel.Tag = resizeZoneAt(inside.x, inside.y, node.Width(), node.Height()).number;
    view_.tell();
}

void NodeResize::follow(const PointerEvent& event) {
    const LabelsD& node = *canvas_.Labels.byIndex(node_);
    const Point inside = node.inside(event.at);
    const ResizeZone& zone = resizeZone(view_.ResizeLabel.Tag);
    MarkerBox& outline = view_.ResizeLabel;
    if (zone.left) {
        outline.Left = node.Left() + inside.x;
        outline.Width = std::max(node.Width() - inside.x, kLeastOutline);
    } else if (zone.right) {
        outline.Width = std::max(inside.x, kLeastOutline);
    }
    if (zone.top) {
        outline.Top = node.Top() + inside.y;
        outline.Height = std::max(node.Height() - inside.y, kLeastOutline);
    } else if (zone.bottom) {
        outline.Height = std::max(inside.y, kLeastOutline);
    }
    view_.tell();
}

bool NodeResize::release(const PointerEvent&) {
    LabelsD& node = *canvas_.Labels.byIndex(node_);
    const Box outline = view_.ResizeLabel;
    view_.ResizeLabel.Tag = kTagAtRest;
    hideMarker(view_, view_.ResizeLabel);
    if (outline != node.box()) {
        reshape(canvas_, node, outline);
    }
    return true;
}

void NodeResize::cancel() {
    hideMarker(view_, view_.ResizeLabel);
}

Crop::Crop(CanvasForm& canvas, ViewState& view, Point at, DragStart start)
    : canvas_(canvas),
      view_(view),
      CropStartX(at.x),
      CropStartY(at.y),
      start_(start),
      formerSelection_(canvas.SelectedLabels.members()) {
    if (start_.begun()) {
        view_.CroppingRect.show({at.x, at.y, kLeastCrop, kLeastCrop});
        view_.tell();
    }
}

void Crop::follow(const PointerEvent& event) {
    if (!start_.reach(event.at)) {
        return;
    }
    MarkerBox& rect = view_.CroppingRect;
    rect.Visible = true;
    rect.Left = std::min(event.at.x, CropStartX);
    rect.Width = std::max(std::abs(event.at.x - CropStartX), kLeastCrop);
    rect.Top = std::min(event.at.y, CropStartY);
    rect.Height = std::max(std::abs(event.at.y - CropStartY), kLeastCrop);
    view_.tell();
    // The selection follows the rectangle as it grows and shrinks.
    for (const NodeNumber index : canvas_.SelectedLabels.members()) {
        if (const LabelsD* node = canvas_.Labels.byIndex(index); node && !holds(rect, node->box())) {
            canvas_.SelectedLabels.Remove(index);
        }
    }
    for (const LabelsD& node : canvas_.Labels) {
        if (holds(rect, node.box())) {
            canvas_.SelectedLabels.Add(node.Index());
        }
    }
}

bool Crop::release(const PointerEvent&) {
    hideMarker(view_, view_.CroppingRect);
    return true;
}

void Crop::cancel() {
    if (!start_.begun()) {
        return;
    }
    canvas_.SelectedLabels.Clear();
    for (const NodeNumber index : formerSelection_) {
        canvas_.SelectedLabels.Add(index);
    }
    hideMarker(view_, view_.CroppingRect);
}

}  // namespace orvent::canvas
