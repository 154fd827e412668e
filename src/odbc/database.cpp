#include "odbc/database.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>

#include "odbc/connection.h"
#include "odbc/connection_strings.h"
#include "odbc/handles.h"

namespace orvent::odbc {

namespace {

using platform::DatabaseError;

/// The fault with the file's path in its words.
DatabaseError atFile(const DatabaseError& fault, const std::string& file) {
    std::string words = fault.description();
    if (words.find(file) == std::string::npos) {
        words += ": " + file;
    }
    return {words, fault.sqlState(), fault.nativeCode(), fault.integrityViolation()};
}

void checkFile(const std::filesystem::path& file) {
    std::error_code fault;
    const auto kind = std::filesystem::status(file, fault).type();
    const char* words = nullptr;
    if (kind == std::filesystem::file_type::not_found) {
        words = "The repository file does not exist: ";
    } else if (kind == std::filesystem::file_type::directory) {
        words = "The repository file is a folder: ";
    } else if (file.string().find(';') != std::string::npos) {
        words = "The path of a repository file cannot hold a semicolon: ";
    } else if (faccessat(AT_FDCWD, file.c_str(), R_OK | W_OK, AT_EACCESS) != 0) {
        words = "The repository file cannot be read and written: ";
    }
    if (words != nullptr) {
        throw DatabaseError(words + file.string(), "08001", 0, false);
    }
}

}  // namespace

OdbcDatabase::OdbcDatabase(OwnSources own) : own_(std::move(own)), environment_(std::make_unique<Environment>()) {
    // Oracle's driver takes the character set of narrow texts from here; a choice of the user's stays.
    setenv("NLS_LANG", ".AL32UTF8", 0);
}

OdbcDatabase::~OdbcDatabase() = default;

std::unique_ptr<platform::Connection> OdbcDatabase::open(const std::string& source, const std::string& user,
                                                         const std::string& password) {
    if (own_.embedded && own_.embedded->name == source) {
        return openEmbedded(own_.embedded->file, user);
    }
    for (const NamedSource& named : own_.named) {
        if (named.name == source) {
            return std::make_unique<OdbcConnection>(*environment_, namedString(named, user, password), user, "");
        }
    }
    platform::DataSource wanted{source, ""};
    for (const platform::DataSource& candidate : managerSources(*environment_)) {
        if (candidate.name == source) {
            wanted = candidate;
        }
    }
    return std::make_unique<OdbcConnection>(*environment_, managerString(wanted, user, password), user, "");
}

std::unique_ptr<platform::Connection> OdbcDatabase::openEmbedded(const std::filesystem::path& file,
                                                                 const std::string& user) {
    checkFile(file);
    try {
        auto connection =
            std::make_unique<OdbcConnection>(*environment_, embeddedString(file, false), user, file.string());
        // SQLite looks into a file only at the first statement.
        connection->prepare("SELECT table_name FROM user_tables")->execute();
        return connection;
    } catch (const DatabaseError& fault) {
        throw atFile(fault, file.string());
    }
}

void createEmbedded(const std::filesystem::path& file) {
    if (std::filesystem::exists(file)) {
        return;
    }
    try {
        const Environment environment;
        const OdbcConnection connection(environment, embeddedString(file, true), "", file.string());
    } catch (const DatabaseError& fault) {
        throw atFile(fault, file.string());
    }
    if (!std::filesystem::exists(file)) {
        throw DatabaseError("The repository file cannot be created: " + file.string(), "08001", 0, false);
    }
}

}  // namespace orvent::odbc
