#pragma once

#include <cstdint>
#include <vector>

#include "canvas/draw_form.h"
#include "repository/scenario_windows.h"
#include "repository/services.h"
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

/// Deletes all rows of a scenario, with `DeleteRow` also its own. Windows but `except` that show it are told. Throws on
/// the first failure and leaves what it has not reached.
void removeRows(Services& services, ScenarioWindows& windows, std::int16_t ScenarioID, bool DeleteRow,
                const canvas::DrawForm* except);

}  // namespace orvent::repository
