#pragma once

#include <vector>

#include "canvas/canvas_form.h"
#include "canvas/canvas_host.h"
#include "canvas/pointer_gesture.h"
#include "canvas/view_state.h"

namespace orvent::canvas {

/// A node is dragged, alone or with the group to which it belonged; outlines show where they would go.
class NodeDrag : public Gesture {
  public:
    /// `group` is selected again as the drag begins, and moves as a whole; empty for the node alone.
    NodeDrag(CanvasForm& canvas, ViewState& view, ToolState& tools, const LabelsD& node, DragStart start,
             std::vector<NodeNumber> group);

    PointerState state() const override { return start_.begun() ? PointerState::draggingNode : PointerState::idle; }
    void follow(const PointerEvent& event) override;
    bool release(const PointerEvent& event) override;
    void cancel() override;
    bool needsNode(NodeNumber node) const override { return node == node_; }

  private:
    void hide();

    CanvasForm& canvas_;
    ViewState& view_;
    ToolState& tools_;
    NodeNumber node_;
    DragStart start_;
    std::vector<NodeNumber> group_;
};

/// A node is resized by its border; the outline follows the pointer, and the node takes it at the end.
class NodeResize : public Gesture {
  public:
    NodeResize(CanvasForm& canvas, ViewState& view, const LabelsD& node, Point inside);

    PointerState state() const override { return PointerState::resizing; }
    void follow(const PointerEvent& event) override;
    bool release(const PointerEvent& event) override;
    void cancel() override;
    bool needsNode(NodeNumber node) const override { return node == node_; }

  private:
    CanvasForm& canvas_;
    ViewState& view_;
    NodeNumber node_;
};

/// A rectangle is drawn on the picture, and the selection follows it.
class Crop : public Gesture {
  public:
    /// Its first corner is at `at`; it is shown once the drag has begun.
    Crop(CanvasForm& canvas, ViewState& view, Point at, DragStart start);

    PointerState state() const override { return start_.begun() ? PointerState::cropping : PointerState::idle; }
    void follow(const PointerEvent& event) override;
    bool release(const PointerEvent& event) override;
    void cancel() override;

  private:
    CanvasForm& canvas_;
    ViewState& view_;
    float CropStartX, CropStartY;
    DragStart start_;
    std::vector<NodeNumber> formerSelection_;
};

/// Shows where a dragged box would go, and scrolls or grows the picture near its borders.
void showDragged(CanvasForm& canvas, ViewState& view, const Box& box, Point at);

/// Shows a marker box no more.
void hideMarker(const ViewState& view, MarkerBox& marker);

}  // namespace orvent::canvas
