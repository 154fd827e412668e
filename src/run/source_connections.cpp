#include "run/source_connections.h"

#include "platform/text.h"

namespace orvent::run {

OpenSource& SourceConnections::open(const std::string& alias) {
    if (const auto already = open_.find(alias); already != open_.end()) {
        return already->second;
    }
    std::optional<platform::DataSource> source;
    for (const platform::DataSource& each : dataSources_.list()) {
        if (!source && platform::equalIgnoringCase(each.name, alias)) {
            source = each;
        }
    }
    if (!source) {
        throw platform::Fault("There is no data source " + alias + ".");
    }
    if (!known_.contains(alias)) {
        // A file has no users.
        const bool file = source->driver.find("SQLite") != std::string::npos;
        const std::optional<Login> login = file ? Login{} : logins_.loginFor(source->name);
        if (!login) {
            throw platform::Fault("Nobody has logged in at " + source->name + ".");
        }
        known_[alias] = *login;
    }
    OpenSource opened{};
    try {
        opened.connection = database_.open(source->name, known_[alias].user, known_[alias].password);
    } catch (const platform::Fault&) {
        known_.erase(alias);
        throw;
    }
    opened.connection->refuseChanges();
    opened.dialect = sql::dialectNamed(opened.connection->databaseName());
    if (!opened.dialect) {
        opened.dialect = sql::dialectNamed("ansi");
    }
    return open_.emplace(alias, std::move(opened)).first->second;
}

}  // namespace orvent::run
