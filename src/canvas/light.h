#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "canvas/numbers.h"

namespace orvent::canvas {

/// What is lit of a canvas, by `Index`; the rest is dimmed. Nothing of it is stored or selected.
struct Light {
    std::vector<NodeNumber> nodes;  ///< ascending
    std::vector<EdgeNumber> edges;  ///< ascending
    bool dimsEdges = true;          ///< false: all edges are lit
    bool lasts = false;             ///< until a press, a key or a change of the graph, wherever the pointer goes

    bool operator==(const Light&) const = default;

    /// Nothing is lit by itself, and so nothing is dimmed.
    bool isEmpty() const { return nodes.empty(); }
    bool holdsNode(NodeNumber index) const { return std::binary_search(nodes.begin(), nodes.end(), index); }
    bool holdsEdge(EdgeNumber index) const {
        return !dimsEdges || std::binary_search(edges.begin(), edges.end(), index);
    }
};

}  // namespace orvent::canvas
