#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace orvent::canvas {

/// What is lit of a canvas, by `Index`; the rest is dimmed. Nothing of it is stored or selected.
struct Light {
    std::vector<std::int32_t> nodes;  ///< ascending
    std::vector<std::int32_t> edges;  ///< ascending
    bool dimsEdges = true;            ///< false: all edges are lit

    bool operator==(const Light&) const = default;

    /// Nothing is lit by itself, and so nothing is dimmed.
    bool isEmpty() const { return nodes.empty(); }
    bool holdsNode(std::int32_t index) const { return std::binary_search(nodes.begin(), nodes.end(), index); }
    bool holdsEdge(std::int32_t index) const {
        return !dimsEdges || std::binary_search(edges.begin(), edges.end(), index);
    }
};

}  // namespace orvent::canvas
