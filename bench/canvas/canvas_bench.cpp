// The canvas view in figures, offscreen with software rendering at 1600 x 900: beside what a Qt programmer would write
// first, against one frame of a screen, and how it grows with the graph.

#include <QApplication>
#include <array>
#include <cstdio>

#include "bench/canvas/measure.h"
#include "bench/zoom/stage.h"

namespace orvent::bench {
namespace {

constexpr int kNodes = 10000;
constexpr int kLarge = 30000;
constexpr double kFrame = 16;
constexpr double kGrowthAim = 1.3;
constexpr double kBytesPerNode = 2048;

const char* verdict(bool met) {
    return met ? "met" : "MISSED";
}

void printRatio(const char* name, double reference, double ours, double aim, const char* unit) {
    std::printf("%-42s reference %9.3f %s  ours %9.3f %s  ratio %6.3f  aim %.2f  %s\n", name, reference, unit, ours,
                unit, ours / reference, aim, verdict(ours <= aim * reference));
}

void printBudget(const char* name, int nodes, double ours) {
    std::printf("%-42s %6d nodes  %9.3f ms  budget %.0f ms  %s\n", name, nodes, ours, kFrame, verdict(ours <= kFrame));
}

class Bench {
  public:
    explicit Bench(QWidget& window) : window_(window) {}

    void compare() {
        Graph graph = drawGraph(services_, kNodes, true);
        const auto reference = open<Reference>(graph);
        const auto ours = open<Ours>(graph);
        Figures theirs{};
        Figures mine{};
        measure(reference, graph, theirs);
        measure(ours, graph, mine);
        std::printf("%d nodes, %d edges; both views without scroll bars\n", graph.form->Labels.Count(),
                    graph.form->Lines.Count());
        for (std::size_t i = 0; i < kAims.size(); ++i) {
            printRatio(kAims[i].name, theirs[i], mine[i], kAims[i].aim, kAims[i].unit);
        }
    }

    void budgets(int nodes) {
        Graph graph = drawGraph(services_, nodes, true);
        Ours ours(graph, window_);
        show(ours);
        printBudget("repaint of the whole picture", nodes, repaintAll(ours));
        printBudget("view zoom, slowest scale", nodes, zoomStep(ours, graph.star, kZooms));
        printBudget("view zoom at a node with 2,000 edges", nodes, zoomStep(ours, graph.hub, kZooms));
        const MinimapCosts map = minimap(ours);
        std::printf("%-42s %6d nodes  %9.3f ms, moved %.3f ms  aim 4 ms  %s\n", "minimap, painted anew", nodes,
                    map.anew, map.moved, verdict(map.anew <= 4 && map.moved <= 4));
        printBudget("pan", nodes, pan(ours, graph.star));
        printBudget("drag feedback", nodes, dragStep(ours, graph.star));
        printBudget("crop rectangle feedback", nodes, cropStep(ours, graph));
        const GroupDrag group = groupDrag(ours, graph.star);
        printBudget("drag of 1,000 selected nodes", nodes, group.step);
        printBudget("drop of 1,000 selected nodes", nodes, group.drop);
        std::printf("of these nodes %d edge ends follow\n", group.edges);
    }

    /// The same on the zoom of an activity, and the light on a path.
    void zoomCanvas(int subNodes) {
        Stage stage(subNodes, 0);
        stage.open();
        Graph graph;
        graph.star = stage.form->NamesColl.Item("STAR.IN.M1");
        graph.form = std::move(stage.form);
        printBudget("zoom: open to the first whole picture", subNodes, openToPicture(open<Ours>(graph)));
        Ours ours(graph, window_);
        show(ours);
        printBudget("zoom: repaint of the whole picture", subNodes, repaintAll(ours));
        printBudget("zoom: pan", subNodes, pan(ours, graph.star));
        printBudget("zoom: drag feedback", subNodes, dragStep(ours, graph.star));
        printBudget("zoom: drop of a member", subNodes, drop(ours, graph.star, kDrops));
        printBudget("zoom: light on a path, whole picture", subNodes, lightStep(ours, graph.star, true));
        printBudget("zoom: light on a path, at 1:1", subNodes, lightStep(ours, graph.star, false));
        ours.showAll();
        settle();
        printBudget("zoom: a thousand hit tests", subNodes, 1000 * hitTest(ours));
    }

