#pragma once

#include "layout/flow_graph.h"

namespace orvent::layout {

/// The box of a node; any unit.
struct Size {
    double width = 0, height = 0;
};
struct Place {
    double left = 0, top = 0;
    bool operator==(const Place&) const = default;
};

/// What is to be laid out.
struct FlowGraph {
    std::vector<Size> nodes;
    std::vector<Arc> arcs;  ///< in the direction of the flow; circles, loops and doubles may be
    /// Of each node the one below which it stays, -1 for those that stand by themselves; those that stay so by way of
    /// others, even in a circle, stay with all of them. May be shorter than `nodes`.
    std::vector<std::int32_t> besides;
};

struct Spacing {
    double grid = 100;           ///< left and upper sides are multiples of it
    double betweenLayers = 900;  ///< for the arrows
    double betweenNodes = 300;   ///< one above the other
    double besideNode = 100;     ///< from a node to what stays with it
    double betweenParts = 900;
};

/// Places from (0, 0) on, the same for the same graph: layers from left to right by the flow, few arcs that cross, no
/// boxes that touch, and what no arc joins one beside the other in rows. Every arc leads to the right unless it closes
/// a circle. The time grows as the graph does, but for a logarithm.
std::vector<Place> layOut(const FlowGraph& graph, const Spacing& spacing = {});

}  // namespace orvent::layout
