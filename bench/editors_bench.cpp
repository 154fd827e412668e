// The activity dialog on large activities and in large scenarios. Opening it is measured against taking the activity
// out of its links, copying it and linking it again, and listing the scenario's entities once; single steps must take
// the same time whatever the number of rows.

#include <benchmark/benchmark.h>

#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "bench/floor_runs.h"
#include "bench/graphs.h"
#include "editors/set_act_prop.h"
#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"
#include "repository/catalogue_statements.h"
#include "testkit/scripted_database.h"
#include "testkit/scripted_ports.h"

namespace orvent::bench {
namespace {

using namespace entities;

struct NoSources : platform::DataSources {
    std::vector<platform::DataSource> list() override { return {}; }
};
struct NoWizard : statements::ActivityWizard {
    void LDLCreate(canvas::DrawForm&, ActivityProperties&, statements::ActivityDialog*,
                   statements::WizardRound*) override {}
};
struct DesignNodes : editors::NodePreparation {
    void prepare(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void refresh(canvas::CanvasForm&, canvas::LabelsD&) override {}
};
struct NoFile : platform::SaveDialog {
    std::string saveFile(const std::string&, const std::string&, const std::string&, platform::OldFile) override {
        return {};
    }
};

struct Members {
    int inputs, outputs, parameters;
};

/// A scenario with an activity of its own, "HUB", whose members are all linked; and what its dialog needs.
class Hub {
  public:
    Hub(int nodes, const Members& members) {
        namespace sql = repository::sql;
        database_.answer(sql::kActivityTypes, {{"Filter", "", ""}});
        database_.answer(sql::kFunctionTypes, {{"SUM"}});
        database_.answer(sql::kDataTypes, {{"NUMBER"}});
        if (nodes > 0) {
            buildScenario(form, nodes);
            synchronizeScenario(form);
        }
        RecordSetProperties& wide = *add("WIDE", canvas::NodeTypeRecordSet).recordSet();
        ActivityProperties& hub = *add("HUB", canvas::NodeTypeActivity).activity();
        ActivityProperties& reader = *add("READER", canvas::NodeTypeActivity).activity();
        hub.Act_Type = 0;
        // One column more than the activity reads.
        for (int at = 0; at <= members.inputs; ++at) {
            const std::string name = "C" + std::to_string(at);
            wide.RecordSet_Outputs->Add(name, 0, name).ParentKeyName = "WIDE";
        }
        for (int at = 0; at < members.inputs; ++at) {
            const std::string name = "C" + std::to_string(at), key = "WIDE_" + name;
            AttributeProperties& input = hub.Act_Inputs->Add(key, 0, entities::TagRecordSet, key);
            input.ParentKeyName = "HUB";
            input.ProvidedFrom->Add("WIDE", LinkRecordSet, "WIDE." + name);
        }
        for (int at = 0; at < members.outputs; ++at) {
            const std::string key = "WIDE_C" + std::to_string(at);
            AttributeProperties& output = hub.Act_Outputs->Add(key, 0, entities::TagRecordSetMirror, key);
            output.ParentKeyName = "HUB";
            output.ProvidedFrom->Add("HUB", LinkInput, ".IN." + key);
            output.ProviderFor->Add("READER", LinkActivity, "READER.IN." + key);
            reader.Act_Inputs->Add(key, 0, entities::TagActivity, key).ParentKeyName = "READER";
        }
        for (int at = 0; at < members.parameters; ++at) {
            const std::string key = "WIDE_C" + std::to_string(at);
            ParameterProperties& parameter = hub.Act_Parameters->Add(key, 0, entities::TagRecordSet, key);
            parameter.ParentKeyName = "HUB";
            parameter.RegulatedFrom->Add("HUB", LinkInput, ".IN." + key);
        }
        links::SynchronizeActivity(form, hub, nullptr);
    }

    canvas::LabelsD& node() { return *form.nodeNamed("HUB"); }

    std::unique_ptr<editors::SetActProp> open() {
        return std::make_unique<editors::SetActProp>(
            editors::EditorServices{services_, catalogue_, wizard_, folder_, saveDialog_, nodes_, dialogs_}, form,
            node());
    }

