#include "editors/record_set_prop.h"

#include "editors/column_text.h"
#include "editors/editor_doubles.h"
#include "editors/take_over.h"
#include "platform/text.h"
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
    messages.expect("The columns of databases bear their own names already.", "", Icon::information);
    dialog.CutFullNames_Click();
    messages.verify();
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

TEST_F(RecordSetPropTest, ColumnsNeedNoDatabase) {
    RecordSetProp dialog = open();
    const auto add = [&](const char* name, int type) {
        dialog.txtColumnName = name;
        dialog.ColumnType = type;
        return dialog.AddColumn_Click();
    };
    messages.expect("PLEASE GIVE A VALID NAME", "", Icon::warning);
    EXPECT_FALSE(add(" ", 0));
    messages.expect("DOTS ARE NOT ALLLOWED IN NAMES", "", Icon::warning);
    EXPECT_FALSE(add("a.b", 0));
    messages.expect("PLEASE SELECT A DATATYPE", "", Icon::warning);
    EXPECT_FALSE(add("TITLE", -1));
    messages.expect("A NODE WITH THE SAME NAME ALLREADY EXISTS!!", "DUPLICATE NAME", Icon::critical);
    EXPECT_FALSE(add("ID", 0));
    ASSERT_TRUE(add("NAME", 1));
    ASSERT_TRUE(add("PRICE", 0));
    EXPECT_EQ(dialog.AttList.Item(3)->SubItems[0], dialog.ColumnTypes[0]);
    EXPECT_EQ(dialog.tempProp->dbKey("NAME"), "");

    EXPECT_TRUE(dialog.AfterLabelEdit(2, "TITLE"));
    EXPECT_EQ(dialog.AttList.positionOf("TITLE"), 3) << "the row is known by its name";
    for (const bool restored : {true, false}) {
        restored ? dialog.RestoreFullNames_Click() : dialog.CutFullNames_Click();
        EXPECT_EQ(dialog.AttList.Item("SHOP.BOOKS.ID")->Text, restored ? "BOOKS_ID" : "ID");
        EXPECT_TRUE(dialog.AttList.Item("TITLE") && dialog.AttList.Item("PRICE"));
    }
    messages.expect("The SELECT leaves out what comes from no database: PRICE, TITLE.", "", Icon::information);
    dialog.SQLAuto_Click();
    EXPECT_EQ(dialog.txtSQL, " SELECT BOOKS.ID AS ID FROM BOOKS;");
    dialog.AttList.select(dialog.AttList.positionOf("SHOP.BOOKS.ID"));
    dialog.Move2Tree_Click();
    messages.expect("The SELECT leaves out what comes from no database: PRICE, TITLE.", "", Icon::information);
    dialog.SQLAuto_Click();
    EXPECT_EQ(dialog.txtSQL, " SELECT BOOKS.ID AS ID FROM BOOKS;") << "with none left it stays";
    EXPECT_TRUE(dialog.OK());
}

TEST_F(RecordSetPropTest, AColumnIsBoundToItsTableLater) {
    RecordSetProperties& books = *form->nodeNamed("Books")->recordSet();
    books.RecordSet_Outputs->Add("TITLE", 1, "TITLE").SubNode_ID = 8;
    testkit::GraphBuilder graph(*form);
    graph.activity("Reader", {"TITLE"});
    graph.feed("Books.TITLE", "Reader.IN.TITLE");
    {
        RecordSetProp dialog = open();
        dialog.LoadDatabase(shop, all);
        click(dialog, "SHOP.BOOKS.TITLE");
        EXPECT_EQ(dialog.DBView.find("SHOP.BOOKS")->value().Image, "Table-Checked");
        EXPECT_EQ(dialog.AttList.Count(), 2);
        EXPECT_EQ(dialog.AttList.Item(2)->Key, "SHOP.BOOKS.TITLE");
        EXPECT_TRUE(dialog.OK());
    }
    const RecordSetProperties& bound = *form->nodeNamed("Books")->recordSet();
    EXPECT_EQ(bound.dbKey("TITLE"), "SHOP.BOOKS.TITLE");
    EXPECT_EQ(bound.RecordSet_Outputs.peek()->Item("TITLE")->SubNode_ID, 0) << "it is stored anew";
    ASSERT_EQ(form->DeletedNodes->Count(), 1);
    EXPECT_EQ((*form->DeletedNodes->begin()).NodeID, 8);
    EXPECT_EQ(bound.RecordSet_Outputs.peek()->Item("TITLE")->ProviderFor.count(), 1);
}

