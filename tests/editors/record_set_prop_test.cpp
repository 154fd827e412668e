#include "editors/record_set_prop.h"

#include "editors/editor_doubles.h"
#include "repository/source_schema.h"
#include "testkit/graph_builder.h"
#include "testkit/model_text.h"

namespace orvent::editors {
namespace {

using namespace entities;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

class RecordSetPropTest : public EntityDialogTest {
  protected:
    RecordSetPropTest() {
        database.answer("SELECT table_name FROM all_tables WHERE owner=?", {{"BOOKS"}, {"SHOPS"}});
        database.answer(kColumns, {{"ID", "INTEGER"}, {"TITLE", "STRING"}});
        database.answer(kColumns, {{"ID", "INTEGER"}, {"TITLE", "STRING"}});
        testkit::GraphBuilder graph(*form);
        RecordSetProperties& books = graph.recordSet("Books", {"ID"});
        books.RecordSet_Name = "Books";
        books.addDbKey("ID", "SHOP.BOOKS.ID");
        books.RecordSet_Outputs->Item("ID")->SubNode_ID = 7;
        graph.activity("Act", {"ID"});
        graph.feed("Books.ID", "Act.IN.ID");
    }

    RecordSetProp open() { return RecordSetProp(needs(), *form, *form->nodeNamed("Books")); }
    static void click(RecordSetProp& dialog, const std::string& key) { dialog.NodeClick({dialog.DBView.find(key)}); }
    static bool all(std::size_t, std::size_t) { return true; }

