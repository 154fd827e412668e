// What gestures, menus, saving and closing mean in the zoom window.

#include "canvas/deletion.h"
#include "canvas/pointer_fixture.h"
#include "links/canvas_links.h"
#include "platform/codes.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/expand_collapse.h"
#include "zoom/rename_node.h"
#include "zoom/view_filters.h"
#include "zoom/zoom_fixture.h"

using namespace orvent;
using namespace orvent::entities;
using canvas::LabelsD;
using platform::Answer;

namespace {

class ZoomWindow : public testkit::ZoomTest {
  protected:
    void expectQuestion(Answer answer) {
        ports.messages.expect("DO YOU WANT TO APPLY THE CHANGES TO SCENARIO Sales ?", "Closing Scenario",
                              platform::Icon::question, platform::Buttons::yesNoCancel, answer);
    }

    void remove(std::initializer_list<const char*> names) {
        form->SelectedLabels.Clear();
        for (const char* name : names) {
            form->SelectedLabels.Add(index(name));
        }
        canvas::DeleteSelectedNodes(*form, canvas::kEveryNodeType, links, form->rules());
    }

    /// "kind:identifier" of each row to delete.
    std::string rows() const {
        std::string text;
        for (const canvas::DeletedNode& row : *design.DeletedNodes) {
            text += std::to_string(platform::numberOf(row.NodeKind)) + ":" + std::to_string(row.NodeID) + " ";
        }
        return text;
    }

    links::CanvasLinks links;
};

TEST_F(ZoomWindow, ToolsPlaceFreeNodes) {
    open();
    form->Labels.Add({0, 0, 300, 300}, "Constant1", canvas::NodeTypeConstant);  // its name is passed over
    struct Row {
        const char* tool;
        const char* name;
        canvas::NodeTypeCode type;
        canvas::Box box;
    };
    for (const Row& row : {Row{"Constant", "Constant2", canvas::NodeTypeConstant, {775, 775, 450, 450}},
                           Row{"Attribute", "Attribute1", canvas::NodeTypeAttribute, {475, 887.5F, 1050, 225}},
                           Row{"Function", "Function1", canvas::NodeTypeFunction, {475, 775, 1050, 450}},
                           Row{"Parameter", "Parameter1", canvas::NodeTypeParameter, {475, 887.5F, 1050, 225}},
                           Row{"Parameter", "Parameter2", canvas::NodeTypeParameter, {475, 887.5F, 1050, 225}}}) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(form->rules().placeNode(*form, row.tool, {1000, 1000}), nullptr);
        const LabelsD& placed = node(row.name);
        EXPECT_EQ(placed.NodeType(), row.type);
        EXPECT_EQ(placed.box(), row.box);
        EXPECT_EQ(placed.KeyName(), placed.Caption());
    }
    EXPECT_EQ(node("Constant2").entity<ParameterProperties>()->Key, "Constant2");
    EXPECT_EQ(node("Function1").entity<FunctionProperties>()->Function_Key, "Function1");
    form->rules().placeNode(*form, "Attribute", {0, 0});
    EXPECT_EQ(node("Attribute2").box(), (canvas::Box{0, 0, 1050, 225}));
    // A constant does not take the name of one that a folded member is linked to, neither as a new one nor later.
    ActivityProperties& neighbour = *node("A1").activity();
    const auto folded = [](FunctionProperties& function) -> ParameterProperties& {
        return function.Function_Inputs->Add("Folded", 0, "Folded");
    };
    folded(*node("Function1").entity<FunctionProperties>())
        .RegulatedFrom->Add("Constant3", LinkConstantFunction, "Constant3");
    neighbour.Act_Parameters->Add("P", 0, entities::TagNone, "P")
        .RegulatedFrom->Add("Constant4", LinkConstant, "Constant4");
    folded(neighbour.Act_Functions->AddFunctionProps({}, "A1.F", 0))
        .RegulatedFrom->Add("Constant5", LinkConstantFunction, "Constant5");
    form->rules().placeNode(*form, "Constant", {0, 0});
    LabelsD& constant = *form->Labels.at(form->Labels.Count());
    EXPECT_EQ(constant.KeyName(), "Constant6");
    for (const char* linked : {"Constant3", "Constant4", "Constant5"}) {
        SCOPED_TRACE(linked);
        ports.messages.expect("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!",
                              "DUPLICATE NAME!", platform::Icon::critical);
        EXPECT_FALSE(zoom::RenameNode(*form, constant, linked));
        EXPECT_FALSE(form->nodeNamed(linked));
    }
    EXPECT_TRUE(zoom::RenameNode(*form, node("C1"), "C1")) << "it bears the name itself";
    const int count = form->Labels.Count();
    form->rules().placeNode(*form, "RecordSet", {0, 0});
    EXPECT_EQ(form->Labels.Count(), count);
    catalogue.dataTypes.clear();  // a catalogue without types has the empty one
    form->rules().placeNode(*form, "Attribute", {0, 0});
    EXPECT_EQ(node("Attribute3").ToolTipText(), "Attribute3()");
}

