#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "canvas/draw_form.h"
#include "repository/catalogue.h"
#include "repository/scenario_windows.h"
#include "repository/services.h"

namespace orvent::repository {

/// How a save ended.
enum class SaveResult {
    saved,
    givenUp,
    /// Another program has removed or replaced the scenario. Nothing was written, the window's `ScenarioID` is 0, and
    /// the user is to be asked for a name.
    scenarioGone,
};

/// Saving, loading and removing scenarios.
class ScenarioLoadSave {
  public:
    ScenarioLoadSave(Services& services, Catalogue& catalogue, ScenarioWindows& windows)
        : services_(services), catalogue_(catalogue), windows_(windows) {}

    /// Writes the scenario of a window. With `SaveAs`, or while its `ScenarioID` is 0, all of it is written as a new
    /// scenario; otherwise what changed. Faults are told, and lead to the question whether the stored scenario of that
    /// name is to be replaced. Whatever fails, the scenario in memory stays whole and a later save completes it. A full
    /// write that broke off and is given up leaves a window that belongs to no stored scenario.
    SaveResult SaveScenario(canvas::DrawForm& form, bool SaveAs);

    /// Fills an empty window from the repository. False when there is no such scenario. A fault is told; it leaves what
    /// was read so far on the window, whose caption says so, with `ScenarioID` 0, so that a part can never be saved in
    /// place of the whole.
    bool LoadScenario(canvas::DrawForm& form, std::int16_t ScenarioID);

    /// Deletes all rows of a scenario, with `DeleteRow` also its row in `Scenarios`. Windows that show it are told.
    /// Throws on the first failure and leaves what it has not reached.
    void RemoveScenario(std::int16_t ScenarioID, bool DeleteRow);

    /// Deletes the rows that the window's `DeletedNodes` names, and all lines of the scenario. The store is kept.
    void ApplyDeletions(const canvas::DrawForm& form, std::int16_t ScenarioID, StatementCache& repository);

    /// Somebody logs in anew: what earlier saves have left is no business of this login's.
    void forgetInterruptedSaves();

  private:
    struct SaveAttempt;

    SaveResult save(canvas::DrawForm& form, bool SaveAs);
    bool attempt(SaveAttempt& save);
    bool askAgain(SaveAttempt& save);
    void beginSave(SaveAttempt& save);
    bool findScenario(SaveAttempt& save);
    void arrangeRows(SaveAttempt& save);
    void compareStored(SaveAttempt& save, bool incomplete);
    void addScenario(SaveAttempt& save);
    void takeOverScenario(SaveAttempt& save);
    void writeScenario(SaveAttempt& save);
    bool isOwnLeftover(const std::string& name, StatementCache& repository);
    bool askNewName(canvas::DrawForm& form);

    void removeRows(std::int16_t ScenarioID, bool DeleteRow, const canvas::DrawForm* except);

    bool load(canvas::DrawForm& form, std::int16_t ScenarioID);

    Services& services_;
    Catalogue& catalogue_;
    ScenarioWindows& windows_;

    /// What interrupted saves have left in the repository of this login.
    struct Interrupted {
        /// Scenarios that may hold rows of nodes that no window knows: a row whose identifier could not be read back,
        /// or the rest of a scenario that was to be replaced.
        std::set<std::int16_t> scenarios;
        /// Names under which a scenario's own row may have been made although the reply to it was lost.
        std::set<std::string> names;
        std::string source;
    };
    Interrupted& interrupted();

    Interrupted interrupted_;
};

}  // namespace orvent::repository
