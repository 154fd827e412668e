#pragma once

#include "canvas/canvas_form.h"
#include "canvas/canvas_host.h"
#include "canvas/pointer_event.h"

namespace orvent::canvas {

/// Which element of a canvas an event of the pointer is meant for, by the tool in use.
class PointerTargets {
  public:
    PointerTargets(CanvasForm& canvas, const ToolState& tools) : canvas_(canvas), tools_(tools) {}

    /// What a press or a move is meant for. With an edge tool a node is pressed to draw from it, so a handle above it
    /// counts only while its edge is selected. A line counts unless the tool needs the picture below it.
    Hit meant(const Hit& hit) const;

    /// The node that is hit, and the edge that is hit by its line or a handle; or nothing.
    LabelsD* nodeAt(const Hit& hit) const;
    LinesD* edgeAt(const Hit& hit) const;

  private:
    CanvasForm& canvas_;
    const ToolState& tools_;
};

}  // namespace orvent::canvas
