// Another program works on the scenario that a window shows.

#include <random>

#include "repository/stored_content.h"
#include "stored_scenario_fixture.h"

namespace orvent::testkit {

namespace {

using repository::SaveResult;

class ChangedElsewhereTest : public StoredScenarioTest {
  protected:
    SaveResult saveAgain() { return save(*form, false, Answer::cancel); }

    std::unique_ptr<canvas::DrawForm> form = savedGraph();
    using Side = HookedDatabase::Side;

    /// One edit of a node or a member, as a designer makes it.
    template <class Below>
    static void editAtRandom(canvas::DrawForm& form, Below below) {
        const auto fresh = [&below](const char* prefix) { return prefix + std::to_string(below(100000)); };
        std::vector<canvas::LabelsD*> nodes;
        for (canvas::LabelsD& node : form.Labels) {
            nodes.push_back(&node);
        }
        const auto moveLast = [](auto& list) { list.move(1, list.Count()); };
        if (nodes.empty() || below(8) == 0) {
            GraphBuilder(form).recordSet(fresh("RS"), {"A", "B"});
            return;
        }
        canvas::LabelsD& node = *nodes[below(nodes.size())];
        if (below(10) == 0) {
            form.DeletedNodes->Add(*node.rowIdentifier(), canvas::nodeKind(node.NodeType()).deleted);
            form.Labels.Remove(node.Index());
        } else if (auto* recordSet = node.recordSet(); recordSet && below(2) == 0) {
            moveLast(*recordSet->RecordSet_Outputs);
            const std::string name = fresh("C");
            recordSet->RecordSet_Outputs->Add(name, 3, name).ParentKeyName = recordSet->RecordSet_Name;
        } else if (auto* owner = node.activity(); owner && below(2) == 0) {
            moveLast(*owner->Act_Functions);
            moveLast(*owner->Act_Parameters);
            owner->Act_Parameters->Add(fresh("P"), 2, static_cast<entities::TagCode>(below(3)), fresh("P"))
                .ParentKeyName = owner->Act_Name;
            if (auto* output = owner->Act_Outputs->Item(1)) {
                output->Attribute_Type = static_cast<std::int16_t>(below(5));
                output->Tag = static_cast<entities::TagCode>(below(3));
            }
        } else {
            node.setLeft(static_cast<float>(below(5000)));
        }
    }

