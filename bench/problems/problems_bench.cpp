// The list of problems in figures, with 10,000 nodes: what a change costs, and what a look at all of it does.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "bench/graphs.h"
#include "shell/problem_lists.h"
#include "statements/ldl_generator.h"

namespace orvent::bench {
namespace {

constexpr int kNodes = 10000;
constexpr int kChanges = 200;

class Silence : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

double milliseconds(const std::function<void()>& work) {
    const auto from = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - from).count();
}

void print(const char* name, std::vector<double> times, double aim) {
    std::sort(times.begin(), times.end());
    std::printf("%-58s %9.3f ms, the slowest %9.3f ms  aim %5.0f  %s\n", name, times[times.size() / 2], times.back(),
                aim, times[times.size() / 2] <= aim ? "met" : "MISSED");
}

/// A statement that reads every input and gives every output, as a generated one does.
std::string statementOf(const entities::ActivityProperties& activity) {
    const auto names = [](const auto& list, const std::string& head) {
        std::string text;
        for (const entities::AttributeProperties& member : list) {
            text += (text.empty() ? "" : ", ") + head + member.Attribute_Name;
        }
        return text;
    };
    const std::string small = statements::FirstCapitalReplacer(activity.Act_Name);
    return small + "_out(" + names(activity.Act_Outputs, activity.Act_Name + "_OUT_") + ") <- " + small + "_in1(" +
           names(activity.Act_Inputs, activity.Act_Name + "_IN1_") + ").";
}

void run() {
    Silence messages;
    canvas::CanvasSettings settings;
    entities::CatalogueTables tables;
    tables.dataTypes.add("NUMBER");
    tables.dataTypes.add("DATE");
    tables.activityTypes.add("Copy");
    canvas::DrawForm form({messages, settings});
    buildScenario(form, kNodes);
    synchronizeScenario(form);
    for (canvas::LabelsD& node : form.Labels) {
        node.setReady(true);
        if (entities::ActivityProperties* activity = node.activity()) {
            activity->Act_LDL = statementOf(*activity);
        }
    }
    const shell::StatementChecks statements(tables);
    analysis::ScenarioProblems problems(form, {tables, statements});
    std::vector<double> whole, moved, retyped, joined, lines;
    for (int at = 0; at < 10; ++at) {
        problems.touchAll();
        whole.push_back(milliseconds([&] { problems.settle(); }));
    }
    std::printf("%zu rows\n", problems.rows().size());
    print("all of 10,000 nodes", whole, 200);
    form.touched.emplace();
    const auto settle = [&] {
        problems.touch(*form.touched);
        problems.settle();
        form.touched->clear();
    };
    for (int at = 0; at < kChanges; ++at) {
        canvas::LabelsD& node = *form.Labels.at(1 + at * 97 % kNodes);
        node.setLeft(node.Left() + 100);
        moved.push_back(milliseconds(settle));
        form.touched->node(node.Index());
        if (entities::RecordSetProperties* recordSet = node.recordSet()) {
            recordSet->RecordSet_Outputs->Item(1)->Attribute_Type = 1;
        } else {
            node.activity()->Act_Outputs->Item(1)->Attribute_Type = 1;
        }
        retyped.push_back(milliseconds(settle));
        const canvas::NodeNumber other = form.Labels.at(1 + at * 89 % kNodes)->Index();
        if (other != node.Index()) {
            form.Lines.addFullLine(node.Index(), 3, other, 1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
        }
        joined.push_back(milliseconds(settle));
        lines.push_back(milliseconds([&] { shell::problemLines(form, problems, analysis::everyProblem()); }));
    }
    print("after a node was moved", moved, 5);
    print("after a column got another type", retyped, 5);
    print("after an edge was drawn", joined, 5);
    print("the rows for the list", lines, 5);
}

}  // namespace
}  // namespace orvent::bench

int main() {
    orvent::bench::run();
}
