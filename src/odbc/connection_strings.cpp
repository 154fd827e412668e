#include "odbc/connection_strings.h"

#include <array>

#include "platform/text.h"

namespace orvent::odbc {

namespace {

bool contains(std::string_view driver, std::string_view word) {
    return platform::lowerCase(driver).find(word) != std::string::npos;
}

/// A value as a connection string takes it.
std::string enclosed(const std::string& value) {
    if (value.find_first_of("[]{}(),;?*=!@") == std::string::npos) {
        return value;
    }
    std::string result = "{";
    for (const char c : value) {
        result += c;
        if (c == '}') {
            result += c;
        }
    }
    return result + "}";
}

std::string login(const std::string& user, const std::string& password) {
    return user.empty() ? std::string() : ";UID=" + enclosed(user) + ";PWD=" + enclosed(password);
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
    return "DSN=" + source.name + login(user, password) + characterSet(source.driver);
}

std::string namedString(const NamedSource& source, const std::string& user, const std::string& password) {
    std::string base = source.connectionString;
    while (base.ends_with(';')) {
        base.pop_back();  // the driver of MariaDB refuses one at the end
    }
    if (attribute(base, "CHARSET").empty()) {
        base += characterSet(attribute(base, "DRIVER"));
    }
    return attribute(base, "UID").empty() ? base + login(user, password) : base;
}

std::string embeddedString(const std::filesystem::path& file, bool create) {
    // Write-ahead logging lets one process read while another writes, and makes a statement in auto-commit many times
    // faster. The time-out, in milliseconds, is how long a second writer waits for the first; the driver takes it
    // twice.
    return "DRIVER={SQLite3};Database=" + file.string() +
           ";FKSupport=1;JournalMode=WAL;SyncPragma=NORMAL;Timeout=2500;NoCreat=" + (create ? "0" : "1");
}

}  // namespace orvent::odbc
