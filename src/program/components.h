#pragma once

#include <vector>

namespace orvent::program {

/// A graph by the numbers of its vertices: where the arrows of each lead.
using Graph = std::vector<std::vector<int>>;

/// For each vertex the number of its strongly connected component. No recursion, so a chain may be of any length.
std::vector<int> componentsOf(const Graph& graph);

/// A shortest way from a vertex to itself, which it begins and ends with; empty when there is none.
std::vector<int> circleThrough(const Graph& graph, int vertex);

}  // namespace orvent::program
