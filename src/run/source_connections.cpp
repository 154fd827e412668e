#include "run/source_connections.h"

#include "platform/text.h"

namespace orvent::run {

std::optional<platform::DataSource> SourceConnections::sourceOf(const std::string& alias) {
    for (const platform::DataSource& each : dataSources_.list()) {
        if (platform::equalIgnoringCase(each.name, alias)) {
            return each;
        }
    }
    return std::nullopt;
}

bool SourceConnections::isKnown(const std::string& alias) {
    const auto source = known_.contains(alias) ? std::nullopt : sourceOf(alias);
    if (source && source->driver.find("SQLite") != std::string::npos) {
        known_[alias] = {};  // a file has no users
    }
    return known_.contains(alias);
}

void SourceConnections::ask(const std::string& alias) {
    const auto source = isKnown(alias) ? std::nullopt : sourceOf(alias);
    if (source) {
        if (const std::optional<Login> login = logins_.loginFor(source->name)) {
            known_[alias] = *login;
        }
    }
}

OpenSource& SourceConnections::open(const std::string& alias) {
    if (const auto already = open_.find(alias); already != open_.end()) {
        return already->second;
    }
    const std::optional<platform::DataSource> source = sourceOf(alias);
    if (!source) {
        throw platform::Fault("There is no data source " + alias + ".");
    }
    if (!known_.contains(alias)) {
        throw platform::Fault("Nobody has logged in at " + source->name + ".");
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
