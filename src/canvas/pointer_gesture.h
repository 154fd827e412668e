#pragma once

#include <cstdint>

#include "canvas/pointer_event.h"

namespace orvent::canvas {

/// Something that the pointer has begun on a canvas and not ended yet. It owns what it began with, shows itself by the
/// canvas' markers, and can take everything back.
class Gesture {
  public:
    Gesture() = default;
    virtual ~Gesture() = default;
    Gesture(const Gesture&) = delete;
    Gesture& operator=(const Gesture&) = delete;

    virtual PointerState state() const = 0;

    /// The pointer moved with the left button held.
    virtual void follow(const PointerEvent&) {}
    /// The right button was pressed while the left one is held.
    virtual void pressAside(Point) {}
    /// The left button was released. True: it has ended; else it goes on without a button.
    virtual bool release(const PointerEvent&) { return true; }
    /// The pointer moved without a button; `hit` is what is meant by its place. True: it has ended.
    virtual bool hover(const Hit&) { return false; }
    /// Leaves graph, selection and markers as they were before it.
    virtual void cancel() = 0;

    /// Whether it cannot go on without the node, or the edge.
    virtual bool needsNode(NodeNumber) const { return false; }
    virtual bool needsEdge(EdgeNumber) const { return false; }
    /// Whether it is given up when another tool is pressed.
    virtual bool endsWithTool() const { return true; }
};

}  // namespace orvent::canvas
