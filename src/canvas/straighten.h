#pragma once

#include <cstdint>

#include "canvas/canvas.h"

namespace orvent::canvas {

/// One grab point of each end of an edge.
struct GrabPair {
    std::int16_t from = 0, to = 0;
    bool operator==(const GrabPair&) const = default;
};

/// The two grab points that lie nearest to each other, whatever they mean.
GrabPair nearestGrabPoints(const LabelsD& source, const LabelsD& target);

/// The grab points between which an edge runs straight on the shortest way. At an activity the points tell what an edge
/// carries, so there it stays among those of its meaning: data comes in at 1 or 2 and goes out at 4, control goes out
/// at 3 and comes in at 5.
GrabPair straightWay(const Canvas& canvas, const LinesD& edge);

/// Whether an edge runs along or across a box that it joins, and need not.
bool isCrooked(const Canvas& canvas, const LinesD& edge);

/// Leads an edge by its straight way.
void straighten(const Canvas& canvas, LinesD& edge);

/// Straightens the selected edges and those at selected nodes; with nothing selected all that are shown and stand for a
/// flow or a description.
void straightenSelected(Canvas& canvas);

}  // namespace orvent::canvas
