#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include "app/cli_session.h"

namespace orvent::app {

/// How a run of `orvent-cli` ends.
enum class ExitCode { done = 0, findings = 1, wrongUse = 2, outside = 3 };

/// What the words behind a command give it.
struct CliOptions {
    RepositoryChoice repository;
    std::string scenario;               ///< its name in the repository, or a file
    std::string name;                   ///< under which a file is stored, or empty for its own
    std::string output;                 ///< the file to write, or empty for standard output
    bool json = false;                  ///< a table as JSON
    std::optional<std::int16_t> depth;  ///< of metrics; the stored setting when it is not given
    std::string dialect;                ///< of SQL, by the name of its database
    bool keepDuplicates = false;        ///< rows are bags, not sets
    std::string facts;                  ///< the folder of the rows that are given, or empty
    bool withFacts = false;             ///< the rows that the scenario gives are written
    std::string rows;                   ///< the node whose rows are wanted, or empty
    std::size_t sampleRows = 1000;      ///< of each record set in a data source
};

/// The names of the designer's scenarios, a line each.
ExitCode listScenarios(CliSession& session, const CliOptions& options, std::ostream& out);

/// Writes a stored scenario as a document.
ExitCode getScenario(CliSession& session, const CliOptions& options, std::ostream& out);

/// Stores the scenario of a document.
ExitCode putScenario(CliSession& session, const CliOptions& options, std::ostream& out);

/// Writes a document anew, as this version of the program does.
ExitCode convertDocument(CliSession& session, const CliOptions& options, std::ostream& out);

/// Writes all types of the repository as a document.
ExitCode exportTypes(CliSession& session, const CliOptions& options, std::ostream& out);

/// Adds the types of a document that the repository lacks.
ExitCode importTypes(CliSession& session, const CliOptions& options, std::ostream& out);

/// What is wrong with a scenario, or unfinished: a line for each finding.
ExitCode checkScenario(CliSession& session, const CliOptions& options, std::ostream& out);

/// Writes a scenario down by an exporter.
ExitCode exportScenario(CliSession& session, const shell::Exporter& exporter, const CliOptions& options,
                        std::ostream& out);

}  // namespace orvent::app
