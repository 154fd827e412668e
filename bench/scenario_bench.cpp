// Work on a whole scenario in memory, which must grow with the number of nodes and no faster. A user gives such a
// command once, in between other work; so every run starts with cold caches. Otherwise the small scenario, which fits
// into them, would be measured in another memory than the large one.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

#include "analysis/text_export.h"
#include "bench/graphs.h"
#include "statements/scenario_link_rules.h"
#include "testkit/scripted_ports.h"

namespace orvent::bench {
namespace {

/// Pushes everything else out of the processor's caches, whose last one tells how much that takes.
void coolCaches() {
    static std::vector<char> filler(std::max(2 * sysconf(_SC_LEVEL3_CACHE_SIZE), 128L * 1024 * 1024));
    constexpr std::size_t kCacheLine = 64;
    for (std::size_t at = 0; at < filler.size(); at += kCacheLine) {
        ++filler[at];
    }
    benchmark::DoNotOptimize(filler.data());
}

void reportPerNode(benchmark::State& state) {
    using benchmark::Counter;
    state.counters["per_node"] =
        Counter(static_cast<double>(state.range(0)), Counter::kIsIterationInvariantRate | Counter::kInvert);
}

void synchronise(benchmark::State& state) {
    testkit::CanvasPorts ports;
    for (auto _ : state) {
        state.PauseTiming();
        auto form = std::make_unique<canvas::DrawForm>(ports.services());
        buildScenario(*form, static_cast<int>(state.range(0)));
        coolCaches();
        state.ResumeTiming();
        synchronizeScenario(*form);
        state.PauseTiming();
        form.reset();
        state.ResumeTiming();
    }
    reportPerNode(state);
}

template <class Work>
void onLinkedScenario(benchmark::State& state, Work work) {
    testkit::CanvasPorts ports;
    canvas::DrawForm form(ports.services());
    buildScenario(form, static_cast<int>(state.range(0)));
    synchronizeScenario(form);
    for (auto _ : state) {
        state.PauseTiming();
        coolCaches();
        state.ResumeTiming();
        benchmark::DoNotOptimize(work(ports, form));
    }
    reportPerNode(state);
}

void ldlProgram(benchmark::State& state) {
    onLinkedScenario(state,
                     [](testkit::CanvasPorts&, canvas::DrawForm& form) { return statements::ScenarioLinkRules(form); });
}

void textExport(benchmark::State& state) {
    testkit::QuietProgress progress;
    entities::CatalogueTables catalogue;
    catalogue.activityTypes.add("Copy");
    onLinkedScenario(state, [&](testkit::CanvasPorts&, canvas::DrawForm& form) {
        return analysis::TextExport(progress, catalogue).ExportText(form);
    });
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond)->Iterations(15);
}

BENCHMARK(synchronise)->Apply(sizes);
BENCHMARK(ldlProgram)->Name("LDL program")->Apply(sizes);
BENCHMARK(textExport)->Name("text export")->Apply(sizes);

}  // namespace
}  // namespace orvent::bench
