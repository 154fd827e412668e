#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvent::odbc {

/// The repository in a SQLite file of the user's own.
struct EmbeddedRepository {
    std::string name = "ORVENT Embedded";
    std::filesystem::path file{};
};

/// A database to try the program on, in a SQLite file of the user's own. It is listed while the file is there, and can
/// only be read.
struct SampleSource {
    std::string name = "ORVENT Bookshop";
    std::filesystem::path file{};
};

/// A source that is no data source of the ODBC manager, by its whole connection string ("DRIVER={...};...").
struct NamedSource {
    std::string name;
    std::string connectionString;
};

/// The sources that this program knows besides those of the ODBC manager. A name here hides the manager's.
struct OwnSources {
    std::optional<EmbeddedRepository> embedded{};
    std::optional<SampleSource> sample{};
    std::vector<NamedSource> named{};
};

}  // namespace orvent::odbc