TEST_F(RecordSetPropTest, ColumnsAreTakenOver) {
    testkit::GraphBuilder graph(*form);
    graph.activity("Maker", {}, {"ID", "SUM"});
    graph.recordSet("Other", {"X"});
    graph.recordSet("Empty");
    graph.edge("Maker", "Books");
    graph.activity("Talker", {}, {"Talker.SAID"});
    form->Lines.addFullLine(form->NamesColl.Item("Talker"), 1, form->NamesColl.Item("Books"), 1,
                            canvas::EdgeTypeDescription, canvas::AngleStraight, 0);
    RecordSetProp dialog = open();
    const auto rows = [](const TakeOverForm& shown) {
        std::string words;
        for (const TakeOverRow& row : shown.Rows) {
            words += row.name + ":" + row.type + (row.checked ? "" : "-" + row.why) + " ";
        }
        return words;
    };
    const std::string first = catalogue.tables.dataTypes.name(0);
    dialogs.add<TakeOverForm>([&](TakeOverForm& shown) {
        EXPECT_EQ(shown.Sources, (std::vector<std::string>{"Maker", "Other", "Talker", "Lines of text"}));
        shown.Source_Click(2);
        EXPECT_EQ(rows(shown), "SAID:" + first + " ");
        shown.Source_Click(0);
        EXPECT_EQ(rows(shown), "ID:" + first + "-is there already SUM:" + first + " ");
        shown.Row_Check(0, true);
        EXPECT_FALSE(shown.Rows[0].checked);
        shown.Row_Check(1, false);
        EXPECT_FALSE(shown.mayTake());
        shown.Source_Click(3);
        shown.Pasted_Change("ID " + first + "\nA " + platform::lowerCase(first) +
                            "\nB blob\nC blob\nA x\nD\n\"e.f\" y\nID x\nA " + first);
        EXPECT_EQ(rows(shown), "ID:" + first + "-is there already A:" + platform::lowerCase(first) +
                                   " B:blob C:blob A:x-stands there twice, as " + platform::lowerCase(first) +
                                   " D:-no type e.f:y-a name with a dot ID:x-is there already, as " + first +
                                   " A:" + first + "-stands there twice ");
        EXPECT_TRUE(shown.OK());
    });
    messages.expect("*", "DATA TYPE NOT RPOPERLY SET", Icon::question, Buttons::okCancel, Answer::cancel);
    dialog.TakeOver_Click();
    messages.verify();
    EXPECT_EQ(dialog.AttList.Count(), 4);
    EXPECT_EQ(dialog.tempProp->RecordSet_Outputs->Item("A")->Attribute_Type, 0);
    dialogs.add<TakeOverForm>([&](TakeOverForm& shown) { shown.Row_Check(1, true); });
    dialog.TakeOver_Click();
    EXPECT_EQ(dialog.AttList.Count(), 4) << "cancelled";
}

TEST(ColumnText, ReadsWhatPeopleHave) {
    using Columns = std::vector<ColumnText>;
    struct Row {
        const char* text;
        Columns columns;
    };
    for (const Row& row : {
             Row{"", {}},
             Row{"A NUMBER\n\n  B\tvarchar2( 20 BYTE ) not null,\r\n-- C\nD",
                 {{"A", "NUMBER"}, {"B", "varchar2(20 BYTE)"}, {"D", ""}}},
             Row{"A NUMBER--key\nB -- CHAR", {{"A", "NUMBER"}, {"B", ""}}},
             Row{"A, DATE\nB: NUMBER(10, 2);\n* nothing", {{"A", "DATE"}, {"B", "NUMBER(10,2)"}}},
             Row{"A TIMESTAMP(6) WITH TIME ZONE DEFAULT now()\n`my name` DOUBLE PRECISION",
                 {{"A", "TIMESTAMP(6) WITH TIME ZONE"}, {"my name", "DOUBLE PRECISION"}}},
             Row{"DROP TABLE x; create  table shop.\"Books\" (\n \"order\" INT PRIMARY KEY, /* a, b */ [Unit Price] "
                 "DECIMAL(8,2) DEFAULT (1 + (2)) CHECK (x > ','),\nunique (a, b), CONSTRAINT k FOREIGN KEY (a) "
                 "REFERENCES "
                 "t (b),\n  note TEXT COMMENT '(', last DATE\n) ENGINE=x; CREATE TABLE second (z INT)",
                 {{"order", "INT"}, {"Unit Price", "DECIMAL(8,2)"}, {"note", "TEXT"}, {"last", "DATE"}}},
             Row{"CREATE TABLE t (a NUMBER(3), b CHAR(", {{"a", "NUMBER(3)"}, {"b", "CHAR("}}},
             Row{"\xC3\xA4 INT\n\"open", {{"\xC3\xA4", "INT"}, {"open", ""}}},
             Row{"CREATE TABLE t (\"unique\" INT, A$B#C \"not\" NOT NULL, `d` DATE AS (x), E INT)",
                 {{"unique", "INT"}, {"A$B#C", "not"}, {"d", "DATE"}, {"E", "INT"}}},
             Row{"create view v;\nTABLE x (a)", {{"create", "view v"}, {"TABLE", "x(a)"}}},
         }) {
        EXPECT_EQ(readColumns(row.text), row.columns) << row.text;
    }
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
