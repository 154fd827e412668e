#pragma once

#include <cstdint>
#include <string>

#include "analysis/problem_kinds.h"
#include "canvas/canvas_settings.h"
#include "platform/program_folder.h"
#include "platform/settings_store.h"
#include "repository/login_values.h"
#include "sql/own_functions.h"
#include "zoom/zoom_view.h"

namespace orvent::shell {

/// The application values: what the stored settings were at start, and what has been changed since. All code reads
/// these and never the store.
struct OptionsData {
    canvas::CanvasSettings canvas;
    repository::RepositorySettings repository;  ///< login values and `SQLPath`
    zoom::ZoomSight sight;
    analysis::ProblemKinds problems = analysis::everyProblem();  ///< those that are told
    std::int16_t TransDepth = 10;
    bool WholeNumbers = false;              ///< the wizard reads the numbers of tokens whole
    bool ShortNames = false;                ///< new members of activities bear the bare names of their sources
    sql::OwnFunctions functions;            ///< what calls are in SQL
    std::int32_t SampleRows = 1000;         ///< of each record set that nobody feeds, at least 1
    std::string SqlDialect = "postgresql";  ///< for which SQL was exported last
    std::string LogPath;                    ///< folder proposed for an activity's log
    std::string HelpFile;                   ///< program folder + "\ORVENTII.chm"
    std::string DefaultScript;              ///< program folder + "\ORVENTII.sql"
};

/// Reads all keys of the store into `options`. Missing keys give the defaults. A stored number that is none leaves its
/// default too; the first such fault is described in the result, which is empty otherwise.
std::string LoadOptions(OptionsData& options, platform::SettingsStore& store, const platform::ProgramFolder& folder);

void StoreSight(const zoom::ZoomSight& sight, platform::SettingsStore& store);

void StoreProblems(const analysis::ProblemKinds& problems, platform::SettingsStore& store);

/// Sets the sizes, distances, the selection colour, `SQLPath`, the kinds of problems, `ShortNames`, the functions and
/// the rows of a sample to their defaults, in the application values only.
void DefaultOptions(OptionsData& options);

}  // namespace orvent::shell
