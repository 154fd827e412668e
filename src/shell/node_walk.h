#pragma once

#include "canvas/canvas.h"

namespace orvent::shell {

enum class Direction { left, right, up, down };

/// Moves the selection from the node selected last to its next neighbour in that direction, and gives the neighbour.
/// Without a selected node it goes to the uppermost, leftmost one. Nothing when there is none.
canvas::LabelsD* walk(canvas::Canvas& canvas, Direction direction);

/// Selects all nodes.
void selectAllNodes(canvas::Canvas& canvas);

}  // namespace orvent::shell
