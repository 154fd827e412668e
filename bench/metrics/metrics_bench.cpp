// The metrics: what a visit costs at small and large depths, all closures beside igraph, memory, and a walk that knows
// nothing in advance.

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <random>
#include <string>

#include "analysis/metrics_functions.h"
#include "bench/metrics/subjects.h"
#include "platform/fault.h"
#include "testkit/plain_walk.h"

namespace {

using namespace orvent;
using analysis::MetricsViews;

constexpr int kLayer = 625;
constexpr std::int16_t kDepths[] = {5, 100, 32767};

class NoMessages : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

double heapMegabytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
}

/// Looks at the heap at each step.
struct HeapPeak : platform::Progress {
    void pointer(platform::PointerShape) override {}
    void status(const std::string&) override {}
    void step(std::size_t, std::size_t) override { peak = std::max(peak, heapMegabytes()); }
    double peak = 0;
};

/// A design window of its own.
struct Scenario {
    NoMessages messages;
    canvas::CanvasSettings settings;
    canvas::DrawForm form{canvas::CanvasServices{messages, settings}};
};

std::unique_ptr<Scenario> scenarioOf(const bench::Edges& edges) {
    auto scenario = std::make_unique<Scenario>();
    bench::buildNodes(scenario->form, edges);
    return scenario;
}