TEST_F(ZoomWindow, DeletedMembersLeaveTheirOwner) {
    open();
    node("A2.OUT.ED_ID").entity<AttributeProperties>()->SubNode_ID = 5;
    node("A2.F2").entity<FunctionProperties>()->FunctionID = 7;
    // Whole nodes, and inputs of functions, stay.
    remove({"A2", "RS4", "A1", "F1.IN.I1"});
    EXPECT_EQ(form->Labels.Count(), 34);
    // What a filter hides is selected as before, and does not go unseen.
    zoom::toggleFilter(*form, &zoom::ViewMarks::ViewAttributesM);
    remove({"A2.PARAM.PUB_ID", "F1", "C1"});
    EXPECT_EQ(form->Labels.Count(), 34);
    zoom::toggleFilter(*form, &zoom::ViewMarks::ViewAttributesM);
    EXPECT_FALSE(form->unapplied());
    remove({"A2.OUT.ED_ID", "A2.PARAM.PUB_ID", "RS4.SONUM", "C1"});
    EXPECT_EQ(rows(), "2:5 3:0 4:0 ");
    EXPECT_TRUE(form->unapplied());
    expectSound();
    remove({"A2.F2"});
    EXPECT_EQ(rows(), "2:5 3:0 4:0 7:7 ");
    EXPECT_EQ(node("A2").activity()->Act_Functions->Item("A2.F2"), nullptr);
    EXPECT_EQ(index("A2.F2.IN.I1"), canvas::kNoNode);
    // The function's own links went with it, on both ends.
    for (const RegulatorProperties& link : node("A2.IN.A1.O12").entity<AttributeProperties>()->RegulatorFor) {
        EXPECT_NE(link.Regulator_name, "A2.F2");
    }
    expectSound();
    zoom::ApplyZoomChanges(*form, true);
    for (const std::string& line : graph.present()) {
        EXPECT_EQ(line.find("A2.OUT.ED_ID"), std::string::npos) << line;
        EXPECT_EQ(line.find("RS4.SONUM"), std::string::npos) << line;
    }
}

TEST_F(ZoomWindow, EdgesStandForRelationships) {
    struct Row {
        const char* target;
        canvas::EdgeTypeCode kind;
        bool goes;
    };
    for (const Row& row :
         {Row{"A2.IN.SONUM", canvas::EdgeTypeProvider, true}, Row{"A2.PARAM.SONUM", canvas::EdgeTypeRegulator, true},
          Row{"A2.IN.SONUM", canvas::EdgeTypePartOf, true}, Row{"F1", canvas::EdgeTypePartOf, true},
          Row{"F1.IN.I1", canvas::EdgeTypePartOf, false}, Row{"RS4.SONUM", canvas::EdgeTypePartOf, false}}) {
        for (const bool redirected : {false, true}) {
            SCOPED_TRACE(row.target);
            open();
            const canvas::LinesD* edge = nullptr;
            for (const canvas::EdgeNumber number : node(row.target).EndingLines()) {
                const canvas::LinesD* each = form->Lines.byIndex(number);
                edge = each->EdgeType() == row.kind ? each : edge;
            }
            ASSERT_TRUE(edge);
            canvas::LinesD& ended = *form->Lines.byIndex(edge->Index());
            const std::string before = testkit::modelText(*form);
            canvas::CanvasRules& rules = form->rules();
            EXPECT_EQ(redirected ? rules.mayRedirect(*form, ended, false, node("A2")) : rules.releaseEdge(*form, ended),
                      row.goes);
            EXPECT_EQ(testkit::modelText(*form) != before, row.goes);
            EXPECT_EQ(form->unapplied(), row.goes);
            if (row.kind == canvas::EdgeTypeProvider) {
                rules.edgeCompleted(*form, ended);  // what was taken back is written again
                EXPECT_EQ(node(row.target).entity<AttributeProperties>()->ProvidedFrom.count(), 1);
            }
            ended.setAngle(canvas::AngleNone);
            rules.middleOnOwnEnd(ended);
            EXPECT_EQ(ended.Angle(), canvas::AngleStraight);
        }
    }
}

