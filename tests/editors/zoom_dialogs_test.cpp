// The dialogs of activities and record sets over a zoom view.

#include "editors/zoom_dialogs_fixture.h"
#include "links/members.h"
#include "testkit/zoom_faults.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/expand_collapse.h"
#include "zoom/member_ties.h"
#include "zoom/rename_node.h"

using namespace orvent;
using namespace orvent::entities;
using editors::RecordSetProp;
using editors::SetActProp;
using platform::Icon;
using testkit::ZoomDialogs;

namespace {

TEST_F(ZoomDialogs, ClosingExpandsTheNodeAsItWas) {
    open();
    node("A2.IN.SONUM").setLeft(node("A2.IN.SONUM").Left() + 700);
    zoom::CollapseFunction(*form, index("F1"));
    for (const char* owner : {"A1", "A3"}) {  // whose inputs or functions are folded
        canvas::LabelsD& own = drawAt(owner, owner[1] == '1' ? "G1" : "G3", canvas::NodeTypeFunction);
        auto& input = own.entity<FunctionProperties>()->Function_Inputs->Add("I", 0, "I");
        input.ParentKeyName = own.KeyName();
        input.NodeKind = KindFunctionInput;
        input.ParentFunctionActivity = owner;
        zoom::ExpandFunction(*form, own.Index());
    }
    drawAt("A1", "Y", canvas::NodeTypeAttribute);
    drawAt("A3", "P", canvas::NodeTypeParameter);
    const Texts places = boxes(), drawn = edges(true), links = graph.present();
    const Texts entities = model();
    const auto close = [&](const std::string& name, bool applied) {
        SCOPED_TRACE(name);
        const bool activity = node(name).activity() != nullptr;
        std::unique_ptr<forms::Editor> dialog;
        activity ? dialog = openOn<SetActProp>(name) : dialog = openOn<RecordSetProp>(name);
        EXPECT_FALSE(form->Enabled());
        EXPECT_FALSE(node(name).Expanded);
        if (auto* recordSet = dynamic_cast<RecordSetProp*>(dialog.get())) {
            EXPECT_FALSE(recordSet->ListItemEditM());
        } else if (auto* properties = dynamic_cast<SetActProp*>(dialog.get()); applied) {
            properties->ActTypes = 0;
            properties->txtDescr_Change("words");
            ports.messages.expect("Properties Saved", "", Icon::information);
            EXPECT_TRUE(dialog->OK());
        }
        dialog.reset();
        EXPECT_TRUE(form->Enabled());
        EXPECT_EQ(boxes(), places);
        EXPECT_EQ(edges(true), drawn);
        EXPECT_EQ(testkit::CanvasFaults::ofZoom(*form), testkit::CanvasFaults::Lines{});
        EXPECT_EQ(form->unapplied(), applied);
        if (!applied) {
            EXPECT_EQ(model(), entities);
        }
    };
    for (const char* name : {"A2", "A1", "A3", "RS4"}) {
        close(name, false);
    }
    for (const char* name : {"A2", "A1", "A3"}) {
        close(name, true);
    }
    ASSERT_NE(form->nodeNamed("A1.IN.Y"), nullptr);
    EXPECT_TRUE(zoom::RenameNode(*form, node("A1.IN.Y"), "Z"));
    zoom::ApplyZoomChanges(*form, false);
    EXPECT_EQ(graph.present(), links);
    EXPECT_NE(graph.activity("A1").Act_Inputs->Item("Z"), nullptr);
    EXPECT_NE(graph.activity("A3").Act_Functions->Item("G3"), nullptr);
}

TEST_F(ZoomDialogs, ARecordSetThatIsShownTwiceGivesItsColumnsOnce) {
    edge("A2", "RS4");
    open();
    const editors::TakeOverForm taking(ports.messages, types.tables, *form, node("RS2"),
                                       [](const std::string&) { return std::nullopt; });
    EXPECT_EQ(taking.Sources, (Texts{"A2", "RS4", "A1", "RS3", "A3", "Lines of text"}));
}

TEST_F(ZoomDialogs, AFunctionHasOneActivity) {
    graph.add("F1.IN.I4 <~ 14 C1 C1");
    graph.addNamesake(design, *graph.activity("A2").Act_Functions->Item("F1"), "A1", "AU_ID");
    graph.activity("A2").Act_Functions->Item("F1")->FunctionID = 5;
    open();
    const Texts drawn = edges(true);
    const auto change = [&](const char* name, const auto& edit) {
        const auto dialog = openOn<SetActProp>(name);
        dialog->ActTypes = 0;
        dialog->TabStrip1_Click(editors::tabOf(editors::kParameters));
        edit(*dialog);
        ports.messages.expect("Properties Saved", "", Icon::information);
        EXPECT_TRUE(dialog->OK());
    };
    const auto takeOut = [](SetActProp& dialog) {
        dialog.frontList().select(dialog.frontList().positionOf("F1"));
        dialog.Move2Tree_Click();
    };
    // One has none of that key, the other one of its own.
    for (const auto& row : {std::pair("A3", false), {"A1", false}, {"A1", true}}) {
        change(row.first, [&](SetActProp& dialog) {
            auto& shown = *dialog.ActView.find("GRAPH.F1");
            EXPECT_EQ(shown.value().Refusal, "This function belongs to A2 already.");
            EXPECT_FALSE(shown.value().Checked);
            const int rows = dialog.frontList().Count();
            dialog.NodeClick({&shown});
            EXPECT_FALSE(dialog.takes({"GRAPH.F1"}));
            EXPECT_EQ(dialog.frontList().Count(), rows);
            dialog.txtDescr_Change("words");
            if (row.second) {
                takeOut(dialog);
            }
        });
        EXPECT_EQ(edges(true), drawn) << "the other one is untouched";
        EXPECT_EQ(testkit::CanvasFaults::ofZoom(*form), testkit::CanvasFaults::Lines{});
    }
    // Given up it is free and a new one; taken out and in again it is new at its place.
    change("A2", [&](SetActProp& dialog) {
        takeOut(dialog);
        dialog.NodeClick({dialog.ActView.find("GRAPH.F1")});
    });
    EXPECT_EQ(node("F1").entity<FunctionProperties>()->FunctionID, 0);
    node("F1").entity<FunctionProperties>()->FunctionID = 6;
    EXPECT_NE(form->Lines.FindConnectingLine(index("A2"), index("F1"), canvas::EdgeTypePartOf, false), nullptr);
    EXPECT_EQ(testkit::CanvasFaults::ofZoom(*form), testkit::CanvasFaults::Lines{});
    change("A2", takeOut);
    EXPECT_EQ(node("F1").entity<FunctionProperties>()->ParentKeyName(), "");
    EXPECT_EQ(testkit::CanvasFaults::ofZoom(*form), testkit::CanvasFaults::Lines{});
    zoom::ApplyZoomChanges(*form, true);
    EXPECT_EQ(testkit::CanvasFaults::ofScenario(design), testkit::CanvasFaults::Lines{});
    ASSERT_EQ(design.DeletedNodes->Count(), 2);
    EXPECT_EQ(design.DeletedNodes->Item(1)->NodeID, 5);
    EXPECT_EQ(design.DeletedNodes->Item(2)->NodeID, 6);
}

TEST_F(ZoomDialogs, ANewNameReachesTheScenario) {
    edge("A2", "RS4");  // shown twice
    const auto refuse = [&] {
        ports.messages.expect("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!",
                              "DUPLICATE NAME!", Icon::critical);
    };
    const auto copies = [&] {
        int count = 0;
        for (const canvas::LabelsD& each : form->Labels) {
            count += !form->bearsName(each) ? 1 : 0;
        }
        return count;
    };
    for (const char* name : {"A2", "RS4", "A3"}) {
        SCOPED_TRACE(name);
        const Texts before = graph.present();
        open(design.nodeNamed("A2") ? "A2" : "N_A2");
        const std::string now = std::string("N_") + name;
        const auto repeated = copies();
        if (node(name).activity()) {
            const auto dialog = openOn<SetActProp>(name);
            dialog->ActTypes = 0;
            dialog->txtName_Change("RS1");  // beyond the view, yet taken
            refuse();
            inputBox.expect("Give A New Name For This Activity", "DUPLICATE NAME!", "RS1", now);
            dialog->txtName_Leave();
            ports.messages.expect("Properties Saved", "", Icon::information);
            EXPECT_TRUE(dialog->OK());
            dialog->end();
        } else {
            const auto dialog = openOn<RecordSetProp>(name);
            dialog->txtRecordSetName_Change("RS1");
            refuse();
            EXPECT_FALSE(dialog->OK());
            dialog->txtRecordSetName_Change(now);
            EXPECT_TRUE(dialog->OK());
            dialog->end();
        }
        expectSound();
        EXPECT_TRUE(form->unapplied());
        EXPECT_EQ(copies(), repeated) << "a second copy stays one";
        zoom::ApplyZoomChanges(*form, true);
        expectSound();
        EXPECT_TRUE(design.nodeNamed(now));
        EXPECT_EQ(graph.present(), renamed(before, name, now));
    }
}

TEST_F(ZoomDialogs, TheOrderOfTheRowsReachesTheScenario) {
    struct Row {
        const char* name;
        std::function<void()> before;
        std::function<void(SetActProp&)> edit;
        std::function<void()> after;
        Texts inputs;
        const char* other = nullptr;  ///< whose dialog it is, when not the central activity's
    };
    const auto rename = [&](const std::string& shown, const char* name) {
        ASSERT_TRUE(zoom::RenameNode(*form, node(shown), name));
    };
    const auto nothing = [] {};
    // Folded and unfolded the members stand in the view the other way round.
    const auto fold = [&] {
        zoom::CollapseActivity(*form, form->CentralActivityNo);
        zoom::ExpandActivity(*form, form->CentralActivityNo);
    };
    for (const Row& row :  // each begins with what the one before has left
         {Row{"moved",
              nothing,
              [](SetActProp& dialog) { dialog.MoveRows({3}, 1); },
              nothing,
              {"SONUM", "A1.O12", "AU_ID"}},
          Row{"another name for the activity after one for a member",
              [&] { rename("A2.IN.SONUM", "S"); },
              [](SetActProp& dialog) { dialog.txtName_Change("N"); },
              nothing,
              {"S", "A1.O12", "AU_ID"}},
          Row{"the other way round",
              nothing,
              [](SetActProp& dialog) { dialog.txtName_Change("A2"); },
              [&] { rename("A2.IN.S", "SONUM"); },
              {"SONUM", "A1.O12", "AU_ID"}},
          Row{"another name for the activity whose brought output feeds one",
              nothing,
              [](SetActProp& dialog) { dialog.txtName_Change("N"); },
              nothing,
              {"SONUM", "N.O12", "AU_ID"},
              "A1"}}) {
        SCOPED_TRACE(row.name);
        const std::string former = design.nodeNamed("A2") ? "A2" : "N";
        open(former);
        row.before();
        fold();
        {
            const auto dialog = openOn<SetActProp>(row.other ? row.other : former);
            dialog->ActTypes = 0;
            row.edit(*dialog);
            ports.messages.expect("Properties Saved", "", Icon::information);
            EXPECT_TRUE(dialog->OK());
            dialog->end();
        }
        fold();
        row.after();
        zoom::ApplyZoomChanges(*form, true);
        EXPECT_EQ(links::keysOf(form->central()->activity()->Act_Inputs), row.inputs);
        EXPECT_EQ(links::keysOf(design.nodeNamed(form->central()->Caption())->activity()->Act_Inputs), row.inputs);
    }
}

}  // namespace
