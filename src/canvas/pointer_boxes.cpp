// Moving and resizing a node, and the crop rectangle.

#include <algorithm>
#include <cmath>

#include "canvas/canvas_pointer.h"
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

void CanvasPointer::beginMove(Point inside) {
    canvas_.DragStartX = inside.x;
    canvas_.DragStartY = inside.y;
    begin(PointerState::draggingNode);
}

/// Shows where a dragged box would go, and scrolls or grows the picture near its borders.
void CanvasPointer::drag(Point corner, float width, float height, Point at) {
    canvas_.DragOutline.show({corner.x, corner.y, width, height});
    canvas_.PicForm.dragOver(at, width, height);
    canvas_.tellMarkers();
}

void CanvasPointer::dropNode(const PointerEvent& event) {
    LabelsD& node = *nodeAt(captured_);
    end();
    const bool moved = event.at.x != pressedAt_.x || event.at.y != pressedAt_.y;
    if (moved && event.hit.element != Element::outside) {
        node.setBox({event.at.x - canvas_.DragStartX, event.at.y - canvas_.DragStartY, node.Width(), node.Height()});
    }
}

void CanvasPointer::beginResize(const LabelsD& node, Point inside) {
    canvas_.ResizeLabel.show(node.box());
    canvas_.ResizeLabel.Tag = resizeZoneAt(inside.x, inside.y, node.Width(), node.Height()).number;
    begin(PointerState::resizing);
    canvas_.tellMarkers();
}

void CanvasPointer::followResize(const LabelsD& node, Point inside) {
    const ResizeZone& zone = resizeZone(canvas_.ResizeLabel.Tag);
    MarkerBox& outline = canvas_.ResizeLabel;
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
    canvas_.tellMarkers();
}

void CanvasPointer::dropResize(LabelsD& node) {
    const Box outline = canvas_.ResizeLabel;
    canvas_.ResizeLabel.Tag = kTagAtRest;
    end();
    if (outline != node.box()) {
        node.setBox(outline);
    }
}

void CanvasPointer::beginCrop(Point at) {
    formerSelection_ = canvas_.SelectedLabels.members();
    canvas_.CropStartX = at.x;
    canvas_.CropStartY = at.y;
    canvas_.CroppingRect.show({at.x, at.y, kLeastCrop, kLeastCrop});
    begin(PointerState::cropping);
    canvas_.tellMarkers();
}

void CanvasPointer::followCrop(Point at) {
    MarkerBox& rect = canvas_.CroppingRect;
    rect.Left = std::min(at.x, canvas_.CropStartX);
    rect.Width = std::max(std::abs(at.x - canvas_.CropStartX), kLeastCrop);
    rect.Top = std::min(at.y, canvas_.CropStartY);
    rect.Height = std::max(std::abs(at.y - canvas_.CropStartY), kLeastCrop);
    canvas_.tellMarkers();
    // The selection follows the rectangle as it grows and shrinks.
    for (const std::int32_t index : canvas_.SelectedLabels.members()) {
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

}  // namespace orvent::canvas
