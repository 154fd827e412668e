// Scenarios on a real repository: what comes back, and saves that break off at each of their statements in turn.

#include "repository/scenario_load_save.h"
#include "repository_fixture.h"
#include "testkit/embedded_repository.h"
#include "testkit/graph_builder.h"
#include "testkit/model_text.h"

namespace orvent::testkit {

using platform::Answer;

namespace {

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

class StoredScenarioTest : public ::testing::Test {
  protected:
    StoredScenarioTest() {
        catalogue.LoadDataTypes();
        catalogue.LoadFunctionTypes();
        catalogue.LoadActivityTypes();
    }

    std::unique_ptr<canvas::DrawForm> newForm(const std::string& name) {
        auto form = std::make_unique<canvas::DrawForm>(canvas::CanvasServices{user, canvasSettings});
        form->setCaption(name);
        return form;
    }

    std::unique_ptr<canvas::DrawForm> graph(const std::string& name) {
        auto form = newForm(name);
        GraphBuilder builder(*form);
        builder.recordSet("RS1", {"A"}).addDbKey("A", "db.t.A");
        builder.recordSet("RS2", {"A", "B"});
        builder.recordSet("Bare");
        entities::ActivityProperties& activity = builder.activity("Act1", {"A"}, {"O"});
        activity.Act_Type = 3;
        auto& parameter = activity.Act_Parameters->Add("P", 1, 8, "P");
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
        repository::StatementCache open = repository::openRepository(services);
        long long rows = 0;
        for (const char* table : {"ScenarioNodes", "Activities", "ActivitySubNodes", "ActivityFunctions", "Lines",
                                  "FunctionSubNodes", "RecordSets", "RecordSetOutputs", "RelationShips", "Comments"}) {
            const std::string sql = std::string("SELECT COUNT(*) FROM ") + table;
            platform::Statement& count = open.run(sql);
            rows += count.fetch() ? count.number(1) : -1;
        }
        return rows;
    }

    void applyDeletions(canvas::DrawForm& form) {
        repository::StatementCache open = repository::openRepository(services);
        loadSave.ApplyDeletions(form, form.ScenarioID, open);
        form.DeletedNodes->Clear();
    }

    void save(canvas::DrawForm& form, bool SaveAs, Answer toQuestions) {
        user.toQuestions = toQuestions;
        user.told.clear();
        loadSave.SaveScenario(form, SaveAs);
    }

    void expectStored(const canvas::DrawForm& form, const std::string& expected) {
        ASSERT_EQ(user.told.back(), "Saved");
        EXPECT_EQ(modelText(*loaded(form.ScenarioID)), expected);
    }

    /// Breaks a save off at each statement; then the user saves once more.
    void breakOffEverywhere(bool storedBefore, bool SaveAs, Answer toTheFault) {
        for (int at = 1;; ++at) {
            SCOPED_TRACE("broken off at statement " + std::to_string(at));
            auto form = graph("Demo" + std::to_string(at));
            const std::string before = modelText(*form);
            if (storedBefore) {
                save(*form, true, Answer::cancel);
                GraphBuilder(*form).recordSet("RS3", {"B"}).Changed = true;
            }
            const std::string expected = modelText(*form);
            const std::int16_t first = form->ScenarioID;
            if (SaveAs) {
                form->setCaption("Other" + std::to_string(at));
            }
            repository.hooked.after(at, [] { throw kBroken; });
            save(*form, SaveAs, toTheFault);
            if (!repository.hooked.happened()) {
                repository.hooked.after(0, [] {});
                EXPECT_GT(at, 10);
                break;
            }
            if (user.told.back() != "Saved") {
                save(*form, form->ScenarioID == 0, Answer::yes);
            }
            expectStored(*form, expected);
            if (SaveAs && form->ScenarioID != first) {
                form->ScenarioID = first;
                expectStored(*form, before);
            }
        }
    }

