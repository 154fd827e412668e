#pragma once

#include "layout/layered.h"

namespace orvent::layout {

/// The room that a node takes above and below the place where its arcs meet it.
struct Extent {
    double above = 0, below = 0;
};

/// The heights at which the arcs meet the vertices: in each row one below the other, at least `gap` between what they
/// take (half of that beside a waypoint), and beyond that as level with their neighbours as can be.
std::vector<double> heightsOf(const Layered& graph, const Rows& rows, const std::vector<Extent>& extents, double gap);

}  // namespace orvent::layout
