#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "odbc/sources.h"
#include "platform/database.h"

namespace orvent::odbc {

class Environment;

/// Connections through ODBC. The dialect is chosen by what the connected database calls itself; Oracle and unknown
/// databases get every statement untouched. Text is UTF-8 throughout; in each dialect the empty text is null.
/// Must outlive its connections.
class OdbcDatabase : public platform::Database {
  public:
    explicit OdbcDatabase(OwnSources own);
    ~OdbcDatabase() override;

    /// An embedded repository whose file is missing or no database is refused; it is never created here. One that the
    /// user may not write opens for reading.
    std::unique_ptr<platform::Connection> open(const std::string& source, const std::string& user,
                                               const std::string& password) override;
    std::unique_ptr<platform::Connection> openScratch() override;

  private:
    std::unique_ptr<platform::Connection> openEmbedded(const std::filesystem::path& file, const std::string& user);
    std::unique_ptr<platform::Connection> openSample(const std::filesystem::path& file, const std::string& user);

    OwnSources own_;
    std::unique_ptr<Environment> environment_;
};

/// Makes the file of an embedded repository, without tables; its folder must exist. A file that is there already stays
/// as it is. Throws `platform::DatabaseError`.
void createEmbedded(const std::filesystem::path& file);

/// Makes the file of a sample source by a script in SQLite's own language, whose statements end with ";" at the end of
/// a line. It appears whole or not at all. Throws `platform::Fault`.
void createSample(const std::filesystem::path& file, std::string_view script);

}  // namespace orvent::odbc
