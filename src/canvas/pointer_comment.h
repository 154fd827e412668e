#pragma once

#include <string>

#include "canvas/canvas_form.h"
#include "canvas/pointer_gesture.h"
#include "canvas/view_state.h"

namespace orvent::canvas {

/// The text of a comment is edited in its box.
class CommentEditing : public Gesture {
  public:
    CommentEditing(CanvasForm& canvas, ViewState& view, const LabelsD& comment) : canvas_(canvas), view_(view) {
        view_.EditedComment = comment.Index();
        view_.tell();
        ++canvas_.typing;
    }
    ~CommentEditing() override { --canvas_.typing; }

    void take(const std::string& text) {
        LabelsD* node = canvas_.Labels.byIndex(view_.EditedComment);
        if (node && node->Comment() != text) {
            node->setComment(text);
            node->entity<entities::CommentProperties>()->Changed = true;
        }
    }

    PointerState state() const override { return PointerState::editing; }
    void cancel() override {
        view_.EditedComment = kNoNode;
        view_.tell();
    }
    bool needsNode(NodeNumber node) const override { return node == view_.EditedComment; }
    bool endsWithTool() const override { return false; }

  private:
    CanvasForm& canvas_;
    ViewState& view_;
};

}  // namespace orvent::canvas