    /// What opening cannot do without.
    void floor() {
        ActivityProperties& record = *node().activity();
        const std::shared_ptr<ActivityProperties> copy = record.Clone();
        links::UnSynchronizeActivity(form, record, false, nullptr);
        links::SynchronizeActivity(form, record, nullptr);
        forms::Tree tree;
        for (const canvas::LabelsD& each : form.Labels) {
            forms::Tree::Node& parent = tree.add({.Key = each.KeyName(), .Text = each.Caption()});
            if (const ActivityProperties* activity = each.activity()) {
                list(tree, parent, each.KeyName() + ".IN.", activity->Act_Inputs);
                list(tree, parent, each.KeyName() + ".OUT.", activity->Act_Outputs);
            } else if (const RecordSetProperties* recordSet = each.recordSet()) {
                list(tree, parent, each.KeyName() + ".", recordSet->RecordSet_Outputs);
            }
        }
        benchmark::DoNotOptimize(tree.Count());
    }

    testkit::CanvasPorts ports;
    canvas::DrawForm form{ports.services()};

  private:
    canvas::LabelsD& add(const std::string& name, canvas::NodeTypeCode kind) {
        return form.Labels.Add({0, 0, 1050, 450}, name, kind, name);
    }
    template <class List>
    static void list(forms::Tree& tree, forms::Tree::Node& parent, const std::string& head, const List& members) {
        for (const auto& member : members) {
            tree.add({.Key = head + member.Key, .Text = member.Key, .Image = "Field-UnChecked"}, &parent);
        }
    }

