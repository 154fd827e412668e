#pragma once

#include <memory>

#include "canvas/draw_form.h"
#include "platform/dialogs.h"

namespace orvent::bench {

/// A drawn graph, and the nodes that the measurements look at.
struct Graph {
    std::unique_ptr<canvas::CanvasForm> form;
    canvas::NodeNumber star{};  ///< a node with 20 edges to those around it, near the upper left corner
    canvas::NodeNumber hub{};   ///< a node in the middle with 2,000 edges to nodes all over the graph; 0 for none
};

/// Draws `nodes` nodes, 133 by 67 pixels apart in a square, and 1.5 times as many edges. All edges but those of the hub
/// are short. Without a hub, what lies near the upper left corner is the same for every number of nodes.
Graph drawGraph(const canvas::CanvasServices& services, int nodes, bool withHub);

}  // namespace orvent::bench
