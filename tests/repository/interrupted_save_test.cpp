// Saves that break off at each of their statements in turn, and what is left behind by one that is given up.

#include "repository/stored_content.h"
#include "stored_scenario_fixture.h"

namespace orvent::testkit {

namespace {

using Side = HookedDatabase::Side;
using InterruptedSaveTest = StoredScenarioTest;

struct Way {
    const char* name;
    bool storedBefore, SaveAs;
    Answer toTheFault = Answer::cancel;
    Side side = Side::before;  ///< of the statement; behind it only its reply is lost
    bool edited = true;        ///< something was drawn since the scenario was stored
};

class SaveBreaksOff : public StoredScenarioTest, public ::testing::WithParamInterface<Way> {};

// At each statement in turn; then the user saves once more.
TEST_P(SaveBreaksOff, AndNothingIsLostOrLeft) {
    const auto& [name, storedBefore, SaveAs, toTheFault, side, edited] = GetParam();
    for (int at = 1;; ++at) {
        SCOPED_TRACE("broken off at statement " + std::to_string(at));
        auto form = graph("Demo" + std::to_string(at));
        const std::string before = modelText(*form);
        if (storedBefore) {
            save(*form, true, Answer::cancel);
        }
        if (storedBefore && edited) {
            GraphBuilder(*form).recordSet("RS3", {"B"}).Changed = true;
            auto& parameter = activity(*form).Act_Parameters->Add("Q", 1, entities::TagTypeParameter, "Q");
            parameter.ParentKeyName = "Act1";
            parameter.NodeKind = entities::KindParameter;
            recordSet(*form, "RS2").RecordSet_Outputs->move(1, 2);
            addFunction(*form, "N", 1);
        }
        const std::string expected = modelText(*form);
        const std::int16_t first = form->ScenarioID;
        if (SaveAs) {
            form->setCaption("Other" + std::to_string(at));
        }
        repository.hooked.after(
            at, [] { throw kBroken; }, side);
        save(*form, SaveAs, toTheFault);
        if (!repository.hooked.happened()) {
            repository.hooked.after(0, [] {});
            EXPECT_GT(at, 10);
            break;
        }
        const bool whole = form->ScenarioID != 0 && linesOf(modelText(*loaded(form->ScenarioID))) == linesOf(expected);
        EXPECT_TRUE(whole || repository::isUnsaved(*form)) << "what is stored is not what is shown";
        if (user.told.back() != "Saved") {
            save(*form, SaveAs || form->ScenarioID == 0, Answer::yes);
        }
        expectStoredInAnyOrder(*form, expected);
        if (SaveAs) {
            ASSERT_NE(form->ScenarioID, first);
            EXPECT_EQ(modelText(*loaded(first)), before) << "the scenario that the window showed first";
        }
        loadSave.RemoveScenario(SaveAs ? first : std::int16_t{0}, true);
        const long long rows = storedRows();
        loadSave.RemoveScenario(form->ScenarioID, true);
        save(*form, true, Answer::cancel);
        EXPECT_EQ(rows, storedRows()) << "rows that nobody knows";
        loadSave.RemoveScenario(form->ScenarioID, true);
        EXPECT_EQ(storedRows(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, SaveBreaksOff,
                         ::testing::Values(Way{"First", false, false}, Way{"Plain", true, false}, Way{"As", true, true},
                                           Way{"AndReplacesAtOnce", true, false, Answer::yes},
                                           Way{"FirstLosesAReply", false, false, Answer::cancel, Side::behind},
                                           Way{"PlainLosesAReply", true, false, Answer::cancel, Side::behind},
                                           Way{"AsLosesAReply", true, true, Answer::cancel, Side::behind},
                                           Way{"Unchanged", true, false, Answer::cancel, Side::before, false}),
                         [](const auto& way) { return std::string(way.param.name); });

TEST_F(InterruptedSaveTest, AnOnlyNodeThatIsMadeNewIsStillTheWindowsOwn) {
    const auto form = newForm("One");
    GraphBuilder(*form).recordSet("RS1", {"A"});
    save(*form, true, Answer::cancel);
    recordSet(*form, "RS1").RecordSet_Outputs->Add("B", 0, "B").NodeKind = entities::KindRecordSetAttribute;
    recordSet(*form, "RS1").RecordSet_Outputs->Item("B")->ParentKeyName = "RS1";
    repository.hooked.after(
        1, [] { throw kBroken; }, Side::behind, "INSERT INTO RecordSetOutputs");
    save(*form, false, Answer::cancel);
    EXPECT_EQ(recordSet(*form, "RS1").NodeID, 0);
    save(*form, false, Answer::cancel);
    EXPECT_EQ(form->ScenarioID, 1) << "none of its nodes is left, but nobody has replaced it";
    expectStored(*form, modelText(*form));
    EXPECT_EQ(storedRows(), 4);
}

TEST_F(InterruptedSaveTest, TheScenariosOwnRowIsNoOtherScenario) {
    const std::pair<int, Side> losses[] = {{1, Side::behind}, {2, Side::before}};
    for (const auto& [at, side] : losses) {
        const auto form = graph("Mine" + std::to_string(at));
        repository.hooked.after(
            at, [] { throw kBroken; }, side);
        save(*form, true, Answer::cancel);
        EXPECT_EQ(form->ScenarioID, 0);
        save(*form, true, Answer::cancel);
        EXPECT_EQ(user.told, std::vector<std::string>{"Saved"}) << "asked whether to replace itself";
    }
    const auto other = graph("Mine1");
    save(*other, true, Answer::cancel);
    EXPECT_EQ(user.told.size(), 1u);
    EXPECT_EQ(other->ScenarioID, 0) << "that name is taken by now";
}

TEST_F(InterruptedSaveTest, AFullWriteThatIsGivenUpBelongsToNoScenario) {
    const auto form = savedGraph();
    const std::string whole = modelText(*form);
    form->DeletedNodes->Add(3, entities::DeletedRecordSet);
    form->KeptCaption = "Demo";
    form->setCaption("Other");
    repository.hooked.after(20, [] { throw kBroken; });
    save(*form, true, Answer::cancel);
    EXPECT_EQ(form->Caption(), "Demo");
    EXPECT_EQ(form->ScenarioID, 0) << "the next save would go into the part under the other name";
    EXPECT_EQ(recordSet(*form, "RS1").NodeID, 0);
    EXPECT_EQ(form->DeletedNodes->Count(), 0);
    EXPECT_TRUE(repository::isUnsaved(*form));
    EXPECT_EQ(modelText(*loaded(1)), whole);
}

}  // namespace

}  // namespace orvent::testkit
