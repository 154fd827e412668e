#pragma once

#include <cstdint>

#include "canvas/draw_form.h"
#include "repository/catalogue.h"
#include "repository/interrupted_saves.h"
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

class SaveAttempt;

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
    static void ApplyDeletions(const canvas::DrawForm& form, std::int16_t ScenarioID, StatementCache& repository);

    /// Somebody logs in anew: what earlier saves have left is no business of this login's.
    void forgetInterruptedSaves();
    /// A save of this window has begun to write and was never ended, in another run of the program.
    void goOnAfterBrokenSave(const canvas::DrawForm& form);

  private:
    SaveResult save(canvas::DrawForm& form, bool SaveAs);
    bool askAgain(SaveAttempt& save);
    bool askNewName(canvas::DrawForm& form);
    bool load(canvas::DrawForm& form, std::int16_t ScenarioID);

    Services& services_;
    Catalogue& catalogue_;
    ScenarioWindows& windows_;

    InterruptedSaves& interrupted();

    InterruptedSaves interrupted_;
};

}  // namespace orvent::repository