    RecordingWindows otherWindows;
    repository::ScenarioLoadSave other{services, catalogue, otherWindows};
};

TEST_F(ChangedElsewhereTest, ARemovedScenarioGetsANameOfItsOwn) {
    other.RemoveScenario(1, true);
    EXPECT_EQ(saveAgain(), SaveResult::scenarioGone);
    EXPECT_TRUE(user.told.empty()) << user.told.front();
    EXPECT_EQ(form->ScenarioID, 0);
    EXPECT_EQ(windows.calls.back(), "gone 1");
    EXPECT_EQ(storedRows(), 0);
}

TEST_F(ChangedElsewhereTest, AReplacedScenarioIsNotMixedWithTheNewOne) {
    const auto replacing = graph("Demo");
    GraphBuilder(*replacing).recordSet("RS7", {"B"});
    user.toQuestions = Answer::yes;
    other.SaveScenario(*replacing, true);
    EXPECT_EQ(saveAgain(), SaveResult::scenarioGone);
    EXPECT_EQ(form->ScenarioID, 0);
    EXPECT_EQ(modelText(*loaded(1)), modelText(*replacing));
}

struct Change {
    const char* sql;
    const char* words;
};
#define OF(name) "(SELECT Node_ID FROM ScenarioNodes WHERE Node_Name='" name "')"
const Change kChanges[] = {
    {"DELETE FROM FunctionSubNodes WHERE SubNode_Key='X'", "Changed: Act1."},
    {"DELETE FROM ActivitySubNodes WHERE SubNode_Key='O'", "Changed: Act1."},
    {"UPDATE ActivitySubNodes SET SubNode_Name='other' WHERE SubNode_Key='P'", "Changed: Act1."},
    {"UPDATE ActivitySubNodes SET SubNode_Tag=7 WHERE SubNode_Key='P'", "Changed: Act1."},
    {"UPDATE ActivityFunctions SET Function_Source=7", "Changed: Act1."},
    {"UPDATE Activities SET Activity_LDL='other'", "Changed: Act1."},
    {"UPDATE ScenarioNodes SET Node_Name='Other' WHERE Node_Name='RS1'", "Changed: Other."},
    {"UPDATE ScenarioNodes SET Top=77 WHERE Node_Name='RS2'", "Changed: RS2."},
    {"UPDATE RecordSetOutPuts SET DB_Key='other' WHERE RecordSet_ID=" OF("RS1"), "Changed: RS1."},
    {"UPDATE RecordSetOutPuts SET Output_Type='DATE' WHERE RecordSet_ID=" OF("RS1"), "Changed: RS1."},
    {"DELETE FROM RecordSets WHERE RecordSet_ID=" OF("Bare"), "Changed: Bare."},
    {"UPDATE Comments SET Comment_Text='other'", "Changed: Comment0."},
    {"DELETE FROM Lines", "Changed: edges."},
    {"DELETE FROM RelationShips WHERE Node_ID=" OF("RS1"), "Changed: RS1."},
    {"INSERT INTO ScenarioNodes VALUES (1,900,'Theirs',9,0,0,1,1)", "New: Theirs."},
    {"DELETE FROM ScenarioNodes WHERE Node_Name='LOG1'", "Gone: LOG1."},
};

TEST_F(ChangedElsewhereTest, IsAskedAboutBeforeTheFirstRowIsWritten) {
    const std::string whole = modelText(*form);
    for (const auto& [sql, words] : kChanges) {
        SCOPED_TRACE(sql);
        run(sql);
        repository.hooked.written.clear();
        saveAgain();
        ASSERT_EQ(user.told.size(), 2u) << "told, and asked whether to replace it";
        EXPECT_NE(user.told[0].find(words), std::string::npos) << user.told[0];
        EXPECT_EQ(repository.hooked.written, std::vector<std::string>{});
        EXPECT_TRUE(repository::isUnsaved(*form));
        save(*form, false, Answer::yes);
        expectStored(*form, whole);
        EXPECT_FALSE(repository::isUnsaved(*form));
        EXPECT_EQ(form->ScenarioID, 1);
    }
    run("UPDATE Scenarios SET Scenario_Name='Renamed'");
    run("DELETE FROM Lines");
    save(*form, false, Answer::yes);
    expectStored(*form, whole);
}

TEST_F(ChangedElsewhereTest, AnotherNameLeavesBoth) {
    const std::string whole = modelText(*form);
    run("DELETE FROM ActivitySubNodes WHERE SubNode_Key='O'");
    const std::string theirs = modelText(*loaded(1));
    repository.input.expect("PLEASE GIVE A NEW NAME FOR THIS SCENARIO:\n(give an empty name if you wish to exit)",
                            "Scenario Name", "", "Mine");
    save(*form, false, Answer::no);
    EXPECT_EQ(form->ScenarioID, 2);
    expectStored(*form, whole);
    EXPECT_EQ(modelText(*loaded(1)), theirs);
}

TEST_F(ChangedElsewhereTest, WhatChangesDuringTheSaveIsFoundBehindIt) {
    const std::string whole = modelText(*form);
    repository.hooked.after(
        1, [this] { run("DELETE FROM ActivitySubNodes WHERE SubNode_Key='O'"); }, Side::behind, "INSERT INTO Lines");
    EXPECT_EQ(saveAgain(), SaveResult::givenUp);
    ASSERT_TRUE(repository.hooked.happened());
    EXPECT_EQ(user.told.front(),
              "The repository does not hold what was saved; somebody else may be saving this scenario.\n"
              "Not as shown here: Act1.");
    EXPECT_TRUE(repository::isUnsaved(*form));
    save(*form, false, Answer::yes);
    expectStored(*form, whole);
}

TEST_F(ChangedElsewhereTest, ANewNameOfATypeIsNoChange) {
    catalogue.UpdateDataType(activity(*form).Act_Outputs->Item("O")->Attribute_Type, "Other");
    EXPECT_EQ(saveAgain(), SaveResult::saved);
}

// Two programs draw, save and load the same scenario by turns, and now and then a save breaks off.
TEST_F(ChangedElsewhereTest, WhatASaveSaysIsTrue) {
    std::mt19937 random(19);
    const auto below = [&random](std::size_t end) { return random() % end; };
    struct Program {
        repository::ScenarioLoadSave& loadSave;
        std::unique_ptr<canvas::DrawForm> form;
    };
    Program programs[] = {{loadSave, std::move(form)}, {other, loaded(1)}};
    int saved = 0, refused = 0;
    for (int step = 0; step < 400; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        Program& program = programs[below(2)];
        canvas::DrawForm& drawn = *program.form;
        if (below(3) > 0) {
            editAtRandom(drawn, below);
            continue;
        }
        if (const std::int16_t ScenarioID = drawn.ScenarioID; below(8) == 0 && ScenarioID != 0) {
            program.form = newForm("");
            if (!program.loadSave.LoadScenario(*program.form, ScenarioID)) {
                program.form = graph("Again" + std::to_string(step));
            }
            continue;
        }
        if (below(3) == 0) {
            repository.hooked.after(
                static_cast<int>(below(60)) + 1, [] { throw kBroken; }, below(2) == 0 ? Side::before : Side::behind);
        }
        user.toQuestions = below(2) == 0 ? Answer::cancel : Answer::yes;
        user.told.clear();
        program.loadSave.SaveScenario(drawn, drawn.ScenarioID == 0);
        repository.hooked.after(0, [] {});
        if (repository::isUnsaved(drawn)) {
            ++refused;
            EXPECT_TRUE(!user.told.empty() || drawn.ScenarioID == 0);
        } else {
            ++saved;
            ASSERT_EQ(user.told.back(), "Saved");
            ASSERT_EQ(linesOf(modelText(*loaded(drawn.ScenarioID))), linesOf(modelText(drawn)));
        }
    }
    EXPECT_GT(saved, 30);
    EXPECT_GT(refused, 20);
}

TEST_F(ChangedElsewhereTest, OwnDeletionsAreNoReplacement) {
    deleteNodes(*form, {"RS1", "RS2", "Bare", "Act1", "Comment0", "LOG1"});
    GraphBuilder(*form).recordSet("RS9", {"A"});
    EXPECT_EQ(saveAgain(), SaveResult::saved);
    expectStored(*form, modelText(*form));
}

}  // namespace

}  // namespace orvent::testkit
