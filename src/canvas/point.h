#pragma once

namespace orvent::canvas {

/// A place on a canvas' picture area, in twips.
struct Point {
    float x = 0;
    float y = 0;

    bool operator==(const Point&) const = default;
};

/// The place half way from one to the other.
constexpr Point between(Point a, Point b) {
    return {(a.x + b.x) / 2, (a.y + b.y) / 2};
}

}  // namespace orvent::canvas
