#include "app/cli_commands.h"

#include <nlohmann/json.hpp>

#include "analysis/metrics_functions.h"
#include "app/cli_facts.h"
#include "platform/text.h"
#include "shell/problem_lists.h"

namespace orvent::app {

namespace {

using Json = nlohmann::ordered_json;

void write(const CliOptions& options, std::ostream& out, const std::string& text) {
    if (options.output.empty()) {
        out << text;
    } else {
        platform::writeFile(options.output, text);
    }
}

std::string lines(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// One thing that is wrong with a scenario.
struct Finding {
    const char* kind;  ///< one word or two, the same for all of their kind
    std::string node;  ///< empty when it is no single one
    std::string why;
};

std::vector<Finding> findingsOf(const canvas::DrawForm& form, CliSession& session) {
    std::vector<Finding> findings;
    for (const std::string& warning : session.box().warnings()) {
        findings.push_back({"reading", "", warning});
    }
    for (const shell::ProblemLine& row :
         shell::problemLines(form, session.exportServices().catalogue, session.problems())) {
        findings.push_back({analysis::wordsOf(row.kind).word, row.place, row.words});
    }
    return findings;
}

std::string metricsJson(const canvas::DrawForm& form, const shell::ExportServices& services) {
    analysis::MetricsViews views;
    analysis::MetricsFunctions(views, services.TransDepth, &services.progress).ScenarioMetrics(form);
    Json rows = Json::array();
    for (const analysis::MetricsRow& row : views.InpMetrView) {
        Json object{{"name", row.name}};
        for (std::size_t column = 0; column < analysis::kMetricsColumns; ++column) {
            object[analysis::kMetricsHeads[column]] = row.values[column];
        }
        rows.push_back(std::move(object));
    }
    return lines(rows);
}

}  // namespace

ExitCode listScenarios(CliSession& session, const CliOptions& options, std::ostream& out) {
    std::string text;
    Json rows = Json::array();
    for (const std::string& name : session.scenarios()) {
        text += name + "\n";
        rows.push_back({{"name", name}});
    }
    write(options, out, options.json ? lines(rows) : text);
    return ExitCode::done;
}

ExitCode getScenario(CliSession& session, const CliOptions& options, std::ostream& out) {
    session.open(options.scenario);
    write(options, out, session.document());
    return ExitCode::done;
}

ExitCode putScenario(CliSession& session, const CliOptions& options, std::ostream&) {
    return session.put(options.scenario, options.name) ? ExitCode::done : ExitCode::findings;
}

ExitCode convertDocument(CliSession& session, const CliOptions& options, std::ostream& out) {
    session.openFile(options.scenario);
    write(options, out, session.document());
    return ExitCode::done;
}

ExitCode exportTypes(CliSession& session, const CliOptions& options, std::ostream& out) {
    write(options, out, session.typesDocument());
    return ExitCode::done;
}

ExitCode importTypes(CliSession& session, const CliOptions& options, std::ostream&) {
    return session.importTypes(options.scenario) ? ExitCode::done : ExitCode::findings;
}

ExitCode checkScenario(CliSession& session, const CliOptions& options, std::ostream& out) {
    const std::vector<Finding> findings = findingsOf(session.open(options.scenario), session);
    std::string text;
    Json rows = Json::array();
    for (const Finding& finding : findings) {
        text +=
            finding.kind + std::string(": ") + (finding.node.empty() ? "" : finding.node + ": ") + finding.why + "\n";
        rows.push_back({{"kind", finding.kind}, {"node", finding.node}, {"why", finding.why}});
    }
    write(options, out, options.json ? lines(rows) : text);
    return findings.empty() ? ExitCode::done : ExitCode::findings;
}

ExitCode exportScenario(CliSession& session, const shell::Exporter& exporter, const CliOptions& options,
                        std::ostream& out) {
    canvas::DrawForm& form = session.open(options.scenario);
    if (!options.facts.empty()) {
        readFacts(form, options.facts, session.box());
    }
    shell::ExportServices services = session.exportServices();
    services.facts = options.withFacts || !options.facts.empty();
    services.TransDepth = options.depth.value_or(services.TransDepth);
    services.dialect = sql::dialectNamed(options.dialect);
    services.keepDuplicates = options.keepDuplicates || form.KeepDuplicates;
    if (exporter.files) {
        shell::writeExport(exporter, form, services, options.output);
        return ExitCode::done;
    }
    const bool asJson = options.json && exporter.name == shell::kMetricsExporter;
    write(options, out, asJson ? metricsJson(form, services) : exporter.text(form, services));
    return ExitCode::done;
}

}  // namespace orvent::app
