// The zoom view in figures: opening, applying, folding, drawing and filtering, each beside plain calls that do the same
// to a canvas, and how they grow with the view. The scenario around has 30,000 nodes.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "bench/graphs.h"
#include "bench/zoom/star.h"
#include "zoom/check_consistency.h"
#include "zoom/expand_collapse.h"
#include "zoom/path_light.h"
#include "zoom/relationship_rules.h"
#include "zoom/synchronize_functions.h"
#include "zoom/view_filters.h"
#include "zoom/zoom_view.h"

namespace orvent::bench {
namespace {

constexpr int kAround = 30000;
constexpr int kSmall = 3000, kMiddle = 6000, kLarge = 30000;

double milliseconds(const std::function<void()>& work) {
    const auto from = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - from).count();
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void print(const char* name, double ratio, double aim, double reference, double ours) {
    std::printf("%-58s %9.3f ms beside %9.3f ms  ratio %6.2f  aim %4.1f  %s\n", name, ours, reference, ratio, aim,
                ratio <= aim ? "met" : "MISSED");
}

struct Silent : platform::MessageBox {
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

struct NoProgress : platform::Progress {
    void pointer(int) override {}
    void status(const std::string&) override {}
    void step(std::size_t, std::size_t) override {}
};

/// A scenario with a star of that many members and attributes, and a zoom view of its middle once `open` was called.
struct Stage {
    Stage(int subNodes, int around) : design({messages, settings}, nullptr) {
        buildScenario(design, around);
        synchronizeScenario(design);
        central = buildStar(design, subNodes);
        catalogue.dataTypes.add("NUMBER");
    }

    zoom::ZoomForm& open() {
        form.reset();
        form = std::make_unique<zoom::ZoomForm>(
            zoom::ZoomServices{{messages, settings}, catalogue, progress, relationships}, design);
        zoom::buildZoomView(*form, *design.Labels.byIndex(central));
        return *form;
    }