/// Seconds of the processor that the work takes.
double secondsOf(const std::function<void()>& work) {
    const std::clock_t begin = std::clock();
    work();
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

/// The best of some runs, fewer when they are long.
double bestSeconds(const std::function<void()>& work) {
    double best = 1e9;
    double all = 0;
    for (int run = 0; run < 7 && all < 2; ++run) {
        const double seconds = secondsOf(work);
        best = std::min(best, seconds);
        all += seconds;
    }
    return best;
}

/// All rows and their sums. Sums beyond 16 bits are refused after the last row; here only the time counts.
void runScenario(const Scenario& scenario, std::int16_t depth, MetricsViews& views,
                 platform::Progress* progress = nullptr) {
    try {
        analysis::MetricsFunctions(views, depth, progress).ScenarioMetrics(scenario.form);
    } catch (const platform::Fault&) {
    }
    if (views.InpMetrView.size() != static_cast<std::size_t>(scenario.form.LabelsNo)) {
        std::fprintf(stderr, "not every node has a row\n");
        std::exit(1);
    }
}

std::int64_t reached(const MetricsViews& views) {
    std::int64_t sum = 0;
    for (const auto* view : {&views.InpMetrView, &views.OutMetrView}) {
        for (const analysis::MetricsRow& row : *view) {
            sum += row.values[analysis::Total_DEGREE];
        }
    }
    return sum;
}

void scenarioByDepth(const char* what, const bench::Edges& edges) {
    const auto scenario = scenarioOf(edges);
    double perVisit[std::size(kDepths)];
    for (std::size_t at = 0; at < std::size(kDepths); ++at) {
        MetricsViews views;
        const double seconds = bestSeconds([&] { runScenario(*scenario, kDepths[at], views); });
        const auto visits = static_cast<double>(bench::visitsOf(edges, kDepths[at]));
        perVisit[at] = seconds / visits * 1e9;
        std::printf("%d nodes, %zu edges, %s, depth %5d: %8.1f ms, %.3g visits, %6.2f ns a visit\n", edges.nodes,
                    edges.list.size(), what, kDepths[at], seconds * 1e3, visits, perVisit[at]);
    }
    std::printf("  a visit at 32767 takes %.2f times what it takes at 100 (at most 2)\n", perVisit[2] / perVisit[1]);
}

void besideIgraph(const char* what, const bench::Edges& edges, bool isGoal) {
    const auto scenario = scenarioOf(edges);
    MetricsViews views;
    const double ours = bestSeconds([&] { runScenario(*scenario, 32767, views); });
    const std::string path =
        std::filesystem::temp_directory_path() / ("orvent_metrics_bench." + std::to_string(getpid()));
    std::ofstream file(path);
    file << edges.nodes << "\n";
    for (const auto& [from, to] : edges.list) {
        file << from << " " << to << "\n";
    }
    file.close();
    std::FILE* igraph =
        popen(("/usr/bin/python3 " ORVENT_SOURCE_DIR "/bench/metrics/igraph_closures.py " + path).c_str(), "r");
    double theirs = 0;
    long long found = 0;
    if (!igraph || std::fscanf(igraph, "%lf %lld", &theirs, &found) != 2 || pclose(igraph) != 0) {
        std::fprintf(stderr, "igraph (package python3-igraph) did not run\n");
        std::exit(1);
    }
    std::remove(path.c_str());
    if (isGoal && found != reached(views)) {
        std::fprintf(stderr, "igraph reaches %lld, we %lld\n", found, static_cast<long long>(reached(views)));
        std::exit(1);
    }
    std::printf("%d nodes, %zu edges, %s, depth 32767: all metrics %.1f ms, igraph's closures %.1f ms, ratio %.3f%s\n",
                edges.nodes, edges.list.size(), what, ours * 1e3, theirs * 1e3, ours / theirs,
                isGoal ? " (at most 0.1)" : "");
}

void hub() {
    Scenario scenario;
    bench::buildHub(scenario.form);
    const canvas::LabelsD& node = *scenario.form.nodeNamed("Hub");
    for (const std::int16_t depth : kDepths) {
        MetricsViews views;
        const double seconds = bestSeconds([&] {
            try {
                analysis::MetricsFunctions(views, depth).EntityMetrics(scenario.form, node);
            } catch (const platform::Fault&) {  // the sums
            }
        });
        std::printf("activity of %zu members among %d nodes, depth %5d: %8.1f ms, %lld links met\n",
                    views.InpMetrView.size() + views.OutMetrView.size(), static_cast<int>(scenario.form.LabelsNo),
                    depth, seconds * 1e3, static_cast<long long>(reached(views)));
    }
}

void memory(const char* what, const bench::Edges& edges) {
    const auto scenario = scenarioOf(edges);
    const double before = heapMegabytes();
    MetricsViews views;
    HeapPeak heap;
    runScenario(*scenario, 32767, views, &heap);
    std::printf("%d nodes, %s: the scenario takes %.1f MB, counting at most %.1f MB more, its rows keep %.1f MB\n",
                edges.nodes, what, before, heap.peak - before, heapMegabytes() - before);
}

/// How long the plain walk takes for all nodes, and whether it finds what ours finds.
double plainSeconds(const Scenario& scenario, std::int16_t depth, const MetricsViews& views) {
    const std::clock_t begin = std::clock();
    std::size_t at = 0;
    for (const canvas::LabelsD& node : scenario.form.Labels) {
        const auto in = testkit::PlainWalk{scenario.form, true, depth}.nodes(node).size();
        const auto out = testkit::PlainWalk{scenario.form, false, depth}.nodes(node).size();
        const analysis::MetricsRow& row = views.InpMetrView[at++];
        if (row.values[analysis::Total_IN] != static_cast<int>(in) ||
            row.values[analysis::Total_OUT] != static_cast<int>(out)) {
            std::fprintf(stderr, "%s differs from the plain walk\n", node.Caption().c_str());
            std::exit(1);
        }
    }
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

void besideThePlainWalk() {
    std::mt19937 random(8);
    for (unsigned round = 0; round < 1000; ++round) {
        const int nodes = 2 + static_cast<int>(random() % 30);
        const auto scenario = scenarioOf(bench::tangled(nodes, static_cast<int>(random() % 60), round));
        MetricsViews views;
        const auto depth = static_cast<std::int16_t>(random() % 300);
        runScenario(*scenario, depth, views);
        plainSeconds(*scenario, depth, views);
    }
    std::printf("1000 random graphs: the plain walk finds the same numbers\n");
    const auto scenario = scenarioOf(bench::layered(1000, 1500, kLayer / 10, 3));
    for (const std::int16_t depth : kDepths) {
        MetricsViews views;
        const double ours = bestSeconds([&] { runScenario(*scenario, depth, views); });
        const double plain = plainSeconds(*scenario, depth, views);
        std::printf("1000 nodes, 1500 edges, depth %5d: ours %.2f ms, the plain walk %.1f ms, %.0f times faster\n",
                    depth, ours * 1e3, plain * 1e3, plain / ours);
    }
}

}  // namespace

int main() {
    scenarioByDepth("no cycles", bench::layered(30'000, 45'000, kLayer, 1));
    scenarioByDepth("cycles", bench::tangled(30'000, 45'000, 1));
    hub();
    besideIgraph("no cycles", bench::layered(10'000, 15'000, kLayer, 2), true);
    besideIgraph("cycles", bench::tangled(10'000, 15'000, 2), false);
    memory("no cycles", bench::layered(30'000, 45'000, kLayer, 1));
    memory("cycles", bench::tangled(30'000, 45'000, 1));
    besideThePlainWalk();
    return 0;
}
