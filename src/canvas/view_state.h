#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "canvas/markers.h"
#include "canvas/picture_window.h"

namespace orvent::canvas {

/// What one view of a canvas has of its own: which part of the picture it shows, and what the gesture that was begun in
/// it shows above the graph. Twips. Several views may show one canvas, each with its own state.
class ViewState {
  public:
    /// The canvas outlives its views.
    explicit ViewState(Canvas& canvas) : window(canvas.PicForm) {}

    PictureWindow window;

    Point Grabber;  ///< marker of the grab point meant by the pointer
    bool GrabberVisible = false;
    MarkerBox CroppingRect;
    MarkerBox ResizeLabel;               ///< outline of the node that is being resized
    MarkerBox DragOutline;               ///< where a dragged node or handle would go
    std::vector<Box> DragOutlines;       ///< where the other nodes of a dragged group would go
    NodeNumber EditedComment = kNoNode;  ///< the comment whose text is being edited
    NodeNumber NamedNode = kNoNode;      ///< the node whose name is being edited
    std::string NodeName;                ///< what its editor begins with

    std::function<void()> changed;  ///< a marker or the place of the window has to be shown again
    void tell() const {
        if (changed) {
            changed();
        }
    }
};

}  // namespace orvent::canvas
