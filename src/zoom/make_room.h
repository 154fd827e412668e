#pragma once

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// Whether a box of one neighbour lies on a box of another one or of the central activity.
bool boxesOverlap(const ZoomView& view);

/// What of the columns cannot be read, the worst first.
Disorder disorderOf(const ZoomView& view);

/// Widens the boxes whose names are cut, and moves the neighbours, their sub-nodes with them, until no box of one lies
/// on another's and each member stands on its side of those it is joined with: the columns outward, and within a column
/// downward. Where the left column has no room left, everything else moves to the right instead.
void MakeRoom(ZoomView& view);

}  // namespace orvent::zoom
