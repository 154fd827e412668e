#pragma once

#include <cmath>
#include <cstdint>

#include "canvas/numbers.h"
#include "canvas/point.h"

namespace orvent::canvas {

/// What lies topmost under the pointer. The view finds it; a visible handle lies above a node, a node above a line.
enum class Element { picture, node, handle, line, outside };

struct Hit {
    Element element = Element::picture;
    NodeNumber node{};      ///< the node, or the one under the handle
    EdgeNumber edge{};      ///< the line's edge, or that of the handle
    HandleNumber handle{};  ///< `StartBox`, ...

    static Hit onNode(NodeNumber node) { return {Element::node, node, {}, {}}; }
    static Hit onLine(EdgeNumber edge) { return {Element::line, {}, edge, {}}; }
    static Hit onHandle(HandleNumber handle, NodeNumber below) {
        return {Element::handle, below, edgeOfHandle(handle), handle};
    }

    bool operator==(const Hit&) const = default;
};

/// Codes of the mouse buttons; held buttons are added up.
enum MouseButton : int { NoButton = 0, LeftButton = 1, RightButton = 2 };

/// One event of the mouse. `hit` is what lies under the pointer now, also while a button is held; `outside` is what is
/// not part of the canvas' window.
struct PointerEvent {
    Hit hit;
    Point at;               ///< twips on the picture
    int button = NoButton;  ///< press, release: the button that changed; move: the buttons held
    bool ctrl = false;
    float slack = 0;  ///< how far the pointer may stray, in twips, before a press is a drag
};

/// Whether a held pointer has gone so far that its press is a drag.
class DragStart {
  public:
    DragStart(Point pressed, float slack) : pressed_(pressed), slack_(slack) {}
    /// A press that is a drag at once.
    explicit DragStart(Point pressed) : pressed_(pressed), begun_(true) {}

    bool begun() const { return begun_; }
    /// True once the pointer was farther than allowed.
    bool reach(Point at) {
        return begun_ = begun_ || std::abs(at.x - pressed_.x) + std::abs(at.y - pressed_.y) > slack_;
    }
    Point pressed() const { return pressed_; }

  private:
    Point pressed_;
    float slack_ = 0;
    bool begun_ = false;
};

/// What a canvas is doing with the pointer.
enum class PointerState { idle, drawing, pending, draggingNode, draggingHandle, resizing, cropping, joining, editing };

}  // namespace orvent::canvas
