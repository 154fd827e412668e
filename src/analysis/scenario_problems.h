#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "analysis/node_look.h"
#include "canvas/draw_form.h"

namespace orvent::analysis {

/// What is unfinished or doubtful in a scenario, kept while it changes: only what was touched is looked at again, and
/// what takes something from it by a link or an edge.
class ScenarioProblems {
  public:
    /// The form and what the sources refer to outlive it. Nothing is looked at yet.
    ScenarioProblems(const canvas::DrawForm& form, const ProblemSources& sources) : form_(form), sources_(sources) {}

    /// These have changed, came or went.
    void touch(const canvas::Touched& touched);
    /// Anything may have changed.
    void touchAll() { all_ = true; }

    /// Looks at what was touched. True when the rows are others than before.
    bool settle();

    /// The rows of some kinds in the order of their nodes, as `settle` found them last; they live until it finds
    /// others.
    std::vector<const Problem*> rows(const ProblemKinds& kinds = everyProblem()) const;

  private:
    bool look(canvas::NodeNumber node);
    void relink(canvas::NodeNumber node, const NodeLook& before, const NodeLook& now);
    void waitForReaders(canvas::NodeNumber node, const std::string& name);
    void wait(canvas::NodeNumber node);
    void waitForAll();
    void lookAtFlow();

    const canvas::DrawForm& form_;
    ProblemSources sources_;
    std::vector<NodeLook> looks_;                  ///< by `Index`
    std::vector<canvas::NodeNumber> edgeTargets_;  ///< by `Index`: where each edge led as it was touched last
    std::unordered_map<std::string, std::vector<canvas::NodeNumber>> readers_;  ///< by name: whose links name that node
    std::vector<Problem> flowRows_;                                             ///< ascending by node
    std::vector<canvas::NodeNumber> waiting_;                                   ///< to be looked at
    std::vector<bool> waits_;                                                   ///< by `Index`
    std::uint32_t catalogue_ = 0;                                               ///< its state as it was looked at last
    bool all_ = true;
};

}  // namespace orvent::analysis
