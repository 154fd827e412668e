// Steps of a scenario and the file of its unsaved work in figures, with 30,000 nodes: what a gesture costs more, what
// going back costs, how much memory the steps take, and how long the program writes.

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

#include "bench/graphs.h"
#include "canvas/node_moves.h"
#include "history/kept_state.h"
#include "history/scenario_history.h"
#include "platform/state_folder.h"

namespace orvent::bench {
namespace {

constexpr int kNodes = 30000;
constexpr int kMoves = 200;
constexpr double kMegabyte = 1 << 20;

class Silence : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

/// Of the processor: what else runs on the machine does not count.
double now() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

double milliseconds(const std::function<void()>& work) {
    const double from = now();
    work();
    return now() - from;
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void print(const char* name, double value, double aim, const char* unit) {
    std::printf("%-66s %9.3f %-2s  aim %5.0f  %s\n", name, value, unit, aim, value <= aim ? "met" : "MISSED");
}

double memory() {
    return static_cast<double>(mallinfo2().uordblks);
}

struct Subject {
    Subject() {
        tables.dataTypes.add("NUMBER");
        tables.activityTypes.add("Copy");
        buildScenario(form, kNodes);
        synchronizeScenario(form);
    }
    canvas::NodeNumber node(int place) const { return form.Labels.at(1 + place * 97 % kNodes)->Index(); }

    Silence messages;
    canvas::CanvasSettings settings;
    entities::CatalogueTables tables;
    canvas::DrawForm form{{messages, settings}};
};

/// Every node goes to another place.
void tidyUp(canvas::DrawForm& form) {
    const canvas::ManyChanges many(form);
    for (canvas::LabelsD& node : form.Labels) {
        node.setBox({node.Left() + 300, node.Top() + 150, node.Width(), node.Height()});
    }
}

void run() {
    Subject subject;
    canvas::DrawForm& form = subject.form;
    const double before = memory();
    std::unique_ptr<history::ScenarioHistory> history;
    std::printf("begins with %.0f ms\n",
                milliseconds([&] { history = std::make_unique<history::ScenarioHistory>(form); }));
    std::vector<double> settled, back;
    for (int at = 0; at < kMoves; ++at) {
        canvas::moveNodes(form, {subject.node(at)}, 100, 100);
        settled.push_back(milliseconds([&] { history->settle(); }));
    }
    print("a move is settled", median(settled), 2, "ms");
    print("the slowest of 200 moves", *std::max_element(settled.begin(), settled.end()), 2, "ms");
    print("memory of 200 moves with all that is remembered", (memory() - before) / kMegabyte, 20, "MB");
    for (int at = 0; at < kMoves / 2; ++at) {
        back.push_back(milliseconds([&] { history->goTo(history->position() - 1); }));
    }
    print("back over the move of one node", median(back), 5, "ms");
    tidyUp(form);
    std::printf("moving all is settled in %.0f ms\n", milliseconds([&] { history->settle("Tidy Up"); }));
    print("back over moving all", milliseconds([&] { history->goTo(history->position() - 1); }), 300, "ms");
    print("forward again", milliseconds([&] { history->goTo(history->position() + 1); }), 300, "ms");
    history->touchAll();
    std::printf("looking at all of it takes %.0f ms\n", milliseconds([&] { history->settle(); }));

    history->takeChanged();
    history::StateWriter writer("source", subject.tables);
    std::string whole;
    double slowest = milliseconds([&] { writer.begin(form, history->remembered()); });
    for (std::size_t had = 1; had != whole.size();) {
        had = whole.size();
        std::string part;
        slowest = std::max(slowest, milliseconds([&] {
                               part = writer.nextPart(history->remembered(), platform::StateFolder::kPart);
                           }));
        whole += part;
    }
    whole += writer.end(form, history->remembered(), {}, {{1, "Tidy Up"}});
    print("the slowest part of the whole for a file of unsaved work", slowest, 16, "ms");
    std::printf("it has %.1f MB\n", static_cast<double>(whole.size()) / kMegabyte);
    std::vector<double> written;
    for (int at = 0; at < kMoves; ++at) {
        canvas::moveNodes(form, {subject.node(at)}, 100, 100);
        history->settle();
        written.push_back(milliseconds([&] {
            writer.step(form, history->remembered(), history->takeChanged(), {1, "Moved"});
        }));
    }
    print("a step for it, the slowest of 200", *std::max_element(written.begin(), written.end()), 16, "ms");
    std::printf("it is read in %.0f ms, what is told of it in %.0f ms\n",
                milliseconds([&] { history::readState(whole); }), milliseconds([&] {
                    history::readSummary([&](std::uint64_t from, std::size_t most) { return whole.substr(from, most); },
                                         whole.size());
                }));
}

}  // namespace
}  // namespace orvent::bench

int main() {
    orvent::bench::run();
}
