#pragma once

#include <vector>

#include "canvas/canvas_form.h"
#include "canvas/pointer_gesture.h"

namespace orvent::canvas {

/// A node is dragged; an outline shows where it would go.
class NodeDrag : public Gesture {
  public:
    NodeDrag(CanvasForm& canvas, const LabelsD& node, Point pressed);

    PointerState state() const override { return PointerState::draggingNode; }
    void follow(const PointerEvent& event) override;
    bool release(const PointerEvent& event) override;
    void cancel() override;
    bool needsNode(std::int32_t node) const override { return node == node_; }

  private:
    CanvasForm& canvas_;
    std::int32_t node_;
    Point pressed_;
};

/// A node is resized by its border; the outline follows the pointer, and the node takes it at the end.
class NodeResize : public Gesture {
  public:
    NodeResize(CanvasForm& canvas, const LabelsD& node, Point inside);

    PointerState state() const override { return PointerState::resizing; }
    void follow(const PointerEvent& event) override;
    bool release(const PointerEvent& event) override;
    void cancel() override;
    bool needsNode(std::int32_t node) const override { return node == node_; }

  private:
    CanvasForm& canvas_;
    std::int32_t node_;
};

/// A rectangle is drawn on the picture, and the selection follows it.
class Crop : public Gesture {
  public:
    Crop(CanvasForm& canvas, Point at);

    PointerState state() const override { return PointerState::cropping; }
    void follow(const PointerEvent& event) override;
    bool release(const PointerEvent& event) override;
    void cancel() override;

  private:
    CanvasForm& canvas_;
    float CropStartX, CropStartY;
    std::vector<std::int32_t> formerSelection_;
};

/// Shows where a dragged box would go, and scrolls or grows the picture near its borders.
void showDragged(CanvasForm& canvas, const Box& box, Point at);

/// Shows a marker box no more.
void hideMarker(CanvasForm& canvas, MarkerBox& marker);

}  // namespace orvent::canvas
