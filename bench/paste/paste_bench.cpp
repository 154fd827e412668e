// Pasting in figures, by the way that the command takes in a window that is shown, offscreen with software rendering at
// 1600 x 900: beside plain calls that add the same, and the time to the picture behind it.

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench/canvas/measure.h"
#include "bench/zoom/stage.h"
#include "links/synchronize_functions.h"
#include "qt/platform/adapters.h"
#include "shell/scenario_clipboard.h"

namespace orvent::bench {
namespace {

constexpr int kRuns = 9, kCopied = 1000, kThere = 10000;
constexpr double kAim = 3, kPictureAim = 100;

/// Of the processor, so that what else the machine does counts little.
double milliseconds(const std::function<void()>& work) {
    timespec from{}, to{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &from);
    work();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &to);
    return 1e3 * static_cast<double>(to.tv_sec - from.tv_sec) + 1e-6 * static_cast<double>(to.tv_nsec - from.tv_nsec);
}

double middle(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

const char* said(bool met) {
    return met ? "met" : "MISSED";
}

/// The types of the benchmarks' scenarios, which nothing is asked of.
class Types : public exchange::TypeCatalogue {
  public:
    Types() {
        tables_.dataTypes.add("NUMBER");
        tables_.activityTypes.add("Copy");
    }
    entities::CatalogueTables& tables() override { return tables_; }
    std::optional<entities::FunctionTypeProperties> functionType(std::int16_t) override { return std::nullopt; }
    std::optional<entities::ActivityTypeProperties> activityType(std::int16_t) override { return std::nullopt; }
    void add(const exchange::TypeDefinitions&) override {}

  private:
    entities::CatalogueTables tables_;
};

/// What a program that runs has.
struct Program {
    shell::ScenarioClipboard clipboard() { return {{desk, messages, progress, links}, {types, dialogs}}; }

    Silent messages;
    NoProgress progress;
    qt::QtClipboard desk;
    links::CanvasLinks links;
    Types types;
    forms::Dialogs dialogs;
    canvas::CanvasSettings settings;
};

/// A scenario in a window.
struct Shown {
    Shown(Program& program, int nodes, QWidget& window) {
        auto form = std::make_unique<canvas::DrawForm>(canvas::CanvasServices{program.messages, program.settings});
        design = form.get();
        buildScenario(*design, nodes);
        synchronizeScenario(*design);
        graph.form = std::move(form);
        view = std::make_unique<Ours>(graph, window);
        view->area().resize(window.size());
        view->area().show();
        settle();
    }

    canvas::DrawForm* design = nullptr;
    Graph graph;
    std::unique_ptr<Ours> view;
};

/// The same nodes and edges by plain calls, and the mirrors of their links.
void addPlainly(canvas::DrawForm& form, const canvas::DrawForm& source) {
    const canvas::ManyChanges together(form);
    std::unordered_map<canvas::NodeNumber, canvas::NodeNumber> numbers;
    for (const canvas::LabelsD& node : source.Labels) {
        canvas::LabelsD& added = form.Labels.Add(node.box(), "P_" + node.Caption(), node.NodeType());
        if (node.activity()) {
            added.Properties = node.activity()->Clone();
        } else {
            added.Properties = node.recordSet()->Clone();
        }
        numbers.emplace(node.Index(), added.Index());
    }
    for (const canvas::LinesD& edge : source.Lines) {
        form.Lines.addFullLine(numbers.at(edge.FromLabel()), edge.FromGrabbingPoint(), numbers.at(edge.ToLabel()),
                               edge.ToGrabbingPoint(), edge.EdgeType(), edge.Angle(), 0);
    }
    for (const auto& [_, number] : numbers) {
        canvas::LabelsD& node = *form.Labels.byIndex(number);
        if (node.activity()) {
            links::SynchronizeActivity(form, *node.activity(), nullptr);
        } else {
            links::SynchronizeRecordSet(form, *node.recordSet());
        }
    }
}

struct Times {
    double plain = 0, copy = 0, paste = 0, foreign = 0;
    double picture[2] = {};  ///< at 1:1, and of the whole scenario
};

Times measurePasting(QWidget& window) {
    Program program, other;
    std::vector<double> plain, copy, paste, foreign, picture[2];
    for (int run = 0; run < kRuns; ++run) {
        shell::ScenarioClipboard clipboard = program.clipboard();
        {
            Shown source(program, kCopied, window);
            source.view->selectAll();
            copy.push_back(milliseconds([&] { clipboard.copy(*source.design); }));
            Shown into(program, kThere, window);
            plain.push_back(milliseconds([&] { addPlainly(*into.design, *source.design); }));
        }
        for (const bool whole : {false, true}) {
            Shown into(program, kThere, window);
            whole ? into.view->showAll() : into.view->showNode(canvas::NodeNumber{1});
            settle();
            paste.push_back(milliseconds([&] { clipboard.paste(*into.design, canvas::Point{2000, 2000}); }));
            if (into.design->Labels.Count() != kThere + kCopied) {
                std::puts("nothing was pasted");
            }
            picture[whole ? 1 : 0].push_back(median(1, settle));
        }
        Shown into(other, kThere, window);
        shell::ScenarioClipboard stranger = other.clipboard();
        foreign.push_back(milliseconds([&] { stranger.paste(*into.design, canvas::Point{2000, 2000}); }));
    }
    return {middle(plain), middle(copy), middle(paste), middle(foreign), {middle(picture[0]), middle(picture[1])}};
}

void run(QWidget& window) {
    const Times times = measurePasting(window);
    const auto beside = [&times](const char* name, double ours) {
        std::printf("%-58s %9.3f ms beside %9.3f ms  ratio %6.2f  aim %4.1f  %s\n", name, ours, times.plain,
                    ours / times.plain, kAim, said(ours <= kAim * times.plain));
    };
    beside("paste 1,000 nodes into 10,000, beside plain adds", times.paste);
    beside("the same from another program", times.foreign);
    std::printf("copying them takes %.3f ms\n", times.copy);
    const auto picture = [](const char* name, double ours) {
        std::printf("%-58s %9.3f ms  aim %.0f ms  %s\n", name, ours, kPictureAim, said(ours <= kPictureAim));
    };
    picture("the first picture behind the paste, at 1:1", times.picture[0]);
    picture("the first picture behind the paste, whole", times.picture[1]);
}

}  // namespace
}  // namespace orvent::bench

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(1600, 900);
    window.show();
    orvent::bench::settle();
    orvent::bench::run(window);
}