    NoSources sources_;
    testkit::ScriptedInputBox input_;
    testkit::ScriptedFileDialog files_;
    testkit::MemorySettings store_;
    testkit::QuietProgress progress_;
    testkit::ScriptedDatabase database_;
    repository::RepositorySettings settings_{{"REPO", "scott", "tiger", "ann"}, ""};
    repository::Services services_{database_, sources_, ports.messages, input_, files_, store_, progress_, settings_};
    repository::Catalogue catalogue_{services_, [] {}};
    NoWizard wizard_;
    DesignNodes nodes_;
    NoFile saveDialog_;
    forms::Dialogs dialogs_;
    platform::ProgramFolder folder_{"/data"};
};

void openInScenario(benchmark::State& state) {
    Hub hub(static_cast<int>(state.range(0)), {1000, 1000, 500});
    Runs runs;
    for (auto _ : state) {
        const double taken = seconds([&] { hub.open(); });  // and closed again
        runs.program.push_back(taken);
        state.SetIterationTime(taken);
        runs.floor.push_back(seconds([&] { hub.floor(); }));
    }
    runs.report(state);
}

/// As many activities, one after the other, as have ten thousand members together: so the small ones lie in the caches
/// no more than the large one does, and what is compared is the growth of the work.
void openByMembers(benchmark::State& state) {
    constexpr int kTogether = 10000;
    const int members = static_cast<int>(state.range(0));
    std::vector<std::unique_ptr<Hub>> hubs;
    for (int have = 0; have < kTogether; have += members) {
        hubs.push_back(std::make_unique<Hub>(0, Members{members * 2 / 5, members * 2 / 5, members / 5}));
    }
    for (auto _ : state) {
        for (const auto& hub : hubs) {
            hub->open();
        }
    }
    state.SetItemsProcessed(state.iterations() * kTogether);
}

/// Steps of one row each, in the input list of a dialog that stays open. Each leaves the list as it was.
struct RowStep {
    const char* name;
    void (*play)(editors::SetActProp& dialog, int row);
};

void moveDownAndUp(editors::SetActProp& dialog, int row) {
    dialog.moveRowTo(row, row + 1);
    dialog.moveRowTo(row + 1, row);
}
void renameAndBack(editors::SetActProp& dialog, int row) {
    const std::string text = dialog.frontList().Item(row)->Text;
    dialog.AfterLabelEdit(row, "Another");
    dialog.AfterLabelEdit(row, text);
}
void addAndRemove(editors::SetActProp& dialog, int row) {
    forms::Tree::Node& column = *dialog.DBView.find("DB.WIDE.C" + std::to_string(dialog.frontList().Count()));
    dialog.frontList().select(row);
    dialog.NodeClick({&column});
    dialog.NodeClick({&column});
}

constexpr RowStep kSteps[] = {
    {"dialog row move", moveDownAndUp}, {"dialog row rename", renameAndBack}, {"dialog row add, remove", addAndRemove}};

void rowStep(benchmark::State& state, const RowStep& step) {
    const int rows = static_cast<int>(state.range(0));
    Hub hub(0, {rows, 0, 0});
    const auto dialog = hub.open();
    int at = rows / 2;
    for (auto _ : state) {
        for (int round = 0; round < 20; ++round) {
            step.play(*dialog, at);
        }
    }
    demand(dialog->frontList().Count() == rows, "rows were lost");
    state.SetItemsProcessed(state.iterations() * 20);
}

/// All columns of a record set come by one tick, and go again in three ways.
struct ManyStep {
    const char* name;
    void (*takeAway)(editors::SetActProp& dialog, forms::Tree::Node& parent);
};

void untick(editors::SetActProp& dialog, forms::Tree::Node& parent) {
    dialog.NodeClick({&parent});
}
void deleteSelected(editors::SetActProp& dialog, forms::Tree::Node&) {
    std::vector<int> rows(static_cast<std::size_t>(dialog.frontList().Count()));
    std::iota(rows.begin(), rows.end(), 1);
    dialog.frontList().select(rows, 1);
    dialog.Move2Tree_Click();
}
void allToTree(editors::SetActProp& dialog, forms::Tree::Node&) {
    dialog.MoveAll2Tree_Click();
}

constexpr ManyStep kManySteps[] = {
    {"dialog tick, untick", untick}, {"dialog tick, delete", deleteSelected}, {"dialog tick, all to tree", allToTree}};

void manyRows(benchmark::State& state, const ManyStep& step) {
    const int columns = static_cast<int>(state.range(0));
    Hub hub(0, {0, 0, 0});
    RecordSetProperties& wide = *hub.form.nodeNamed("WIDE")->recordSet();
    for (int at = 1; at < columns; ++at) {
        const std::string name = "C" + std::to_string(at);
        wide.RecordSet_Outputs->Add(name, 0, name).ParentKeyName = "WIDE";
    }
    const auto dialog = hub.open();
    forms::Tree::Node& parent = *dialog->DBView.find("DB.WIDE");
    for (auto _ : state) {
        dialog->NodeClick({&parent});
        demand(dialog->frontList().Count() == columns, "not all columns came");
        step.takeAway(*dialog, parent);
        demand(dialog->frontList().Count() == 0, "not all columns went");
    }
    state.SetItemsProcessed(state.iterations() * columns);
}

/// A new name and the former one, in scenarios of different sizes around the same activity.
void renameActivity(benchmark::State& state) {
    Hub hub(static_cast<int>(state.range(0)), {100, 100, 50});
    const auto dialog = hub.open();
    for (auto _ : state) {
        for (const char* name : {"CENTRE", "HUB"}) {
            dialog->txtName_Change(name);
            dialog->txtName_Leave();
        }
    }
    state.SetItemsProcessed(state.iterations() * 2);
}

BENCHMARK(openInScenario)
    ->Name("dialog open")
    ->Arg(10000)
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
// The two are repeated in turn, as `bench/run` asks, since the machine is not alike from one second to the next.
BENCHMARK(openByMembers)
    ->Name("dialog open by members")
    ->Arg(1000)
    ->Arg(10000)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(renameActivity)->Name("dialog rename")->Arg(100)->Arg(10000)->Unit(benchmark::kMillisecond);

[[maybe_unused]] const bool kRegistered = [] {
    for (const RowStep& step : kSteps) {
        benchmark::RegisterBenchmark(step.name, [&step](benchmark::State& state) { rowStep(state, step); })
            ->Arg(100)
            ->Arg(10000);
    }
    for (const ManyStep& step : kManySteps) {
        benchmark::RegisterBenchmark(step.name, [&step](benchmark::State& state) { manyRows(state, step); })
            ->Arg(1000)
            ->Arg(10000)
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

}  // namespace
}  // namespace orvent::bench
