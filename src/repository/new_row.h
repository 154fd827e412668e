#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "repository/scenario_statements.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// How a row with an identifier of its own is made, and how it is taken back by that identifier.
struct NewRow {
    std::string_view add;
    std::string_view identifier;
    std::string_view drop;
};

// clang-format off
inline constexpr NewRow kScenarioRow{sql::kAddScenario, sql::kScenarioIdentifier, sql::kDropScenario};
inline constexpr NewRow kNodeRow{sql::kAddNode, sql::kNodeIdentifier, sql::kDropNode};
inline constexpr NewRow kRecordSetOutputRow{sql::kAddRecordSetOutput, sql::kSubNodeIdentifier, sql::kDropRecordSetOutput};
inline constexpr NewRow kActivitySubNodeRow{sql::kAddActivitySubNode, sql::kSubNodeIdentifier, sql::kDropActivitySubNode};
inline constexpr NewRow kFunctionRow{sql::kAddActivityFunction, sql::kFunctionIdentifier, sql::kDropFunction};
inline constexpr NewRow kFunctionSubNodeRow{sql::kAddFunctionSubNode, sql::kSubNodeIdentifier, sql::kDropFunctionSubNode};
// clang-format on

/// Whether a stored identifier is one that a window can hold.
inline bool fits(long long identifier) {
    return identifier >= 1 && identifier <= std::numeric_limits<std::int16_t>::max();
}

/// The repository's sequences are at the end of the 16-bit numbers that identifiers are.
class NoIdentifiersLeft : public platform::Fault {
  public:
    NoIdentifiersLeft()
        : Fault("This repository has no identifiers left.\nPlease save the scenario in another repository.") {}
};

/// There are not enough identifiers to bring stored rows in their new order; everything else is saved.
class OrderNotStored : public platform::Fault {
  public:
    OrderNotStored()
        : Fault(
              "This repository has not enough identifiers left for the new order of members.\n"
              "Everything else is saved; for the order please save the scenario in another repository.") {}
};

/// The identifier that the row just added has got. Beyond the last one that fits, the row goes again before anything
/// can refer to it, and `NoIdentifiersLeft` is thrown.
std::int16_t identifierOf(StatementCache& repository, const NewRow& row);

/// Throws `NoIdentifiersLeft` unless so many rows can still get an identifier that fits. `draw` draws one.
void requireIdentifiers(StatementCache& repository, std::string_view draw, long long rows);

}  // namespace orvent::repository
