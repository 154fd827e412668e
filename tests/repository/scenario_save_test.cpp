// The flow of a save: what is written, what is asked, and what is told.

#include <algorithm>
#include <functional>

#include "repository/stored_content.h"
#include "stored_scenario_fixture.h"
#include "testkit/numbers.h"
#include "testkit/questions.h"

namespace orvent::testkit {

using platform::Icon;
using Texts = std::vector<std::string>;

/// What a window says when it closes.
struct ClosingBox : platform::MessageBox {
    std::string smaller;
    Answer showWith(const std::string& small, const std::string&, const std::string&, Icon,
                    platform::Buttons) override {
        smaller = small;
        return Answer::ok;
    }
    Answer show(const std::string& text, const std::string&, Icon, platform::Buttons) override {
        ADD_FAILURE() << text;
        return Answer::cancel;
    }
};

class ScenarioSaveTest : public ::testing::Test {
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
        auto& providers = activity.Act_Inputs->Add("A", 0, entities::TagRecordSet, "A").ProvidedFrom;
        providers->Add("RS1", entities::LinkRecordSet, "RS1.A");
        providers->Add("RS9", entities::LinkRecordSet, "RS9.A");
        form->Lines.addFullLine(1_node, 3, 2_node, 1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
    }

    std::unique_ptr<canvas::DrawForm> newForm(const std::string& caption) {
        auto made = std::make_unique<canvas::DrawForm>(canvas::CanvasServices{closing, canvasSettings});
        made->setCaption(caption);
        return made;
    }
    canvas::LabelsD& node(canvas::NodeTypeCode type, const std::string& name) {
        return form->Labels.Add({100, 200, 1050, 450}, name, type);
    }
    entities::RecordSetProperties& recordSet() { return *form->nodeNamed("RS1")->recordSet(); }

    void expectUntyped() {
        messages.expect("Activity \"Bare\" has no activity type defined and will not be saved!", "", Icon::warning);
    }
    void expectFault(const std::string& words) { messages.expect(words, "", Icon::critical); }
    void save(bool SaveAs) {
        expectUntyped();
        messages.expect("Saved");
        loadSave.SaveScenario(*form, SaveAs);
        messages.verify();
    }
    /// Another scenario, with one record set, is stored under that name.
    std::unique_ptr<canvas::DrawForm> storeOther(const std::string& name) {
        auto other = newForm(name);
        other->Labels.Add({0, 0, 1, 1}, "Theirs", canvas::NodeTypeRecordSet);
        messages.expect("Saved");
        loadSave.SaveScenario(*other, true);
        return other;
    }
    void breakAt(const char* statement, const platform::DatabaseError& error = kBroken) {
        repository.hooked.after(
            1, [error] { throw error; }, HookedDatabase::Side::before, statement);
    }
    Texts takeWritten() { return std::exchange(repository.hooked.written, {}); }