    Silent messages;
    canvas::CanvasSettings settings;
    entities::CatalogueTables catalogue;
    NoProgress progress;
    zoom::RelationshipRules relationships;
    canvas::DrawForm design;
    std::int32_t central = 0;
    std::unique_ptr<zoom::ZoomForm> form;
};

/// The same nodes and edges as the view has, by plain calls.
void drawPlainly(Stage& stage) {
    canvas::Canvas plain({stage.messages, stage.settings});
    std::vector<std::int32_t> made(static_cast<std::size_t>(stage.form->LabelsNo) + 1);
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
            zoom::SynchronizeActivity(stage.design, *node.activity(), nullptr);
        } else {
            zoom::SynchronizeRecordSet(stage.design, *node.recordSet());
        }
    }
}

struct Times {
    double open, plain, apply, applyPlain, fold, relate, filter, light;
};

Times measure(int subNodes, int around) {
    constexpr int kRuns = 7;
    Stage stage(subNodes, around);
    std::vector<double> open, plain, apply, fold, relate, filter, light;
    stage.open();
    for (int run = 0; run < kRuns; ++run) {
        stage.form.reset();
        open.push_back(milliseconds([&] { stage.open(); }));
        plain.push_back(milliseconds([&] {
            drawPlainly(stage);
            synchronisePlainly(stage);
        }));
        zoom::ZoomForm& form = *stage.form;
        fold.push_back(milliseconds([&] {
            zoom::CollapseActivity(form, form.CentralActivityNo);
            zoom::ExpandActivity(form, form.CentralActivityNo);
        }));
        filter.push_back(milliseconds([&] {
            const canvas::ManyChanges many(form);
            zoom::toggleFilter(form, &zoom::ViewMarks::ViewProviderM);
        }));
        zoom::toggleFilter(form, &zoom::ViewMarks::ViewProviderM);
        const std::int32_t input = form.NamesColl.Item("STAR.IN.M1"), parameter = form.NamesColl.Item("STAR.PARAM.M1");
        light.push_back(milliseconds([&] { zoom::pathThrough(form, input); }));
        relate.push_back(milliseconds([&] {
                             constexpr int kTimes = 100;
                             for (int time = 0; time < kTimes; ++time) {
                                 std::int32_t edge = form.Lines
                                                         .addFullLine(input, 3, parameter, 1, canvas::EdgeTypeRegulator,
                                                                      canvas::AngleStraight, 0)
                                                         ->Index();
                                 zoom::CreateRelationship(form, edge);
                                 zoom::RemoveRelationship(form, edge);
                                 form.Lines.RemoveFull(edge);
                             }
                         }) /
                         100);
        apply.push_back(milliseconds([&] { zoom::ApplyZoomChanges(form, true); }));
    }
    return {median(open), median(plain), median(apply), 0, median(fold), median(relate), median(filter), median(light)};
}

void consistency() {
    std::vector<double> perNode;
    for (const int nodes : {1000, kAround}) {
        Silent messages;
        NoProgress progress;
        const canvas::CanvasSettings settings;
        canvas::DrawForm design({messages, settings}, nullptr);
        buildScenario(design, nodes);
        synchronizeScenario(design);
        std::vector<double> check, plain;
        for (int run = 0; run < 7; ++run) {
            check.push_back(milliseconds([&] { zoom::CheckConsistency(design, progress); }));
            plain.push_back(milliseconds([&] {
                struct Edge {
                    std::int32_t number, from, to;
                    std::int16_t fromGrab, toGrab;
                };
                std::vector<Edge> edges;
                for (const canvas::LinesD& edge : design.Lines) {
                    edges.push_back({edge.Index(), edge.FromLabel(), edge.ToLabel(), edge.FromGrabbingPoint(),
                                     edge.ToGrabbingPoint()});
                }
                for (const Edge& edge : edges) {
                    design.Lines.RemoveFull(edge.number);
                }
                for (const Edge& edge : edges) {
                    design.Lines.addFullLine(edge.from, edge.fromGrab, edge.to, edge.toGrab, canvas::EdgeTypeProvider,
                                             canvas::AngleStraight, 0);
                }
            }));
        }
        perNode.push_back(median(check) / nodes);
        if (nodes == kAround) {
            std::printf("%d nodes, %d edges\n", nodes, design.Lines.Count());
            print("consistency check beside removing and adding its edges", median(check) / median(plain), 3,
                  median(plain), median(check));
        }
    }
    print("consistency check, per node, 30,000 beside 1,000", perNode[1] / perNode[0], 1.5, 1000 * perNode[0],
          1000 * perNode[1]);
}

void run() {
    const Times alone = measure(kMiddle, 0);
    const Times middle = measure(kMiddle, kAround);
    const Times small = measure(kSmall, kAround);
    const Times large = measure(kLarge, kAround);
    const double perNode = static_cast<double>(kLarge) / kSmall;
    print("open, 6,000 sub-nodes, beside plain calls", middle.open / middle.plain, 3, middle.plain, middle.open);
    print("open, 30,000 nodes around beside none", middle.open / alone.open, 1.2, alone.open, middle.open);
    print("open, per node, 30,000 beside 3,000", large.open / small.open / perNode, 1.5, small.open * perNode,
          large.open);
    print("apply and unfold beside open", middle.apply / middle.open, 2, middle.open, middle.apply);
    print("fold and unfold, per node, 30,000 beside 3,000", large.fold / small.fold / perNode, 1.5,
          small.fold * perNode, large.fold);
    print("one relationship drawn and taken back, 30,000 beside 3,000", large.relate / small.relate, 1.3, small.relate,
          large.relate);
    print("a filter switched, per edge, 30,000 beside 3,000", large.filter / small.filter / perNode, 1.5,
          small.filter * perNode, large.filter);
    print("a path worked out, 6,000 sub-nodes, beside one frame", middle.light / 16, 1, 16, middle.light);
    consistency();
}

}  // namespace
}  // namespace orvent::bench

int main() {
    orvent::bench::run();
}
