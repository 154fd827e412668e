#include "odbc/database.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
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

bool may(const std::filesystem::path& place, int access) {
    return faccessat(AT_FDCWD, place.c_str(), access, AT_EACCESS) == 0;
}

void checkFile(const std::filesystem::path& file, const std::string& what) {
    std::error_code fault;
    const auto kind = std::filesystem::status(file, fault).type();
    const char* words = nullptr;
    if (kind == std::filesystem::file_type::not_found) {
        words = " does not exist: ";
    } else if (kind == std::filesystem::file_type::directory) {
        words = " is a folder: ";
    } else if (file.string().find(';') != std::string::npos) {
        words = " cannot have a semicolon in its path: ";
    } else if (!may(file, R_OK)) {
        words = " cannot be read: ";
    }
    if (words != nullptr) {
        throw DatabaseError(what + words + file.string(), "08001", 0, false);
    }
}

/// SQLite writes beside its file, too.
bool canBeWritten(const std::filesystem::path& file) {
    return may(file, W_OK) && may(std::filesystem::absolute(file).parent_path(), W_OK | X_OK);
}

/// An empty file that only its user can read; SQLite takes it for an empty database.
void makePrivate(const std::filesystem::path& file) {
    const int made = ::open(file.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
    if (made >= 0) {
        ::close(made);
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
    if (own_.sample && own_.sample->name == source) {
        return openSample(own_.sample->file, user);
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
    checkFile(file, "The repository file");
    try {
        const bool onlyRead = !canBeWritten(file);
        auto connection = std::make_unique<OdbcConnection>(
            *environment_, onlyRead ? onlyReadString(file) : embeddedString(file, false), user, file.string());
        if (onlyRead) {
            connection->refuseChanges();
        }
        // SQLite looks into a file only at the first statement.
        connection->prepare("SELECT table_name FROM user_tables")->execute();
        return connection;
    } catch (const DatabaseError& fault) {
        throw atFile(fault, file.string());
    }
}

std::unique_ptr<platform::Connection> OdbcDatabase::openSample(const std::filesystem::path& file,
                                                               const std::string& user) {
    checkFile(file, "The sample source's file");
    try {
        auto connection =
            std::make_unique<OdbcConnection>(*environment_, sampleString(file, false), user, file.string());
        connection->refuseChanges();
        return connection;
    } catch (const DatabaseError& fault) {
        throw atFile(fault, file.string());
    }
}

std::unique_ptr<platform::Connection> OdbcDatabase::openScratch() {
    return std::make_unique<OdbcConnection>(*environment_, kScratchString, "", "");
}

void createEmbedded(const std::filesystem::path& file) {
    if (std::filesystem::exists(file)) {
        return;
    }
    try {
        makePrivate(file);
        const Environment environment;
        const OdbcConnection connection(environment, embeddedString(file, true), "", file.string());
    } catch (const DatabaseError& fault) {
        throw atFile(fault, file.string());
    }
    if (!std::filesystem::exists(file)) {
        throw DatabaseError("The repository file cannot be created: " + file.string(), "08001", 0, false);
    }
}

void createSample(const std::filesystem::path& file, std::string_view script) {
    std::filesystem::path unfinished = file;
    unfinished += ".new";
    std::filesystem::remove(unfinished);
    makePrivate(unfinished);
    try {
        const Environment environment;
        Session session(environment, sampleString(unfinished, true), "", unfinished.string());
        session.run("BEGIN");
        while (!script.empty()) {
            const std::size_t end = std::min(script.find(";\n"), script.size());
            session.run(std::string(script.substr(0, end)));
            script.remove_prefix(std::min(end + 2, script.size()));
        }
        session.run("COMMIT");
    } catch (const DatabaseError& fault) {
        std::filesystem::remove(unfinished);
        throw atFile(fault, unfinished.string());
    }
    std::filesystem::rename(unfinished, file);
}

}  // namespace orvent::odbc
