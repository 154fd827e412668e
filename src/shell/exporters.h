#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "exchange/type_catalogue.h"
#include "forms/dialog_port.h"
#include "platform/dialogs.h"
#include "sql/dbt_project.h"

namespace orvent::shell {

/// What the exporters lean on.
struct ExportServices {
    const entities::CatalogueTables& catalogue;
    platform::Progress& progress;
    std::int16_t TransDepth;                ///< how far metrics walk
    const sql::Dialect* dialect = nullptr;  ///< of queries; plain SQL without one
    bool keepDuplicates = false;            ///< queries mean bags of rows
    sql::OwnFunctions functions{};          ///< as the designer says them in queries
    bool facts = false;                     ///< the program has the rows that are given by hand
    /// Those that were read for a sample; where there are any the program has these in the place of the others.
    std::map<canvas::NodeNumber, entities::NodeFacts> sample{};
    /// How activities of a type write their target, 1 to overwrite it and 2 to append; 0 when nobody knows.
    std::function<std::int16_t(std::int16_t type)> consumerSemantics{};
};

/// The consumer semantics of the types of a catalogue.
std::function<std::int16_t(std::int16_t)> consumerSemanticsOf(exchange::TypeCatalogue& types);

/// A text that a scenario can be written down as, whatever asks for it: a menu or a command line.
struct Exporter {
    /// What it needs beside the scenario.
    enum class Needs { nothing, catalogue, depth, dialect };

    std::string_view name;    ///< the word that asks for it
    std::string_view words;   ///< what is written, in a line of help
    std::string_view suffix;  ///< of the file or the folder
    Needs needs;
    /// The whole text. It asks nothing, and changes nothing. Throws a `Fault` when the scenario does not fit together.
    std::string (*text)(const canvas::DrawForm& form, const ExportServices& services);
    /// The same of what is no text but a folder; null as a rule.
    std::vector<sql::ProjectFile> (*files)(const canvas::DrawForm& form, const ExportServices& services) = nullptr;
};

inline constexpr std::string_view kTextExporter = "export-text";
inline constexpr std::string_view kLdlExporter = "ldl";
inline constexpr std::string_view kProgramExporter = "program";
inline constexpr std::string_view kSqlExporter = "sql";
inline constexpr std::string_view kDbtExporter = "dbt";
inline constexpr std::string_view kMetricsExporter = "metrics";

/// Asks which database the text is for, and whether equal rows stay, which is remembered for the scenario; `dialect` is
/// the name that is proposed and then the chosen one. False when nothing was chosen.
bool askForSql(const Exporter& exporter, canvas::DrawForm& form, ExportServices& services, std::string& dialect,
               const forms::Dialogs& dialogs);

/// Asks whether the rows of a sample, or else those that the scenario gives by hand, are written; not where there are
/// none.
bool mayWriteFacts(const canvas::DrawForm& form, const ExportServices& services, platform::MessageBox& messages);

std::span<const Exporter> exporters();
/// The one of that name. Throws a `Fault` when there is none.
const Exporter& exporterNamed(std::string_view name);

/// Writes what the exporter makes to a file or a folder of that path. A folder loses the files that an earlier writing
/// put there and this one does not; all others stay. Gives the path. Throws a `Fault`.
std::string writeExport(const Exporter& exporter, const canvas::DrawForm& form, const ExportServices& services,
                        const std::string& path);

}  // namespace orvent::shell