    static constexpr const char* kColumns =
        "SELECT column_name,data_type FROM all_tab_columns WHERE owner=? AND table_name=?";
    const repository::SourceDatabase shop{"shop", "scott", "tiger"};
};

TEST_F(RecordSetPropTest, ALoadedDatabaseShowsWhatTheListHas) {
    RecordSetProp dialog = open();
    dialog.LoadDatabase(shop, all);
    EXPECT_EQ(dialog.DBView.find("SHOP.BOOKS")->value().Image, "Table-UnderChecked");
    EXPECT_EQ(dialog.DBView.find("SHOP.BOOKS.ID")->value().Image, "Field-Checked");
    EXPECT_EQ(dialog.DBView.find("SHOP.BOOKS.TITLE")->value().Tag, 1);
    messages.expect("This Database Is Allready Loaded");
    dialog.LoadDatabase(shop, all);
    EXPECT_EQ(dialog.DBView.roots().size(), 1U);

    click(dialog, "SHOP.BOOKS");
    EXPECT_EQ(dialog.DBView.find("SHOP.BOOKS")->value().Image, "Table-Checked");
    messages.expect("A NODE WITH THE SAME NAME ALLREADY EXISTS!!", "DUPLICATE NAME", Icon::critical);
    click(dialog, "SHOP.SHOPS.ID");
    messages.verify();
    for (const bool drop : {false, true}) {
        messages.expect("A NODE WITH THE SAME NAME ALLREADY EXISTS!!", "DUPLICATE NAME", Icon::critical);
        drop ? dialog.Drop({"SHOP.SHOPS.ID", "SHOP.SHOPS.TITLE"}, 1) : click(dialog, "SHOP.SHOPS");
        messages.verify();
    }
    EXPECT_EQ(dialog.AttList.Count(), 2) << "one column name of two tables";
    EXPECT_EQ(dialog.tempProp->dbKey("TITLE"), "SHOP.BOOKS.TITLE");

    dialog.SQLAuto_Click();
    EXPECT_EQ(dialog.tempProp->RecordSet_SQL, " SELECT BOOKS.ID AS ID, BOOKS.TITLE AS TITLE FROM BOOKS;");
    EXPECT_TRUE(dialog.SQLOption);
    for (const bool restored : {true, false}) {
        restored ? dialog.RestoreFullNames_Click() : dialog.CutFullNames_Click();
        EXPECT_EQ(dialog.AttList.Item(2)->Text, restored ? "BOOKS_TITLE" : "TITLE");
        EXPECT_TRUE(dialog.tempProp->RecordSet_Outputs->Item(restored ? "BOOKS_TITLE" : "TITLE"));
    }
    for (const Answer answer : {Answer::cancel, Answer::ok}) {
        messages.expect("Are You Sure You Want To Unload Database SHOP?", "", Icon::question, Buttons::okCancel,
                        answer);
        dialog.UnLoadDB_Click(*dialog.DBView.find("SHOP"));
        EXPECT_EQ(dialog.DBView.roots().empty(), answer == Answer::ok);
    }
}

TEST_F(RecordSetPropTest, AFailedLoadSaysHowFarItCame) {
    RecordSetProp dialog = open();
    database.refuseOpen = testkit::kBroken;
    messages.expect(testkit::kBroken.description(), "", Icon::critical);
    dialog.LoadDatabase(shop, all);
    EXPECT_TRUE(dialog.DBView.roots().empty());
    EXPECT_TRUE(dialog.LoadDB_Click()) << "nothing is loaded, so nothing is asked";

    database.refuseOpen.reset();
    database.fail(kColumns, testkit::kBroken, 2);
    messages.expect(testkit::kBroken.description() + "\nOnly 1 of 2 tables of SHOP were loaded, and a part of SHOPS.",
                    "", Icon::critical);
    dialog.LoadDatabase(shop, all);
    EXPECT_TRUE(dialog.DBView.find("SHOP.BOOKS.TITLE"));
    EXPECT_FALSE(dialog.DBView.find("SHOP.SHOPS.ID"));
    for (const Answer answer : {Answer::cancel, Answer::no, Answer::yes}) {
        messages.expect("Do You Want To UnLoad The Current Database(s)?", "Load New DataBase", Icon::question,
                        Buttons::yesNoCancel, answer);
        EXPECT_EQ(dialog.LoadDB_Click(), answer != Answer::cancel);
        EXPECT_EQ(dialog.DBView.roots().empty(), answer == Answer::yes);
    }
    dialogs.add<repository::frmDBLogin>([](auto&) {});
    dialog.LoadDB(all);
    EXPECT_TRUE(dialog.LoadDB_Click()) << "all were unloaded, and the login was cancelled";
    database.answer("SELECT table_name FROM all_tables WHERE owner=?", {});
    dialog.LoadDatabase(shop, all);
    EXPECT_TRUE(dialog.DBView.find("SHOP.SHOPS.ID")) << "the second try is whole";
    messages.expect("CLOSED shows no tables of ANN.", "", Icon::critical);
    dialog.LoadDatabase({"closed", "ann", ""}, all);
}

TEST_F(RecordSetPropTest, AnUnknownTypeIsAskedAboutOnceInEachLoad) {
    testkit::ScriptedDatabase odd;
    odd.answer("SELECT table_name FROM all_tables WHERE owner=?", {{"BOOKS"}, {"SHOPS"}});
    odd.answer(kColumns, {{"COVER", "blob"}});
    repository::Services others{odd, sources, messages, inputBox, files, store, progress, settings};
    RecordSetProp dialog({others, catalogue, wizard, folder, saveDialog, nodes, dialogs}, *form,
                         *form->nodeNamed("Books"));
    for (const char* name : {"one", "two"}) {
        messages.expect("*", "DATA TYPE NOT RPOPERLY SET", Icon::question, Buttons::okCancel, Answer::cancel);
        dialog.LoadDatabase({name, "scott", "tiger"}, all);
        messages.verify();
    }
}

TEST_F(RecordSetPropTest, CancelLeavesTheScenarioEqual) {
    const std::string before = testkit::modelText(*form);
    {
        RecordSetProp dialog = open();
        EXPECT_TRUE(dialog.mayDismiss()) << "nothing was changed, so nothing is asked";
        EXPECT_EQ(dialog.AttList.Item(1)->Tip, "From SHOP.BOOKS.ID\nTo Act.IN.ID");
        dialog.AttList.select(1);
        dialog.AfterLabelEdit(1, "KEY");
        dialog.Move2Tree_Click();
        EXPECT_EQ(form->DeletedNodes->Count(), 1);
        EXPECT_TRUE(dialog.mayClose());
        for (const platform::Answer answer : {platform::Answer::cancel, platform::Answer::ok}) {
            messages.expect("The changes of this record set have not been applied.", "Record Set Properties",
                            platform::Icon::warning, platform::Buttons::discardGoOn, answer);
            EXPECT_EQ(dialog.mayDismiss(), answer == platform::Answer::ok);
        }
    }
    EXPECT_EQ(testkit::modelText(*form), before);
    EXPECT_EQ(form->DeletedNodes->Count(), 0);
    EXPECT_TRUE(form->Enabled());
}

TEST_F(RecordSetPropTest, OKCarriesNamesDownstream) {
    {
        RecordSetProp dialog = open();
        EXPECT_FALSE(dialog.AfterLabelEdit(1, ""));
        EXPECT_TRUE(dialog.AfterLabelEdit(1, "KEY"));
        EXPECT_TRUE(dialog.AfterLabelEdit(1, "BOOK_ID"));
        dialog.txtRecordSetName_Change("Titles");
        EXPECT_TRUE(dialog.OK());
    }
    const RecordSetProperties& record = *form->nodeNamed("Titles")->recordSet();
    EXPECT_EQ(record.dbKey("BOOK_ID"), "SHOP.BOOKS.ID");
    const AttributeProperties* input = form->nodeNamed("Act")->activity()->Act_Inputs.peek()->Item("BOOK_ID");
    ASSERT_TRUE(input) << "the reading input follows";
    EXPECT_TRUE(input->ProvidedFrom.peek()->Item("Titles.BOOK_ID"));
}

TEST_F(RecordSetPropTest, OKIsRefusedInOrder) {
    RecordSetProp dialog = open();
    dialog.txtRecordSetName_Change("a.b");
    messages.expect("DOTS ARE NOT ALLLOWED IN NAMES", "", Icon::warning);
    EXPECT_FALSE(dialog.OK());
    dialog.MoveAll2Tree_Click();
    messages.expect("PLEASE SET THE RECORDSET'S DATA", "", Icon::warning);
    EXPECT_FALSE(dialog.OK());
    for (const char* name : {"", "  "}) {
        dialog.txtRecordSetName_Change(name);
        messages.expect("PLEASE GIVE A VALID NAME", "", Icon::warning);
        EXPECT_FALSE(dialog.OK());
    }
}

}  // namespace
}  // namespace orvent::editors
