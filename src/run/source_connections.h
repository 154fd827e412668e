#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/database.h"
#include "sql/dialect.h"

namespace orvent::run {

struct Login {
    std::string user;
    std::string password;
};

/// Who knows how to log in at a data source.
class Logins {
  public:
    virtual ~Logins() = default;

    /// Nothing when nobody tells.
    virtual std::optional<Login> loginFor(const std::string& source) = 0;
};

/// A data source that rows are read from. Nothing is written there, and the database refuses it where it can.
struct OpenSource {
    std::shared_ptr<platform::Connection> connection;
    const sql::Dialect* dialect;
};

/// The data sources of scenarios. A login is asked for once for each, before its source is opened; it lives here and is
/// kept nowhere else.
class SourceConnections {
  public:
    SourceConnections(platform::Database& database, platform::DataSources& dataSources, Logins& logins)
        : database_(database), dataSources_(dataSources), logins_(logins) {}

    /// Asks for the login at the source whose name is that alias but for the case of its letters, where it needs one
    /// that nobody has told yet.
    void ask(const std::string& alias);
    /// Whether it can be opened without asking anybody.
    bool isKnown(const std::string& alias);
    /// Opens that source, as it was asked for. Throws a `platform::Fault`; a login that was refused is to be asked for
    /// again.
    OpenSource& open(const std::string& alias);
    /// Closes those that nobody holds any more. What was asked is still known.
    void closeAll() { open_.clear(); }

  private:
    std::optional<platform::DataSource> sourceOf(const std::string& alias);

    platform::Database& database_;
    platform::DataSources& dataSources_;
    Logins& logins_;
    std::map<std::string, Login> known_;
    std::map<std::string, OpenSource> open_;
};

}  // namespace orvent::run
