#include <algorithm>
#include <functional>

#include "repository/scenario_statements.h"
#include "repository_fixture.h"
#include "testkit/questions.h"

namespace orvent::testkit {

using canvas::DrawForm;
using canvas::LabelsD;
using platform::Answer;
using platform::Icon;
namespace sql = repository::sql;
using Texts = std::vector<std::string>;

class ScenarioSaveTest : public RepositoryTest {
  protected:
    ScenarioSaveTest() {
        node(canvas::NodeTypeRecordSet, "RS1").recordSet()->RecordSet_SQL = "select 1";
        node(canvas::NodeTypeActivity, "Act1");
        node(canvas::NodeTypeComment, "Comment0").setComment("words");
        node(canvas::NodeTypeLog, "LOG3");
        node(canvas::NodeTypeActivity, "Bare");
        recordSet().RecordSet_Outputs->Add("A", 0, "A").ProviderFor->Add("Act1", entities::LinkRecordSet, "Act1.IN.A");
        entities::ActivityProperties& activity = *form->nodeNamed("Act1")->activity();
        activity.Act_Type = 1;
        auto& providers = activity.Act_Inputs->Add("A", 0, 1, "A").ProvidedFrom;
        providers->Add("RS1", entities::LinkRecordSet, "RS1.A");
        providers->Add("RS9", entities::LinkRecordSet, "RS9.A");
        form->Lines.addFullLine(1, 3, 2, 1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
    }

    LabelsD& node(canvas::NodeTypeCode type, const std::string& name) {
        return form->Labels.Add({100, 200, 1050, 450}, name, type);
    }
    entities::RecordSetProperties& recordSet() { return *form->nodeNamed("RS1")->recordSet(); }

    void expectUntyped() {
        messages.expect("Activity \"Bare\" has no activity type defined and will not be saved!", "", Icon::warning);
    }
    /// The nodes that a first save has stored are still there, and those of somebody else.
    void expectStoredNodes(const Rows& others = {}) {
        Rows nodes{{"101", "5"}, {"102", "8"}, {"103", "10"}, {"104", "9"}};
        nodes.insert(nodes.end(), others.begin(), others.end());
        database.answer(sql::kScenarioName, {{"Demo"}});
        database.answer(sql::kNodeTypes, nodes);
    }
    void expectFault(const std::string& words) { messages.expect(words, "", Icon::critical); }
    /// A save is interrupted; then, behind a login, another scenario of the same number is saved.
    void interruptAndSaveAnother(const std::function<void()>& login) {
        database.fail("INSERT INTO RelationShips", kBroken);
        expectFault("line is down");
        expectOverwrite(messages, Answer::cancel);
        loadSave.SaveScenario(*form, false);
        login();
        const auto other = newForm("Other");
        other->ScenarioID = 11;
        other->Labels.Add({0, 0, 1, 1}, "RS1", canvas::NodeTypeRecordSet).recordSet()->NodeID = 105;
        database.answer(sql::kScenarioName, {{"Demo"}});
        database.answer(sql::kNodeTypes, {{"105", "5"}, {"900", "5"}});
        database.takeLog();
        messages.expect("Saved");
        loadSave.SaveScenario(*other, false);
        for (const std::string& text : database.takeLog()) {
            EXPECT_EQ(text.find("900"), std::string::npos) << text << ": a node of somebody else";
        }
    }
    /// What was sent since the last look, without the names of types that each save reads first.
    Texts sent() {
        Texts log = database.takeLog();
        std::erase_if(log, [](const std::string& text) {
            return text == sql::kDataTypes || text == sql::kFunctionTypes || text == sql::kActivityTypes;
        });
        return log;
    }
    void save(bool SaveAs) {
        expectUntyped();
        messages.expect("Saved");
        loadSave.SaveScenario(*form, SaveAs);
        messages.verify();
    }

    std::unique_ptr<DrawForm> form = newForm("Demo");
};

TEST_F(ScenarioSaveTest, UnchangedSaveRewritesLinksAndLinesOnlyAndSaveAsAll) {
    save(false);
    for (const auto& [text, times] : database.prepared) {
        EXPECT_EQ(times, 1) << text;
    }
    database.takeLog();
    form->DeletedNodes->Add(77, entities::DeletedLog);
    expectStoredNodes();
    save(false);
    EXPECT_EQ(sent(),
              (Texts{"SELECT Scenario_Name FROM Scenarios WHERE Scenario_ID =? [11]",
                     "SELECT Node_ID,Node_Type FROM ScenarioNodes WHERE Scenario_ID=? [11]",
                     "DELETE FROM ScenarioNodes WHERE Node_ID=? [77]", "DELETE FROM Lines WHERE Scenario_ID=? [11]",
                     "DELETE FROM Relationships WHERE Node_ID=? [101]",
                     "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [101,1001,3,Act1.IN.A,Act1,1]",
                     "DELETE FROM Relationships WHERE Node_ID=? [102]",
                     "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1002,2,RS1.A,RS1,1]",
                     "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [102,1002,2,RS9.A,RS9,1]",
                     "UPDATE ScenarioNodes SET Left=?,Top=?,Width=?,Height=? WHERE Node_ID=? [100,200,1050,450,104]",
                     "INSERT INTO Lines Values(?,?,?,?,?,?,?) [11,RS1,3,Act1,1,0,3]"}));
    EXPECT_EQ(form->DeletedNodes->Count(), 1) << "a plain save keeps the store";
    save(true);
    EXPECT_EQ(form->ScenarioID, 12);
    EXPECT_EQ(recordSet().NodeID, 105);
    EXPECT_EQ(form->DeletedNodes->Count(), 0) << "the deletions are the first scenario's";
}

TEST_F(ScenarioSaveTest, TakenNameReplacesTheOtherScenario) {
    form->ScenarioID = 5;
    recordSet().NodeID = 3;
    database.fail("INSERT INTO Scenarios", kRefused);
    database.answer(sql::kScenarioOwner, {{"ann"}});
    database.answer(sql::kScenarioByName, {{"7"}});
    expectOverwrite(messages, Answer::yes);
    save(true);
    EXPECT_EQ(form->ScenarioID, 7);
    EXPECT_EQ(recordSet().NodeID, 102) << "written anew, behind the number that was drawn to see what is left";
    EXPECT_EQ(windows.calls, Texts{"gone 7 but one"});
    EXPECT_EQ(std::ranges::count(database.log, "DELETE FROM ScenarioNodes WHERE Scenario_ID=? [7]"), 1);
}

TEST_F(ScenarioSaveTest, TakenNameIsReplacedByAnother) {
    const std::string prompt = "PLEASE GIVE A NEW NAME FOR THIS SCENARIO:\n(give an empty name if you wish to exit)";
    const std::string again = "YOU HAVE GIVEN THE SAME NAME!\n" + prompt;
    form->KeptCaption = "Scenario1";
    form->ScenarioID = 5;
    recordSet().NodeID = 3;
    database.fail("INSERT INTO Scenarios", kRefused);
    expectOverwrite(messages, Answer::no);
    inputBox.expect(prompt, "Scenario Name", "", "Demo");
    inputBox.expect(again, "Scenario Name", "", "Demo");
    inputBox.expect(again, "Scenario Name", "", "");
    loadSave.SaveScenario(*form, true);
    EXPECT_EQ(form->Caption(), "Scenario1");
    EXPECT_EQ(sent().size(), 1u);
    EXPECT_EQ(form->ScenarioID, 5);
    EXPECT_EQ(recordSet().NodeID, 3) << "nothing was written";

    database.fail("INSERT INTO Scenarios", kRefused);
    expectOverwrite(messages, Answer::no);
    inputBox.expect(prompt, "Scenario Name", "", "Other");
    save(true);
    EXPECT_EQ(form->Caption(), "Other");
    EXPECT_EQ(sent().at(1), "INSERT INTO Scenarios VALUES (?,Scenario_ID_seq.NEXTVAL,?) [Other,ann]");
}

TEST_F(ScenarioSaveTest, OtherErrorsAreToldFirst) {
    database.refuseOpen = kBroken;
    expectFault("line is down");
    loadSave.SaveScenario(*form, false);
    messages.verify();
    database.refuseOpen.reset();

    database.fail("INSERT INTO Scenarios", kBroken);
    expectFault("line is down");
    expectOverwrite(messages, Answer::cancel);
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(form->ScenarioID, 0);

    save(false);
    expectStoredNodes();
    recordSet().RecordSet_Outputs->Item("A")->SubNode_ID = 0;
    database.fail("INSERT INTO RecordSetOutputs", kBroken);
    expectFault("line is down");
    expectOverwrite(messages, Answer::yes);
    expectFault("There is no scenario of the name \"Demo\".");
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(form->ScenarioID, 11);
}

TEST_F(ScenarioSaveTest, ARefusedMemberIsNoLostOne) {
    save(false);
    expectStoredNodes();
    recordSet().RecordSet_Outputs->Item("A")->SubNode_ID = 0;
    database.fail("INSERT INTO RecordSetOutputs", kRefused);
    expectFault("constraint violated");
    expectOverwrite(messages, Answer::cancel);
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(recordSet().NodeID, 101) << "its rows are still there";
}

TEST_F(ScenarioSaveTest, AnotherUsersScenarioIsNotReplaced) {
    database.fail("INSERT INTO Scenarios", kRefused);
    database.answer(sql::kScenarioOwner, {{"bob"}});
    database.answer(sql::kScenarioByName, {{"7"}});
    expectOverwrite(messages, Answer::yes);
    messages.expect("This scenario belongs to bob.", "", Icon::information);
    inputBox.expect("PLEASE GIVE A NEW NAME FOR THIS SCENARIO:\n(give an empty name if you wish to exit)",
                    "Scenario Name", "", "Mine");
    save(true);
    EXPECT_EQ(form->Caption(), "Mine");
    EXPECT_EQ(form->ScenarioID, 11);
    EXPECT_TRUE(std::ranges::none_of(database.log, [](const auto& text) { return text.starts_with("DELETE"); }));
}

TEST_F(ScenarioSaveTest, WhatAnotherRepositoryWasLeftWithIsNoBusinessOfThisOne) {
    interruptAndSaveAnother([this] { settings.login.ReposConnString = "ELSEWHERE"; });
}

TEST_F(ScenarioSaveTest, WhatOneLoginHasLeftIsNoBusinessOfTheNext) {
    interruptAndSaveAnother([this] { loadSave.forgetInterruptedSaves(); });
}

TEST_F(ScenarioSaveTest, EqualValuesAreNoGoneRow) {
    save(false);
    expectStoredNodes();
    auto& attribute = *recordSet().RecordSet_Outputs->Item("A");
    attribute.Changed = true;
    database.missRow("UPDATE");
    database.answer(sql::kHasRecordSetOutput, {{"1001"}});
    database.answer(sql::kHasNode, {{"104"}});
    database.takeLog();
    save(false);
    EXPECT_EQ(attribute.SubNode_ID, 1001);
    EXPECT_EQ(std::ranges::count(database.log, "SELECT Output_ID FROM RecordSetOutputs WHERE Output_ID=? [1001]"), 1);
}

}  // namespace orvent::testkit
