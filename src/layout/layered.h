#pragma once

#include "layout/flow_graph.h"

namespace orvent::layout {

/// A graph in layers whose arcs lead to the next layer only. An arc over several layers runs by waypoints, which take
/// no room. Vertices are numbered layer by layer.
struct Layered {
    std::vector<std::int32_t> nodes;  ///< what each vertex stands for, -1 for a waypoint
    std::vector<std::size_t> begins;  ///< the first vertex of each layer, and the end
    Neighbours before, behind;

    std::size_t layers() const { return begins.size() - 1; }
    std::int32_t node(std::int32_t vertex) const { return nodes[static_cast<std::size_t>(vertex)]; }
    bool isWaypoint(std::int32_t vertex) const { return node(vertex) < 0; }
};

/// Where the arcs together are so long that their waypoints would be more than a few for each node and arc, the longest
/// ones have some at both ends alone, so that a picture never costs more than its graph.
Layered withWaypoints(const std::vector<std::int32_t>& layers, const std::vector<Arc>& arcs);

/// The vertices of all layers, each layer from the top down.
using Rows = std::vector<std::int32_t>;

inline std::span<const std::int32_t> rowOf(const Layered& graph, const Rows& rows, std::size_t layer) {
    return {rows.data() + graph.begins[layer], rows.data() + graph.begins[layer + 1]};
}

}  // namespace orvent::layout
