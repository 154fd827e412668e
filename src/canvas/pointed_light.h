#pragma once

#include "canvas/canvas_pointer.h"

namespace orvent::canvas {

/// Lights the path of the node on which the pointer rests. It is worked out anew only when the pointer went on or the
/// graph changed. What a gesture lights is left alone, and so is what lasts.
class PointedLight : private CanvasListener {
  public:
    PointedLight(CanvasForm& form, const CanvasPointer& pointer)
        : form_(form), pointer_(pointer), subscription_(form.listen(*this)) {}

    /// To be called after every event of the mouse.
    void follow();

  private:
    void nodeChanged(const LabelsD&) override { stale_ = true; }
    void nodeRemoved(const LabelsD&) override { stale_ = true; }
    void edgeChanged(const LinesD&) override { stale_ = true; }
    void edgeRemoved(const LinesD&) override { stale_ = true; }
    void manyChanged() override { stale_ = true; }
    void formChanged() override { stale_ = true; }

    CanvasForm& form_;
    const CanvasPointer& pointer_;
    CanvasSubscription subscription_;
    NodeNumber node_ = kNoNode;  ///< whose path is lit
    bool stale_ = false;
};

}  // namespace orvent::canvas
