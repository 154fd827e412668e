#pragma once

#include <cstdint>
#include <vector>

namespace orvent::canvas {

/// The numbers of nodes and edges of which something has changed that a scenario keeps, that came or that went; some of
/// them several times. What only the screen shows (selection, colour, visibility) does not count.
struct Touched {
    std::vector<std::int32_t> nodes, edges;

    bool empty() const { return nodes.empty() && edges.empty(); }
    void node(std::int32_t index) { note(nodes, index); }
    void edge(std::int32_t index) { note(edges, index); }
    void clear() {
        nodes.clear();
        edges.clear();
    }

  private:
    static void note(std::vector<std::int32_t>& numbers, std::int32_t index) {
        if (numbers.empty() || numbers.back() != index) {
            numbers.push_back(index);
        }
    }
};

}  // namespace orvent::canvas
