// The zoom view in figures: opening, applying, folding, drawing and filtering, each beside plain calls that do the same
// to a canvas, and how they grow with the view.

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/zoom/stage.h"
#include "links/check_consistency.h"
#include "links/synchronize_functions.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/expand_collapse.h"
#include "zoom/path_light.h"
#include "zoom/view_filters.h"

namespace orvent::bench {
namespace {

constexpr int kAround = 30000;
constexpr int kSmall = 3000, kMiddle = 6000, kLarge = 30000;

/// Of the processor, so that what else the machine does counts little.
double milliseconds(const std::function<void()>& work) {
    timespec from{}, to{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &from);
    work();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &to);
    return 1e3 * static_cast<double>(to.tv_sec - from.tv_sec) + 1e-6 * static_cast<double>(to.tv_nsec - from.tv_nsec);
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void print(const char* name, double ratio, double aim, double reference, double ours) {
    std::printf("%-58s %9.3f ms beside %9.3f ms  ratio %6.2f  aim %4.1f  %s\n", name, ours, reference, ratio, aim,
                ratio <= aim ? "met" : "MISSED");
}

/// The same nodes and edges as the view has, by plain calls.
void drawPlainly(Stage& stage) {
    canvas::Canvas plain({stage.messages, stage.settings});
    std::vector<canvas::NodeNumber> made(static_cast<std::size_t>(stage.form->LabelsNo) + 1);
    for (const canvas::LabelsD& node : stage.form->Labels) {
        made[static_cast<std::size_t>(node.Index())] =
            plain.Labels.Add(node.box(), node.Caption(), node.NodeType(), node.KeyName()).Index();
    }
    for (const canvas::LinesD& edge : stage.form->Lines) {
        plain.Lines.addFullLine(made[static_cast<std::size_t>(edge.FromLabel())], edge.FromGrabbingPoint(),
                                made[static_cast<std::size_t>(edge.ToLabel())], edge.ToGrabbingPoint(), edge.EdgeType(),
                                edge.Angle(), 0);
    }
}

/// The links of the same entities, written at their far ends.
void synchronisePlainly(Stage& stage) {
    for (const zoom::NewANDoldIndex& pair : stage.form->New2OldIndex) {
        canvas::LabelsD& node = *stage.design.Labels.byIndex(pair.OldIndex);
        if (node.activity()) {
            links::SynchronizeActivity(stage.design, *node.activity(), nullptr);
        } else {
            links::SynchronizeRecordSet(stage.design, *node.recordSet());
        }
    }
}

struct Times {
    double open, plain, apply, fold, relate, filter, light, applyFolded;
};

/// Of as many stages alike, one after the other.
Times measure(int subNodes, int around, int stages = 1) {
    constexpr int kRuns = 31, kTimes = 100;
    std::vector<std::unique_ptr<Stage>> all;
    for (int at = 0; at < stages; ++at) {
        all.push_back(std::make_unique<Stage>(subNodes, around));
        all.back()->open();
    }
    const auto timed = [&](const std::function<void(Stage&)>& work) {
        return milliseconds([&] {
            for (const auto& stage : all) {
                work(*stage);
            }
        });
    };
    const auto switchFilter = [](Stage& stage) {
        const canvas::ManyChanges many(*stage.form);
        zoom::toggleFilter(*stage.form, &zoom::ViewMarks::ViewProviderM);
    };
    std::vector<double> open, plain, apply, fold, relate, filter, light, applyFolded;
    for (int run = 0; run < kRuns; ++run) {
        timed([](Stage& stage) { stage.form.reset(); });
        open.push_back(timed([](Stage& stage) { stage.open(); }));
        const auto applyAll = [](Stage& stage) { zoom::ApplyZoomChanges(*stage.form, true); };
        apply.push_back(timed(applyAll));  // each finds in the caches what the one before it left there
        fold.push_back(timed([](Stage& stage) {
            zoom::CollapseActivity(*stage.form, stage.form->CentralActivityNo);
            zoom::ExpandActivity(*stage.form, stage.form->CentralActivityNo);
        }));
        applyFolded.push_back(timed(applyAll));
        plain.push_back(timed([](Stage& stage) {
            drawPlainly(stage);
            synchronisePlainly(stage);
        }));
        filter.push_back(timed(switchFilter));
        timed(switchFilter);
        light.push_back(
            timed([](Stage& stage) { zoom::pathThrough(*stage.form, stage.form->NamesColl.Item("STAR.IN.M1")); }));
        relate.push_back(timed([](Stage& stage) {
                             zoom::ZoomForm& form = *stage.form;
                             const canvas::NodeNumber input = form.NamesColl.Item("STAR.IN.M1"),
                                                      parameter = form.NamesColl.Item("STAR.PARAM.M1");
                             for (int time = 0; time < kTimes; ++time) {
                                 canvas::EdgeNumber edge =
                                     form.Lines
                                         .addFullLine(input, 3, parameter, 1, canvas::EdgeTypeRegulator,
                                                      canvas::AngleStraight, 0)
                                         ->Index();
                                 zoom::CreateRelationship(form, edge);
                                 zoom::RemoveRelationship(form, edge);
                                 form.Lines.RemoveFull(edge);
                             }
                         }) /
                         kTimes / stages);
    }
    return {median(open),   median(plain),  median(apply), median(fold),
            median(relate), median(filter), median(light), median(applyFolded)};
}

/// A scenario in which the activities have a parameter each that a record set regulates, so that 30,000 nodes have
/// 45,000 provider edges.
struct Linked {
    explicit Linked(int nodes) : design({messages, settings}, nullptr) {
        using namespace entities;
        buildScenario(design, nodes);
        int group = -1;
        for (canvas::LabelsD& node : design.Labels) {
            group += static_cast<int>(node.Index()) % 10 == 1 ? 1 : 0;
            const std::string owner = node.KeyName();
            if (ActivityProperties* activity = node.activity();
                activity && (group % 5 == 0 || owner.find("_JOIN") == std::string::npos)) {
                const std::string source = "G" + std::to_string(group) + "_SOURCE_A";
                ParameterProperties& parameter =
                    activity->Act_Parameters->Add("LIMIT", 0, entities::TagTypeParameter, "LIMIT");
                parameter.ParentKeyName = owner;
                parameter.RegulatedFrom->Add(source, LinkRecordSet, source + ".COLUMN_4");
            }
        }
        synchronizeScenario(design);
        check();
    }

