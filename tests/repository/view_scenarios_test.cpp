#include "repository/view_scenarios.h"

#include "repository/scenario_statements.h"
#include "repository_fixture.h"
#include "testkit/questions.h"

namespace orvent::testkit {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using repository::ViewScenarios;
using Mode = ViewScenarios::Mode;
namespace sql = repository::sql;
using Texts = std::vector<std::string>;

class ViewScenariosTest : public RepositoryTest {
  protected:
    ViewScenariosTest() { database.answer(sql::kScenariosOfUser, {{"one", "11"}, {"two", "12"}}); }

    void open(Mode mode) {
        ASSERT_TRUE(dialog.open(mode, form.get()));
        database.takeLog();
    }
    void expectDeletion(Answer answer) {
        messages.expect("ARE YOU SURE YOU WANT TO DELETE SCENARIO TWO ?", "Deleting Scenario", Icon::question,
                        Buttons::destroyYesNo, answer);
    }

    std::unique_ptr<canvas::DrawForm> form = newForm("Scenario1");
    ViewScenarios dialog{services, loadSave, windows};
};

TEST_F(ViewScenariosTest, ListsTheUsersScenarios) {
    ASSERT_TRUE(dialog.open(Mode::Delete, nullptr));
    EXPECT_EQ(dialog.title + "/" + dialog.OKCaption, "Delete Scenario/DELETE");
    EXPECT_EQ(database.takeLog(), Texts{"SELECT Scenario_Name,Scenario_ID From Scenarios WHERE User_Name=? [ann]"});
    ASSERT_EQ(dialog.ScenarioView.size(), 2u);
    EXPECT_EQ(dialog.ScenarioView[1].Tag, 12);
    dialog.clickItem(1);
    EXPECT_EQ(dialog.txtScenarioName, "two");

    database.refuseOpen = kBroken;
    messages.expect("line is down", "", Icon::critical);
    EXPECT_FALSE(dialog.open(Mode::Load, nullptr));
}

TEST_F(ViewScenariosTest, NothingHappensWithoutANameOrASelection) {
    for (const Mode mode : {Mode::Save, Mode::Load, Mode::Delete}) {
        open(mode);
        dialog.clickItem(0);
        dialog.changeName("");
        EXPECT_FALSE(dialog.OKButton());
    }
    EXPECT_TRUE(database.log.empty() && windows.calls.empty());
}

TEST_F(ViewScenariosTest, ATypedNameSelectsItsScenarioOrNone) {
    for (const Mode mode : {Mode::Load, Mode::Delete}) {
        open(mode);
        EXPECT_EQ(dialog.hint(), "");
        dialog.changeName("two");
        EXPECT_EQ(dialog.selected, 1);
        EXPECT_TRUE(dialog.canOK());
        dialog.changeName("Two");
        EXPECT_EQ(dialog.selected, -1) << "the item chosen before is not what the name says";
        EXPECT_FALSE(dialog.canOK());
        EXPECT_EQ(dialog.hint(), "No such scenario");
    }
    open(Mode::Save);
    dialog.clickItem(0);
    dialog.changeName("new");
    EXPECT_TRUE(dialog.canOK());
    EXPECT_EQ(dialog.hint(), "");
}

TEST_F(ViewScenariosTest, SavesUnderTheNameOrKeepsTheCaption) {
    open(Mode::Save);
    EXPECT_EQ(dialog.txtScenarioName, "Scenario1");
    dialog.changeName("mine");
    std::string behind;  // what is seen behind the boxes of the save
    dialog.show = [&] { behind = dialog.ScenarioView.back().name; };
    database.fail("INSERT", kRefused);
    expectOverwrite(messages, Answer::cancel);
    EXPECT_TRUE(dialog.OKButton());
    EXPECT_EQ(form->Caption(), "Scenario1");
    EXPECT_EQ(behind, "mine");
    messages.verify();

    messages.expect("Saved");
    EXPECT_TRUE(dialog.OKButton());
    EXPECT_EQ(form->Caption(), "mine");
    EXPECT_EQ(std::ranges::count(database.log, "INSERT INTO Scenarios VALUES (?,Scenario_ID_seq.NEXTVAL,?) [mine,ann]"),
              2);
}

TEST_F(ViewScenariosTest, LoadsIntoANewWindow) {
    open(Mode::Load);
    dialog.clickItem(1);
    EXPECT_TRUE(dialog.OKButton());
    EXPECT_TRUE(database.log.empty()) << "no window was opened";

    windows.form = form.get();
    EXPECT_TRUE(dialog.OKButton());
    EXPECT_EQ(database.log, Texts{"SELECT Scenario_Name FROM Scenarios WHERE Scenario_ID =? [12]"});
    EXPECT_EQ(windows.calls, (Texts{"new two", "new two", "disable", "enable", "discard 3"}))
        << "the row is gone, and so the window goes";

    database.answer(sql::kScenarioName, {{"two"}});
    windows.calls.clear();
    EXPECT_TRUE(dialog.OKButton());
    EXPECT_EQ(form->ScenarioID, 12);
    EXPECT_EQ(windows.calls.back(), "enable");
}

TEST_F(ViewScenariosTest, DeletesAfterTheQuestion) {
    open(Mode::Delete);
    dialog.clickItem(1);
    expectDeletion(Answer::no);
    EXPECT_TRUE(dialog.OKButton());
    EXPECT_TRUE(database.log.empty());

    database.fail("DELETE FROM Lines", kBroken);
    expectDeletion(Answer::yes);
    messages.expect("line is down", "", Icon::critical);
    EXPECT_FALSE(dialog.ScenarioViewDelete());
    EXPECT_EQ(dialog.ScenarioView.size(), 2u);
    EXPECT_EQ(windows.calls, Texts{"gone 12"}) << "windows are told before the first row goes";

    expectDeletion(Answer::yes);
    EXPECT_TRUE(dialog.ScenarioViewDelete());
    EXPECT_EQ(database.log.back(), "DELETE FROM Scenarios WHERE Scenario_ID=? [12]");
    EXPECT_EQ(dialog.ScenarioView.size(), 1u);
}

TEST_F(ViewScenariosTest, AReadOnlyRepositoryIsReadAndNothingElse) {
    const std::string words = "This repository can only be read. Nothing was stored.";
    database.readOnly = true;
    messages.expect(words, {}, Icon::critical);
    EXPECT_FALSE(dialog.open(Mode::Save, form.get())) << "nobody is asked for a name";
    form->ScenarioID = 11;
    messages.expect(words, {}, Icon::critical);
    EXPECT_EQ(loadSave.SaveScenario(*form, false), repository::SaveResult::givenUp);
    EXPECT_EQ(form->ScenarioID, 11);

    open(Mode::Delete);
    dialog.clickItem(1);
    expectDeletion(Answer::yes);
    messages.expect(words, {}, Icon::critical);
    EXPECT_FALSE(dialog.ScenarioViewDelete());
    messages.expect(words, {}, Icon::critical);
    dialog.ScenarioViewRename(0, "three");
    messages.expect(words, {}, Icon::critical);
    catalogue.SaveDataType("BLOB");
    for (const std::string& statement : database.takeLog()) {
        EXPECT_TRUE(statement.starts_with("SELECT")) << statement;
    }
}

TEST_F(ViewScenariosTest, RenamesInTheListEvenWhenRefused) {
    open(Mode::Load);
    dialog.ScenarioViewRename(0, "");
    EXPECT_EQ(dialog.ScenarioView[0].name, "one");
    database.fail("UPDATE", kRefused);
    messages.expect("constraint violated", "", Icon::critical);
    dialog.ScenarioViewRename(0, "two");
    EXPECT_EQ(dialog.ScenarioView[0].name, "two");
    EXPECT_EQ(database.log, Texts{"UPDATE Scenarios SET Scenario_Name=? WHERE Scenario_ID=? [two,11]"});
}

}  // namespace orvent::testkit
