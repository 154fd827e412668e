#pragma once

#include <span>
#include <vector>

#include "analysis/node_look.h"

namespace orvent::analysis {

/// What only the whole graph shows, in one pass over the looks of all nodes. They stand by `Index`; where there is no
/// node is none that is in the flow.
class FlowProblems {
  public:
    explicit FlowProblems(std::span<const NodeLook> looks) : looks_(looks) {}

    /// The least node of each circle of activities, ascending.
    std::vector<canvas::NodeNumber> circles() const;
    /// A way along which the rows of an activity come back to where they had to be whole before.
    struct DeniedCircle {
        canvas::NodeNumber node;  ///< whose statement needs them so
        std::vector<canvas::NodeNumber>
            way;  ///< a shortest one from the node back to it, which it begins and ends with
    };
    /// One for each such node, ascending.
    std::vector<DeniedCircle> deniedCircles() const;
    /// The nodes to which no way leads from a source, ascending.
    std::vector<canvas::NodeNumber> unreachable() const;

  private:
    const NodeLook& look(canvas::NodeNumber node) const { return looks_[static_cast<std::size_t>(node)]; }
    std::vector<canvas::NodeNumber> wayBackTo(canvas::NodeNumber node) const;
    bool isInFlow(canvas::NodeNumber node) const {
        return canvas::isGiven(node) && static_cast<std::size_t>(node) < looks_.size() && look(node).inFlow;
    }

    std::span<const NodeLook> looks_;
};

}  // namespace orvent::analysis
