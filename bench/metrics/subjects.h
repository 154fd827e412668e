#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "canvas/draw_form.h"

namespace orvent::bench {

/// A graph by its edges; nodes count from 0.
struct Edges {
    int nodes;
    std::vector<std::pair<int, int>> list;
};

/// Each edge leads from a layer of so many nodes to the next, so that there are no cycles and walks end early.
Edges layered(int nodes, int edges, int layer, unsigned seed);

/// Each edge leads from any node to any node: most walks come into a cycle.
Edges tangled(int nodes, int edges, unsigned seed);

/// Record sets with those edges.
void buildNodes(canvas::DrawForm& form, const Edges& edges);

/// The visits of the walks from all nodes in both directions, each with that budget.
std::int64_t visitsOf(const Edges& edges, std::int32_t budget);

/// Fills an empty design window with 10,000 nodes and an activity "Hub" with 500 inputs and 500 outputs in the
/// middle of them: every flow of a hundred feeds five inputs, each input goes to three outputs and governs a fourth
/// through a parameter, and every output feeds one of another hundred flows.
void buildHub(canvas::DrawForm& form);

}  // namespace orvent::bench
