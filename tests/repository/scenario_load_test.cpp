#include "repository/catalogue_statements.h"
#include "repository/scenario_statements.h"
#include "repository_fixture.h"

namespace orvent::testkit {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
namespace sql = repository::sql;

class ScenarioLoadTest : public RepositoryTest {
  protected:
    ScenarioLoadTest() {
        const auto null = std::nullopt;
        database.answer(sql::kFunctionTypes, {{"[EMPTY]"}, {"SK"}});
        database.answer(sql::kActivityTypes, {{"Filter", null, null}, {"Join", null, null}});
        database.answer(sql::kScenarioName, {{"Demo"}});
        database.answer(sql::kNodes, {{"101", "RS1", "5", "100", "200", "1050", "450"},
                                      {"102", "Act1", "8", "2000.5", "200", "1050", "450"},
                                      {"103", "Comment0", "10", "0", "0", "1500", "750"},
                                      {"104", "LOG3", "9", "0", "900", "1050", "450"},
                                      {"105", "RS2", "5", "0", "2000", "1050", "450"}});
        database.answer(sql::kLines, {{"RS1", "3", "Act1", "1", "0", "3"}, {"Act1", "4", "Gone", "1", "0", "3"}});
        database.answer(sql::kCommentText, {{"words"}});
        database.answer(sql::kActivity, {{"descr", "Join", null, null, "ldl", "2"}});
        database.answer(sql::kActivitySubNodes, {{"1002", "A", "1", "A", "INTEGER", "1"},
                                                 {"1003", "O", "2", "O", "STRING", "3"},
                                                 {"1004", "P", "3", "P", "STRING", "8"},
                                                 {"1009", "O", "2", "twice", "STRING", "3"}});
        database.answer(sql::kLinksByKind, {{"2", "RS2.A", "1", "RS2"}, {"2", "RS1.A", "1", "RS1"}});
        database.answer(sql::kLinksByKind, {{"2", ".IN.A", "3", "Act1"},
                                            {"1", ".PARAM.P", "10", "Act1"},
                                            {"3", "Act2.IN.O", "2", "Act2"},
                                            {"4", "odd", "1", "odd"}});
        database.answer(sql::kActivityFunctions, {{"501", "F", "5", "SK"}});
        database.answer(sql::kFunctionSubNodes,
                        {{"1005", "X", "6", "X", "INTEGER"}, {"1006", "Y", "5", "Y", "INTEGER"}});
        database.answer(sql::kRecordSet, {{"select 1"}});
        database.answer(sql::kRecordSet, {{null}});
        database.answer(sql::kRecordSetOutputs, {{"1001", "A", "db.t.A", "INTEGER"}});
        database.answer(sql::kRecordSetOutputs, {});
        // Attribute A of RS1, parameter P and function input X in turn.
        database.answer(sql::kLinks, {{"Act1.IN.A", "1", "Act1"}});
        database.answer(sql::kLinks, {{".IN.A", "3", "Act1"}});
        database.answer(sql::kLinks, {{".IN.A", "13", "Act1"}});
    }

    bool load() { return loadSave.LoadScenario(*form, 11); }

    std::unique_ptr<canvas::DrawForm> form = newForm("");
};

TEST_F(ScenarioLoadTest, RebuildsNodesEntitiesAndLines) {
    ASSERT_TRUE(load());
    EXPECT_EQ(form->ScenarioID, 11);
    EXPECT_EQ(form->Caption(), "Demo");
    EXPECT_EQ(windows.calls, (std::vector<std::string>{"disable", "enable"}));
    EXPECT_EQ(form->Labels.Count(), 5);
    EXPECT_EQ(form->Lines.Count(), 1) << "a line to nowhere is not drawn";

    const canvas::LabelsD& node = *form->nodeNamed("Act1");
    EXPECT_EQ(node.Left(), 2000.5F);
    EXPECT_TRUE(node.Ready());
    entities::ActivityProperties& activity = *node.activity();
    EXPECT_EQ(activity.NodeID + activity.Act_Type, 103);
    EXPECT_EQ(activity.Act_Description + activity.Act_SQL + activity.Act_LDL, "descrldl");
    EXPECT_EQ(activity.Act_SchemaNo, 2);
    EXPECT_FALSE(activity.Changed);
    EXPECT_TRUE(activity.Act_Inputs->Changed);
    ASSERT_EQ(activity.Act_Outputs.count(), 1) << "the second row of a key is skipped";
    const entities::AttributeProperties& output = *activity.Act_Outputs->Item("O");
    EXPECT_EQ(output.SubNode_ID, 1003);
    EXPECT_EQ(output.Attribute_Type * 10 + output.Tag, 13);
    EXPECT_EQ(output.ProviderFor.peek()->Item("Act2.IN.O")->Provider_Type, 2);

    const entities::FunctionProperties& function = *activity.Act_Functions->Item("F");
    EXPECT_EQ(function.Function_Name + function.ParentKeyName(), "FAct1");
    EXPECT_EQ(function.Function_Source * 10 + function.Function_Type, 51);
    EXPECT_EQ(function.Function_Inputs.peek()->Item("X")->ParentFunctionActivity, "Act1");
    entities::AttributeProperties& source = *activity.Act_Inputs->Item("A");
    EXPECT_EQ(source.ProvidedFrom->Item(1)->Provider_Name, "RS2") << "the order of sources is kept";
    EXPECT_TRUE(source.ProviderFor->Item(".OUT.O")) << "the mirror of a stored link";

    const canvas::LabelsD& recordSet = *form->nodeNamed("RS1");
    EXPECT_EQ(recordSet.recordSet()->RecordSet_SQL + recordSet.recordSet()->dbKey("A"), "select 1db.t.A");
    EXPECT_TRUE(recordSet.Ready());
    EXPECT_FALSE(form->nodeNamed("RS2")->Ready()) << "it has no attribute";
    EXPECT_EQ(form->nodeNamed("Comment0")->Comment(), "words");
    EXPECT_EQ(std::get<std::int16_t>(form->nodeNamed("LOG3")->Properties), 104);
}

TEST_F(ScenarioLoadTest, AnswersWhileNoQueryIsOpen) {
    // Only INTEGER is known: the catalogue's question adds STRING once, and both rows of it find it.
    catalogue.tables.dataTypes.clear();
    catalogue.tables.dataTypes.add("INTEGER");
    database.answer(sql::kDataTypes, {{"INTEGER"}, {"STRING"}});
    messages.expect(
        "The Data Type STRING  Does Not Exist Among The Defined Data Types\nWould You Like It To Be Added To The "
        "Existing Data Types?\n\n(if you choose CANCEL ,the object's datatype will be reset toINTEGER)",
        "DATA TYPE NOT RPOPERLY SET", Icon::question, Buttons::okCancel, Answer::ok);
    messages.expect("DATA TYPE SAVED", "", Icon::information);
    ASSERT_TRUE(load());
    EXPECT_EQ(form->nodeNamed("Act1")->activity()->Act_Parameters->Item("P")->Parameter_Type, 1);
}

TEST_F(ScenarioLoadTest, PartOfAScenarioIsNotTakenForTheWhole) {
    database.fail("SELECT From_Label", kBroken);
    messages.expect("line is down", "", Icon::critical);
    EXPECT_TRUE(load());
    EXPECT_EQ(form->Labels.Count(), 5);
    EXPECT_EQ(form->ScenarioID, 0);
    EXPECT_EQ(windows.calls.back(), "enable");
}

}  // namespace orvent::testkit
