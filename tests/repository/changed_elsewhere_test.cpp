// Another program works on the scenario that a window shows.

#include "stored_scenario_fixture.h"

namespace orvent::testkit {

namespace {

using repository::SaveResult;

class ChangedElsewhereTest : public StoredScenarioTest {
  protected:
    SaveResult saveAgain() { return save(*form, false, Answer::cancel); }

    std::unique_ptr<canvas::DrawForm> form = savedGraph();
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

TEST_F(ChangedElsewhereTest, NodesThatAreGoneAreWrittenAnew) {
    const auto thinning = loaded(1);
    deleteNodes(*thinning, {"RS2", "Act1", "Comment0", "LOG1"});
    EXPECT_EQ(other.SaveScenario(*thinning, false), SaveResult::saved);
    EXPECT_EQ(saveAgain(), SaveResult::saved);
    expectStoredInAnyOrder(*form, modelText(*form));
}

TEST_F(ChangedElsewhereTest, RewrittenRowsThatAreGoneAreWrittenAnew) {
    const char* gone[] = {"DELETE FROM FunctionSubNodes WHERE SubNode_Key='X'",
                          "DELETE FROM FunctionSubNodes",
                          "DELETE FROM ActivityFunctions",
                          "DELETE FROM ActivitySubNodes WHERE SubNode_Key='O'",
                          "DELETE FROM ActivitySubNodes WHERE SubNode_Key='P'",
                          "DELETE FROM RecordSetOutPuts WHERE Output_Key='A'",
                          "DELETE FROM RecordSets WHERE RecordSet_ID=3",
                          "DELETE FROM Comments"};
    entities::ActivityProperties& owner = activity(*form);
    entities::FunctionProperties& function = *owner.Act_Functions->Item("F");
    owner.Changed = owner.Act_Outputs->Item("O")->Changed = owner.Act_Parameters->Item("P")->Changed = true;
    function.Changed = function.Function_Inputs->Item("X")->Changed = true;
    for (const char* name : {"RS1", "RS2", "Bare"}) {
        recordSet(*form, name).Changed = true;
    }
    recordSet(*form, "RS1").RecordSet_Outputs->Item("A")->Changed = true;
    recordSet(*form, "RS2").RecordSet_Outputs->Item("A")->Changed = true;
    form->nodeNamed("Comment0")->entity<entities::CommentProperties>()->Changed = true;
    recordSet(*form, "RS1").RecordSet_SQL = owner.Act_SQL = "changed";
    const std::string whole = modelText(*form);
    for (const char* sql : gone) {
        SCOPED_TRACE(sql);
        run(sql);
        if (sql == std::string_view("DELETE FROM FunctionSubNodes")) {
            continue;  // the function itself goes next
        }
        EXPECT_EQ(saveAgain(), SaveResult::saved);
        expectStoredInAnyOrder(*form, whole);
    }
}

TEST_F(ChangedElsewhereTest, OwnDeletionsAreNoReplacement) {
    deleteNodes(*form, {"RS1", "RS2", "Bare", "Act1", "Comment0", "LOG1"});
    GraphBuilder(*form).recordSet("RS9", {"A"});
    EXPECT_EQ(saveAgain(), SaveResult::saved);
    expectStored(*form, modelText(*form));
}

}  // namespace

}  // namespace orvent::testkit
