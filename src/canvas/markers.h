#pragma once

#include "canvas/box.h"

namespace orvent::canvas {

/// A rectangle that a view of a canvas shows above its graph while a gesture is under way.
struct MarkerBox : Box {
    /// Width and height while nothing is shown.
    static constexpr float kRestSize = 15;

    MarkerBox() : Box{0, 0, kRestSize, kRestSize} {}

    /// Shows the marker at a place.
    void show(const Box& place) {
        static_cast<Box&>(*this) = place;
        Visible = true;
    }

    bool Visible = false;
    int Tag = 0;  ///< `ResizeLabel`: the zone in use
};

}  // namespace orvent::canvas