    void growth() {
        constexpr std::array<const char*, 4> kNames = {"pan", "hit test", "drag of one node",
                                                       "drop of one node with 20 edges"};
        constexpr std::array<int, 3> kSizes = {1000, kNodes, kLarge};
        std::array<std::array<double, 3>, 4> times{};
        for (std::size_t i = 0; i < kSizes.size(); ++i) {
            Graph graph = drawGraph(services_, kSizes[i], false);
            Ours ours(graph, window_);
            show(ours);
            times[0][i] = pan(ours, graph.star);
            times[1][i] = hitTest(ours);
            times[2][i] = dragStep(ours, graph.star);
            times[3][i] = drop(ours, graph.star, kDrops);
        }
        for (std::size_t row = 0; row < kNames.size(); ++row) {
            const double ratio = times[row][2] / times[row][0];
            std::printf("growth: %-31s 1000: %.4f ms  10000: %.4f ms  30000: %.4f ms  ratio %.2f  aim %.1f  %s\n",
                        kNames[row], times[row][0], times[row][1], times[row][2], ratio, kGrowthAim,
                        verdict(ratio <= kGrowthAim));
        }
    }

    void memory() {
        for (const int nodes : {kNodes, kLarge}) {
            const double before = heapBytes();
            Graph graph = drawGraph(services_, nodes, true);
            const double model = heapBytes() - before;
            Ours ours(graph, window_);
            show(ours);
            const double all = heapBytes() - before;
            std::printf("heap per node, model %.0f bytes, with the view %.0f bytes (%d nodes)  budget %.0f  %s\n",
                        model / nodes, all / nodes, nodes, kBytesPerNode, verdict(all / nodes < kBytesPerNode));
        }
    }

  private:
    static constexpr int kDrops = 41;
    static constexpr int kZooms = 9;
    static constexpr int kSlowZooms = 3;  // of the reference

    struct Aim {
        const char* name;
        double aim;
        const char* unit;
    };
    static constexpr std::array<Aim, 9> kAims = {{{"open to the first whole picture", 0.2, "ms"},
                                                  {"memory added by the view (heap in use)", 0.2, "MB"},
                                                  {"repaint of the whole picture", 0.5, "ms"},
                                                  {"pan by one notch of the wheel at 1:1", 0.35, "ms"},
                                                  {"feedback, dragging a node with 20 edges", 0.25, "ms"},
                                                  {"dropping a node with 2,000 edges", 0.1, "ms"},
                                                  {"hit test, anywhere in the whole picture", 0.15, "us"},
                                                  {"a new selection of all nodes", 0.5, "ms"},
                                                  {"view zoom at a node with 2,000 edges", 1.0 / 6, "ms"}}};
    using Figures = std::array<double, kAims.size()>;

    template <class View>
    std::function<std::unique_ptr<Subject>()> open(Graph& graph) {
        return [this, &graph] {
            auto view = std::make_unique<View>(graph, window_);
            hideBars(*view);
            show(*view);
            return view;
        };
    }

    void show(Subject& subject) {
        subject.area().resize(window_.size());
        subject.area().show();
        subject.showAll();
        settle();
    }

    void measure(const std::function<std::unique_ptr<Subject>()>& make, const Graph& graph, Figures& figures) {
        figures[0] = openToPicture(make);
        const double before = heapBytes();
        const std::unique_ptr<Subject> subject = make();
        figures[1] = (heapBytes() - before) / 1e6;
        figures[2] = repaintAll(*subject);
        figures[3] = pan(*subject, graph.star);
        figures[4] = dragStep(*subject, graph.star);
        figures[5] = drop(*subject, graph.hub, 5);
        subject->showAll();
        settle();
        figures[6] = hitTest(*subject) * 1000;
        figures[7] = selectAll(*subject);
        figures[8] = zoomStep(*subject, graph.hub, kSlowZooms);
    }

    QWidget& window_;
    Silent messages_;
    canvas::CanvasSettings settings_;
    canvas::CanvasServices services_{messages_, settings_};
};

}  // namespace
}  // namespace orvent::bench

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(1600, 900);
    window.show();
    orvent::bench::settle();
    orvent::bench::Bench bench(window);
    bench.compare();
    bench.budgets(10000);
    bench.budgets(30000);
    bench.zoomCanvas(6000);
    bench.growth();
    bench.memory();
    return 0;
}
