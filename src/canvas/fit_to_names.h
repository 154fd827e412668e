#pragma once

#include <vector>

#include "canvas/canvas.h"

namespace orvent::canvas {

/// How much room names take in the letters and figures in which they are shown.
class NameMeasure {
  public:
    virtual ~NameMeasure() = default;

    /// The least width of the node's box, in twips, in which its name stands whole in one line.
    virtual float widthForName(const LabelsD& node) const = 0;
};

/// The selected nodes, or all when none is selected; no comments.
std::vector<NodeNumber> nodesToFit(const Canvas& canvas);

/// Widens the boxes of nodes by whole steps of the tools' grid until their names stand in one line; edges follow. No
/// box gets smaller, and members of one owner that stand alike in a column stay alike. What stands right of a box that
/// would reach it gives way, whatever it is. Gives how many boxes are wider.
int fitToNames(Canvas& canvas, const std::vector<NodeNumber>& nodes, const NameMeasure& measure);

}  // namespace orvent::canvas
