#pragma once

#include "canvas/canvas.h"

namespace orvent::canvas {

/// Adds to the selection what lies before or behind the selected nodes along the flow, or all that edges join with them
/// in any direction. Only what is visible counts.
enum class Along { upstream, downstream, connected };
void selectAlong(Canvas& canvas, Along along);

/// Adds the nodes on the ways from one of two selected nodes to the other. False when no way leads there.
bool selectBetween(Canvas& canvas);

/// Adds all visible nodes that are of the kind of a selected one, and of its type where the kind has types.
void selectSameType(Canvas& canvas);

}  // namespace orvent::canvas
