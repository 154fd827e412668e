#pragma once

#include <algorithm>

#include "canvas/labels.h"
#include "canvas/lines.h"

namespace orvent::qt {

/// A rectangle on the picture, in twips.
struct Extent {
    float left = 0, top = 0, right = 0, bottom = 0;

    bool operator==(const Extent&) const = default;

    bool meets(const Extent& other) const {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }
    bool contains(canvas::Point place) const {
        return place.x >= left && place.x <= right && place.y >= top && place.y <= bottom;
    }
    Extent united(const Extent& other) const {
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }
    Extent grown(float by) const { return {left - by, top - by, right + by, bottom + by}; }
};

/// The box of a node.
inline Extent boxOf(const canvas::LabelsD& node) {
    return {node.Left(), node.Top(), node.Left() + node.Width(), node.Top() + node.Height()};
}

/// What the painting of an item can touch; the margins leave room for outline, selection, arrow head and handles.
inline Extent extentOf(const canvas::LabelsD& node) {
    return boxOf(node).grown(90);
}
inline Extent extentOf(const canvas::LinesD& edge) {
    return Extent{std::min({edge.X1(), edge.Xm(), edge.X2()}), std::min({edge.Y1(), edge.Ym(), edge.Y2()}),
                  std::max({edge.X1(), edge.Xm(), edge.X2()}), std::max({edge.Y1(), edge.Ym(), edge.Y2()})}
        .grown(150);
}

}  // namespace orvent::qt
