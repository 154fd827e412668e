#pragma once

#include "canvas/canvas_form.h"
#include "canvas/canvas_host.h"
#include "canvas/pointer_gesture.h"
#include "canvas/pointer_hover.h"
#include "canvas/view_state.h"

namespace orvent::canvas {

/// An edge is drawn from a node. It is a member of `Lines` without a target meanwhile.
class EdgeDrawing : public Gesture {
  public:
    EdgeDrawing(CanvasForm& canvas, ViewState& view, ToolState& tools, PointerHover& hover, LabelsD& source,
                Point inside, EdgeTypeCode edgeType);

    PointerState state() const override;
    void follow(const PointerEvent& event) override;
    void pressAside(Point at) override;
    bool release(const PointerEvent& event) override;
    bool hover(const Hit& hit) override;
    void cancel() override;
    bool needsNode(NodeNumber node) const override { return node == source_; }
    bool needsEdge(EdgeNumber edge) const override { return edge == edge_; }

  private:
    void letGo();

    CanvasForm& canvas_;
    ViewState& view_;
    ToolState& tools_;
    PointerHover& hover_;
    NodeNumber source_;
    EdgeNumber edge_;
    bool lit_ = false;  ///< its possible ends are
};

/// An edge is drawn by the keyboard: its source is settled, and a key will settle its target.
class EdgeJoining : public Gesture {
  public:
    EdgeJoining(CanvasForm& canvas, ToolState& tools, const LabelsD& source, EdgeTypeCode edgeType);

    /// The edge leads to that node, by the grab points that lie nearest to each other.
    void join(const LabelsD& target);

    PointerState state() const override { return PointerState::joining; }
    void cancel() override;
    bool needsNode(NodeNumber node) const override { return node == source_; }

  private:
    CanvasForm& canvas_;
    ToolState& tools_;
    NodeNumber source_;
    EdgeTypeCode edgeType_;
};

/// A handle of an edge is held, and dragged once the pointer moves.
class HandleDrag : public Gesture {
  public:
    HandleDrag(CanvasForm& canvas, ViewState& view, ToolState& tools, PointerHover& hover, HandleNumber handle)
        : canvas_(canvas), view_(view), tools_(tools), hover_(hover), handle_(handle) {}

    PointerState state() const override { return begun_ ? PointerState::draggingHandle : PointerState::idle; }
    void follow(const PointerEvent& event) override;
    bool release(const PointerEvent& event) override;
    void cancel() override;
    bool needsEdge(EdgeNumber edge) const override { return edge == edgeOfHandle(handle_); }

  private:
    void drop(LinesD& edge, LabelsD* node, Point at);
    void dropEnd(LinesD& edge, HandlePart part, LabelsD& target, Point inside);

    CanvasForm& canvas_;
    ViewState& view_;
    ToolState& tools_;
    PointerHover& hover_;
    HandleNumber handle_;
    bool begun_ = false;
};

}  // namespace orvent::canvas
