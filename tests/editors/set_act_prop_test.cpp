#include "editors/set_act_prop.h"

#include <random>
#include <set>

#include "../statements/wizard_fixture.h"
#include "editors/editor_doubles.h"
#include "links/synchronize_functions.h"
#include "repository/catalogue_statements.h"
#include "testkit/graph_builder.h"
#include "testkit/model_text.h"

namespace orvent::editors {
namespace {

using namespace entities;
using forms::RowMove;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

class SetActPropTest : public EntityDialogTest {
  protected:
    SetActPropTest() {
        namespace sql = repository::sql;
        database.answer(sql::kActivityTypes, {{"Filter", "", ""}, {"Join", "", ""}});
        database.answer(sql::kFunctionTypes, {{"[EMPTY]"}, {"SK"}});
        database.answer(sql::kDataTypes, {{"INTEGER"}, {"STRING"}, {kDefinedBySource}});
        testkit::GraphBuilder graph(*form);
        graph.recordSet("RS", {"ID", "NAME", "PRICE"}).RecordSet_Outputs->Item("NAME")->Attribute_Type = 1;
        graph.activity("Before", {"A"}, {"B"});
        graph.activity("Act", {"RS_ID", "Old"}, {"RS_ID", "Act.Made"});
        graph.activity("After", {"Act.Made"});
        graph.feed("RS.ID", "Act.IN.RS_ID");
        graph.feed("Act.OUT.Act.Made", "After.IN.Act.Made");
        graph.pass("Act", "RS_ID", "RS_ID");
        ActivityProperties& act = activity();
        act.Act_Name = "Act";
        std::int16_t id = 100;
        for (AttributeProperties& input : act.Act_Inputs) {
            input.SubNode_ID = ++id;
        }
        act.Act_Outputs->Item("RS_ID")->Tag = TagRecordSetMirror;
        act.Act_Outputs->Item("Act.Made")->Tag = TagTypeOutput;
        graph.node("C1", canvas::NodeTypeConstant);
        graph.node("F1", canvas::NodeTypeFunction);
    }

