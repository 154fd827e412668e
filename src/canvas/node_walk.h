#pragma once

#include "canvas/canvas.h"

namespace orvent::canvas {

enum class Direction { left, right, up, down };

/// Moves the selection from the node selected last to its next neighbour in that direction, and gives the neighbour.
/// Without a selected node it goes to the uppermost, leftmost one. Nothing when there is none.
LabelsD* walk(Canvas& canvas, Direction direction);

/// Selects all nodes that are visible, and no edges.
void selectAllNodes(Canvas& canvas);

}  // namespace orvent::canvas
