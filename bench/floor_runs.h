#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/statement_log.h"
#include "odbc/dialect.h"
#include "testkit/embedded_repository.h"

namespace orvent::bench {

double seconds(const auto& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A repository without scenarios, and the way to it past the program.
struct Target {
    std::unique_ptr<testkit::TestRepository> repository;
    std::string connectionString;
    odbc::Dialect dialect;
};

using MakeTarget = Target (*)();

Target embeddedTarget();
Target postgresTarget();

/// Ends the benchmark when it does not hold.
void demand(bool holds, const std::string& words);

/// The middle one of several runs of the program and of the floor, which take turns, so that both meet the same
/// machine. The best one would not do: client and server share two cores, and now and then a run has luck with them.
struct Runs {
    std::vector<double> program = {};
    std::vector<double> floor = {};

    void report(benchmark::State& state);
};

/// Measures a reading: the program's, which gives the seconds it took, and the same rows over bare ODBC, in turn.
void measureReading(benchmark::State& state, const Target& target, const StatementLog& log,
                    const std::function<double()>& program);

}  // namespace orvent::bench
