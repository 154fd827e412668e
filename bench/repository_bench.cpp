// Saving and loading against the floor: the same statements with the same values, sent by a bare ODBC loop.

#include "bench/repository_bench.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/bare_odbc.h"
#include "bench/floor_runs.h"
#include "bench/graphs.h"
#include "bench/statement_log.h"
#include "repository/catalogue.h"
#include "repository/scenario_load_save.h"

namespace orvent::bench {
namespace {

using testkit::TestRepository;

/// No windows but the one at hand.
class NoWindows : public repository::ScenarioWindows {
  public:
    int slotCount() const override { return 0; }
    int NewScenario(std::string&) override { return -1; }
    canvas::DrawForm* scenario(int) override { return nullptr; }
    void discardScenario(int) override {}
    void scenarioGone(std::int16_t, const canvas::DrawForm*) override {}
    void enableFrame(bool) override {}
};

/// The program's saving and loading on one repository.
class Program {
  public:
    Program(TestRepository& repository, platform::Database& database)
        : repository_(repository),
          services_{database,         repository.dataSources, repository.messages, repository.input,
                    repository.files, repository.store,       repository.progress, repository.settings} {
        catalogue_.LoadDataTypes();
        catalogue_.LoadFunctionTypes();
        catalogue_.LoadActivityTypes();
    }
    explicit Program(TestRepository& repository) : Program(repository, repository.database) {}

    std::unique_ptr<canvas::DrawForm> window() {
        return std::make_unique<canvas::DrawForm>(canvas::CanvasServices{repository_.messages, settings_});
    }

    std::unique_ptr<canvas::DrawForm> scenario(int nodes) {
        auto form = window();
        form->setCaption("Nightly load");
        buildScenario(*form, nodes);
        synchronizeScenario(*form);
        return form;
    }

    void save(canvas::DrawForm& form) {
        repository_.messages.expect("Saved");
        loadSave_.SaveScenario(form, false);
    }

    void load(canvas::DrawForm& form, std::int16_t ScenarioID) { loadSave_.LoadScenario(form, ScenarioID); }

  private:
    TestRepository& repository_;
    repository::Services services_;
    repository::Catalogue catalogue_{services_, [] {}};
    NoWindows windows_;
    repository::ScenarioLoadSave loadSave_{services_, catalogue_, windows_};
    canvas::CanvasSettings settings_;
};

/// What the program asks of the database in one piece of work.
StatementLog logOf(TestRepository& repository, const auto& work) {
    StatementLog log;
    RecordingDatabase recorder(repository.database, log);
    Program program(repository, recorder);
    log = {};  // without the catalogue, which is there before
    work(program);
    return log;
}

/// How many rows the tables that a scenario is kept in have.
std::string rowCounts(TestRepository& repository) {
    const repository::LoginValues& login = repository.settings.login;
    const auto connection = repository.database.open(login.ReposConnString, login.ReposLogin, login.ReposPasw);
    std::string counts;
    for (const std::string table : {"Scenarios", "ScenarioNodes", "Lines", "RelationShips", "Activities",
                                    "ActivitySubNodes", "RecordSets", "RecordSetOutputs"}) {
        const auto statement = connection->prepare("SELECT COUNT(*) FROM " + table);
        statement->execute();
        statement->fetch();
        counts += table + " " + statement->text(1) + " ";
    }
    return counts;
}

void save(benchmark::State& state, MakeTarget makeTarget) {
    const int nodes = static_cast<int>(state.range(0));
    const Target recorded = makeTarget();
    const StatementLog log =
        logOf(*recorded.repository, [&](Program& program) { program.save(*program.scenario(nodes)); });
    const std::string expected = rowCounts(*recorded.repository);
    const BareOdbc floor(log, recorded.dialect);

    Runs runs;
    for (auto _ : state) {
        const Target ours = makeTarget();
        Program program(*ours.repository);
        const auto form = program.scenario(nodes);
        const double taken = seconds([&] { program.save(*form); });
        runs.program.push_back(taken);
        state.SetIterationTime(taken);

        const Target bare = makeTarget();
        runs.floor.push_back(seconds([&] { floor.run(bare.connectionString); }));
        demand(rowCounts(*bare.repository) == expected, rowCounts(*bare.repository) + "instead of " + expected);
    }
    runs.report(state);
}

void load(benchmark::State& state, MakeTarget makeTarget) {
    const int nodes = static_cast<int>(state.range(0));
    const Target target = makeTarget();
    Program program(*target.repository);
    const auto saved = program.scenario(nodes);
    program.save(*saved);

    const StatementLog log =
        logOf(*target.repository, [&](Program& other) { other.load(*other.window(), saved->ScenarioID); });
    measureReading(state, target, log, [&] {
        const auto form = program.window();
        return seconds([&] { program.load(*form, saved->ScenarioID); });
    });
}

/// The shorter the work, the more a single run depends on chance.
template <class Run>
void registerSizes(const std::string& name, Run run, MakeTarget makeTarget) {
    for (const auto& [nodes, runs] : {std::pair{100, 25}, {1000, 9}, {3000, 7}}) {
        benchmark::RegisterBenchmark(name.c_str(), run, makeTarget)
            ->Arg(nodes)
            ->Iterations(runs)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    }
}

}  // namespace

void registerRepositoryBenchmarks() {
    registerSizes("save/SQLite", save, embeddedTarget);
    registerSizes("load/SQLite", load, embeddedTarget);
    registerSizes("save/PostgreSQL", save, postgresTarget);
    registerSizes("load/PostgreSQL", load, postgresTarget);
}

}  // namespace orvent::bench
