#pragma once

#include <string>

#include "canvas/draw_form.h"
#include "repository/catalogue.h"
#include "repository/interrupted_saves.h"
#include "repository/scenario_windows.h"
#include "repository/services.h"
#include "repository/statement_cache.h"
#include "repository/stored_identity.h"
#include "repository/stored_rows.h"

namespace orvent::repository {

/// One save of a scenario with all its attempts: it finds the rows to write to, writes, reads back, and says how the
/// last attempt failed. It asks nothing.
class SaveAttempt {
  public:
    /// All that is given outlives it.
    SaveAttempt(Services& services, Catalogue& catalogue, ScenarioWindows& windows, InterruptedSaves& interrupted,
                StatementCache& repository, canvas::DrawForm& form, bool SaveAs);

    /// Tries to write the scenario, as the fields below say. Whether it stands in the repository now.
    bool run();

    canvas::DrawForm& form;
    // What is wanted.
    bool SaveAs;
    bool replace = false;  ///< the stored scenario of that name

    // How the last attempt failed.
    bool nameTaken = false;         ///< the scenario's own row was refused
    std::string owner;              ///< another user, who owns the scenario of that name
    bool hopeless = false;          ///< asking would not help
    bool scenarioGone = false;      ///< the window's scenario is not there any more, or another one stands there
    bool changedElsewhere = false;  ///< the window's scenario is not what the window knows
    bool fullWrite = false;         ///< the window's records were cut from the rows they stood for
    std::string fault;

  private:
    void begin();
    bool findScenario();
    void arrangeRows();
    void addScenario();
    bool isOwnLeftover();
    void takeOverScenario();
    void write();
    void compareStored(bool incomplete);

    Services& services_;
    Catalogue& catalogue_;
    ScenarioWindows& windows_;
    InterruptedSaves& interrupted_;
    StatementCache& repository_;
    StoredIdentity before_;   ///< what the window stood for
    bool wasUnsaved_;         ///< before the save
    bool orderLeft_ = false;  ///< rows stay in their former order for want of identifiers
    StoredRows rows_;         ///< of the scenario, before the first of them is written
};

}  // namespace orvent::repository