    TestRepository repository;
    ScriptedMessageBox& messages = repository.messages;
    ClosingBox closing;
    canvas::CanvasSettings canvasSettings;
    RecordingWindows windows;
    repository::Services services = repository.services();
    StoredCatalogue catalogue{services};
    repository::ScenarioLoadSave loadSave{services, catalogue, windows};
    std::unique_ptr<canvas::DrawForm> form = newForm("Demo");
};

TEST_F(ScenarioSaveTest, UnchangedSaveRewritesLinksAndLinesOnlyAndSaveAsAll) {
    save(false);
    takeWritten();
    form->DeletedNodes->Add(77, entities::DeletedLog);
    save(false);
    EXPECT_EQ(takeWritten(),
              (Texts{"DELETE FROM ScenarioNodes WHERE Node_ID=? [77]", "DELETE FROM Lines WHERE Scenario_ID=? [1]",
                     "DELETE FROM Relationships WHERE Node_ID=? [1]",
                     "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [1,1,3,Act1.IN.A,Act1,1]",
                     "DELETE FROM Relationships WHERE Node_ID=? [2]",
                     "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [2,2,2,RS1.A,RS1,1]",
                     "INSERT INTO RelationShips VALUES(?,?,?,?,?,?) [2,2,2,RS9.A,RS9,1]",
                     "UPDATE ScenarioNodes SET Left=?,Top=?,Width=?,Height=? WHERE Node_ID=? [100,200,1050,450,4]",
                     "INSERT INTO Lines Values(?,?,?,?,?,?,?) [1,RS1,3,Act1,1,0,3]"}));
    EXPECT_EQ(form->DeletedNodes->Count(), 1) << "a plain save keeps the store";
    form->setCaption("Copy");
    save(true);
    EXPECT_EQ(form->ScenarioID, 2);
    EXPECT_EQ(recordSet().NodeID, 5);
    EXPECT_EQ(form->DeletedNodes->Count(), 0) << "the deletions are the first scenario's";
}

TEST_F(ScenarioSaveTest, WhatASaveLeavesOutKeepsTheMarkAndIsNamedAtClosing) {
    const auto saysAtClosing = [this] {
        form->QueryUnload();
        return closing.smaller;
    };
    save(false);
    EXPECT_TRUE(form->stored.changed);
    const std::string lost =
        "Changes that were not saved will be lost.\nNo save keeps an activity without a type: Bare";
    EXPECT_EQ(saysAtClosing(), lost + ".");
    for (const char* name : {"B", "C", "D", "E", "F", "G"}) {
        node(canvas::NodeTypeActivity, name);
    }
    EXPECT_EQ(saysAtClosing(), lost + ", B, C, D, E and 2 more.");
    for (canvas::LabelsD& each : form->Labels) {
        if (each.activity()) {
            each.activity()->Act_Type = 1;
        }
    }
    messages.expect("Saved");
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(saysAtClosing(), "Everything is saved.");
}

TEST_F(ScenarioSaveTest, TakenNameReplacesTheOtherScenario) {
    save(false);
    storeOther("Taken");
    form->setCaption("Taken");
    takeWritten();
    expectOverwrite(messages, Answer::yes);
    save(true);
    EXPECT_EQ(form->ScenarioID, 2);
    EXPECT_GT(recordSet().NodeID, 5) << "written anew";
    EXPECT_EQ(windows.calls, Texts{"gone 2 but one"});
    EXPECT_EQ(std::ranges::count(repository.hooked.written, "DELETE FROM ScenarioNodes WHERE Scenario_ID=? [2]"), 1);
    EXPECT_EQ(rowsIn(services, {"ScenarioNodes"}), 4 + 4) << "the first scenario stays";
}

TEST_F(ScenarioSaveTest, TakenNameIsReplacedByAnother) {
    const std::string prompt = "PLEASE GIVE A NEW NAME FOR THIS SCENARIO:\n(give an empty name if you wish to exit)";
    const std::string again = "YOU HAVE GIVEN THE SAME NAME!\n" + prompt;
    storeOther("Demo");
    form->KeptCaption = "Scenario1";
    form->ScenarioID = 5;
    recordSet().NodeID = 3;
    takeWritten();
    expectOverwrite(messages, Answer::no);
    repository.input.expect(prompt, "Scenario Name", "", "Demo");
    repository.input.expect(again, "Scenario Name", "", "Demo");
    repository.input.expect(again, "Scenario Name", "", "");
    loadSave.SaveScenario(*form, true);
    EXPECT_EQ(form->Caption(), "Scenario1");
    EXPECT_EQ(takeWritten().size(), 1u);
    EXPECT_EQ(form->ScenarioID, 5);
    EXPECT_EQ(recordSet().NodeID, 3) << "nothing was written";

    form->setCaption("Demo");
    expectOverwrite(messages, Answer::no);
    repository.input.expect(prompt, "Scenario Name", "", "Other");
    save(true);
    EXPECT_EQ(form->Caption(), "Other");
    EXPECT_EQ(takeWritten().at(1), "INSERT INTO Scenarios VALUES (?,Scenario_ID_seq.NEXTVAL,?) [Other,anna]");
}

TEST_F(ScenarioSaveTest, OtherErrorsAreToldFirst) {
    const std::string source = std::exchange(services.settings.login.ReposConnString, "NOWHERE");
    messages.expect("*", "", Icon::critical);
    loadSave.SaveScenario(*form, false);
    messages.verify();
    services.settings.login.ReposConnString = source;

    breakAt("INSERT INTO Scenarios");
    expectFault("line is down");
    expectOverwrite(messages, Answer::cancel);
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(form->ScenarioID, 0);

    save(false);
    form->setCaption("Nobody");
    breakAt("DELETE FROM Lines");
    expectFault("line is down");
    expectOverwrite(messages, Answer::yes);
    expectFault("There is no scenario of the name \"Nobody\".");
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(form->ScenarioID, 1);
}

TEST_F(ScenarioSaveTest, ARefusedMemberIsNoLostOne) {
    save(false);
    recordSet().RecordSet_Outputs->Add("B", 0, "B");
    breakAt("INSERT INTO RecordSetOutputs", kRefused);
    expectFault("constraint violated");
    expectOverwrite(messages, Answer::cancel);
    loadSave.SaveScenario(*form, false);
    EXPECT_EQ(recordSet().NodeID, 1) << "its rows are still there";
}

TEST_F(ScenarioSaveTest, AnotherUsersScenarioIsNotReplaced) {
    services.settings.login.User = "bob";
    storeOther("Demo");
    services.settings.login.User = "anna";
    takeWritten();
    expectOverwrite(messages, Answer::yes);
    messages.expect("This scenario belongs to bob.", "", Icon::information);
    repository.input.expect("PLEASE GIVE A NEW NAME FOR THIS SCENARIO:\n(give an empty name if you wish to exit)",
                            "Scenario Name", "", "Mine");
    save(true);
    EXPECT_EQ(form->Caption(), "Mine");
    EXPECT_EQ(form->ScenarioID, 3);
    EXPECT_TRUE(std::ranges::none_of(takeWritten(), [](const auto& text) { return text.starts_with("DELETE"); }));
}

// What an interrupted save has left is cleared away by the next one, but only within one login to one repository.
TEST_F(ScenarioSaveTest, WhatOneLoginHasLeftIsNoBusinessOfTheNext) {
    const std::function<void()> logins[] = {[this] {
                                                repository.hooked.standsFor = services.settings.login.ReposConnString;
                                                services.settings.login.ReposConnString = "ELSEWHERE";
                                            },
                                            [this] { loadSave.forgetInterruptedSaves(); }, [] {}};
    save(false);
    for (const auto& login : logins) {
        breakAt("INSERT INTO RelationShips");
        expectFault("line is down");
        expectOverwrite(messages, Answer::cancel);
        loadSave.SaveScenario(*form, false);
        login();
        repository::openRepository(services).run("INSERT INTO ScenarioNodes VALUES (1,900,'Theirs',9,0,0,1,1)");
        if (&login < &logins[2]) {
            expectFault("*");
            expectOverwrite(messages, Answer::cancel);
            loadSave.SaveScenario(*form, false);
            EXPECT_EQ(rowsIn(services, {"ScenarioNodes WHERE Node_ID=900"}), 1) << "a node of somebody else";
            repository::openRepository(services).run("DELETE FROM ScenarioNodes WHERE Node_ID=900");
            expectFault("*");
            expectOverwrite(messages, Answer::yes);
        }
        save(false);
        EXPECT_EQ(rowsIn(services, {"ScenarioNodes WHERE Node_ID=900"}), 0);
    }
}

TEST_F(ScenarioSaveTest, EqualValuesAreNoGoneRow) {
    save(false);
    auto& attribute = *recordSet().RecordSet_Outputs->Item("A");
    attribute.Changed = true;
    repository.hooked.countsNoRow = true;
    takeWritten();
    save(false);
    EXPECT_EQ(attribute.SubNode_ID, 1);
    EXPECT_EQ(std::ranges::count(takeWritten(), "UPDATE RecordSetOutputs SET Output_Key=? WHERE Output_ID=?  [A,1]"),
              1);
}

}  // namespace orvent::testkit
