#pragma once

namespace orvent::canvas {

/// A place on a canvas' picture area, in twips.
struct Point {
    float x = 0;
    float y = 0;
};

}  // namespace orvent::canvas
