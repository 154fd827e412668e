#include "shell/exporters.h"

#include <algorithm>

#include "analysis/metrics_text.h"
#include "analysis/text_export.h"
#include "platform/fault.h"
#include "platform/text.h"
#include "program/clingo_text.h"
#include "sql/script.h"
#include "statements/ldl_scenario.h"

namespace orvent::shell {

namespace {

using Needs = Exporter::Needs;

std::string sqlText(const canvas::DrawForm& form, const ExportServices& services) {
    sql::ScriptOptions options;
    options.keepDuplicates = services.keepDuplicates;
    options.functions = services.functions;
    options.overwrites = [&services](const entities::ActivityProperties& activity) {
        constexpr std::int16_t kOverwrite = 1;
        return activity.Act_Type >= 0 && services.consumerSemantics &&
               services.consumerSemantics(activity.Act_Type) == kOverwrite;
    };
    const sql::Dialect& dialect = services.dialect ? *services.dialect : *sql::dialectNamed("ansi");
    return sql::scriptText(sql::scriptParts(form, services.catalogue, dialect, options));
}

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
    {kSqlExporter,
     "the checked program as SQL: a view of each activity in the order of the flow, and the statements that load the "
     "targets",
     ".sql", Needs::dialect, sqlText},
    {kMetricsExporter, "the metrics of every node, as a table with commas", ".csv", Needs::depth,
     [](const canvas::DrawForm& form, const ExportServices& services) {
         analysis::MetricsViews views;
         analysis::MetricsFunctions(views, services.TransDepth, &services.progress).ScenarioMetrics(form);
         return analysis::metricsText(views, analysis::kNodeNameHead, ',');
     }},
};

}  // namespace

std::function<std::int16_t(std::int16_t)> consumerSemanticsOf(exchange::TypeCatalogue& types) {
    return [&types](std::int16_t type) {
        const auto known = types.activityType(type);
        return known ? known->ActType_ConsumerSemantics : std::int16_t{0};
    };
}

bool askDialect(ExportServices& services, platform::InputBox& input, platform::MessageBox& messages) {
    std::string names;
    for (const sql::Dialect& dialect : sql::dialects()) {
        names += (names.empty() ? "" : ", ") + std::string(dialect.name);
    }
    const std::string name = input.ask("For which database: " + names + "?", "Export SQL", "postgresql");
    services.dialect = sql::dialectNamed(platform::lowerCase(platform::trimmed(name)));
    if (!services.dialect && !name.empty()) {
        messages.tell("\"" + name + "\" is none of " + names + ".", "", platform::Icon::warning);
    }
    return services.dialect != nullptr;
}

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
