#pragma once

#include <cstdint>
#include <vector>

#include "canvas/numbers.h"

namespace orvent::canvas {

/// The numbers of nodes and edges of which something has changed that a scenario keeps, that came or that went; some of
/// them several times. What only the screen shows (selection, colour, visibility) does not count.
struct Touched {
    std::vector<NodeNumber> nodes;
    std::vector<EdgeNumber> edges;
    std::vector<NodeNumber> heads;  ///< nodes that stand for what they stood for; another is their box or the like

    bool empty() const { return nodes.empty() && edges.empty() && heads.empty(); }
    void node(NodeNumber index) { note(nodes, index); }
    void head(NodeNumber index) { note(heads, index); }
    void edge(EdgeNumber index) { note(edges, index); }
    void add(const Touched& other) {
        nodes.insert(nodes.end(), other.nodes.begin(), other.nodes.end());
        edges.insert(edges.end(), other.edges.begin(), other.edges.end());
        heads.insert(heads.end(), other.heads.begin(), other.heads.end());
    }
    void clear() {
        nodes.clear();
        edges.clear();
        heads.clear();
    }

  private:
    template <class Number>
    static void note(std::vector<Number>& numbers, Number index) {
        if (numbers.empty() || numbers.back() != index) {
            numbers.push_back(index);
        }
    }
};

}  // namespace orvent::canvas
