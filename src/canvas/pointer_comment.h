#pragma once

#include <string>

#include "canvas/canvas_form.h"
#include "canvas/pointer_gesture.h"

namespace orvent::canvas {

/// The text of a comment is edited in its box.
class CommentEditing : public Gesture {
  public:
    CommentEditing(CanvasForm& canvas, const LabelsD& comment) : canvas_(canvas) {
        canvas_.EditedComment = comment.Index();
        canvas_.tellMarkers();
    }

    void take(const std::string& text) {
        LabelsD* node = canvas_.Labels.byIndex(canvas_.EditedComment);
        if (node && node->Comment() != text) {
            node->setComment(text);
            node->entity<entities::CommentProperties>()->Changed = true;
        }
    }

    PointerState state() const override { return PointerState::editing; }
    void cancel() override {
        canvas_.EditedComment = -1;
        canvas_.tellMarkers();
    }
    bool needsNode(std::int32_t node) const override { return node == canvas_.EditedComment; }
    bool endsWithTool() const override { return false; }

  private:
    CanvasForm& canvas_;
};

}  // namespace orvent::canvas
