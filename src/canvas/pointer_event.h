#pragma once

#include <cstdint>

#include "canvas/point.h"

namespace orvent::canvas {

/// What lies topmost under the pointer. The view finds it; a visible handle lies above a node.
enum class Element { picture, node, handle, outside };

struct Hit {
    Element element = Element::picture;
    std::int32_t number = 0;  ///< the node's `Index`, or the handle's number (`StartBox`, `MidBox`, `EndBox`)
    std::int32_t below = 0;   ///< the node under the handle, 0 for none

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
};

/// What a canvas is doing with the pointer.
enum class PointerState { idle, drawing, pending, draggingNode, draggingHandle, resizing, cropping, editing };

}  // namespace orvent::canvas
