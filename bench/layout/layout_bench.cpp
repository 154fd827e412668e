// Tidying up in figures, beside Graphviz's dot on the same graphs: how long it takes, and how many arcs cross when they
// are drawn straight from box to box. Without dot that half is left out, and the program says so.

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "layout/flow_layout.h"

namespace orvent::bench {
namespace {

using layout::Arc;
using layout::FlowGraph;
using layout::Place;

constexpr layout::Size kBox{1050, 450};
constexpr double kTwipsPerInch = 1440;

/// Milliseconds of the processor that this program has used so far, or those that it has started and that ended. Other
/// work on the machine hardly shows in them, and both run on one core.
double used(int who) {
    rusage usage{};
    ::getrusage(who, &usage);
    const auto of = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

double milliseconds(const std::function<void()>& work, int who = RUSAGE_SELF) {
    const double from = used(who);
    work();
    return used(who) - from;
}

void print(const std::string& name, double value, double aim, const char* unit, bool atLeast = false) {
    const bool met = atLeast ? value >= aim : value <= aim;
    std::printf("%-66s %9.3f %-2s  aim %5.3g  %s\n", name.c_str(), value, unit, aim, met ? "met" : "MISSED");
}

/// How far the arcs of a graph lead beside the place straight ahead.
enum class Reach { near, anywhere };

/// Loads of a warehouse side by side: columns of about ten nodes for each hundred, with half as many arcs again as
/// nodes. Four of five arcs lead to the next column, the others farther on.
FlowGraph load(int nodes, Reach reach, unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const int columns = std::max(4, static_cast<int>(std::sqrt(nodes)) / 2);
    FlowGraph graph;
    graph.nodes.assign(static_cast<std::size_t>(nodes), kBox);
    const int rows = (nodes + columns - 1) / columns;
    for (int made = 0; made < nodes * 3 / 2;) {
        const int from = below(nodes);
        const int ahead = below(5) > 0 ? 1 : 2 + below(3);
        const int column = from / rows + ahead;
        const int row = reach == Reach::near ? from % rows - 2 + below(5) : below(rows);
        if (const int to = column * rows + row; column < columns && row >= 0 && row < rows && to < nodes) {
            graph.arcs.push_back({from, to});
            ++made;
        }
    }
    return graph;
}

/// Counts the pairs of arcs that cross when each is drawn from the right side of its box to the left one of the other.
std::int64_t straightCrossings(const FlowGraph& graph, const std::vector<Place>& places) {
    struct Line {
        double x1, y1, x2, y2;
    };
    std::vector<Line> lines;
    for (const Arc& arc : graph.arcs) {
        const Place a = places[static_cast<std::size_t>(arc.from)], b = places[static_cast<std::size_t>(arc.to)];
        lines.push_back({a.left + kBox.width, a.top + kBox.height / 2, b.left, b.top + kBox.height / 2});
    }
    const auto side = [](const Line& line, double x, double y) {
        const double turn = (line.x2 - line.x1) * (y - line.y1) - (line.y2 - line.y1) * (x - line.x1);
        return turn > 1e-6 ? 1 : turn < -1e-6 ? -1 : 0;
    };
    std::int64_t found = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const Line &a = lines[i], &b = lines[j];
            found += side(a, b.x1, b.y1) * side(a, b.x2, b.y2) < 0 && side(b, a.x1, a.y1) * side(b, a.x2, a.y2) < 0;
        }
    }
    return found;
}

/// A file that goes with its object.
struct Passing {
    explicit Passing(const char* suffix) : path("/tmp/orvent_layout_" + std::to_string(::getpid()) + suffix) {}
    ~Passing() { std::remove(path.c_str()); }
    Passing(const Passing&) = delete;
    Passing& operator=(const Passing&) = delete;
    std::string path;
};

bool haveDot() {
    return std::system("dot -V >/dev/null 2>&1") == 0;  // NOLINT(cert-env33-c)
}

/// The places that dot gives the same boxes; nothing when it fails.
std::optional<std::vector<Place>> placesByDot(const FlowGraph& graph) {
    const Passing question(".dot"), answer(".plain");
    {
        std::ofstream out(question.path);
        out << "digraph { rankdir=LR; node [shape=box fixedsize=true width=" << kBox.width / kTwipsPerInch
            << " height=" << kBox.height / kTwipsPerInch << "];\n";
        for (std::size_t node = 0; node < graph.nodes.size(); ++node) {
            out << node << ";\n";
        }
        for (const Arc& arc : graph.arcs) {
            out << arc.from << "->" << arc.to << ";\n";
        }
        out << "}\n";
    }
    if (std::system(("dot -Tplain -o " + answer.path + " " + question.path).c_str()) != 0) {  // NOLINT(cert-env33-c)
        return std::nullopt;
    }
    std::vector<Place> places(graph.nodes.size());
    std::ifstream in(answer.path);
    std::string line, kind;
    while (std::getline(in, line)) {
        std::istringstream words(line);
        std::size_t node = 0;
        double x = 0, y = 0;
        if (words >> kind && kind == "node" && words >> node >> x >> y && node < places.size()) {
            places[node] = {x * kTwipsPerInch - kBox.width / 2, y * kTwipsPerInch - kBox.height / 2};
        }
    }
    return places;
}

double best(const FlowGraph& graph, int runs) {
    double least = 1e300;
    for (int run = 0; run < runs; ++run) {
        least = std::min(least, milliseconds([&] { layout::layOut(graph); }));
    }
    return least;
}

void compareCrossings() {
    constexpr std::array<int, 10> kSizes = {50, 75, 100, 150, 200, 300, 400, 600, 800, 1000};
    double sum = 0, dots = 0, ours = 0;
    for (const Reach reach : {Reach::near, Reach::anywhere}) {
        for (const int size : kSizes) {
            const FlowGraph graph = load(size, reach, static_cast<unsigned>(size));
            const auto theirs = placesByDot(graph);
            if (!theirs) {
                std::printf("dot failed\n");
                return;
            }
            const auto a = static_cast<double>(straightCrossings(graph, layout::layOut(graph)));
            const auto b = static_cast<double>(straightCrossings(graph, *theirs));
            std::printf("  %4d nodes, %-21s %7.0f crossings, dot %7.0f\n", size,
                        reach == Reach::near ? "arcs to what is near" : "arcs to anywhere", a, b);
            sum += (a + 1) / (b + 1);
            ours += a;
            dots += b;
        }
    }
    print("crossings on twenty graphs, times dot's, in the mean", sum / 20, 1.2, "");
    print("crossings of all twenty together, times dot's", ours / dots, 1.2, "");
}

void run() {
    const bool withDot = haveDot();
    const FlowGraph small = load(1000, Reach::anywhere, 1), large = load(30000, Reach::anywhere, 1);
    const double smallTime = best(small, 5), largeTime = best(large, 3);
    print("30,000 nodes with 45,000 arcs", largeTime / 1000, 2, "s");
    print("time for a node of 30,000, times that for one of 1,000", largeTime / 30 / smallTime, 2, "");
    std::printf("%-66s %9.3f ms\n", "1,000 nodes with 1,500 arcs", smallTime);
    if (withDot) {
        const double dotTime = milliseconds([&] { placesByDot(small); }, RUSAGE_CHILDREN);
        print("the same by dot, times as long", dotTime / smallTime, 50, "", true);
        compareCrossings();
    } else {
        std::printf("dot is not installed (package graphviz): nothing to compare with\n");
    }
}

}  // namespace
}  // namespace orvent::bench

int main() {
    orvent::bench::run();
}
