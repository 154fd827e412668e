#pragma once

#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "canvas/node_kinds.h"
#include "repository/scenario_load_save.h"
#include "repository_fixture.h"
#include "testkit/embedded_repository.h"
#include "testkit/graph_builder.h"
#include "testkit/letter_measure.h"
#include "testkit/model_text.h"

namespace orvent::testkit {

using platform::Answer;

/// A user who wants nothing replaced, or everything.
struct SteadyUser : platform::MessageBox {
    Answer toQuestions = Answer::cancel;
    std::vector<std::string> told;
    Answer show(const std::string& text, const std::string&, platform::Icon, platform::Buttons buttons) override {
        told.push_back(text);
        const bool enough = told.size() > 10;  // a fault that comes again and again
        return buttons == platform::Buttons::ok ? Answer::ok : enough ? Answer::cancel : toQuestions;
    }
};

class StoredScenarioTest : public ::testing::Test, public canvas::ScenarioStore {
  protected:
    std::unique_ptr<canvas::DrawForm> newForm(const std::string& name) {
        auto form = std::make_unique<canvas::DrawForm>(canvas::CanvasServices{user, canvasSettings}, this);
        form->setCaption(name);
        return form;
    }

    void saveScenario(canvas::DrawForm& form) override { save(form, form.ScenarioID == 0, Answer::cancel); }

    std::unique_ptr<canvas::DrawForm> graph(const std::string& name) {
        auto form = newForm(name);
        GraphBuilder builder(*form);
        builder.recordSet("RS1", {"A"}).addDbKey("A", "db.t.A");
        builder.recordSet("RS2", {"A", "B"});
        builder.recordSet("Bare");
        entities::ActivityProperties& activity = builder.activity("Act1", {"A"}, {"O"});
        activity.Act_Type = 3;
        auto& parameter = activity.Act_Parameters->Add("P", 1, entities::TagTypeParameter, "P");
        parameter.ParentKeyName = "Act1";
        parameter.RegulatedFrom->Add("Act1", entities::LinkInput, ".IN.A");
        activity.Act_Inputs->Item("A")->RegulatorFor->Add("Act1", entities::LinkInput, ".PARAM.P");
        entities::FunctionProperties function;
        function.Function_Key = function.Function_Name = "F";
        function.Function_Type = 2;
        for (const char* key : {"X", "Z"}) {
            auto& input = function.Function_Inputs->Add(key, 0, key);
            input.NodeKind = entities::KindFunctionInput;
            input.ParentKeyName = "F";
        }
        auto& output = function.Function_Outputs->Add("Y", 4, "Y");
        output.NodeKind = entities::KindFunctionOutput;
        output.ParentKeyName = "F";
        function.setParentKeyName("Act1");
        activity.Act_Functions->AddFunctionProps(function, "", 0);
        builder.feed("RS2.A", "Act1.IN.A");
        builder.feed("RS1.A", "Act1.IN.A");
        builder.pass("Act1", "A", "O");
        form->Labels.Add({0, 0, 1500, 750}, "Comment0", canvas::NodeTypeComment).setComment("words");
        form->Labels.Add({0, 0, 1050, 450}, "LOG1", canvas::NodeTypeLog);
        builder.edge("RS1", "Act1");
        return form;
    }

    static entities::RecordSetProperties& recordSet(canvas::DrawForm& form, const char* name) {
        return *form.nodeNamed(name)->recordSet();
    }
    static entities::ActivityProperties& activity(canvas::DrawForm& form) {
        return *form.nodeNamed("Act1")->activity();
    }

    /// A copy of the graph's function under another name.
    static void addFunction(canvas::DrawForm& form, const char* name, int position) {
        auto function = activity(form).Act_Functions->Item("F")->Clone();
        function->Function_Key = function->Function_Name = name;
        for (auto* list : {&*function->Function_Inputs, &*function->Function_Outputs}) {
            for (entities::ParameterProperties& parameter : *list) {
                parameter.ParentKeyName = name;
            }
        }
        activity(form).Act_Functions->insert(position, function, name);
    }

    /// A form with the graph saved in it, at the first identifiers of a fresh repository.
    std::unique_ptr<canvas::DrawForm> savedGraph() {
        auto form = graph("Demo");
        save(*form, false, Answer::cancel);
        return form;
    }

    std::unique_ptr<canvas::DrawForm> loaded(std::int16_t ScenarioID) {
        auto form = newForm("");
        EXPECT_TRUE(loadSave.LoadScenario(*form, ScenarioID));
        return form;
    }

    long long storedRows() {
        return rowsIn(services, {"ScenarioNodes", "Activities", "ActivitySubNodes", "ActivityFunctions", "Lines",
                                 "FunctionSubNodes", "RecordSets", "RecordSetOutputs", "RelationShips", "Comments"});
    }

    void run(const std::string& sql) { repository::openRepository(services).run(sql); }

    void applyDeletions(canvas::DrawForm& form) {
        repository::StatementCache open = repository::openRepository(services);
        loadSave.ApplyDeletions(form, form.ScenarioID, open);
        form.DeletedNodes->Clear();
    }

    /// Takes stored nodes of the graph off its canvas, and notes them for the next save.
    static void deleteNodes(canvas::DrawForm& form, std::initializer_list<const char*> names) {
        for (const char* name : names) {
            const canvas::LabelsD& node = *form.nodeNamed(name);
            const auto* comment = node.entity<entities::CommentProperties>();
            const std::int16_t id = node.recordSet()  ? node.recordSet()->NodeID
                                    : node.activity() ? node.activity()->NodeID
                                    : comment         ? comment->NodeID
                                                      : std::get<std::int16_t>(node.Properties);
            form.DeletedNodes->Add(id, canvas::nodeKind(node.NodeType()).deleted);
            form.Labels.Remove(node.Index());
        }
    }

    repository::SaveResult save(canvas::DrawForm& form, bool SaveAs, Answer toQuestions) {
        user.toQuestions = toQuestions;
        user.told.clear();
        return loadSave.SaveScenario(form, SaveAs);
    }

    /// As `expectStored`, for rows that were written anew and so come behind the others.
    void expectStoredInAnyOrder(const canvas::DrawForm& form, const std::string& expected) {
        ASSERT_EQ(user.told.back(), "Saved");
        EXPECT_EQ(linesOf(modelText(*loaded(form.ScenarioID))), linesOf(expected));
    }

    static std::multiset<std::string> linesOf(const std::string& text) {
        std::istringstream in(text);
        std::multiset<std::string> lines;
        for (std::string line; std::getline(in, line);) {
            lines.insert(line);
        }
        return lines;
    }

    void expectStored(const canvas::DrawForm& form, const std::string& expected) {
        ASSERT_EQ(user.told.back(), "Saved");
        EXPECT_EQ(modelText(*loaded(form.ScenarioID)), expected);
    }

    TestRepository repository;
    SteadyUser user;
    canvas::CanvasSettings canvasSettings;
    LetterMeasure narrow{150};
    RecordingWindows windows;
    repository::Services services{repository.hooked,   repository.dataSources, user,
                                  repository.input,    repository.files,       repository.store,
                                  repository.progress, repository.settings};
    StoredCatalogue catalogue{services};
    repository::ScenarioLoadSave loadSave{services, catalogue, windows};
};

}  // namespace orvent::testkit
