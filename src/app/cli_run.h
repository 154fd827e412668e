#pragma once

#include <ostream>

#include "app/cli_commands.h"

namespace orvent::app {

/// Runs a scenario on the rows that are given: tells how many rows each node has, or gives those of one node, and holds
/// them against what is expected.
ExitCode runScenario(CliSession& session, const CliOptions& options, std::ostream& out);

}  // namespace orvent::app
