#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/database.h"

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

/// The list of data sources: the program's own, then the ODBC manager's. A source whose statements are translated from
/// the Oracle dialect has "<driver> (Oracle dialect translator)" as its driver.
class OdbcDataSources : public platform::DataSources {
  public:
    explicit OdbcDataSources(OwnSources own) : own_(std::move(own)) {}

    std::vector<platform::DataSource> list() override;

  private:
    OwnSources own_;
};

}  // namespace orvent::odbc
