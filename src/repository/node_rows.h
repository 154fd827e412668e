#pragma once

#include <cstdint>
#include <vector>

#include "canvas/labels.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// A stored node of a scenario, also one whose identifier is beyond what a window can hold.
struct StoredNode {
    long long id;
    canvas::NodeTypeCode type;
};

/// A stored `Node_Type`. One that no code can be has no rows of its own, like every unknown one.
canvas::NodeTypeCode nodeType(long long stored);

std::vector<StoredNode> nodesOf(StatementCache& repository, std::int16_t ScenarioID);

/// Removes everything of one stored node but its row in `ScenarioNodes`.
void removeMembers(StatementCache& repository, const StoredNode& node);

}  // namespace orvent::repository
