#pragma once

#include <map>
#include <string>
#include <vector>

#include "canvas/labels.h"
#include "canvas/node_notes.h"
#include "run/expectations.h"
#include "run/sample_run.h"
#include "run/source_run.h"

namespace orvent::shell {

/// The runs of one scenario.
struct ScenarioRows : canvas::NodeNotes {
    ScenarioRows(const canvas::DrawForm& scenario, platform::Database& database, run::SourceConnections& connections)
        : form(scenario), sample(database, connections), source(connections) {}

    const canvas::DrawForm& form;

    run::SampleRun sample;
    run::SourceRun source;
    run::Run* run = nullptr;   ///< the one that was begun last
    run::Run* next = nullptr;  ///< the one that is to begin
    run::RunOptions options;   ///< for that
    std::string opens;         ///< the source that is opened for that
    bool running = false;      ///< there are steps to be made
    bool cancelled = false;
    bool old = false;   ///< the scenario has changed since
    std::string fault;  ///< for which nothing could begin
    run::Expected expected;
    std::vector<run::Verdict> verdicts;
    bool counts = false;  ///< they are shown at the nodes

    /// What was known of the run when its thread was at rest for the last time; while that works this is what is shown.
    std::vector<run::Outcome> outcomes;
    std::size_t done = 0;
    std::string fallen;
    void see() {
        outcomes = run->outcomes();
        done = run->done();
        fallen = run->fallenWords();
    }

    std::string note(const canvas::LabelsD& node) const override {
        const auto rows =
            run ? run->nodes().find(node.Index()) : std::map<canvas::NodeNumber, run::NodeRows>::const_iterator();
        return !run || rows == run->nodes().end() ? "" : run::countWords(rows->second, outcomes, " \u2192 ");
    }
};

}  // namespace orvent::shell
