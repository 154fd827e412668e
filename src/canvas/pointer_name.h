#pragma once

#include <string>
#include <utility>

#include "canvas/canvas_form.h"
#include "canvas/pointer_gesture.h"
#include "canvas/view_state.h"

namespace orvent::canvas {

/// The name of a node is edited in its box. Nothing changes before it is taken.
class NameEditing : public Gesture {
  public:
    NameEditing(CanvasForm& canvas, ViewState& view, const LabelsD& node, std::string name)
        : canvas_(canvas), view_(view) {
        view_.NamedNode = node.Index();
        view_.NodeName = std::move(name);
        view_.tell();
        ++canvas_.typing;
    }
    ~NameEditing() override { --canvas_.typing; }

    PointerState state() const override { return PointerState::editing; }
    void cancel() override {
        view_.NamedNode = kNoNode;
        view_.tell();
    }
    bool needsNode(NodeNumber node) const override { return node == view_.NamedNode; }
    bool endsWithTool() const override { return false; }

  private:
    CanvasForm& canvas_;
    ViewState& view_;
};

}  // namespace orvent::canvas
