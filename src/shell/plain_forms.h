#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "links/check_consistency.h"
#include "statements/ldl_scenario.h"

namespace orvent::shell {

// Dialogs that only tell: they have a window and nothing to decide.

struct AboutForm {};
struct ShortcutsForm {};

/// Shows the edges that a check of consistency deleted and, below them, those that it drew.
struct EdgeChangesForm {
    const links::EdgeChanges& changes;
    int chosen = -1;  ///< the row whose target to go to, from 0 on
};

/// Asks how a scenario is written in SQL.
struct ExportSqlForm {
    std::string title;
    std::size_t dialect = 0;      ///< its place in `sql::dialects()`
    bool keepDuplicates = false;  ///< bags of rows are meant
    bool chosen = false;          ///< it is to be written
};

/// Shows which statements are not whole or do not fit, and what is not fed.
struct UnfinishedForm {
    const std::vector<statements::UnfinishedStatement>& statements;
    std::string goTo;       ///< the name of the node to go to, or empty
    bool generate = false;  ///< its statement is to be made anew
    bool confirm = false;   ///< its statement means what it should
};

}  // namespace orvent::shell