TEST_F(ZoomWindow, ExpandedIsAMark) {
    open();
    for (const char* name : {"RS4", "A1", "F1", "A2.F2", "A3"}) {
        SCOPED_TRACE(name);
        const int count = form->Labels.Count();
        EXPECT_TRUE(form->rules().toggleExpanded(*form, node(name)));
        EXPECT_LT(form->Labels.Count(), count);
        EXPECT_FALSE(node(name).Expanded);
        EXPECT_TRUE(form->rules().toggleExpanded(*form, node(name)));
        EXPECT_EQ(form->Labels.Count(), count);
        EXPECT_TRUE(node(name).Expanded);
    }
}

TEST_F(ZoomWindow, MenusActOnTheKindTheyWereOpenedOn) {
    open();
    testkit::LoggingHost host;
    canvas::ViewState view(*form);
    canvas::CanvasPointer pointer(*form, view, {host, host, host});
    const auto openMenu = [&](const char* shown) {
        canvas::PointerEvent event;
        event.hit = canvas::Hit::onNode(index(shown));
        event.button = canvas::RightButton;
        pointer.press(event);
        return host.taken();
    };
    struct Row {
        const char* shown;
        std::string kind;
        bool folds, goes;
    };
    for (const Row& row :
         {Row{"RS4", "RecordSet", true, false}, Row{"A1", "Activity", true, false}, Row{"F1", "Function", true, true},
          Row{"C1", "Constant", false, true}, Row{"A2.IN.SONUM", "Attribute", false, true},
          Row{"A2.PARAM.PUB_ID", "Parameter", false, true}}) {
        SCOPED_TRACE(row.shown);
        EXPECT_EQ(openMenu(row.shown), " " + row.kind + "M");
        LabelsD& shown = node(row.shown);
        const bool expanded = shown.Expanded;
        shown.setReady(true);
        for (const char* item : {"NotReadyM", "PropertiesM", "ExpandedM"}) {
            pointer.choose(row.kind + item);
        }
        EXPECT_EQ(host.taken(), " dialog " + shown.Caption());
        EXPECT_FALSE(shown.Ready());
        EXPECT_EQ(shown.Expanded, expanded != row.folds);
        for (const std::string other : {"RecordSet", "Activity", "Function", "Constant", "Attribute", "Parameter"}) {
            if (other != row.kind) {
                openMenu(row.shown);
                pointer.choose(other + "DeleteM");
            }
        }
        EXPECT_TRUE(form->nodeNamed(row.shown));
        openMenu(row.shown);
        pointer.choose(row.kind + "DeleteM");
        EXPECT_EQ(form->nodeNamed(row.shown) == nullptr, row.goes);
        host.taken();
    }
    openMenu("A2");
    pointer.choose("ActivityExpandedM");
    EXPECT_EQ(host.taken(), " close " + form->Caption()) << "to fold the middle means to close the window";
    EXPECT_TRUE(node("A2").Expanded);
    for (const auto& [tool, kind] : {std::pair("Provider", canvas::EdgeTypeProvider),
                                     {"Regulator", canvas::EdgeTypeRegulator},
                                     {"PartOf", canvas::EdgeTypePartOf}}) {
        EXPECT_EQ(form->rules().edgeTypeOf(tool), kind);
    }
    EXPECT_FALSE(form->rules().edgeTypeOf("Description"));
}

