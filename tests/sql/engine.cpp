#include "engine.h"

#include <cstdio>

#include "platform/text.h"

namespace orvent::sql {

namespace {

std::string connectionString(const std::string& dialect) {
    if (dialect == "postgresql") {
        static testkit::PostgresServer server;
        return server.createDatabase("walks");
    }
    if (dialect == "mariadb") {
        static testkit::MariaDbServer server;
        return server.createDatabase("walks");
    }
    return "DRIVER={SQLite3};Database=:memory:";
}

}  // namespace

std::string otherCollation(std::string_view dialect) {
    return dialect == "postgresql" ? "\"und-x-icu\"" : dialect == "mariadb" ? "utf8mb4_general_ci" : "NOCASE";
}

std::string spelt(bool null, bool number, const std::string& text) {
    if (null) {
        return "NULL";
    }
    const auto value = number ? platform::parseNumber(text) : std::nullopt;
    if (!value) {
        return "'" + text + "'";
    }
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.9g", *value + 0.0);
    return digits;
}

Held FactTables::heldBy(const program::Predicate& predicate, std::size_t place) const {
    Held held{dialect.quoted(name(place)), {}, ""};
    for (std::size_t column = 0; column < predicate.columns.size(); ++column) {
        held.columns.push_back(dialect.quoted("c" + std::to_string(column)));
    }
    return held;
}

Engine::Engine(const char* dialect) : dialect_(*dialectNamed(dialect)) {
    odbc::OwnSources sources;
    sources.named = {{"rows", connectionString(dialect)}};
    const bool server = dialect != std::string("sqlite");
    database_ = std::make_unique<odbc::OdbcDatabase>(sources);
    connection_ = database_->open("rows", server ? testkit::DatabaseServer::kUser : "",
                                  server ? testkit::DatabaseServer::kPassword : "");
}

void Engine::fill(std::size_t place, const std::vector<FactRow>& rows, const std::vector<bool>& numbers) {
    const entities::CatalogueTables none;
    const OwnFunctions nothing;
    const Values values(dialect_, none, nothing);
    std::string columns;
    for (std::size_t column = 0; column < numbers.size(); ++column) {
        columns += (column == 0 ? "" : ", ") + dialect_.quoted("c" + std::to_string(column)) +
                   (numbers[column] ? " NUMERIC(12,2)" : " VARCHAR(100) COLLATE " + otherCollation(dialect_.name));
    }
    run("CREATE TEMPORARY TABLE " + dialect_.quoted(FactTables::name(place)) + " (" + columns + ")");
    std::string all;
    for (const FactRow& row : rows) {
        std::string list;
        for (std::size_t column = 0; column < row.size(); ++column) {
            const Fact& fact = row[column];
            list += (column == 0 ? "" : ", ") + (fact.null         ? "NULL"
                                                 : numbers[column] ? fact.text
                                                                   : values.text(fact.text).sql);
        }
        all += (all.empty() ? "(" : ", (") + list + ")";
    }
    if (!all.empty()) {
        run("INSERT INTO " + dialect_.quoted(FactTables::name(place)) + " VALUES " + all);
    }
}

Rows Engine::rows(const std::string& query, const std::vector<Family>& families) {
    Rows result;
    const auto statement = connection_->prepareAsIs(query);
    statement->execute();
    while (statement->fetch()) {
        std::string row;
        for (std::size_t column = 0; column < families.size(); ++column) {
            const int number = static_cast<int>(column) + 1;
            row += (column == 0 ? "" : ",") +
                   spelt(statement->isNull(number), families[column] == Family::number, statement->text(number));
        }
        result.insert(row);
    }
    return result;
}

std::vector<Engine>& engines() {
    static std::vector<Engine> all = [] {
        std::vector<Engine> made;
        for (const char* dialect : {"sqlite", "postgresql", "mariadb"}) {
            made.emplace_back(dialect);
        }
        return made;
    }();
    return all;
}

}  // namespace orvent::sql
