#include "bench/floor_runs.h"

#include <algorithm>
#include <stdexcept>

#include "bench/bare_odbc.h"
#include "odbc/connection_strings.h"
#include "odbc/dialect_rules.h"
#include "testkit/servers.h"

namespace orvent::bench {

using testkit::TestRepository;

namespace {

double median(std::vector<double>& times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

Target embeddedTarget() {
    auto repository = std::make_unique<TestRepository>();
    std::string way = odbc::embeddedString(repository->file(), false);
    return {std::move(repository), std::move(way), odbc::Dialect(odbc::rulesOf("SQLite"), "")};
}

Target postgresTarget() {
    static testkit::PostgresServer server;  // started at the first use, stopped with the program
    static int databases = 0;
    const std::string user = testkit::DatabaseServer::kUser;
    const std::string password = testkit::DatabaseServer::kPassword;
    const odbc::NamedSource source{"bench", server.createDatabase("bench" + std::to_string(++databases))};
    return {std::make_unique<TestRepository>(source, user, password), odbc::namedString(source, user, password),
            odbc::Dialect(odbc::rulesOf("PostgreSQL"), user)};
}

void demand(bool holds, const std::string& words) {
    if (!holds) {
        throw std::runtime_error("the floor did other work than the program: " + words);
    }
}

void Runs::report(benchmark::State& state) {
    const double ours = median(program);
    const double bare = median(floor);
    state.counters["floor_ms"] = bare * 1000;
    state.counters["program_ms"] = ours * 1000;
    state.counters["ratio"] = ours / bare;
}

void measureReading(benchmark::State& state, const Target& target, const StatementLog& log,
                    const std::function<double()>& program) {
    const BareOdbc floor(log, target.dialect);
    Runs runs;
    for (auto _ : state) {
        const double taken = program();
        runs.program.push_back(taken);
        state.SetIterationTime(taken);

        std::size_t rows = 0;
        runs.floor.push_back(seconds([&] { rows = floor.run(target.connectionString); }));
        demand(rows == log.rows, std::to_string(rows) + " rows instead of " + std::to_string(log.rows));
    }
    runs.report(state);
}

}  // namespace orvent::bench
