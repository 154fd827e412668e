#include "shell/exporters.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "analysis/metrics_text.h"
#include "analysis/text_export.h"
#include "platform/fault.h"
#include "platform/text.h"
#include "program/clingo_text.h"
#include "shell/plain_forms.h"
#include "sql/script.h"
#include "statements/ldl_scenario.h"

namespace orvent::shell {

namespace {

using Needs = Exporter::Needs;

sql::ScriptOptions scriptOptions(const ExportServices& services) {
    sql::ScriptOptions options;
    options.keepDuplicates = services.keepDuplicates;
    options.functions = services.functions;
    options.overwrites = [&services](const entities::ActivityProperties& activity) {
        constexpr std::int16_t kOverwrite = 1;
        return activity.Act_Type >= 0 && services.consumerSemantics &&
               services.consumerSemantics(activity.Act_Type) == kOverwrite;
    };
    return options;
}

const sql::Dialect& dialectOf(const ExportServices& services) {
    return services.dialect ? *services.dialect : *sql::dialectNamed("ansi");
}

std::string sqlText(const canvas::DrawForm& form, const ExportServices& services) {
    return sql::scriptText(sql::scriptParts(form, services.catalogue, dialectOf(services), scriptOptions(services)));
}

std::vector<sql::ProjectFile> dbtFiles(const canvas::DrawForm& form, const ExportServices& services) {
    return sql::dbtProject(form, services.catalogue, dialectOf(services), scriptOptions(services));
}

constexpr const char* kFileList = "orvent-files.txt";

/// What an earlier writing put into the folder; never what lies outside of it.
std::vector<std::string> writtenBefore(const std::filesystem::path& folder) {
    std::vector<std::string> result;
    std::ifstream list(folder / kFileList);
    for (std::string line; std::getline(list, line);) {
        const std::filesystem::path path(line);
        const bool within =
            path.is_relative() && std::none_of(path.begin(), path.end(), [](const auto& part) { return part == ".."; });
        if (within && !line.empty()) {
            result.push_back(line);
        }
    }
    return result;
}

void writeFolder(const std::filesystem::path& folder, const std::vector<sql::ProjectFile>& files) {
    const std::vector<std::string> before = writtenBefore(folder);
    std::string list;
    for (const sql::ProjectFile& file : files) {
        const std::filesystem::path path = folder / file.path;
        std::error_code failed;
        std::filesystem::create_directories(path.parent_path(), failed);
        platform::writeFile(path.string(), file.text);
        list += file.path + "\n";
    }
    platform::writeFile((folder / kFileList).string(), list);
    for (const std::string& path : before) {
        if (std::ranges::find(files, path, &sql::ProjectFile::path) == files.end()) {
            std::error_code failed;
            std::filesystem::remove(folder / path, failed);
        }
    }
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
         const std::map<canvas::NodeNumber, entities::NodeFacts> none;
         const auto& rows = !services.facts ? none : services.sample.empty() ? form.facts : services.sample;
         return program::clingoText(program::checkedProgram(form, services.catalogue), services.catalogue, rows);
     }},
    {kSqlExporter,
     "the checked program as SQL: a view of each activity in the order of the flow, and the statements that load the "
     "targets",
     ".sql", Needs::dialect, sqlText},
    {kDbtExporter,
     "a dbt project: a folder with a model of each activity and each record set that is fed, their sources and tests",
     "_dbt", Needs::dialect, nullptr, dbtFiles},
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

bool askForSql(const Exporter& exporter, canvas::DrawForm& form, ExportServices& services, std::string& dialect,
               const forms::Dialogs& dialogs) {
    const std::span<const sql::Dialect> all = sql::dialects();
    const auto known = std::ranges::find(all, dialect, &sql::Dialect::name);
    ExportSqlForm question{exporter.name == kDbtExporter ? "Export dbt Project" : "Export SQL",
                           known == all.end() ? 0 : static_cast<std::size_t>(known - all.begin()), form.KeepDuplicates};
    dialogs.show(question);
    if (question.chosen) {
        services.dialect = &all[question.dialect];
        services.keepDuplicates = form.KeepDuplicates = question.keepDuplicates;
        dialect = services.dialect->name;
    }
    return question.chosen;
}

bool mayWriteFacts(const canvas::DrawForm& form, const ExportServices& services, platform::MessageBox& messages) {
    const auto& all = services.sample.empty() ? form.facts : services.sample;
    const bool has = std::any_of(
        all.begin(), all.end(), [](const auto& node) { return node.second.facts && !node.second.facts->rows.empty(); });
    const std::string which = services.sample.empty() ? "that were given by hand" : "of the sample";
    return has && messages.show("Would you like the rows " + which + " to be written as facts?", "Export Program",
                                platform::Icon::question, platform::Buttons::yesNo) == platform::Answer::yes;
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

std::string writeExport(const Exporter& exporter, const canvas::DrawForm& form, const ExportServices& services,
                        const std::string& path) {
    if (exporter.files) {
        writeFolder(path, exporter.files(form, services));
    } else {
        platform::writeFile(path, exporter.text(form, services));
    }
    return path;
}

}  // namespace orvent::shell