    TestRepository repository;
    SteadyUser user;
    canvas::CanvasSettings canvasSettings;
    RecordingWindows windows;
    repository::Services services{repository.hooked,   repository.dataSources, user,
                                  repository.input,    repository.files,       repository.store,
                                  repository.progress, repository.settings};
    repository::Catalogue catalogue{services, [] { FAIL() << "the catalogue could not be read"; }};
    repository::ScenarioLoadSave loadSave{services, catalogue, windows};
};

TEST_F(StoredScenarioTest, ComesBackFromOddRowsToo) {
    auto form = savedGraph();
    for (const char* sql : {"INSERT INTO Lines VALUES (1,'Act1',4,'Gone',1,0,3)",
                            "INSERT INTO ActivitySubNodes VALUES (4,SubNode_ID_seq.NEXTVAL,'O',2,'twice','DATE',3)",
                            "INSERT INTO ActivitySubNodes VALUES (4,SubNode_ID_seq.NEXTVAL,'odd',99,'odd','DATE',3)",
                            "INSERT INTO FunctionSubNodes VALUES (1,SubNode_ID_seq.NEXTVAL,'odd',99,'odd','DATE')",
                            "INSERT INTO RelationShips VALUES (4,4,4,'odd','odd',1)"}) {
        repository::openRepository(services).run(sql);
    }
    windows.calls.clear();
    const auto back = loaded(1);
    EXPECT_EQ(modelText(*back), modelText(*form));
    EXPECT_EQ(back->Caption(), "Demo");
    EXPECT_EQ(back->ScenarioID, 1);
    EXPECT_EQ(windows.calls, (std::vector<std::string>{"disable", "enable"}));
    EXPECT_TRUE(back->nodeNamed("Act1")->Ready() && back->nodeNamed("RS1")->Ready());
    EXPECT_FALSE(back->nodeNamed("Bare")->Ready()) << "it has no attribute";
    EXPECT_EQ(activity(*back).Act_Functions->Item("F")->Function_Name, "F");
    EXPECT_EQ(activity(*back).Act_Inputs->Item("A")->ProvidedFrom->Item(1)->Provider_Name, "RS2")
        << "the order of sources is kept";
}

TEST_F(StoredScenarioTest, ALoadThatBreaksOffLeavesNoScenarioToSave) {
    savedGraph();
    for (int at = 4;; ++at) {  // the first three read the name and the catalogue
        repository.hooked.after(at, [] { throw kBroken; });
        const auto form = loaded(1);
        if (!repository.hooked.happened()) {
            EXPECT_GT(at, 20);
            break;
        }
        EXPECT_EQ(form->ScenarioID, 0) << "a part could be saved in place of the whole";
        EXPECT_EQ(user.told.back(), "line is down");
        EXPECT_EQ(windows.calls.back(), "enable");
    }
}

TEST_F(StoredScenarioTest, ChangesAreWrittenInPlace) {
    savedGraph();
    const long long rows = storedRows();
    const auto form = loaded(1);
    entities::ActivityProperties& changed = activity(*form);
    auto& outputs = *recordSet(*form, "RS2").RecordSet_Outputs;
    outputs.AddFullAttribute(*outputs.Item("B"), "C", false, 0);
    outputs.Remove("B");
    outputs.Item("C")->Attribute_Name = "C";
    outputs.Item("C")->Changed = true;
    recordSet(*form, "RS1").RecordSet_SQL = changed.Act_SQL = changed.Act_LDL = "changed";
    recordSet(*form, "RS1").Changed = changed.Changed = changed.Act_Inputs->Changed = true;
    for (auto* attribute : {changed.Act_Inputs->Item("A"), changed.Act_Outputs->Item("O")}) {
        attribute->Attribute_Type = 5;
        attribute->Changed = true;
    }
    entities::FunctionProperties& function = *changed.Act_Functions->Item("F");
    function.Function_Type = 5;
    function.Changed = true;
    for (auto* parameter : {changed.Act_Parameters->Item("P"), function.Function_Inputs->Item("X"),
                            function.Function_Outputs->Item("Y")}) {
        parameter->Parameter_Type = 6;
        parameter->Changed = true;
    }
    form->nodeNamed("Comment0")->setComment("new");
    form->nodeNamed("Comment0")->entity<entities::CommentProperties>()->Changed = true;
    form->nodeNamed("LOG1")->setLeft(77);
    save(*form, false, Answer::cancel);
    expectStored(*form, modelText(*form));
    EXPECT_EQ(storedRows(), rows);
}

TEST_F(StoredScenarioTest, DeletedMembersLeaveNoRow) {
    const auto form = savedGraph();
    entities::ActivityProperties& owner = activity(*form);
    entities::FunctionProperties& function = *owner.Act_Functions->Item("F");
    canvas::DeletedNodesCollection& deleted = *form->DeletedNodes;
    deleted.Add(owner.Act_Inputs->Item("A")->SubNode_ID, entities::KindInput);
    deleted.Add(owner.Act_Outputs->Item("O")->SubNode_ID, entities::KindOutput);
    deleted.Add(owner.Act_Parameters->Item("P")->SubNode_ID, entities::KindParameter);
    deleted.Add(function.Function_Inputs->Item("X")->SubNode_ID, entities::KindFunctionInput);
    deleted.Add(function.Function_Outputs->Item("Y")->SubNode_ID, entities::KindFunctionOutput);
    deleted.Add(recordSet(*form, "RS1").RecordSet_Outputs->Item("A")->SubNode_ID, entities::KindRecordSetAttribute);
    applyDeletions(*form);
    // Six nodes with their five own rows, two attributes and a link of RS2, the sources of the input, and the function.
    EXPECT_EQ(storedRows(), 11 + 3 + 2 + 2);
    deleted.Add(function.FunctionID, entities::KindFunction);
    applyDeletions(*form);
    EXPECT_EQ(storedRows(), 11 + 3 + 2);
}

TEST_F(StoredScenarioTest, DeletedNodesLeaveNoRow) {
    const auto form = savedGraph();
    for (const char* name : {"RS1", "RS2", "Bare"}) {
        form->DeletedNodes->Add(recordSet(*form, name).NodeID, entities::DeletedRecordSet);
    }
    form->DeletedNodes->Add(activity(*form).NodeID, entities::DeletedActivity);
    form->DeletedNodes->Add(5, entities::DeletedComment);
    form->DeletedNodes->Add(6, entities::DeletedLog);
    applyDeletions(*form);
    EXPECT_EQ(storedRows(), 0);
}

TEST_F(StoredScenarioTest, FirstSaveBreaksOff) {
    breakOffEverywhere(false, false, Answer::cancel);
}

TEST_F(StoredScenarioTest, PlainSaveBreaksOff) {
    breakOffEverywhere(true, false, Answer::cancel);
}

TEST_F(StoredScenarioTest, SaveAsBreaksOffAndLeavesTheFirstScenarioWhole) {
    breakOffEverywhere(true, true, Answer::cancel);
}

TEST_F(StoredScenarioTest, SaveBreaksOffAndReplacesAtOnce) {
    breakOffEverywhere(true, false, Answer::yes);
}

}  // namespace

}  // namespace orvent::testkit
