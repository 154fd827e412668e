#pragma once

#include <map>
#include <string>

#include "canvas/draw_form.h"
#include "platform/dialogs.h"
#include "platform/state_folder.h"

namespace orvent::shell {

/// What stands for a scenario in names of files: the same in each run. `source` names its repository.
std::string stateKey(const std::string& source, const canvas::DrawForm& form);
/// What stands for the repository in it.
std::string stateKeyHead(const std::string& source);

/// Keeps what scenarios are tried on over the runs of the program: a file for each, in the folder of states.
class KeptFacts {
  public:
    /// `source` names the repository of the moment.
    KeptFacts(platform::StateFolder& folder, platform::Progress& progress, const std::string& source)
        : folder_(folder), progress_(progress), source_(source) {}

    /// The scenario was filled: it gets what is kept of it, but where it has brought facts of its own.
    void opened(canvas::DrawForm& form);
    /// A command has ended: one that was saved is kept under its new name.
    void note(const canvas::DrawForm& form);
    /// Its facts have changed.
    void keep(const canvas::DrawForm& form);
    /// Its window goes. What was never saved is not kept.
    void forget(const canvas::DrawForm& form);

  private:
    using ByName = std::map<std::string, entities::NodeFacts>;
    struct Followed {
        std::string file;
        std::uint32_t times = 0;  ///< how often it had been saved when it was looked at last
        ByName others{};          ///< of nodes that were not there when it was filled
    };
    Followed& followed(const canvas::DrawForm& form);

    platform::StateFolder& folder_;
    platform::Progress& progress_;
    const std::string& source_;
    std::map<const canvas::DrawForm*, Followed> followed_;
};

/// Gives a scenario what a file of the folder keeps of it. What is kept of nodes that it has not is given back.
std::map<std::string, entities::NodeFacts> fillFacts(canvas::DrawForm& form, const platform::StateFolder& folder,
                                                     const std::string& source);

}  // namespace orvent::shell
