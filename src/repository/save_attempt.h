#pragma once

#include <string>

#include "repository/scenario_load_save.h"
#include "repository/statement_cache.h"
#include "repository/stored_identity.h"
#include "repository/stored_rows.h"

namespace orvent::repository {

/// One save with all its attempts, and how the last attempt failed.
struct ScenarioLoadSave::SaveAttempt {
    canvas::DrawForm& form;
    bool SaveAs;
    StatementCache& repository;
    StoredIdentity before;          ///< what the window stood for
    bool wasUnsaved;                ///< before the save
    bool replace = false;           ///< the user wants the stored scenario of that name replaced
    bool fullWrite = false;         ///< the window's records were cut from the rows they stood for
    bool nameTaken = false;         ///< the scenario's own row was refused
    std::string owner{};            ///< another user, who owns the scenario of that name
    bool hopeless = false;          ///< asking would not help
    bool scenarioGone = false;      ///< the window's scenario is not there any more, or another one stands there
    bool changedElsewhere = false;  ///< the window's scenario is not what the window knows
    bool orderLeft = false;         ///< rows stay in their former order for want of identifiers
    StoredRows rows{};              ///< of the scenario, before the first of them is written
    std::string fault{};
};

}  // namespace orvent::repository
