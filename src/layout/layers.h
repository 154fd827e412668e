#pragma once

#include "layout/flow_graph.h"

namespace orvent::layout {

/// The layer of each node, from 0: each arc leads to a later layer, and the arcs are short in the sum. `order` is one
/// along which all arcs run.
std::vector<std::int32_t> layersOf(const std::vector<std::int32_t>& order, const std::vector<Arc>& arcs);

}  // namespace orvent::layout