TEST_F(ZoomWindow, ClosingAsksWhetherToApply) {
    design.setCaption("Sales");
    const std::string before = testkit::modelText(design);
    for (const Answer answer : {Answer::cancel, Answer::no, Answer::yes}) {
        open();
        EXPECT_EQ(form->Caption(), "Sales - Expand");
        EXPECT_FALSE(design.Enabled());
        remove({"A2.OUT.ED_ID"});
        expectQuestion(answer);
        EXPECT_EQ(form->QueryUnload(), answer != Answer::cancel);
        EXPECT_EQ(rows(), answer == Answer::no ? "" : "2:0 ");
        EXPECT_EQ(testkit::modelText(design) == before, answer != Answer::yes);
        if (answer == Answer::cancel) {
            design.DeletedNodes->cutBack(0);
        }
        form.reset();
        EXPECT_TRUE(design.Enabled());
    }
}

TEST_F(ZoomWindow, ClosingTellsWhatBelongsToNothing) {
    design.setCaption("Sales");
    open();
    const auto told = [&] {
        expectQuestion(Answer::cancel);
        form->QueryUnload();
        return ports.messages.smaller;
    };
    EXPECT_EQ(told(), "");
    form->rules().placeNode(*form, "Attribute", {0, 0});
    EXPECT_EQ(told(), "1 node belongs to nothing and is lost by Yes: Attribute1.");
    for (const char* tool : {"Constant", "Parameter", "Function", "Constant"}) {
        form->rules().placeNode(*form, tool, {0, 0});
    }
    const auto regulates = [&](const char* constant, const char* owner) {
        node(constant).entity<ParameterProperties>()->RegulatorFor->Add(owner, LinkConstantFunction, "far");
    };
    regulates("Constant1", "Function1");  // goes with what it regulates
    regulates("Constant2", "A2");
    EXPECT_EQ(told(), "4 nodes belong to nothing and are lost by Yes: Attribute1, Constant1, Parameter1, Function1.");
    form->rules().edgeCompleted(*form, *form->Lines.addFullLine(index("A2"), 1, index("Attribute1"), 1,
                                                                canvas::EdgeTypePartOf, canvas::AngleNone, 0));
    form->rules().toggleExpanded(*form, node("A2.F2"));  // what is folded belongs to it all the same
    EXPECT_EQ(told(), "3 nodes belong to nothing and are lost by Yes: Constant1, Parameter1, Function1.");
}

TEST_F(ZoomWindow, WhatWasAppliedStaysDeletedAfterNo) {
    design.setCaption("Sales");
    open();
    remove({"A2.OUT.ED_ID"});
    zoom::ApplyZoomChanges(*form, true);
    EXPECT_FALSE(form->unapplied());
    remove({"A2.OUT.SONUM"});
    expectQuestion(Answer::no);
    form->QueryUnload();
    EXPECT_EQ(rows(), "2:0 ");
}

TEST_F(ZoomWindow, WhatWasDeletedAfterASaveIsTakenBackByNo) {
    design.setCaption("Sales");
    open();
    remove({"A2.OUT.ED_ID"});
    store.save = [](canvas::DrawForm& saved) { saved.DeletedNodes->Clear(); };  // as a full write does
    form->Save();
    remove({"A2.OUT.SONUM"});
    expectQuestion(Answer::no);
    form->QueryUnload();
    EXPECT_EQ(rows(), "");
}

TEST_F(ZoomWindow, SavingStoresTheScenarioAndTakesItsIdentifiers) {
    design.setCaption("Sales");
    open();
    remove({"A2.OUT.ED_ID"});
    bool breaks = false;
    store.save = [&](canvas::DrawForm& saved) {
        EXPECT_EQ(saved.nodeNamed("A2")->activity()->Act_Outputs->Item("ED_ID"), nullptr);
        saved.nodeNamed("A2")->activity()->NodeID = breaks ? 12 : 11;
        saved.setCaption("Sales 2");
        if (breaks) {
            throw platform::Fault("gone");
        }
    };
    form->Save();
    EXPECT_EQ(node("A2").activity()->NodeID, 11);
    EXPECT_EQ(form->Caption(), "Sales 2 - Expand");
    EXPECT_TRUE(node("A2").Expanded);
    breaks = true;
    EXPECT_THROW(form->Save(), platform::Fault);
    EXPECT_EQ(node("A2").activity()->NodeID, 12);
}

}  // namespace
