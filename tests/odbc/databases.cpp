#include "databases.h"

#include <stdexcept>

#ifdef __SANITIZE_ADDRESS__
/// PostgreSQL's driver loses a little memory with every prepared statement that the server refuses.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:psqlodbcw.so\n";
}
#endif

namespace orvent::odbc {

namespace {

/// Holds the servers until all tests are done. One that cannot be had fails the program before its first test.
class Servers : public ::testing::Environment {
  public:
    void SetUp() override {
        try {
            postgres = std::make_unique<testkit::PostgresServer>();
            mariaDb = std::make_unique<testkit::MariaDbServer>();
        } catch (const std::runtime_error& fault) {
            FAIL() << fault.what();
        }
    }

    void TearDown() override {
        postgres.reset();
        mariaDb.reset();
    }

    std::unique_ptr<testkit::PostgresServer> postgres;
    std::unique_ptr<testkit::MariaDbServer> mariaDb;
};

Servers& servers = *static_cast<Servers*>(::testing::AddGlobalTestEnvironment(new Servers));

}  // namespace

std::string nameOf(Kind kind) {
    return kind == Kind::sqlite ? "SQLite" : kind == Kind::postgres ? "PostgreSQL" : "MariaDB";
}

testkit::DatabaseServer& server(Kind kind) {
    if (kind == Kind::postgres) {
        return *servers.postgres;
    }
    return *servers.mariaDb;
}

void run(platform::Connection& connection, std::string_view sql) {
    connection.prepare(sql)->execute();
}

std::string column(platform::Connection& connection, std::string_view sql) {
    const auto statement = connection.prepare(sql);
    statement->execute();
    std::string all;
    while (statement->fetch()) {
        all += statement->text(1) + "|";
    }
    return all;
}

void DatabaseTest::use(Kind kind) {
    if (kind == Kind::sqlite) {
        createEmbedded(file());
        sources_.embedded = EmbeddedRepository{.name = "test", .file = file()};
    } else {
        static int count = 0;
        sources_.named = {{"test", server(kind).createDatabase("test" + std::to_string(++count))}};
    }
    database_ = std::make_unique<OdbcDatabase>(sources_);
}

std::unique_ptr<platform::Connection> DatabaseTest::open(platform::Database& database) const {
    return database.open("test", testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword);
}

}  // namespace orvent::odbc
