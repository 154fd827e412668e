#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "analysis/scenario_problems.h"
#include "analysis/text_search.h"
#include "shell/scenario_listener.h"
#include "shell/statement_checks.h"

namespace orvent::shell {

/// A problem as a list shows it.
struct ProblemLine {
    analysis::ProblemKind kind;
    canvas::NodeNumber node;  ///< `Index` of the node to go to
    std::string place;        ///< the node's caption
    std::string words;

    bool operator==(const ProblemLine&) const = default;
};

/// The rows of some kinds, in the order of the nodes.
std::vector<ProblemLine> problemLines(const canvas::DrawForm& form, const analysis::ScenarioProblems& problems,
                                      const analysis::ProblemKinds& kinds);
/// The same of a scenario that is looked at only once.
std::vector<ProblemLine> problemLines(const canvas::DrawForm& form, const entities::CatalogueTables& tables,
                                      const analysis::ProblemKinds& kinds);

/// What is unfinished or doubtful in each of the open scenarios.
class ProblemLists : private ScenarioListener {
  public:
    ProblemLists(ScenarioListeners& scenarios, const entities::CatalogueTables& tables)
        : tables_(tables), statements_(tables), subscription_(scenarios.add(*this)) {}

    /// These have changed.
    void touch(const canvas::DrawForm& form, const canvas::Touched& touched);
    /// Looks at what has. True when the list is another one than before.
    bool settle(const canvas::DrawForm& form);
    std::vector<ProblemLine> linesOf(const canvas::DrawForm& form, const analysis::ProblemKinds& kinds) const;
    /// The nodes and members that have a problem of some kinds.
    analysis::Unfinished unfinishedOf(const canvas::DrawForm& form, const analysis::ProblemKinds& kinds) const;

  private:
    void scenarioOpened(canvas::DrawForm& form) override;
    void scenarioClosed(canvas::DrawForm& form) override { problems_.erase(&form); }

    const entities::CatalogueTables& tables_;
    StatementChecks statements_;
    std::map<const canvas::DrawForm*, std::unique_ptr<analysis::ScenarioProblems>, std::less<>> problems_;
    ScenarioSubscription subscription_;
};

}  // namespace orvent::shell
