#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "history/scenario_history.h"
#include "shell/earlier_states.h"
#include "shell/kept_facts.h"
#include "shell/scenario_listener.h"
#include "shell/scenario_recovery.h"

namespace orvent::shell {

/// What the frame tells of the steps of its scenarios, and what it is asked.
class HistoryPorts {
  public:
    virtual ~HistoryPorts() = default;

    /// Why the scenario cannot be brought to another step now, empty when it can: a dialog or a view is open over it.
    virtual std::string whyNotNow(const canvas::DrawForm& form) const = 0;
    /// Whether the scenario is whole: no dialog has taken a part of it, and no gesture is under way.
    virtual bool isWhole(const canvas::DrawForm& form) const = 0;
    /// What of a scenario has changed since this was told last.
    virtual void changed(canvas::DrawForm& form, const canvas::Touched& touched) = 0;
    /// The steps of a scenario, or which of them is the present one, have changed.
    virtual void historyChanged(canvas::DrawForm& form) = 0;
};

/// The steps of a scenario as a list shows them, the oldest first.
struct HistoryLines {
    std::vector<std::string> lines;
    std::size_t present = 0;  ///< which of them the scenario is at
    std::string reason;       ///< why none can be chosen now; empty when one can
};

/// The histories of the open scenarios. A step is what a command or a gesture has changed until the program is idle.
class ScenarioHistories : private ScenarioListener {
  public:
    ScenarioHistories(ScenarioListeners& scenarios, HistoryPorts& ports, ScenarioRecovery& recovery,
                      EarlierStates& earlier, KeptFacts& facts);
    ~ScenarioHistories() override;

    /// Takes what has changed of all scenarios since the last call as one step each. Words that end with a blank stand
    /// in front of the names of nodes that came.
    void settle(const std::string& words = {});
    /// The same for one scenario that is whole for the moment.
    void settleNow(canvas::DrawForm& form, const std::string& words, bool dialogOpen = false);
    /// The program is idle: the same, unless a command is still running. Whether there is more to be written when it
    /// is idle again.
    bool idle();

    /// The scenario may have changed anywhere.
    void touchAll(canvas::DrawForm& form);
    /// Scenarios that were filled by a command begin there.
    void beginFilled();
    /// The same for one that was brought back.
    void beginAnew(canvas::DrawForm& form);

    bool canStep(const canvas::DrawForm* form, bool back) const;
    void step(canvas::DrawForm& form, bool back);
    void goTo(canvas::DrawForm& form, std::size_t line);
    HistoryLines linesOf(const canvas::DrawForm& form) const;
    const history::ScenarioHistory* of(const canvas::DrawForm& form) const;

    /// While one lives a command is running, in whose own event loops nothing is settled.
    class Running {
      public:
        explicit Running(ScenarioHistories& histories) : histories_(histories) { ++histories_.running_; }
        ~Running() { --histories_.running_; }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

      private:
        ScenarioHistories& histories_;
    };

    /// While one lives the scenario is being saved, and can be brought back whatever becomes of that.
    class Saving {
      public:
        Saving(ScenarioHistories& histories, canvas::DrawForm& form);
        ~Saving();
        Saving(const Saving&) = delete;
        Saving& operator=(const Saving&) = delete;

      private:
        ScenarioHistories& histories_;
        canvas::DrawForm& form_;
    };

  private:
    void note(canvas::DrawForm& form, history::ScenarioHistory& history, const std::string& words);
    void scenarioOpened(canvas::DrawForm& form) override;
    void scenarioClosed(canvas::DrawForm& form) override;

    std::map<canvas::DrawForm*, std::unique_ptr<history::ScenarioHistory>, std::less<>> histories_;
    ScenarioSubscription subscription_;
    HistoryPorts& ports_;
    ScenarioRecovery& recovery_;
    EarlierStates& earlier_;
    KeptFacts& facts_;
    int running_ = 0;
};

}  // namespace orvent::shell
