#include "databases.h"

#ifdef __SANITIZE_ADDRESS__
/// PostgreSQL's driver loses a little memory with every prepared statement that the server refuses.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:psqlodbcw.so\n";
}
#endif

namespace orvent::odbc {

namespace {

std::unique_ptr<platform::Statement> executed(platform::Connection& connection, std::string_view sql, Texts bound) {
    auto statement = connection.prepare(sql);
    int place = 0;
    for (const std::string_view text : bound) {
        statement->bind(++place, text);
    }
    statement->execute();
    return statement;
}

}  // namespace

std::string nameOf(Kind kind) {
    return kind == Kind::sqlite ? "SQLite" : kind == Kind::postgres ? "PostgreSQL" : "MariaDB";
}

testkit::DatabaseServer& server(Kind kind) {
    if (kind == Kind::postgres) {
        static testkit::PostgresServer postgres;
        return postgres;
    }
    static testkit::MariaDbServer mariaDb;
    return mariaDb;
}

void run(platform::Connection& connection, std::string_view sql, Texts bound) {
    executed(connection, sql, bound);
}

std::string column(platform::Connection& connection, std::string_view sql, Texts bound) {
    const auto statement = executed(connection, sql, bound);
    std::string all;
    while (statement->fetch()) {
        all += statement->text(1) + "|";
    }
    return all;
}

EveryDatabase::EveryDatabase() {
    if (GetParam() == Kind::sqlite) {
        const auto file = folder_.path() / "repository.db";
        createEmbedded(file);
        sources_.embedded = EmbeddedRepository{.name = "test", .file = file};
    } else {
        static int count = 0;
        sources_.named = {{"test", server(GetParam()).createDatabase("test" + std::to_string(++count))}};
    }
    database_ = std::make_unique<OdbcDatabase>(sources_);
}

std::unique_ptr<platform::Connection> EveryDatabase::open(platform::Database& database) {
    return database.open("test", testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword);
}

}  // namespace orvent::odbc