    void check() { links::CheckConsistency(design, progress); }

    /// Removes and adds the same edges.
    void drawPlainly() {
        struct Edge {
            canvas::EdgeNumber number;
            canvas::NodeNumber from, to;
            std::int16_t fromGrab, toGrab;
        };
        std::vector<Edge> edges;
        for (const canvas::LinesD& edge : design.Lines) {
            edges.push_back(
                {edge.Index(), edge.FromLabel(), edge.ToLabel(), edge.FromGrabbingPoint(), edge.ToGrabbingPoint()});
        }
        for (const Edge& edge : edges) {
            design.Lines.RemoveFull(edge.number);
        }
        for (const Edge& edge : edges) {
            design.Lines.addFullLine(edge.from, edge.fromGrab, edge.to, edge.toGrab, canvas::EdgeTypeProvider,
                                     canvas::AngleStraight, 0);
        }
    }

    Silent messages;
    NoProgress progress;
    canvas::CanvasSettings settings;
    canvas::DrawForm design;
};

/// One scenario of 30,000 nodes beside thirty of 1,000, so that neither finds its memory in the caches: a single small
/// one that is checked over and over does, and tells how large the caches are.
void consistency() {
    constexpr int kRuns = 15, kFew = 1000, kMany = kAround / kFew;
    Linked large(kAround);
    std::vector<std::unique_ptr<Linked>> small;
    for (int at = 0; at < kMany; ++at) {
        small.push_back(std::make_unique<Linked>(kFew));
    }
    std::vector<double> check, plain, checkSmall, warm;
    for (int run = 0; run < kRuns; ++run) {
        check.push_back(milliseconds([&] { large.check(); }));
        plain.push_back(milliseconds([&] { large.drawPlainly(); }));
        checkSmall.push_back(milliseconds([&] {
            for (const auto& each : small) {
                each->check();
            }
        }));
        warm.push_back(milliseconds([&] {
            for (int again = 0; again < kMany; ++again) {
                small.front()->check();
            }
        }));
    }
    std::printf("%d nodes, %d edges; thirty checks of one scenario of 1,000 nodes in the caches %.3f ms\n", kAround,
                large.design.Lines.Count(), median(warm));
    print("consistency check beside removing and adding its edges", median(check) / median(plain), 3, median(plain),
          median(check));
    print("consistency check, 30,000 nodes beside thirty of 1,000", median(check) / median(checkSmall), 1.5,
          median(checkSmall), median(check));
}

void run() {
    const Times alone = measure(kMiddle, 0);
    const Times middle = measure(kMiddle, kAround);
    print("open, 6,000 sub-nodes, beside plain calls", middle.open / middle.plain, 3, middle.plain, middle.open);
    print("open, 30,000 nodes around beside none", middle.open / alone.open, 1.2, alone.open, middle.open);
    print("apply and unfold beside open", middle.apply / middle.open, 2, middle.open, middle.apply);
    print("the same once the activity was folded by hand", middle.applyFolded / middle.open, 2, middle.open,
          middle.applyFolded);
    print("a path worked out, 6,000 sub-nodes, beside one frame", middle.light / 16, 1, 16, middle.light);
    // Ten small views have the memory of the large one, so that neither stays in the caches.
    const Times small = measure(kSmall, 0, kLarge / kSmall);
    const Times large = measure(kLarge, 0);
    print("open, 30,000 sub-nodes beside ten of 3,000", large.open / small.open, 1.5, small.open, large.open);
    print("fold and unfold, 30,000 beside ten of 3,000", large.fold / small.fold, 1.5, small.fold, large.fold);
    print("a filter switched, 30,000 beside ten of 3,000", large.filter / small.filter, 1.5, small.filter,
          large.filter);
    print("one relationship drawn and taken back, the same", large.relate / small.relate, 1.3, small.relate,
          large.relate);
    consistency();
}

}  // namespace
}  // namespace orvent::bench

int main() {
    orvent::bench::run();
}
