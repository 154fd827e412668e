#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/handles.h"
#include "odbc/own_sources.h"
#include "platform/database.h"

namespace orvent::odbc {

/// The ODBC manager's data sources, with their drivers as it tells them.
std::vector<platform::DataSource> managerSources(const Environment& environment);

/// True for a driver of MariaDB or of its forerunner.
bool isMariaDbDriver(std::string_view driver);
bool isPostgresDriver(std::string_view driver);

/// The value of an attribute of a connection string, without its braces; empty when there is none.
std::string attribute(std::string_view connectionString, std::string_view name);

/// Connection strings for a login at a source of the ODBC manager and at one of the program's own. An empty user leaves
/// the login to what the source itself holds.
std::string managerString(const platform::DataSource& source, const std::string& user, const std::string& password);
std::string namedString(const NamedSource& source, const std::string& user, const std::string& password);

/// The connection string for the embedded repository's file.
std::string embeddedString(const std::filesystem::path& file, bool create);

/// The same for a user who may not write the file, or not beside it.
std::string onlyReadString(const std::filesystem::path& file);

/// The same for a database in memory.
inline constexpr const char* kScratchString = "DRIVER={SQLite3};Database=:memory:;JournalMode=MEMORY";

/// The same for a file that nobody writes to.
std::string sampleString(const std::filesystem::path& file, bool create);

}  // namespace orvent::odbc
