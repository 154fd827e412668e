#pragma once

#include "platform/listeners.h"

namespace orvent::canvas {

class LabelsD;
class LinesD;
struct Rename;

/// What a canvas tells those who listen to it. They read all else from the canvas.
class CanvasListener {
  public:
    virtual ~CanvasListener() = default;
    virtual void nodeChanged(const LabelsD&) {}  ///< added, or something visible of it changed
    virtual void nodeGoes(const LabelsD&) {}     ///< about to go; it still stands on the canvas, without its edges
    virtual void nodeRemoved(const LabelsD&) {}  ///< gone from the canvas
    virtual void edgeChanged(const LinesD&) {}
    virtual void edgeGoes(const LinesD&) {}
    virtual void edgeRemoved(const LinesD&) {}
    virtual void nodeMeant(const LabelsD&) {}     ///< to be brought into view
    virtual void memberRenamed(const Rename&) {}  ///< its links may follow only afterwards
    /// Any number of nodes and edges changed at once; none of them is told on its own.
    virtual void manyChanged() {}
    virtual void pictureChanged() {}  ///< the size of the picture
    virtual void lightChanged() {}    ///< what is lit, dimmed or marked as found
    virtual void formChanged() {}     ///< the window's caption, or whether it takes input
};

using CanvasListeners = platform::Listeners<CanvasListener>;
using CanvasSubscription = CanvasListeners::Subscription;

}  // namespace orvent::canvas
