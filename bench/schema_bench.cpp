// Reading a source database's schema against the floor: the same statements, sent by a bare ODBC loop.

#include "bench/schema_bench.h"

#include <string>

#include "bench/floor_runs.h"
#include "bench/statement_log.h"
#include "repository/source_schema.h"

namespace orvent::bench {
namespace {

constexpr int kColumns = 30;

void createTables(platform::Connection& connection, int tables) {
    std::string columns = "id NUMBER(10)";
    for (int i = 1; i < kColumns; ++i) {
        columns += ",column_" + std::to_string(i) + (i % 3 == 0 ? " NUMBER(9,2)" : " VARCHAR2(60)");
    }
    for (int i = 1; i <= tables; ++i) {
        connection.prepare("CREATE TABLE table_" + std::to_string(i) + " (" + columns + ")")->execute();
    }
}

void readSchema(platform::Database& database, const repository::SourceDatabase& source, std::size_t tables) {
    repository::SchemaReader reader(database, source);
    reader.readTables();
    while (reader.next() != nullptr) {
    }
    demand(reader.isWhole() && reader.total() >= tables, reader.shortfall());
}

void schema(benchmark::State& state, MakeTarget makeTarget) {
    const auto tables = static_cast<std::size_t>(state.range(0));
    const Target target = makeTarget();
    const repository::LoginValues& login = target.repository->settings.login;
    const repository::SourceDatabase source{login.ReposConnString, login.ReposLogin, login.ReposPasw};
    createTables(*target.repository->database.open(source.name, source.user, source.password),
                 static_cast<int>(tables));
    StatementLog log;
    RecordingDatabase recorder(target.repository->database, log);
    readSchema(recorder, source, tables);
    demand(log.rows >= tables * (kColumns + 1), std::to_string(log.rows) + " rows");
    measureReading(state, target, log,
                   [&] { return seconds([&] { readSchema(target.repository->database, source, tables); }); });
}

void registerSchema(const char* name, MakeTarget makeTarget) {
    benchmark::RegisterBenchmark(name, schema, makeTarget)
        ->Arg(1000)
        ->Iterations(5)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

}  // namespace

void registerSchemaBenchmarks() {
    registerSchema("schema/SQLite", embeddedTarget);
    registerSchema("schema/PostgreSQL", postgresTarget);
}

}  // namespace orvent::bench
