#include "odbc/connection_strings.h"

#include <array>

#include "platform/text.h"

namespace orvent::odbc {

namespace {

bool contains(std::string_view driver, std::string_view word) {
    return platform::lowerCase(driver).find(word) != std::string::npos;
}

/// A value in braces, where every character stands for itself.
std::string enclosed(const std::string& value) {
    std::string result = "{";
    for (const char c : value) {
        result += c;
        if (c == '}') {
            result += c;
        }
    }
    return result + "}";
}

/// PostgreSQL's driver takes the braces around a user's name for a part of it, and a bare password's "%" and "+" for
/// something else.
std::string userName(std::string_view driver, const std::string& user) {
    if (!isPostgresDriver(driver)) {
        return user.find_first_of(" []{}(),;?*=!@") == std::string::npos ? user : enclosed(user);
    }
    if (user.find(';') != std::string::npos || user.front() == '{' || user.front() == ' ' || user.back() == ' ') {
        throw platform::DatabaseError(
            "The driver cannot take this user name: one with a semicolon in it, a brace at its beginning or a blank at "
            "an end.",
            "28000", 0, false);
    }
    return user;
}

std::string login(std::string_view driver, const std::string& user, const std::string& password) {
    if (password.find('\0') != std::string::npos || user.find('\0') != std::string::npos) {
        throw platform::DatabaseError("A user name or password cannot hold a null character.", "28000", 0, false);
    }
    if (isMariaDbDriver(driver) && (password.starts_with(' ') || password.ends_with(' '))) {
        throw platform::DatabaseError("The driver cannot take this password: it drops a blank at an end.", "28000", 0,
                                      false);
    }
    return user.empty() ? std::string() : ";UID=" + userName(driver, user) + ";PWD=" + enclosed(password);
}

/// A path as it stands in an address.
std::string escaped(const std::string& path) {
    std::string result;
    for (const char c : path) {
        result += c == '%' ? "%25" : c == '?' ? "%3f" : c == '#' ? "%23" : std::string(1, c);
    }
    return result;
}

/// Text goes as UTF-8 through the driver's narrow calls; MariaDB's must be told so.
std::string characterSet(std::string_view driver) {
    return isMariaDbDriver(driver) ? ";CHARSET=utf8mb4" : "";
}

}  // namespace

bool isMariaDbDriver(std::string_view driver) {
    return contains(driver, "maria") || contains(driver, "mysql") || contains(driver, "maodbc") ||
           contains(driver, "myodbc");
}

bool isPostgresDriver(std::string_view driver) {
    return contains(driver, "postgres") || contains(driver, "psqlodbc");
}

std::vector<platform::DataSource> managerSources(const Environment& environment) {
    std::vector<platform::DataSource> sources;
    std::array<SQLCHAR, 1024> name{};
    std::array<SQLCHAR, 1024> driver{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT driverLength = 0;
    while (SQL_SUCCEEDED(SQLDataSources(environment.get(), SQL_FETCH_NEXT, name.data(), name.size(), &nameLength,
                                        driver.data(), driver.size(), &driverLength))) {
        sources.push_back({reinterpret_cast<const char*>(name.data()), reinterpret_cast<const char*>(driver.data())});
    }
    return sources;
}

std::string attribute(std::string_view connectionString, std::string_view name) {
    while (!connectionString.empty()) {
        const std::size_t equals = connectionString.find('=');
        if (equals == std::string_view::npos) {
            break;
        }
        const std::string_view key = platform::trimmed(connectionString.substr(0, equals));
        connectionString.remove_prefix(equals + 1);
        const bool braces = connectionString.starts_with('{');
        const std::size_t end = connectionString.find(braces ? '}' : ';');
        if (platform::equalIgnoringCase(key, name)) {
            return std::string(connectionString.substr(braces ? 1 : 0, braces ? end - 1 : end));
        }
        const std::size_t semicolon = end == std::string_view::npos ? end : connectionString.find(';', end);
        connectionString.remove_prefix(semicolon == std::string_view::npos ? connectionString.size() : semicolon + 1);
    }
    return {};
}

std::string managerString(const platform::DataSource& source, const std::string& user, const std::string& password) {
    return "DSN=" + source.name + login(source.driver, user, password) + characterSet(source.driver);
}

std::string namedString(const NamedSource& source, const std::string& user, const std::string& password) {
    std::string base = source.connectionString;
    while (base.ends_with(';')) {
        base.pop_back();  // the driver of MariaDB refuses one at the end
    }
    if (attribute(base, "CHARSET").empty()) {
        base += characterSet(attribute(base, "DRIVER"));
    }
    return attribute(base, "UID").empty() ? base + login(attribute(base, "DRIVER"), user, password) : base;
}

std::string embeddedString(const std::filesystem::path& file, bool create) {
    // Write-ahead logging lets one process read while another writes, and makes a statement in auto-commit many times
    // faster. The time-out, in milliseconds, is how long a second writer waits for the first; the driver takes it
    // twice.
    return "DRIVER={SQLite3};Database=" + file.string() +
           ";FKSupport=1;JournalMode=WAL;SyncPragma=NORMAL;Timeout=2500;NoCreat=" + (create ? "0" : "1");
}

std::string onlyReadString(const std::filesystem::path& file) {
    std::string name = file.string();
    const bool inUse = std::filesystem::exists(name + "-wal") || std::filesystem::exists(name + "-shm");
    if (!inUse) {
        // SQLite cannot read a file with write-ahead logging unless it may write beside it, or knows that nobody else
        // writes. That can be told in an address only.
        name = "file:" + escaped(std::filesystem::absolute(file).string()) + "?immutable=1";
    }
    return "DRIVER={SQLite3};Database=" + name + ";FKSupport=1;Timeout=2500;NoCreat=1";
}

std::string sampleString(const std::filesystem::path& file, bool create) {
    return "DRIVER={SQLite3};Database=" + file.string() + ";Timeout=2500;NoCreat=" + (create ? "0" : "1");
}

}  // namespace orvent::odbc