    ActivityProperties& activity() { return *form->nodeNamed("Act")->activity(); }
    std::unique_ptr<SetActProp> open(const char* node = "Act", statements::ActivityWizard* otherWizard = nullptr,
                                     platform::SaveDialog* chooser = nullptr) {
        return std::make_unique<SetActProp>(needs(otherWizard, chooser), *form, *form->nodeNamed(node));
    }
    static void click(SetActProp& dialog, const std::vector<std::string>& keys) {
        std::vector<forms::Tree::Node*> nodes;
        for (const std::string& key : keys) {
            nodes.push_back((key.starts_with("DB") ? dialog.DBView : dialog.ActView).find(key));
            ASSERT_TRUE(nodes.back()) << key;
        }
        dialog.NodeClick(nodes);
    }
    static void click(SetActProp& dialog, const std::string& key) { click(dialog, std::vector{key}); }
    static std::string image(const SetActProp& dialog, const std::string& key) {
        return (key.starts_with("DB") ? dialog.DBView : dialog.ActView).find(key)->value().Image;
    }
    static std::string keys(const forms::List& list) {
        std::string text;
        for (int row = 1; row <= list.Count(); ++row) {
            text += (row > 1 ? " " : "") + list.Item(row)->Key;
        }
        return text;
    }
    void answerClosing(Answer answer) {
        messages.expect("THE ACTIVITY'S PROPERTIES HAVE NOT BEEN SAVED.\nDO YOU WANT TO SAVE BEFORE EXIT?", "",
                        Icon::question, Buttons::yesNoCancel, answer);
    }
};

TEST_F(SetActPropTest, OpensWithMarkedTreesAndBlocksItsWindow) {
    const auto dialog = open();
    EXPECT_TRUE(dialog->Saved);
    EXPECT_FALSE(form->Enabled());
    EXPECT_FALSE(form->nodeNamed("Act")->Ready());
    EXPECT_EQ(keys(dialog->AttList[kInputs]), "RS_ID Old");
    EXPECT_EQ(dialog->AttList[kInputs].Item(1)->SubItems[1], "RS");
    EXPECT_EQ(dialog->AttList[kInputs].Item(1)->SubItems[2], "RecordSet");
    EXPECT_EQ(image(*dialog, "DB.RS.ID"), "Field-Checked");
    EXPECT_EQ(dialog->DBView.find("DB.RS.ID")->value().ForeColor, kListColours[kInputs]);
    EXPECT_EQ(image(*dialog, "DB.RS"), "RS-UnderChecked");
    EXPECT_EQ(dialog->ActView.find("GRAPH.Act"), nullptr) << "the activity is no source of its own";
    EXPECT_EQ(dialog->txtRejected, "/data/Act.log");
    dialog->end();
    EXPECT_TRUE(form->Enabled());
    EXPECT_TRUE(form->nodeNamed("Act")->Ready());
}

TEST_F(SetActPropTest, ACatalogueThatCannotBeReadLeavesTheWindowAlone) {
    repository::Catalogue unreadable{services, [] {}, [] { return true; }};
    database.fail(repository::sql::kDataTypes, testkit::kBroken);
    EXPECT_THROW(SetActProp(EditorServices{services, unreadable, wizard, folder, saveDialog, nodes, dialogs}, *form,
                            *form->nodeNamed("Act")),
                 platform::Fault);
    EXPECT_TRUE(form->Enabled());
}

TEST_F(SetActPropTest, AnInputBringsItsMirrorAndTakesItAway) {
    const auto dialog = open();
    dialog->frontList().select(1);
    click(*dialog, "DB.RS.NAME");
    EXPECT_FALSE(dialog->Saved);
    EXPECT_EQ(keys(dialog->AttList[kInputs]), "RS_NAME RS_ID Old");
    EXPECT_EQ(keys(dialog->AttList[kOutputs]), "RS_ID Act.Made RS_NAME");
    const AttributeProperties* input = dialog->tempProp->Act_Inputs->Item(1);
    EXPECT_EQ(input->Key, "RS_NAME");
    EXPECT_EQ(input->Attribute_Type, 1);
    EXPECT_EQ(input->ProvidedFrom.peek()->Item("RS.NAME")->Provider_Name, "RS");
    EXPECT_TRUE(input->ProviderFor.peek()->Item(".OUT.RS_NAME")) << "the link inside stands on both ends";
    EXPECT_TRUE(dialog->tempProp->Act_Inputs->Changed);

    dialog->Drop({"DB.RS.NAME"}, 1);
    EXPECT_EQ(dialog->AttList[kInputs].Count(), 3) << "a second drop leaves one row";
    click(*dialog, "DB.RS.NAME");
    EXPECT_EQ(keys(dialog->AttList[kInputs]), "RS_ID Old");
    EXPECT_EQ(keys(dialog->AttList[kOutputs]), "RS_ID Act.Made");
    EXPECT_EQ(image(*dialog, "DB.RS.NAME"), "Field-UnChecked");
    answerClosing(Answer::no);
    EXPECT_TRUE(dialog->mayClose());
}

TEST_F(SetActPropTest, AClickOnAParentMovesAllItsChildren) {
    const auto dialog = open();
    click(*dialog, "DB.RS");
    EXPECT_EQ(image(*dialog, "DB.RS"), "RS-Checked");
    EXPECT_EQ(keys(dialog->AttList[kInputs]), "RS_ID Old RS_NAME RS_PRICE");
    click(*dialog, "DB.RS");
    EXPECT_EQ(image(*dialog, "DB.RS"), "RS-UnChecked");
    EXPECT_EQ(keys(dialog->AttList[kInputs]), "Old");
    EXPECT_EQ(form->DeletedNodes->Count(), 1) << "only what the repository holds is noted";
    click(*dialog, "DB");
    EXPECT_EQ(dialog->AttList[kInputs].Count(), 1);
}

TEST_F(SetActPropTest, NodesThatAreClickedTogetherBecomeAlike) {
    struct Row {
        const char* filter;
        ActList front;
        std::vector<std::string> nodes;
        const char* once;  ///< the list in front after one click, and after the next
        const char* twice;
        bool dropped = false;
    };
    for (const Row& row : {Row{"", kInputs, {"DB.RS.ID", "DB.RS.NAME"}, "RS_ID Old RS_NAME", "Old"},
                           {"", kInputs, {"DB", "DB.RS", "DB.RS.NAME"}, "RS_ID Old RS_NAME RS_PRICE", "Old"},
                           {"", kParameters, {"DB.RS"}, "RS_ID RS_NAME RS_PRICE", ""},
                           {"", kParameters, {"DB.RS"}, "RS_ID RS_NAME RS_PRICE", "RS_ID RS_NAME RS_PRICE", true},
                           {"I", kInputs, {"DB.RS"}, "RS_ID Old RS_PRICE", "Old"},
                           {"i", kParameters, {"DB.RS"}, "RS_ID RS_PRICE", "RS_ID RS_PRICE", true},
                           {"rs", kInputs, {"DB.RS"}, "RS_ID Old RS_NAME RS_PRICE", "Old"},
                           {"id", kInputs, {"DB.RS"}, "Old", "Old RS_ID"}}) {
        SCOPED_TRACE(std::string(row.filter) + " " + row.nodes.back() + (row.dropped ? " dropped" : " clicked"));
        const auto dialog = open();
        dialog->TabStrip1_Click(tabOf(row.front));
        dialog->DBView.narrow(row.filter);
        for (const char* after : {row.once, row.twice}) {
            row.dropped ? dialog->Drop(row.nodes, 0) : click(*dialog, row.nodes);
            EXPECT_EQ(keys(dialog->frontList()), after);
        }
    }
}

TEST_F(SetActPropTest, OfSeveralRowsOfOneNodeTheFirstInTheListGoes) {
    activity().Act_Inputs->Item("Old")->ProvidedFrom->Add("RS", LinkRecordSet, "RS.ID");
    const auto dialog = open();
    dialog->moveRowTo(2, 1);
    click(*dialog, "DB.RS.ID");
    EXPECT_EQ(keys(dialog->frontList()), "RS_ID");
    EXPECT_EQ(image(*dialog, "DB.RS.ID"), "Field-Checked");
}

TEST_F(SetActPropTest, ConstantsAndFunctionsGoToTheParameters) {
    const auto dialog = open();
    click(*dialog, "GRAPH.C1");
    click(*dialog, "GRAPH.F1");
    EXPECT_EQ(dialog->SelectedList, kParameters);
    EXPECT_EQ(keys(dialog->AttList[kParameters]), "C1 F1");
    EXPECT_EQ(dialog->AttList[kParameters].Item(1)->SubItems[2], "Constant");
    EXPECT_FALSE(dialog->AttList[kParameters].Item(2)->Editable);
    dialog->TabStrip1_Click(SetActProp::kLogTab);
    click(*dialog, "GRAPH.Before.B");
    EXPECT_EQ(dialog->SelectedList, kInputs);
    EXPECT_EQ(dialog->TabStrip1, tabOf(kInputs));
    dialog->DragOut(*dialog->ActView.find("GRAPH.C1"));
    EXPECT_EQ(dialog->TabStrip1, tabOf(kParameters)) << "a dragged node brings its list forward on its way";
    EXPECT_TRUE(dialog->takes({"GRAPH.C1"}));
    dialog->DragOut(*dialog->ActView.find("GRAPH.Before"));
    EXPECT_EQ(dialog->TabStrip1, tabOf(kInputs));
    EXPECT_FALSE(dialog->takes({"GRAPH.C1"})) << "no constant becomes an input";
    dialog->TabStrip1_Click(SetActProp::kLogTab);
    click(*dialog, "DB.RS.PRICE");
    EXPECT_EQ(dialog->TabStrip1, tabOf(kInputs)) << "the list that takes the node comes before the log";
    EXPECT_EQ(dialog->tempProp->Act_Outputs->Item("Before_B")->Tag, TagActivityMirror);

    messages.expect("Properties Saved", "", Icon::information);
    EXPECT_TRUE(dialog->Apply());
    EXPECT_EQ(progress.statuses, (std::vector<std::string>{"Properties Saved", "Ready"}));
    EXPECT_EQ(form->nodeNamed("F1")->entity<FunctionProperties>(), activity().Act_Functions->Item("F1"))
        << "the node shows the activity's own function";
    dialog->SelectedList = kParameters;
    dialog->AttList[kParameters].select(2);
    dialog->Move2Tree_Click();
    messages.expect("Properties Saved", "", Icon::information);
    EXPECT_TRUE(dialog->Apply());
    EXPECT_EQ(form->nodeNamed("F1")->entity<FunctionProperties>()->Function_Source, SourceNone);
}

TEST_F(SetActPropTest, ADropGoesWhereItCounts) {
    struct Row {
        ActList front;
        const char* node;
        const char* inputs;  ///< then, null when the drop does not count
        const char* parameters;
        int selected = 2;  ///< of the list under the pointer
    };
    for (const Row& row : {Row{kInputs, "DB.RS.NAME", "RS_ID RS_NAME Old", "P1 P2", 3},
                           {kInputs, "GRAPH.Before", "RS_ID Before_B Old", "P1 P2", 3},
                           {kInputs, "GRAPH.Before.B", "RS_ID Before_B Old", "P1 P2", 3},
                           {kInputs, "GRAPH.C1", nullptr, nullptr},
                           {kInputs, "DB", nullptr, nullptr},
                           {kOutputs, "GRAPH.Before", nullptr, nullptr},
                           {kOutputs, "GRAPH.Before.B", nullptr, nullptr},
                           {kParameters, "DB.RS.NAME", "RS_ID Old", "P1 RS_NAME P2", 3},
                           {kParameters, "GRAPH.F1", "RS_ID Old", "P1 F1 P2", 3},
                           {kParameters, "GRAPH.Before", "RS_ID Old Before_B", "P1 P2"},
                           {kParameters, "GRAPH.Before.B", "RS_ID Old Before_B", "P1 P2"}}) {
        SCOPED_TRACE(std::string(row.node) + " over list " + std::to_string(tabOf(row.front)));
        const auto dialog = open();
        for (const char* parameter : {"P1", "P2"}) {
            dialog->tempProp->Act_Parameters->Add(parameter, 0, TagTypeParameter, parameter).ParentKeyName = "Act";
        }
        dialog->activityBuilt();  // fills the lists
        dialog->TabStrip1_Click(tabOf(row.front));
        dialog->frontList().select(1);
        EXPECT_EQ(dialog->takes({row.node}), row.inputs != nullptr);
        dialog->Drop({row.node}, 2);
        EXPECT_EQ(keys(dialog->AttList[kInputs]), row.inputs ? row.inputs : "RS_ID Old");
        EXPECT_EQ(keys(dialog->AttList[kParameters]), row.inputs ? row.parameters : "P1 P2");
        EXPECT_EQ(dialog->AttList[row.front].selected(), row.inputs ? row.selected : 1)
            << "the row that was under the pointer";
    }
}

TEST_F(SetActPropTest, NamesAreCutToTheirLastPartAndRestored) {
    const auto dialog = open();
    dialog->TabStrip1_Click(tabOf(kOutputs));
    for (const char* name : {"Made", "Act.Made"}) {
        dialog->Saved = true;
        std::string_view(name) == "Made" ? dialog->CutFullNamesM_Click() : dialog->RestoreNamesM_Click();
        EXPECT_EQ(dialog->frontList().Item(1)->Text, "RS_ID");
        EXPECT_EQ(dialog->frontList().Item(2)->Text, name);
        EXPECT_EQ(dialog->tempProp->Act_Outputs->Item("Act.Made")->Attribute_Name, name);
        EXPECT_FALSE(dialog->Saved);
    }
    dialog->TabStrip1_Click(tabOf(kInputs));
    messages.expect("No name of this list has a dot, behind which it could be cut.", "", Icon::information);
    dialog->CutFullNamesM_Click();
}

TEST_F(SetActPropTest, NewMembersBearShortNamesWhereThoseAreFree) {
    bool on = true;
    EditorServices with = needs();
    with.shortNames = &on;
    testkit::GraphBuilder(*form).activity("Other", {}, {"Old", "X.NAME", "Q", "EMP_AGE"});
    form->nodeNamed("Other")->activity()->Act_Outputs->Item("EMP_AGE")->Attribute_Name = "AGE";
    SetActProp dialog(with, *form, *form->nodeNamed("Act"));
    const auto names = [&](ActList list) {
        std::string text;
        for (const forms::ListRow& row : dialog.AttList[list].rows()) {
            text += row.Key + ":" + row.Text + " ";
        }
        return text;
    };
    dialog.TabStrip1_Click(tabOf(kInputs));
    dialog.Drop({"DB.RS.NAME", "GRAPH.Other.Old", "GRAPH.Other.X.NAME", "GRAPH.Other.EMP_AGE"}, 0);
    on = false;
    dialog.Drop({"GRAPH.Other.Q"}, 0);
    EXPECT_EQ(names(kInputs),
              "RS_ID:RS_ID Old:Old RS_NAME:NAME Other_Old:Other_Old Other_X.NAME:Other_X.NAME "
              "Other_EMP_AGE:AGE Other_Q:Other_Q ");
    EXPECT_EQ(names(kOutputs),
              "RS_ID:RS_ID Act.Made:Act.Made RS_NAME:NAME Other_Old:Other_Old "
              "Other_X.NAME:Other_X.NAME Other_EMP_AGE:AGE Other_Q:Other_Q ");
    EXPECT_EQ(dialog.tempProp->Act_Inputs->Item("RS_NAME")->Attribute_Name, "NAME");
    EXPECT_EQ(dialog.tempProp->Act_Outputs->Item("RS_NAME")->Attribute_Name, "NAME");
    on = true;
    dialog.TabStrip1_Click(tabOf(kParameters));
    dialog.Drop({"DB.RS.NAME", "GRAPH.C1"}, 0);
    EXPECT_EQ(names(kParameters), "RS_NAME:NAME C1:C1 ") << "each list has names of its own";
}

TEST_F(SetActPropTest, MembersOfTheTypeAreNotDeleted) {
    activity().Act_Outputs->Add("Wizard", 0, TagWizard, "Wizard").ParentKeyName = "Act";
    const auto dialog = open();
    dialog->TabStrip1_Click(tabOf(kOutputs));
    dialog->frontList().select(2);
    messages.expect("Activity Type's Members Cannot Be Deleted", "", Icon::information);
    dialog->Move2Tree_Click();
    dialog->MoveAll2Tree_Click();
    EXPECT_EQ(keys(dialog->AttList[kOutputs]), "Act.Made Wizard");
    dialog->frontList().select(2);
    dialog->Move2Tree_Click();
    EXPECT_EQ(keys(dialog->AttList[kOutputs]), "Act.Made") << "what the wizard made goes one by one";
}

TEST_F(SetActPropTest, AnotherTypeReplacesOnlyWhatTheFormerBrought) {
    namespace sql = repository::sql;
    database.answer(sql::kActivityType, {{"d", "", "", "2", "1", "1"}});
    database.answer(sql::kActivityTypeParams, {{"Limit", "INTEGER"}});
    database.answer(sql::kActivityTypeParams, {{"Out", "STRING"}});
    const auto dialog = open();
    dialog->ActTypes_Click(0);
    EXPECT_TRUE(dialog->Saved) << "the type that is chosen already";
    dialog->ActTypes_Click(1);
    EXPECT_EQ(keys(dialog->AttList[kOutputs]), "RS_ID Act.Out");
    EXPECT_EQ(dialog->AttList[kOutputs].Item(2)->Text, "Out");
    EXPECT_EQ(dialog->tempProp->Act_Outputs->Item("Act.Out")->Attribute_Name, "Act.Out");
    EXPECT_EQ(dialog->tempProp->Act_Parameters->Item("Act.Limit")->Parameter_Name, "Limit");
    EXPECT_EQ(dialog->tempProp->Act_SchemaNo, 2);
    EXPECT_EQ(activity().Act_Type, 0) << "the node waits for Apply";
}

TEST_F(SetActPropTest, RowsFollowTheCatalogueAndAGoneTypeIsOfferedToItsOwnerOnly) {
    using Indices = std::vector<std::int16_t>;
    const auto dialog = open();
    dialog->followTypes();
    catalogue.tables.dataTypes.rename(0, "NUMBER");
    catalogue.tables.activityTypes.reload({"Join"}, true);
    dialog->followTypes();
    EXPECT_EQ(dialog->AttList[kInputs].Item("RS_ID")->SubItems[0], "NUMBER");
    EXPECT_EQ(dialog->offeredTypes(), (Indices{0, 1}));
    EXPECT_EQ(dialog->typeNames().shown(0), "Filter (gone)");
    database.answer(repository::sql::kActivityType, {{"d", "", "", "2", "1", "1"}});
    dialog->ActTypes_Click(1);
    EXPECT_EQ(dialog->tempProp->Act_Type, 1);
    EXPECT_EQ(dialog->offeredTypes(), (Indices{1}));
}

TEST_F(SetActPropTest, SourcesThatDoNotFitAreToldAndNotRefused) {
    testkit::GraphBuilder graph(*form);
    form->nodeNamed("After")->activity()->Act_Outputs->Add("Z", 0, entities::TagNone, "Z").ParentKeyName = "After";
    graph.activity("Far", {"Z"}, {"Y"});
    graph.feed("After.OUT.Z", "Far.IN.Z");
    database.answer(repository::sql::kActivityType,
                    {{"d", "", "a_out(A_OUT_1)<-a_in1(A_IN1_1),a_in2(A_IN2_1).", "2", "1", "1"}});
    const auto dialog = open();
    EXPECT_EQ(dialog->sourceNote(), "");
    const struct {
        const char* node;
        const char* note;
    } clicks[] = {{"GRAPH.Far.Y", "The data runs in a circle: Act, After, Far, Act."},
                  {"GRAPH.Before.B",
                   "The data runs in a circle: Act, After, Far, Act.\n"
                   "The template of its type has room for 2 sources, and leaves out Before."},
                  {"GRAPH.Far.Y", ""}};
    for (const auto& each : clicks) {
        click(*dialog, each.node);
        EXPECT_EQ(dialog->sourceNote(), each.note);
    }
    click(*dialog, "GRAPH.Far.Y");
    EXPECT_NE(dialog->sourceNote(), clicks[0].note);
    dialog->txtSQL_Change("act_out(X)<-act_in1(X).");
    EXPECT_EQ(dialog->sourceNote(), clicks[0].note) << "a statement has a line of its own";
}

TEST_F(SetActPropTest, ATypeThatCannotBeReadWholeReplacesNothing) {
    namespace sql = repository::sql;
    const auto dialog = open();
    const auto refused = [&](const std::string& words) {
        messages.expect(words, "", Icon::critical);
        dialog->ActTypes_Click(1);
        EXPECT_EQ(dialog->ActTypes, 0);
        EXPECT_EQ(dialog->tempProp->Act_Type, 0);
        EXPECT_EQ(keys(dialog->AttList[kOutputs]), "RS_ID Act.Made");
        EXPECT_TRUE(dialog->Saved);
    };
    refused("The repository has no type Join any more.");
    database.answer(sql::kActivityType, {{"d", "", "", "2", "1", "1"}});
    database.fail(sql::kActivityTypeParams, testkit::kBroken, 2);
    refused(testkit::kBroken.description());
    database.answer(sql::kActivityType, {{"d", "", "", "2", "1", "1"}});
    database.answer(sql::kActivityTypeFunctions, {{"Key", "SK"}});
    database.fail(sql::kFunctionTypeParams, testkit::kBroken);
    refused(testkit::kBroken.description());
    EXPECT_EQ(form->DeletedNodes->Count(), 0);
}

TEST_F(SetActPropTest, ARenameReachesKeysAndLinksOnBothEnds) {
    struct Resets : forms::TreeListener, forms::ListListener {
        int count = 0;
        void done(const forms::TreeChange& change) override { count += change.kind == forms::TreeChange::Kind::reset; }
        void done(const forms::ListChange& change) override { count += change.kind == forms::ListChange::Kind::reset; }
    } resets;
    testkit::GraphBuilder graph(*form);
    ActivityProperties& after = *form->nodeNamed("After")->activity();
    after.Act_Outputs->Add("Act.Made", 0, entities::TagNone, "Act.Made").ParentKeyName = "After";
    after.Act_Inputs->Item("Act.Made")->SubNode_ID = 77;
    graph.pass("After", "Act.Made", "Act.Made");
    graph.activity("Last", {"Act.Made", "Act.Other"});
    graph.feed("After.OUT.Act.Made", "Last.IN.Act.Made");
    graph.feed("Act.OUT.Act.Made", "RS.PRICE");
    const auto dialog = open();
    dialog->ActView.watch(&resets);
    dialog->DBView.watch(&resets);
    dialog->AttList[kOutputs].watch(&resets);
    dialog->txtName_Change("New");
    dialog->txtName_Leave();
    EXPECT_EQ(resets.count, 0) << "trees and lists stay as they are open and selected";
    EXPECT_EQ(keys(dialog->AttList[kOutputs]), "RS_ID New.Made");
    EXPECT_EQ(dialog->AttList[kOutputs].Item(1)->SubItems[1], "New");
    EXPECT_EQ(image(*dialog, "DB.RS.ID"), "Field-Checked");
    click(*dialog, "DB.RS.PRICE");
    EXPECT_EQ(image(*dialog, "DB.RS.PRICE"), "Field-UnChecked") << "no mark is left under the former key";
    messages.expect("Properties Saved", "", Icon::information);
    EXPECT_TRUE(dialog->OK());
    dialog->end();
    const ActivityProperties& renamed = *form->nodeNamed("New")->activity();
    EXPECT_EQ(renamed.Act_Name, "New");
    const AttributeProperties* made = renamed.Act_Outputs.peek()->Item("New.Made");
    ASSERT_TRUE(made);
    EXPECT_EQ(made->ParentKeyName, "New");
    EXPECT_EQ(renamed.Act_Outputs.peek()->Item("RS_ID")->ProvidedFrom.peek()->Item(".IN.RS_ID")->Provider_Name, "New");
    // What the brought output feeds bears the new name, too, as far as the key goes.
    ActivityProperties& last = *form->nodeNamed("Last")->activity();
    for (const auto& [member, provider] : {std::pair{after.Act_Inputs->Item("New.Made"), "New.OUT.New.Made"},
                                           {after.Act_Outputs->Item("New.Made"), ".IN.New.Made"},
                                           {last.Act_Inputs->Item("New.Made"), "After.OUT.New.Made"}}) {
        ASSERT_TRUE(member) << provider;
        EXPECT_TRUE(member->ProvidedFrom.peek()->Item(provider)) << provider;
        EXPECT_EQ(member->ProvidedFrom.count(), 1) << provider;
        EXPECT_TRUE(member->Changed) << provider;
    }
    EXPECT_EQ(after.Act_Inputs->Count(), 1);
    EXPECT_EQ(after.Act_Inputs->Item(1)->SubNode_ID, 77) << "it stays the same stored member";
    EXPECT_EQ(made->ProviderFor.count(), 1);
    EXPECT_TRUE(made->ProviderFor.peek()->Item("After.IN.New.Made"));
    EXPECT_TRUE(last.Act_Inputs->Item("Act.Other")) << "nothing feeds it";
    EXPECT_TRUE(graph.attribute("RS.ID").ProviderFor.peek()->Item("New.IN.RS_ID"));
    EXPECT_FALSE(graph.attribute("RS.ID").ProviderFor.peek()->Item("Act.IN.RS_ID"));
}

TEST_F(SetActPropTest, TwoDialogsOverOneScenarioLeaveItsLinksWhole) {
    const std::string before = testkit::modelText(*form);
    for (const bool outerFirst : {true, false}) {
        auto outer = open(), inner = open("After");
        click(*outer, "DB.RS.NAME");
        click(*inner, "DB.RS.PRICE");
        for (const bool which : {outerFirst, !outerFirst}) {
            answerClosing(Answer::no);
            EXPECT_TRUE((which ? outer : inner)->mayClose());
            (which ? outer : inner)->end();
        }
        EXPECT_EQ(testkit::modelText(*form), before);
    }
}

TEST_F(SetActPropTest, NamesAreCheckedWhenTheBoxIsLeft) {
    const auto dialog = open();
    dialog->txtName_Change("a.b");
    messages.expect("DOTS ARE NOT ALLLOWED IN NAMES", "", Icon::warning);
    dialog->txtName_Leave();
    EXPECT_EQ(dialog->txtName, "Act");
    dialog->txtName_Change("RS");
    messages.expect("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!", "DUPLICATE NAME!",
                    Icon::critical);
    inputBox.expect("Give A New Name For This Activity", "DUPLICATE NAME!", "RS", "x.y");
    messages.expect("DOTS ARE NOT ALLLOWED IN NAMES", "", Icon::warning);
    dialog->txtName_Leave();
    EXPECT_EQ(dialog->txtName, "Act");
    messages.verify();
    dialog->txtName_Change("RS");
    messages.expect("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!", "DUPLICATE NAME!",
                    Icon::critical);
    inputBox.expect("Give A New Name For This Activity", "DUPLICATE NAME!", "RS", "Other");
    dialog->txtName_Leave();
    EXPECT_EQ(form->nodeNamed("Other")->Index(), dialog->ActiveNode.Index());
    dialog->end();
    EXPECT_EQ(dialog->ActiveNode.Caption(), "Act") << "closing without Apply puts the name back";
}

TEST_F(SetActPropTest, WhatIsMissingIsAskedForOrTold) {
    open()->end();
    const std::string before = testkit::modelText(*form);
    const auto dialog = open();
    const auto refuse = [&](const char* words, auto act) {
        messages.expect(words, "", Icon::warning);
        EXPECT_FALSE(act());
        messages.verify();
    };
    const char* const nameless = "PLEASE GIVE THE ACTIVITY's NAME";
    const char* const typeless = "PLEASE SELECT AN ACTIVITY TYPE";
    const auto askName = [&](const char* answer) {
        inputBox.expect("You Have To Give A Name For This Activity Before Setting Its Type!", "Activity's Name", "Act",
                        answer);
    };
    inputBox.expect("Please Give A Name", "An Activity Can Not Be Nameless", "", "");
    dialog->txtName_Change("");
    askName(" ");
    dialog->ActTypes_Click(1);
    EXPECT_EQ(dialog->ActTypes, -1);
    refuse(nameless, [&] { return dialog->Apply(); });
    dialog->txtName_Change("  ");
    refuse(nameless, [&] { return dialog->OK(); });
    EXPECT_EQ(dialog->ActiveNode.Caption(), "Act");
    askName("Named");
    messages.expect("UNIDENTIFIED ACTIVITY TYPE", "", Icon::critical);
    dialog->ActTypes_Click(9);
    EXPECT_EQ(dialog->txtName, "Named");
    refuse(typeless, [&] { return dialog->Apply(); });
    answerClosing(Answer::yes);
    refuse(typeless, [&] { return dialog->mayClose(); });
    answerClosing(Answer::cancel);
    EXPECT_FALSE(dialog->mayClose());
    dialog->end();
    EXPECT_EQ(testkit::modelText(*form), before);
}

TEST_F(SetActPropTest, ACatalogueThatSomeoneEmptiedHasNoNamesToShow) {
    const auto dialog = open();
    catalogue.tables = {};
    click(*dialog, "DB.RS.NAME");
    click(*dialog, "GRAPH.F1");
    dialog->RefreshHeadersM_Click();
    EXPECT_EQ(dialog->AttList[kInputs].Item("RS_NAME")->SubItems[0], "");
    messages.expect("UNIDENTIFIED ACTIVITY TYPE", "", Icon::critical);
    dialog->ActTypes_Click(1);
    dialog->tempProp->Act_Outputs->Add("Old", 1, entities::TagNone, "Old").ParentKeyName = "Act";
    messages.expect("This Relationship Is Not Valid!\nDifferent Data Types Found.\nSource: .\nTarget: .", "",
                    Icon::warning);
    dialog->SendOutput(2);
    messages.expect("PLEASE SELECT AN ACTIVITY TYPE", "", Icon::warning);
    EXPECT_FALSE(dialog->Apply()) << "the type that it had shows no name any more";
}

TEST_F(SetActPropTest, LabelsAreChecked) {
    struct Row {
        const char* label;
        const char* words;
        Icon icon;
    };
    const auto dialog = open();
    for (const Row& row : {Row{"", "Please,Give A Non Empty Name!", Icon::critical},
                           Row{"12", "NUMERIC NAMES ARE NOT ALLOWED!\nPLEASE GIVE A VALID NAME", Icon::warning},
                           Row{"a.b", "DOTS ARE NOT ALLLOWED IN NAMES", Icon::warning}}) {
        messages.expect(row.words, "", row.icon);
        EXPECT_FALSE(dialog->AfterLabelEdit(2, row.label));
    }
    EXPECT_TRUE(dialog->Saved);
    EXPECT_TRUE(dialog->AfterLabelEdit(2, "RS_ID"));
    EXPECT_EQ(dialog->tempProp->Act_Inputs->Item("Old")->Attribute_Name, "RS_ID");
    EXPECT_EQ(dialog->AttList[kInputs].Item(1)->Warning, "The row Old has this name, too.");
}

TEST_F(SetActPropTest, SelectedRowsMoveAndGoTogether) {
    activity().Act_Inputs->Add("C", 0, TagRecordSet, "C").ParentKeyName = "Act";
    activity().Act_Inputs->Add("D", 0, TagRecordSet, "D").ParentKeyName = "Act";
    activity().Act_Inputs->Add("E", 0, TagTypeOutput, "E").ParentKeyName = "Act";
    activity().Act_Inputs->Changed = false;
    struct Row {
        std::vector<int> selected;
        RowMove move;
        const char* order;
        std::vector<int> selectedThen;
    };
    for (const Row& row :
         {Row{{2, 4}, RowMove::top, "Old D RS_ID C E", {1, 2}}, Row{{1, 4}, RowMove::up, "RS_ID Old D C E", {1, 3}},
          Row{{1, 2, 4}, RowMove::down, "C RS_ID Old E D", {2, 3, 5}},
          Row{{1, 3}, RowMove::bottom, "Old D E RS_ID C", {4, 5}}}) {
        const auto dialog = open();
        dialog->frontList().select(row.selected, row.selected.back());
        dialog->MoveRow_Click(row.move);
        EXPECT_EQ(keys(dialog->frontList()), row.order);
        EXPECT_EQ(dialog->frontList().selection(), row.selectedThen);
        EXPECT_EQ(dialog->frontList().selected(), row.selectedThen.back());
        EXPECT_EQ(dialog->tempProp->Act_Inputs->Item(row.selectedThen[0])->Key,
                  dialog->frontList().Item(row.selectedThen[0])->Key);
        EXPECT_TRUE(dialog->tempProp->Act_Inputs->Changed);
    }
    const auto dialog = open();
    dialog->MoveRows({1, 5}, 3);
    EXPECT_EQ(keys(dialog->frontList()), "Old RS_ID E C D");
    dialog->MoveRows({2}, 0);
    EXPECT_EQ(keys(dialog->frontList()), "Old E C D RS_ID");
    messages.expect("Activity Type's Members Cannot Be Deleted", "", Icon::information);
    dialog->frontList().select({1, 2, 3}, 1);
    dialog->Move2Tree_Click();
    EXPECT_EQ(keys(dialog->frontList()), "E D RS_ID");
    EXPECT_EQ(dialog->frontList().selection(), std::vector<int>{1}) << "what could not go stays selected";
}

TEST_F(SetActPropTest, ParametersMoveAmongFunctions) {
    for (const char* parameter : {"P1", "P2", "P3"}) {
        activity().Act_Parameters->Add(parameter, 0, TagRecordSet, parameter).ParentKeyName = "Act";
    }
    const auto dialog = open();
    click(*dialog, "GRAPH.F1");
    const std::tuple<int, int, const char*, const char*> moves[] = {
        {4, 2, "P1 F1 P2 P3", "P1 P2 P3"}, {1, 3, "F1 P2 P1 P3", "P2 P1 P3"}, {4, 2, "F1 P3 P2 P1", "P3 P2 P1"},
        {2, 4, "F1 P2 P1 P3", "P2 P1 P3"}, {3, 1, "P1 F1 P2 P3", "P1 P2 P3"}, {2, 4, "P1 P2 P3 F1", "P1 P2 P3"},
    };
    for (const auto& [row, to, rows, parameters] : moves) {
        dialog->moveRowTo(row, to);
        EXPECT_EQ(keys(dialog->frontList()), rows);
        std::string members;
        for (const ParameterProperties& parameter : dialog->tempProp->Act_Parameters) {
            members += (members.empty() ? "" : " ") + parameter.Key;
        }
        EXPECT_EQ(members, parameters) << rows;
    }
}

TEST_F(SetActPropTest, WhatFeedsItsOwnActivityGoesAtBothEnds) {
    testkit::GraphBuilder(*form).feed("Act.OUT.RS_ID", "Act.IN.Old");
    for (const auto& [list, key] : {std::pair(kInputs, "Old"), {kOutputs, "RS_ID"}}) {
        const auto dialog = open();
        dialog->TabStrip1_Click(tabOf(list));
        dialog->frontList().select(dialog->frontList().positionOf(key));
        dialog->Move2Tree_Click();
        EXPECT_EQ(list == kInputs ? dialog->tempProp->Act_Outputs->Item("RS_ID")->ProviderFor.count()
                                  : dialog->tempProp->Act_Inputs->Item("Old")->ProvidedFrom.count(),
                  0);
        answerClosing(Answer::no);
        EXPECT_TRUE(dialog->mayClose());
    }
}

TEST_F(SetActPropTest, AnInputIsSentOnlyWhereItsTypeFits) {
    activity().Act_Outputs->Add("Old", 1, entities::TagNone, "Old").ParentKeyName = "Act";
    activity().Act_Parameters->Add("Old", 1, entities::TagNone, "Old").ParentKeyName = "Act";
    const auto dialog = open();
    EXPECT_EQ(dialog->whyNotSent(true), "Choose a row first");
    dialog->frontList().select(1);
    EXPECT_EQ(dialog->whyNotSent(true), "") << "that it has a source is told when it is sent";
    EXPECT_EQ(dialog->whyNotSent(false), "The activity has no parameter RS_ID");
    dialog->SendParameter(1);  // no parameter of that key: nothing
    EXPECT_TRUE(dialog->Saved);
    AttributeProperties& output = *dialog->tempProp->Act_Outputs->Item("Old");
    ParameterProperties& parameter = *dialog->tempProp->Act_Parameters->Item("Old");
    const struct {
        void (SetActProp_Functions::*send)(int);
        std::int16_t& type;
        const char* taken;
    } rows[] = {
        {&SetActProp::SendOutput, output.Attribute_Type,
         "An Attribute With The Same Name Allready Exists And Is Provided By An Other Source."},
        {&SetActProp::SendParameter, parameter.Parameter_Type,
         "A Parameter With The Same Name Allready Exists And Is Regulated By An Other Source."},
    };
    for (const auto& [send, type, taken] : rows) {
        const std::string invalid = "This Relationship Is Not Valid!\n";
        messages.expect(invalid + "Different Data Types Found.\nSource: INTEGER.\nTarget: STRING.", "", Icon::warning);
        (*dialog.*send)(2);
        type = 2;
        (*dialog.*send)(2);
        EXPECT_EQ(type, 0) << "what is defined by its source takes its type";
        messages.expect(invalid + taken, "", Icon::warning);
        (*dialog.*send)(2);
        messages.verify();
    }
    EXPECT_EQ(output.ProvidedFrom.peek()->Item(".IN.Old")->Provider_Type, LinkActivityInput);
    EXPECT_EQ(parameter.RegulatedFrom.peek()->Item(".IN.Old")->Regulator_type, LinkActivityInput);
    EXPECT_TRUE(dialog->tempProp->Act_Inputs->Item("Old")->RegulatorFor.peek()->Item(".PARAM.Old"));
    messages.expect("Properties Saved", "", Icon::information);
    EXPECT_TRUE(dialog->Apply());
    dialog->end();
    EXPECT_EQ(activity().Act_Parameters->Item("Old")->RegulatedFrom.count(), 1);

    ParameterProperties& other = activity().Act_Parameters->Add("Other", 0, entities::TagNone, "Other");
    other.ParentKeyName = "Act";
    other.RegulatedFrom->Add("Act", LinkActivityInput, ".IN.RS_ID");
    links::SynchronizeParameter(*form, other, nullptr);
    const auto again = open();
    const auto fed = again->AttList[kInputs].Item(1)->SubItems;
    again->TabStrip1_Click(tabOf(kParameters));
    again->RemoveRow(2);
    EXPECT_NE(again->AttList[kInputs].Item(1)->SubItems, fed) << "its row tells that it feeds the parameter no longer";
}

TEST_F(SetActPropTest, TheFolderOfTheLogIsKeptForTheNextOne) {
    store.setValue("General", "LogPath", "/logs");
    testkit::ChosenFile chosen;
    const auto dialog = open("Act", nullptr, &chosen);
    EXPECT_EQ(dialog->txtRejected, "/logs/Act.log");
    dialog->RejectedFileOpen_Click();
    EXPECT_EQ(chosen.asked, "Save Log File As|Log Files (*.log)|*.log|" + folder.path("\\Logs\\Demo"));
    EXPECT_TRUE(dialog->Saved) << "none was chosen";
    chosen.path = "/var/spool/rejected rows.log";
    dialog->RejectedFileOpen_Click();
    EXPECT_EQ(dialog->tempProp->Act_Log, chosen.path);
    EXPECT_EQ(store.value("General", "LogPath", ""), "/var/spool");
    dialog->txtRejected_Change("rows.log");
    EXPECT_EQ(store.value("General", "LogPath", ""), "/var/spool") << "it names no folder";
    dialog->txtRejected_Change(chosen.path);
    dialog->ActTypes = 0;
    messages.expect("Properties Saved", "", Icon::information);
    EXPECT_TRUE(dialog->OK());
    dialog->end();
    EXPECT_EQ(open()->txtRejected, chosen.path) << "the activity's own path";
    EXPECT_EQ(open("After")->txtRejected, "/var/spool/After.log");
}

TEST_F(SetActPropTest, TheWizardWorksOnTheCopy) {
    statements::WizardScript window;
    statements::FakeWizardServices answers;
    statements::LDLForm real{messages, catalogue.tables, answers, window};
    const std::string before = testkit::modelText(*form);
    window.play = [&](statements::LDLForm& open) {
        EXPECT_EQ(open.Activity->Act_Name, "Act");
        EXPECT_NE(open.Activity, &activity());
        statements::defineCurrent(open, statements::VarParameter, "", {"const 5"});
        open.cmdGenerateLDL();
        messages.expect("Activity Created", "", Icon::information);
        open.cmdCreateAct();
        open.cmdOK();
    };
    for (const bool applies : {false, true}) {
        SCOPED_TRACE(applies);
        const auto dialog = open("Act", &real);
        catalogue.tables.activityTypeLdl[0] = "a_out(@LIMIT)";
        std::string enabled;
        dialog->onEnable = [&](bool on) { enabled += on ? "on " : "off "; };
        dialog->butRefresh_Click();
        EXPECT_EQ(enabled, "off on ");
        EXPECT_NE(dialog->tempProp->Act_LDL.find('5'), std::string::npos) << dialog->tempProp->Act_LDL;
        EXPECT_EQ(dialog->txtSQL, dialog->tempProp->Act_LDL);
        EXPECT_FALSE(dialog->Saved);
        EXPECT_EQ(dialog->AttList[kParameters].Count(), dialog->tempProp->Act_Parameters.count());
        EXPECT_GT(dialog->AttList[kParameters].Count(), 0) << "the constant's parameter has its row";
        EXPECT_EQ(image(*dialog, "DB.RS.ID"), "Field-Checked") << "trees are marked again";
        if (applies) {
            messages.expect("Properties Saved", "", Icon::information);
            EXPECT_TRUE(dialog->OK());
            const std::string statement = dialog->tempProp->Act_LDL;
            dialog->end();
            EXPECT_EQ(activity().Act_LDL, statement);
        } else {
            dialog->end();
            EXPECT_EQ(testkit::modelText(*form), before);
        }
    }
}

TEST_F(SetActPropTest, AListThatWasEmptiedStaysWithoutItsPrompt) {
    const auto dialog = open();
    EXPECT_EQ(dialog->AttList[kInputs].Item(1)->Tip, "From RS.ID\nTo Act.OUT.RS_ID");
    dialog->MoveAll2Tree_Click();
    dialog->butRefresh_Click();
    EXPECT_FALSE(dialog->AttList[kInputs].hint());
    EXPECT_TRUE(dialog->AttList[kParameters].hint()) << "this one never had a row";
}

TEST_F(SetActPropTest, AStatementThatDoesNotFitIsSaidWhileItIsShown) {
    activity().Act_LDL = "act_out(Act_OUT_RS_ID,Act_OUT_Made)<-act_in1(Act_IN1_RS_ID).";
    activity().Act_Outputs->Item("Act.Made")->Attribute_Name = "Made";
    const auto dialog = open();
    EXPECT_EQ(dialog->statementNote(), "");
    dialog->AfterLabelEdit(1, "KEY");
    EXPECT_EQ(dialog->statementNote(), "Source 1 (RS) gives no input RS_ID.");
    dialog->LangSelector_Click(SetActProp::Language::SQL);
    EXPECT_EQ(dialog->statementNote() + dialog->txtSQL, "");
    dialog->Saved = true;
    dialog->txtSQL_Change("SELECT 1");
    EXPECT_FALSE(dialog->Saved);
    EXPECT_EQ(dialog->tempProp->Act_SQL, "SELECT 1");
    dialog->LangSelector_Click(SetActProp::Language::LDL);
    EXPECT_EQ(dialog->txtSQL, activity().Act_LDL);
    dialog->txtSQL_Change("act_out(Act_OUT_RS_ID,Act_OUT_Made)<-act_in1(Act_IN1_KEY).");
    EXPECT_EQ(dialog->statementNote(), "");
}

TEST_F(SetActPropTest, AnyCommandsAndThenNoLeaveTheScenarioEqual) {
    // The first opening completes the mirrors that the graph above leaves out.
    open()->end();
    const std::string before = testkit::modelText(*form);
    std::mt19937 random(7);
    const char* const nodeKeys[] = {"DB.RS", "DB.RS.ID", "DB.RS.NAME", "GRAPH.C1", "GRAPH.F1", "GRAPH.Before"};
    for (int round = 0; round < 40; ++round) {
        const auto dialog = open();
        for (int step = 0; step < 25; ++step) {
            forms::List& list = dialog->frontList();
            list.select(list.Count() ? static_cast<int>(random() % static_cast<unsigned>(list.Count())) + 1 : 0);
            switch (random() % 7) {
                case 0:
                case 1:
                    click(*dialog, nodeKeys[random() % std::size(nodeKeys)]);
                    break;
                case 2:
                    dialog->TabStrip1_Click(static_cast<int>(random() % 3));
                    break;
                case 3:
                    dialog->MoveRow_Click(static_cast<RowMove>(random() % 4));
                    break;
                case 4:
                    if (const auto* row = list.Item(list.selected()); row && tagOf(*row) < TagTypeOutput) {
                        dialog->Move2Tree_Click();
                    }
                    break;
                case 5:
                    if (list.selected() > 0) {
                        dialog->AfterLabelEdit(list.selected(), random() % 3 == 0 ? "Other" : "Twin");
                    }
                    break;
                default:
                    dialog->txtName_Change("Name" + std::to_string(round * 100 + step));
                    dialog->txtName_Leave();
            }
            for (const ActList number : {kInputs, kOutputs}) {
                std::string members;
                const AttributeCollection* all = number == kInputs
                                                     ? static_cast<AttributeCollection*>(&*dialog->tempProp->Act_Inputs)
                                                     : &*dialog->tempProp->Act_Outputs;
                for (const AttributeProperties& member : *all) {
                    members += (members.empty() ? "" : " ") + member.Key;
                }
                ASSERT_EQ(keys(dialog->AttList[number]), members) << "list and collection";
                for (const forms::ListRow& row : dialog->AttList[number].rows()) {
                    std::set<std::string> twins;
                    for (const forms::ListRow& other : dialog->AttList[number].rows()) {
                        if (other.Text == row.Text && other.Key != row.Key) {
                            twins.insert("The row " + other.Key + " has this name, too.");
                        }
                    }
                    ASSERT_TRUE(twins.empty() ? row.Warning.empty() : twins.contains(row.Warning)) << row.Warning;
                }
            }
        }
        if (!dialog->Saved) {
            answerClosing(Answer::no);
        }
        ASSERT_TRUE(dialog->mayClose());
        dialog->end();
        ASSERT_EQ(testkit::modelText(*form), before) << "round " << round;
        ASSERT_EQ(form->DeletedNodes->Count(), 0);
    }
}

}  // namespace
}  // namespace orvent::editors
