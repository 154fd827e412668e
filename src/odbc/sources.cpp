#include "odbc/sources.h"

#include <algorithm>

#include "odbc/connection_strings.h"

namespace orvent::odbc {

namespace {

std::string translated(const std::string& driver) {
    return driver + " (Oracle dialect translator)";
}

}  // namespace

std::vector<platform::DataSource> OdbcDataSources::list() {
    std::vector<platform::DataSource> sources;
    if (own_.embedded) {
        sources.push_back({own_.embedded->name, translated("Embedded SQLite")});
    }
    if (own_.sample && std::filesystem::exists(own_.sample->file)) {
        sources.push_back({own_.sample->name, translated("SQLite"), true});
    }
    for (const NamedSource& named : own_.named) {
        const std::string driver = attribute(named.connectionString, "DRIVER");
        const bool oracle = driver.find("Oracle") != std::string::npos;
        sources.push_back({named.name, oracle ? driver : translated(driver)});
    }
    const std::size_t own = sources.size();
    for (platform::DataSource& source : managerSources(Environment())) {
        const auto ownEnd = sources.begin() + static_cast<std::ptrdiff_t>(own);
        const bool hidden = std::any_of(sources.begin(), ownEnd, [&](const platform::DataSource& candidate) {
            return candidate.name == source.name;
        });
        if (hidden) {
            continue;
        }
        if (isPostgresDriver(source.driver) || isMariaDbDriver(source.driver)) {
            source.driver = translated(source.driver);
        }
        sources.push_back(std::move(source));
    }
    return sources;
}

}  // namespace orvent::odbc
