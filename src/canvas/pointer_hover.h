#pragma once

#include <cstdint>

#include "canvas/canvas_form.h"
#include "canvas/canvas_host.h"
#include "canvas/view_state.h"

namespace orvent::canvas {

/// What a canvas shows of the place of the pointer while no button is held: the grab point of a node, the highlight of
/// a selected edge, the pointer's shape.
class PointerHover {
  public:
    PointerHover(CanvasForm& canvas, ViewState& view, ToolState& tools) : canvas_(canvas), view_(view), tools_(tools) {}

    void overPicture();
    void overNode(LabelsD& node, Point inside);
    void overHandle(LinesD& edge);

    /// Shows the grab point that is meant by a place inside the node, and keeps it in `GrabMark` and `GrabbingPoint`.
    void showGrabber(LabelsD& node, Point inside);
    void hideGrabber();
    /// The node whose grab point was found last.
    NodeNumber grabNode() const { return grabNode_; }
    /// The grab point is not the one meant by the pointer any more.
    void forgetGrabNode() { grabNode_ = kNoNode; }

  private:
    void leaveNode();
    void leaveEdge();

    CanvasForm& canvas_;
    ViewState& view_;
    ToolState& tools_;
    NodeNumber grabNode_ = kNoNode;
};

}  // namespace orvent::canvas
