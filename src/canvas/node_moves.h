#pragma once

#include <cstdint>
#include <vector>

#include "canvas/box.h"
#include "canvas/numbers.h"

namespace orvent::canvas {

class Canvas;
class LabelsD;

/// A hand gives a node another box. The middle points that nobody placed follow.
void reshape(Canvas& canvas, LabelsD& node, const Box& box);

/// A hand moves nodes by a distance, all at once; numbers that stand for no node are passed over.
void moveNodes(Canvas& canvas, const std::vector<NodeNumber>& nodes, float dx, float dy);

/// The grab points of a node lie elsewhere in its box: the ends of its edges follow.
void followGrabPoints(Canvas& canvas, const LabelsD& node);

/// A place near `box`, on the grid of the tools, where it covers no visible node.
Box freePlaceNear(const Canvas& canvas, const LabelsD& node, const Box& box);

}  // namespace orvent::canvas
