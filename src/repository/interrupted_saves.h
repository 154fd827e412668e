#pragma once

#include <cstdint>
#include <set>
#include <string>

namespace orvent::repository {

/// What interrupted saves have left in the repository of a login.
struct InterruptedSaves {
    /// Scenarios that may hold rows of nodes that no window knows: a row whose identifier could not be read back,
    /// or the rest of a scenario that was to be replaced.
    std::set<std::int16_t> scenarios;
    /// Names under which a scenario's own row may have been made although the reply to it was lost.
    std::set<std::string> names;
    std::string source;
};

}  // namespace orvent::repository
