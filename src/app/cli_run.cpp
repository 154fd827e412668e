#include "app/cli_run.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

#include "app/cli_facts.h"
#include "platform/text.h"
#include "run/expectations.h"
#include "run/row_text.h"
#include "run/sample_run.h"

namespace orvent::app {

namespace {

using Json = nlohmann::ordered_json;
using run::Outcome;
using run::Verdict;

/// Nobody is asked here.
struct NoLogins : run::Logins {
    std::optional<run::Login> loginFor(const std::string&) override { return std::nullopt; }
};

/// Writes down what a run has come to.
class RunReport {
  public:
    RunReport(run::Run& run, const canvas::DrawForm& form)
        : run_(run), form_(form), verdicts_(run::verdicts(run, run::expectedOf(form))) {
        for (std::size_t at = 0; at < run.program().predicates.size(); ++at) {
            const canvas::NodeNumber node = run.program().predicates[at].node;
            if (run.nodes().at(node).out == at) {
                inOrder_.push_back(node);
            }
        }
    }

    bool good() const {
        const auto& outcomes = run_.outcomes();
        return std::all_of(verdicts_.begin(), verdicts_.end(), [](const Verdict& each) { return each.met; }) &&
               std::none_of(outcomes.begin(), outcomes.end(),
                            [](const Outcome& each) { return each.state == Outcome::State::failed; });
    }

    std::string text() const {
        std::string lines;
        for (const canvas::NodeNumber node : inOrder_) {
            const run::NodeRows& rows = run_.nodes().at(node);
            const Outcome& its = run_.outcomes()[*rows.out];
            const std::string counts = run::countWords(rows, run_.outcomes(), " -> ");
            lines += name(node) + ": " + (counts.empty() ? "none" : counts) +
                     (its.words.empty() ? "" : " (" + its.words + ")") + "\n" +
                     (its.statement.empty() ? "" : "    " + its.statement + "\n");
        }
        const std::string fallen = run_.fallenWords();
        return lines + (fallen.empty() ? "" : fallen + "\n") + expectations(false);
    }

    /// What is expected, and came out so or in another way; the rows that should not be there are below.
    std::string expectations(bool onlyUnmet) const {
        std::string lines;
        for (const Verdict& each : verdicts_) {
            if (each.met && onlyUnmet) {
                continue;
            }
            lines += (each.met ? "met: " : "not met: ") + name(each.node) + ": " + run::wordsOf(each.expectation) +
                     (each.met ? "" : ", but " + each.words) + "\n" +
                     (each.rows.rows.empty() ? "" : run::rowText(each.rows.columns, each.rows.rows, ','));
        }
        return lines;
    }

    Json json() const {
        Json nodes = Json::array();
        for (const canvas::NodeNumber node : inOrder_) {
            const run::NodeRows& rows = run_.nodes().at(node);
            const Outcome& its = run_.outcomes()[*rows.out];
            Json in = Json::array();
            for (const std::size_t each : rows.in) {
                in.push_back(countOf(run_.outcomes()[each]));
            }
            nodes.push_back({{"name", name(node)}, {"in", in}, {"out", countOf(its)}, {"why", its.words}});
        }
        Json expected = Json::array();
        for (const Verdict& each : verdicts_) {
            expected.push_back({{"node", name(each.node)},
                                {"expected", run::wordsOf(each.expectation)},
                                {"met", each.met},
                                {"found", each.words}});
        }
        return {{"nodes", nodes}, {"equalRows", run_.fallenWords()}, {"expectations", expected}};
    }

  private:
    static Json countOf(const Outcome& outcome) {
        return outcome.state == Outcome::State::there ? Json(outcome.count) : Json();
    }
    std::string name(canvas::NodeNumber node) const { return form_.Labels.byIndex(node)->Caption(); }

    const run::Run& run_;
    const canvas::DrawForm& form_;
    std::vector<Verdict> verdicts_;
    std::vector<canvas::NodeNumber> inOrder_;
};

std::string rowsOf(run::Run& run, const canvas::DrawForm& form, const std::string& name) {
    const canvas::LabelsD* node = form.nodeNamed(name);
    const auto rows = node ? run.nodes().find(node->Index()) : run.nodes().end();
    if (rows == run.nodes().end() || !rows->second.out) {
        throw WrongUse("There is no record set or activity " + name + ".");
    }
    const Outcome& its = run.outcomes()[*rows->second.out];
    if (its.state != Outcome::State::there) {
        throw platform::Fault(name + " has no rows: " + its.words +
                              (its.statement.empty() ? "" : "\n" + its.statement));
    }
    const run::Page page = run.page(*rows->second.out, std::numeric_limits<std::int32_t>::max());
    return run::rowText(page.columns, page.rows, ',');
}

}  // namespace

ExitCode runScenario(CliSession& session, const CliOptions& options, std::ostream& out) {
    canvas::DrawForm& form = session.open(options.scenario);
    if (!options.facts.empty()) {
        readFacts(form, options.facts, session.box());
    }
    NoLogins nobody;
    run::SourceConnections sources(session.database(), session.dataSources(), nobody);
    run::SampleRun run(session.database(), sources);
    run.begin(
        form, session.exportServices().catalogue,
        {options.sampleRows, options.keepDuplicates || form.KeepDuplicates, false, session.exportServices().functions});
    while (run.step()) {
    }
    const RunReport report(run, form);
    std::string text;
    if (!options.rows.empty()) {
        text = rowsOf(run, form, options.rows);
        if (const std::string unmet = report.expectations(true); !unmet.empty()) {
            session.box().tell(unmet, {}, platform::Icon::warning);
        }
    } else {
        text = options.json ? report.json().dump(2, ' ', false, Json::error_handler_t::replace) + "\n" : report.text();
    }
    if (options.output.empty()) {
        out << text;
    } else {
        platform::writeFile(options.output, text);
    }
    return report.good() ? ExitCode::done : ExitCode::findings;
}

}  // namespace orvent::app
