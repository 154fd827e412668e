#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "history/kept_state.h"
#include "history/scenario_history.h"
#include "platform/dialogs.h"
#include "platform/fault.h"
#include "platform/state_folder.h"

namespace orvent::shell {

/// Keeps states of scenarios over the runs of the program: one when a scenario is opened, one at each save and one
/// every twenty steps. Each is a file of its own in a folder of its scenario; the oldest go first.
class EarlierStates {
  public:
    static constexpr std::size_t kMost = 50;                 ///< of one scenario
    static constexpr std::uintmax_t kMostBytes = 100 << 20;  ///< likewise
    static constexpr std::size_t kSteps = 20;

    /// `source` names the repository of the moment.
    struct Services {
        platform::StateFolder& folder;
        platform::Progress& progress;
        const entities::CatalogueTables& tables;
        const std::string& source;
    };
    /// A state that was kept.
    struct Kept {
        std::string file;  ///< its name in the folder of states
        std::string name;  ///< of the scenario
        history::Told told;
    };

    explicit EarlierStates(const Services& services);
    ~EarlierStates();

    /// The scenario was filled.
    void opened(canvas::DrawForm& form, const history::ScenarioHistory& history);
    /// A command has ended; words that are not empty tell of a step.
    void note(canvas::DrawForm& form, const history::ScenarioHistory& history, const std::string& words);
    /// The scenario's window goes: what is not written yet is written now.
    void forget(const canvas::DrawForm& form);
    /// Writes a part of what is to be written yet. Whether there is more.
    bool writeOn();

    /// Where the states of a scenario are kept.
    std::string folderOf(const canvas::DrawForm& form) const;
    /// The newest state of each scenario of this repository, in order of names.
    std::vector<Kept> newest() const;
    /// The states in a folder, the newest first.
    std::vector<Kept> in(const std::string& folder) const;
    /// All of a state. Throws a `Fault`.
    history::KeptState read(const std::string& file) const { return history::readState(services_.folder.read(file)); }
    void remove(const std::string& file) { services_.folder.drop(file); }

  private:
    struct Followed;
    Followed& followed(canvas::DrawForm& form, const history::ScenarioHistory& history);
    void keep(Followed& scenario, const std::string& words);
    bool writePart(Followed& scenario);
    void finish(Followed& scenario);
    void dropOldest(const std::string& folder);
    /// Nothing for a file that is no state.
    std::optional<Kept> summaryOf(const std::string& file) const;
    void fail(const platform::Fault& fault);

    Services services_;
    std::map<const canvas::DrawForm*, std::unique_ptr<Followed>> followed_;
    int files_ = 0;
    bool told_ = false;  ///< that nothing can be kept
};

}  // namespace orvent::shell
