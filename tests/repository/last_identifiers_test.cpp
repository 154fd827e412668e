// A repository whose sequences come to the end of the 16-bit identifiers.

#include "repository/view_scenarios.h"
#include "stored_scenario_fixture.h"

namespace orvent::testkit {

namespace {

class LastIdentifiersTest : public StoredScenarioTest {
  protected:
    void setSequence(const std::string& name, int last) {
        run("UPDATE orvent_sequences SET value=" + std::to_string(last) + " WHERE name='" + name + "'");
    }

    void expectRefused(std::size_t asked = 0) {
        ASSERT_EQ(user.told.size(), asked + 1) << user.told.back();
        EXPECT_NE(user.told[asked].find("no identifiers left"), std::string::npos) << user.told[asked];
    }

    std::unique_ptr<canvas::DrawForm> form = savedGraph();
    const std::string whole = modelText(*form);
};

TEST_F(LastIdentifiersTest, APlainSaveLeavesOutWhatIsNew) {
    const std::pair<const char*, std::function<void()>> additions[] = {
        {"Node_ID_seq", [&] { GraphBuilder(*form).recordSet("RS7", {"A"}); }},
        {"SubNode_ID_seq",
         [&] {
             auto& first = *activity(*form).Act_Outputs->Item("O");
             activity(*form).Act_Outputs->AddFullAttribute(first, "Q", false, 0);
             activity(*form).Act_Outputs->Item("Q")->SubNode_ID = 0;
         }},
        {"Function_ID_seq",
         [&] {
             entities::FunctionProperties function;
             function.Function_Key = "G";
             function.Function_Inputs->Add("X", 0, "X").NodeKind = entities::KindFunctionInput;
             activity(*form).Act_Functions->AddFunctionProps(function, "", 0);
         }},
    };
    const long long rows = storedRows();
    for (const auto& [sequence, add] : additions) {
        SCOPED_TRACE(sequence);
        setSequence(sequence, 32767);
        add();
        save(*form, false, Answer::yes);
        expectRefused();
        EXPECT_EQ(form->ScenarioID, 1);
        EXPECT_EQ(storedRows(), rows);
        EXPECT_EQ(modelText(*loaded(1)), whole) << "what was stored is sound";
    }
    setSequence("Node_ID_seq", 100);
    setSequence("SubNode_ID_seq", 200);
    setSequence("Function_ID_seq", 100);
    save(*form, false, Answer::cancel);
    ASSERT_EQ(user.told.back(), "Saved");
    EXPECT_EQ(recordSet(*form, "RS7").NodeID, 101);
}

TEST_F(LastIdentifiersTest, AFullWriteLeavesEverythingAsItWas) {
    const long long rows = storedRows();
    for (const char* sequence : {"Scenario_ID_seq", "Node_ID_seq", "SubNode_ID_seq", "Function_ID_seq"}) {
        SCOPED_TRACE(sequence);
        setSequence(sequence, sequence == std::string("Scenario_ID_seq") ? 32767 : 32766);
        form->setCaption("Other");
        form->DeletedNodes->Clear();
        form->DeletedNodes->Add(77, entities::DeletedLog);
        const std::int16_t member = activity(*form).Act_Functions->Item("F")->Function_Inputs->Item("Z")->SubNode_ID;
        if (sequence == std::string("Function_ID_seq")) {
            setSequence(sequence, 32767);
        }
        save(*form, true, Answer::yes);
        expectRefused();
        EXPECT_EQ(form->ScenarioID, 1);
        EXPECT_EQ(recordSet(*form, "RS1").NodeID, 1);
        EXPECT_EQ(activity(*form).Act_Functions->Item("F")->Function_Inputs->Item("Z")->SubNode_ID, member);
        EXPECT_EQ(form->DeletedNodes->Count(), 1);
        EXPECT_EQ(storedRows(), rows);
        EXPECT_EQ(modelText(*loaded(1)), whole);
        setSequence(sequence, 1000);
    }
    repository::StatementCache open = repository::openRepository(services);
    platform::Statement& scenarios = open.run("SELECT Scenario_Name FROM Scenarios");
    EXPECT_TRUE(scenarios.fetch());
    EXPECT_FALSE(scenarios.fetch()) << "no row of the scenario that could not be written";
}

TEST_F(LastIdentifiersTest, AScenarioThatCannotBeReplacedStays) {
    const long long rows = storedRows();
    const auto replacing = graph("Demo");
    for (const char* sequence : {"Node_ID_seq", "SubNode_ID_seq", "Function_ID_seq"}) {
        SCOPED_TRACE(sequence);
        setSequence(sequence, 32766);
        save(*replacing, false, Answer::yes);
        expectRefused(1);
        EXPECT_EQ(replacing->ScenarioID, 0);
        EXPECT_EQ(storedRows(), rows);
        EXPECT_EQ(modelText(*loaded(1)), whole);
        setSequence(sequence, 1000);
    }
    save(*replacing, false, Answer::yes);
    EXPECT_EQ(user.told.back(), "Saved");
}

TEST_F(LastIdentifiersTest, RowsBeyondTheEndAreRemovedReplacedAndPassedOver) {
    const auto addWide = [&] {
        run("INSERT INTO ScenarioNodes VALUES (1,40000,'wide',5,0,0,1,1)");
        run("INSERT INTO RecordSets VALUES (40000,'wide')");
    };
    run("INSERT INTO Scenarios VALUES ('wide',40000,'anna')");
    repository::ViewScenarios dialog(services, loadSave, windows);
    ASSERT_TRUE(dialog.open(repository::ViewScenarios::Mode::Load, nullptr));
    ASSERT_EQ(dialog.ScenarioView.size(), 1u);
    EXPECT_EQ(dialog.ScenarioView[0].name, "Demo");

    addWide();
    const auto replacing = graph("Demo");
    save(*replacing, true, Answer::yes);
    ASSERT_EQ(user.told.back(), "Saved");
    expectStored(*replacing, whole);

    addWide();
    loadSave.RemoveScenario(1, true);
    EXPECT_EQ(storedRows(), 0);
}

}  // namespace

}  // namespace orvent::testkit
