#pragma once

#include <optional>

#include "canvas/canvas.h"
#include "canvas/pointer_event.h"

namespace orvent::canvas {

/// Whether a press and its release were a click on a node that was the only selected one before. A drag that comes back
/// is no click.
class SecondClick {
  public:
    /// Before the press selects.
    void pressed(const Canvas& canvas, const LabelsD& node, const PointerEvent& event) {
        if (canvas.SelectedLabels.Count() == 1 && canvas.SelectedLabels.Item(node.Index()) && !event.ctrl) {
            pressed_.emplace(event.at, event.slack);
        }
    }
    void moved(const PointerEvent& event) {
        if (pressed_) {
            pressed_->reach(event.at);
        }
    }
    void released(const PointerEvent& event) { isOne_ = pressed_ && !pressed_->reach(event.at); }
    void forget() { *this = {}; }

    bool isOne() const { return isOne_; }

  private:
    std::optional<DragStart> pressed_;
    bool isOne_ = false;
};

}  // namespace orvent::canvas
