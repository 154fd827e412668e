#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "history/kept_state.h"
#include "history/scenario_history.h"
#include "platform/dialogs.h"
#include "platform/state_folder.h"

namespace orvent::shell {

/// Keeps what is not saved in files, so that it can be brought back when the program does not end properly. Each
/// scenario with unsaved work has one: all of it, and behind that what has changed since. A folder that cannot be
/// written is told once, and hinders nothing.
class ScenarioRecovery {
  public:
    /// `source` names the repository of the moment.
    struct Services {
        platform::StateFolder& folder;
        platform::Progress& progress;
        const entities::CatalogueTables& tables;
        const std::string& source;
    };

    explicit ScenarioRecovery(const Services& services);
    ~ScenarioRecovery();

    /// A command has ended, or the scenario was brought to another step; `changed` is what has changed since this was
    /// told last. It is written at once, a whole part by part by `writeOn`.
    void note(canvas::DrawForm& form, const history::ScenarioHistory& history, const canvas::Touched& changed,
              const std::string& words);
    /// Writes a part of what is to be written yet; a part takes some milliseconds at most. Whether there is more.
    bool writeOn();
    /// A save is about to write: until it has ended, what is stored may be a part of the scenario, so all of it is
    /// kept, whether something is unsaved or not.
    void keepWhole(canvas::DrawForm& form, const history::ScenarioHistory& history);
    /// The scenario's window goes: nothing of it is unsaved any more.
    void forget(const canvas::DrawForm& form);
    /// What was done before, to a scenario that was brought back.
    void goOn(canvas::DrawForm& form, std::vector<history::Told> told);

  private:
    struct Kept;
    Kept& keptOf(canvas::DrawForm& form);
    void write(Kept& kept, const history::ScenarioHistory& history, const canvas::Touched& changed,
               const history::Told& told);
    void beginWhole(Kept& kept);
    void writePart(Kept& kept);
    void noteStanding(Kept& kept);
    void giveUp(Kept& kept);
    void fail(Kept& kept, const std::string& why);

    Services services_;
    std::map<const canvas::DrawForm*, std::unique_ptr<Kept>> kept_;
    bool told_ = false;  ///< that nothing can be kept
};

}  // namespace orvent::shell
