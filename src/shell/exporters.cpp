#include "shell/exporters.h"

#include <algorithm>

#include "analysis/metrics_text.h"
#include "analysis/text_export.h"
#include "platform/fault.h"
#include "program/clingo_text.h"
#include "statements/ldl_scenario.h"

namespace orvent::shell {

namespace {

using Needs = Exporter::Needs;

constexpr Exporter kExporters[] = {
    {kLdlExporter, "the LDL program: every activity's statement and the rules that tie them together", ".ldl",
     Needs::nothing, [](const canvas::DrawForm& form, const ExportServices&) { return statements::ldlProgram(form); }},
    {kTextExporter,
     "the structure for outside tools: counts, the nodes in the order of the flow, the flows between attributes",
     ".txt", Needs::catalogue,
     [](const canvas::DrawForm& form, const ExportServices& services) {
         return analysis::TextExport(services.progress, services.catalogue).ExportText(form);
     }},
    {kProgramExporter,
     "the checked program, whose names join, for clingo: what it is given stands in its head and comes as facts", ".lp",
     Needs::catalogue,
     [](const canvas::DrawForm& form, const ExportServices& services) {
         return program::clingoText(program::checkedProgram(form, services.catalogue), services.catalogue);
     }},
    {kMetricsExporter, "the metrics of every node, as a table with commas", ".csv", Needs::depth,
     [](const canvas::DrawForm& form, const ExportServices& services) {
         analysis::MetricsViews views;
         analysis::MetricsFunctions(views, services.TransDepth, &services.progress).ScenarioMetrics(form);
         return analysis::metricsText(views, analysis::kNodeNameHead, ',');
     }},
};

}  // namespace

std::span<const Exporter> exporters() {
    return kExporters;
}

const Exporter& exporterNamed(std::string_view name) {
    const auto found = std::ranges::find(kExporters, name, &Exporter::name);
    if (found == std::end(kExporters)) {
        throw platform::Fault("Nothing is written as \"" + std::string(name) + "\".");
    }
    return *found;
}

}  // namespace orvent::shell
