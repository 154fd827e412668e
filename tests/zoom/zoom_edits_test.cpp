// Edits of the zoom view that reach the scenario whole, or are refused.

#include "canvas/deletion.h"
#include "links/canvas_links.h"
#include "links/members.h"
#include "testkit/zoom_faults.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/expand_collapse.h"
#include "zoom/relationship_rules.h"
#include "zoom/rename_node.h"
#include "zoom/view_filters.h"
#include "zoom/zoom_fixture.h"

using namespace orvent;
using namespace orvent::entities;
using canvas::LabelsD;
using platform::Icon;

namespace {

constexpr auto P = canvas::EdgeTypeProvider;
constexpr auto R = canvas::EdgeTypeRegulator;
constexpr auto T = canvas::EdgeTypePartOf;

class ZoomEdits : public testkit::ZoomTest {
  protected:
    zoom::ZoomForm& open(const std::string& activity = "A2") {
        form.reset();
        form =
            std::make_unique<zoom::ZoomForm>(zoom::ZoomServices{ports.services(), catalogue, progress, narrow}, design);
        zoom::buildZoomView(*form, *design.nodeNamed(activity));
        return *form;
    }

    /// Draws an edge as a gesture does; nothing when it was refused.
    canvas::LinesD* draw(const LabelsD& from, const LabelsD& to, canvas::EdgeTypeCode kind, std::int16_t grab = 1) {
        canvas::LinesD& edge =
            *form->Lines.addFullLine(from.Index(), grab, to.Index(), 2, kind, canvas::AngleStraight, 0);
        form->rules().edgeCompleted(*form, edge);
        return form->Lines.FindConnectingLine(from.Index(), to.Index(), kind, false);
    }
    canvas::LinesD* draw(const char* from, const char* to, canvas::EdgeTypeCode kind, std::int16_t grab = 1) {
        return draw(node(from), node(to), kind, grab);
    }

    void refuse(const std::string& words = "This Relationship Is Not Valid!", Icon icon = Icon::warning) {
        ports.messages.expect(words, "", icon);
    }

    LabelsD& place(const char* name, canvas::NodeTypeCode kind) {
        return form->Labels.Add({0, 0, 300, 300}, name, kind);
    }

    void remove(const LabelsD& shown) {
        form->SelectedLabels.Add(shown.Index());
        canvas::DeleteSelectedNodes(*form, canvas::kEveryNodeType, links, form->rules());
    }

    LabelsD& secondCopy(const std::string& caption) {
        for (LabelsD& each : form->Labels) {
            if (!form->bearsName(each) && each.Caption() == caption) {
                return each;
            }
        }
        throw std::runtime_error(caption);
    }

    void expectWhole() {
        EXPECT_EQ(testkit::CanvasFaults::ofZoom(*form), testkit::CanvasFaults::Lines{});
        zoom::ApplyZoomChanges(*form, true);
        EXPECT_EQ(testkit::CanvasFaults::ofZoom(*form), testkit::CanvasFaults::Lines{});
        EXPECT_EQ(testkit::CanvasFaults::ofScenario(design), testkit::CanvasFaults::Lines{});
        const std::string applied = testkit::modelText(design);
        zoom::ApplyZoomChanges(*form, true);
        EXPECT_EQ(testkit::modelText(design), applied);
    }

    links::CanvasLinks links;
};

TEST_F(ZoomEdits, ADeletedOutputLeavesNoMirrorInOrBesideTheView) {
    for (const char* line : {"A1.IN.X <- 2 A2 A2.OUT.A1.O12", "A2.OUT.A1.O12 -> 2 A1 A1.IN.X"}) {
        graph.add(line);
    }
    FunctionProperties& function = *graph.activity("A2").Act_Functions->Item("F1");
    ASSERT_EQ(function.Function_Outputs->Item("O1")->RegulatorFor.count(), 1);
    open("A3");  // beside A2; its functions and what else it feeds are not shown
    remove(node("A2.OUT.A1.O12"));
    zoom::ApplyZoomChanges(*form, false);
    ActivityProperties& owner = graph.activity("A2");
    EXPECT_EQ(owner.Act_Outputs->Item("A1.O12"), nullptr);
    EXPECT_EQ(graph.activity("A1").Act_Inputs->Item("X")->ProvidedFrom.count(), 0);
    for (const char* key : {"F1", "A2.F2"}) {
        EXPECT_EQ(owner.Act_Functions->Item(key)->Function_Outputs->Item("O1")->RegulatorFor.count(), 0) << key;
    }
    EXPECT_EQ(testkit::CanvasFaults::ofScenario(design), testkit::CanvasFaults::Lines{});
}

TEST_F(ZoomEdits, NothingIsDrawnAtASecondCopy) {
    edge("A2", "RS4");
    edge("A2", "A2");
    open();
    const std::string before = testkit::modelText(*form);
    place("X", canvas::NodeTypeAttribute);
    struct Row {
        LabelsD& from;
        LabelsD& to;
        canvas::EdgeTypeCode kind;
    };
    for (const Row& row :
         {Row{node("A1.OUT.AU_ID"), secondCopy("SONUM"), P}, Row{secondCopy("AU_ID"), node("RS2.ED_ID"), P},
          Row{secondCopy("SONUM"), node("A2.PARAM.PUB_ID"), R}, Row{secondCopy("A2"), node("X"), T}}) {
        SCOPED_TRACE(row.from.Caption() + " to " + row.to.Caption());
        EXPECT_FALSE(zoom::mayRelate(*form, row.kind, row.from, row.to));
        refuse();
        EXPECT_EQ(draw(row.from, row.to, row.kind), nullptr);
    }
    // What ties its members stays, too.
    canvas::LinesD& tie = *form->Lines.byIndex(*secondCopy("AU_ID").EndingLines().begin());
    EXPECT_FALSE(form->rules().mayRedirect(*form, tie, false, node("X")));
    EXPECT_FALSE(form->rules().releaseEdge(*form, tie));
    EXPECT_FALSE(form->unapplied());
    form->Labels.Remove(index("X"));
    EXPECT_EQ(testkit::modelText(*form), before);
}

TEST_F(ZoomEdits, SelectedEdgesGoTogetherUnlessAFilterHidesThem) {
    open();
    const Texts drawn = edges();
    for (const char* regulator : {"A2.IN.SONUM", "C1"}) {
        form->SelectedLines.Add(
            form->Lines.FindConnectingLine(index(regulator), index("A2.PARAM.SONUM"), R, false)->Index());
    }
    zoom::toggleFilter(*form, &zoom::ViewMarks::ViewRegulatorM);
    canvas::DeleteSelectedEdges(*form, form->rules());
    EXPECT_EQ(edges(), drawn);
    EXPECT_FALSE(form->unapplied());
    zoom::toggleFilter(*form, &zoom::ViewMarks::ViewRegulatorM);
    canvas::DeleteSelectedEdges(*form, form->rules());
    Texts left = edges();
    left.insert(left.end(), {"A2.IN.SONUM 3 A2.PARAM.SONUM", "C1 3 A2.PARAM.SONUM"});
    EXPECT_EQ(sorted(left), drawn);
    expectWhole();
}

TEST_F(ZoomEdits, WhatIsShownBesidesFollowsEdits) {
    open();
    zoom::toggleFilter(*form, &zoom::ViewMarks::ViewProviderM);
    ASSERT_NE(draw("A2.OUT.SONUM", "RS2.ED_ID", P), nullptr);
    const auto shown = [&](const char* from, const char* to, canvas::EdgeTypeCode kind) {
        const canvas::LinesD* edge = form->Lines.FindConnectingLine(index(from), index(to), kind, false);
        return edge && edge->Visible();
    };
    EXPECT_FALSE(shown("A2.OUT.SONUM", "RS2.ED_ID", P)) << "its kind is filtered out";
    zoom::toggleFilter(*form, &zoom::ViewMarks::ViewInstanceOfM);
    zoom::toggleFilter(*form, &zoom::ViewMarks::ViewDerivedM);
    node("NUMBER").setLeft(1111);
    canvas::LinesD* regulator = draw("A2.PARAM.PUB_ID", "A2.OUT.ED_ID", R);
    ASSERT_NE(regulator, nullptr);
    EXPECT_TRUE(shown("RS3.PUB_ID", "A2.OUT.ED_ID", canvas::EdgeTypeDerived));
    EXPECT_EQ(node("NUMBER").Left(), 1111) << "what is up to date stands where it was put";
    form->SelectedLines.Add(regulator->Index());
    canvas::DeleteSelectedEdges(*form, form->rules());
    EXPECT_FALSE(shown("RS3.PUB_ID", "A2.OUT.ED_ID", canvas::EdgeTypeDerived));
    form->rules().placeNode(*form, "Attribute", {1000, 1000});
    EXPECT_TRUE(shown("Attribute1", "NUMBER", canvas::EdgeTypeReserved));
    for (const char* function : {"F1", "A2.F2"}) {
        EXPECT_TRUE(shown(function, "SUM", canvas::EdgeTypeReserved));
        remove(node(function));
    }
    EXPECT_EQ(index("SUM"), canvas::kNoNode) << "nothing of that type is left";
}

TEST_F(ZoomEdits, AMemberComesToAnotherOwnerAsItWasFreed) {
    open();
    node("A2.IN.SONUM").entity<AttributeProperties>()->Tag = TagTypeFunction;
    graph.activity("A2");
    const auto untie = [&](const char* owner, const char* member) -> LabelsD& {
        LabelsD& freed = node(member);
        canvas::LinesD& tie = *form->Lines.FindConnectingLine(index(owner), freed.Index(), T, false);
        EXPECT_TRUE(form->rules().releaseEdge(*form, tie));
        form->Lines.RemoveFull(tie.Index());
        return freed;
    };
    LabelsD& attribute = untie("A2", "A2.IN.SONUM");
    EXPECT_NE(draw(node("A1"), attribute, T), nullptr);
    EXPECT_EQ(node("A1.IN.SONUM").entity<AttributeProperties>()->Tag, TagNone) << "it comes from nowhere";
    LabelsD& parameter = untie("A2", "A2.PARAM.AU_ID");
    parameter.showCaption("other");
    EXPECT_NE(draw(node("A1"), parameter, T), nullptr);
    EXPECT_EQ(parameter.KeyName(), "A1.PARAM.AU_ID") << "the name follows the key";
    // An input without origin gives the type of one that an activity feeds, whichever way the edge was drawn.
    parameter.entity<ParameterProperties>()->Tag = tagOf(LinkTypeParameter);
    draw(parameter, attribute, R);
    EXPECT_EQ(parameter.entity<ParameterProperties>()->RegulatedFrom->Item(1)->Regulator_type, LinkActivityInput);
    // Of two of one name the second goes by the next free one, and can be used like any other.
    untie("A2", "A2.IN.AU_ID");
    LabelsD& second = untie("A2", "A2.OUT.AU_ID");
    const auto& entity = *second.entity<AttributeProperties>();
    for (const std::string& name : {second.KeyName(), second.Caption(), entity.Key, entity.Attribute_Name}) {
        EXPECT_EQ(name, "AU_ID1");
    }
    EXPECT_EQ(second.ToolTipText(), "AU_ID1(NUMBER)");
    EXPECT_TRUE(zoom::RenameNode(*form, second, "Second"));
    EXPECT_NE(draw(node("A1"), second, T), nullptr);
    EXPECT_TRUE(form->nodeNamed("A1.IN.Second"));
    expectWhole();
}

TEST_F(ZoomEdits, AMemberStandsBesideFoldedOnes) {
    open();
    zoom::CollapseWhole(*form, node("A3"));
    struct Row {
        const char* owner;
        const char* name;
        canvas::NodeTypeCode kind;
        std::int16_t grab;
    };
    for (const Row& row : {Row{"A3", "Y", canvas::NodeTypeAttribute, 1}, Row{"A1", "Q", canvas::NodeTypeParameter, 1},
                           Row{"A3", "Z", canvas::NodeTypeAttribute, 4}}) {
        place(row.name, row.kind);
        draw(row.owner, row.name, T, row.grab);
    }
    node("A1.PARAM.Q").entity<ParameterProperties>()->Tag = tagOf(LinkTypeParameter);
    for (const auto& [from, to, kind] :
         {std::tuple("A1.PARAM.Q", "A1.OUT.AU_ID", R), {"A2.OUT.SONUM", "A3.IN.Y", P}, {"A3.OUT.Z", "RS4.SONUM", P}}) {
        EXPECT_NE(draw(from, to, kind), nullptr);
    }
    expectWhole();
    EXPECT_TRUE(zoom::RenameNode(*form, node("A1.PARAM.Q"), "Q2"));
    zoom::ExpandByPlace(*form, node("A3"));
    expectWhole();
    const Texts drawn = edges();
    EXPECT_EQ(std::count(drawn.begin(), drawn.end(), "A2.OUT.SONUM 0 A3.IN.Y"), 1);
    EXPECT_EQ(std::count(drawn.begin(), drawn.end(), "A1.PARAM.Q2 3 A1.OUT.AU_ID"), 1);
}

TEST_F(ZoomEdits, AFunctionIsEditedWhileItsActivityIsFolded) {
    struct Row {
        const char* name;
        std::function<void()> edit;
        const char* key;  ///< of the activity's function then, null for none
    };
    const auto give = [&](std::int16_t number) {
        for (FunctionProperties& each : graph.activity("A2").Act_Functions) {
            each.FunctionID = each.FunctionID ? each.FunctionID : number;
        }
    };
    for (const Row& row : {Row{"linked", [&] { draw("F1.IN.I4", "RS3.PUB_ID", R); }, "F1"},
                           Row{"renamed", [&] { EXPECT_TRUE(zoom::RenameNode(*form, node("F1"), "G")); }, "G"},
                           Row{"tied to another",
                               [&] {
                                   refuse();
                                   EXPECT_EQ(draw("A1", "G", T), nullptr);
                               },
                               "G"},
                           Row{"filled anew",
                               [&] {
                                   auto filled = std::make_shared<FunctionProperties>();
                                   filled->Function_Key = filled->Function_Name = "G";
                                   filled->Function_Source = SourceOwn;
                                   filled->Function_Inputs->Add("fresh", 0, "fresh").NodeKind = KindFunctionInput;
                                   zoom::ReplaceFunction(*form, node("G"), filled);
                                   draw("RS3.PUB_ID", "G.IN.fresh", R);
                               },
                               "G"},
                           Row{"deleted", [&] { remove(node("G")); }, nullptr}}) {
        SCOPED_TRACE(row.name);
        if (row.key && *row.key == 'F') {
            auto& inputs = *graph.activity("A2").Act_Functions->Item("F1")->Function_Inputs;
            auto& input = inputs.Add("I4", 0, "I4");
            input.NodeKind = KindFunctionInput;
            input.ParentKeyName = "F1";
            input.ParentFunctionActivity = "A2";
        }
        open();
        zoom::CollapseActivity(*form, index("A2"));
        if (LabelsD* function = form->nodeNamed(canvas::isGiven(index("F1")) ? "F1" : "G")) {
            zoom::ExpandFunction(*form, function->Index());
        }
        row.edit();
        expectWhole();
        const FunctionProperties* function = row.key ? graph.activity("A2").Act_Functions->Item(row.key) : nullptr;
        EXPECT_EQ(graph.activity("A2").Act_Functions->Count(), row.key ? 2 : 1);
        ASSERT_EQ(function != nullptr, row.key != nullptr);
        if (function) {
            EXPECT_EQ(function->ParentKeyName(), "A2");
            give(7);
            zoom::RefreshZoomIdentities(*form);
            zoom::ApplyZoomChanges(*form, true);
            EXPECT_EQ(graph.activity("A2").Act_Functions->Item(row.key)->FunctionID, 7) << "its row would come twice";
            zoom::ExpandActivity(*form, index("A2"));
            EXPECT_EQ(node(row.key).entity<FunctionProperties>(), node("A2").activity()->Act_Functions->Item(row.key));
            expectWhole();
        }
    }
}

TEST_F(ZoomEdits, MembersKeepTheirPlacesWhateverWasFolded) {
    struct Row {
        const char* name;
        std::function<void()> edit;
        Texts inputs;
        const char* function;
        Texts parameters;
    };
    const auto rename = [&](const std::string& shown, const char* name) {
        ASSERT_TRUE(zoom::RenameNode(*form, node(shown), name)) << shown;
    };
    const auto add = [&](const char* name) {
        place(name, canvas::NodeTypeAttribute);
        draw("A2", name, T);
    };
    const auto fold = [&] {
        zoom::CollapseInputs(*form, index("A2"));
        zoom::ExpandInputs(*form, index("A2"));
        for (LabelsD& each : form->Labels) {
            if (each.entity<FunctionProperties>()) {
                zoom::CollapseFunction(*form, each.Index());
                zoom::ExpandFunction(*form, each.Index());
            }
        }
    };
    const auto made = [](const Texts& inputs) {
        auto function = std::make_shared<FunctionProperties>();
        function->Function_Key = function->Function_Name = "K";
        for (const std::string& input : inputs) {
            function->Function_Inputs->Add(input, 0, input).NodeKind = KindFunctionInput;
        }
        return function;
    };
    for (const Row& row :  // each begins with what the one before has left
         {Row{"an input renamed, then its function",
              [&] { rename("F1.IN.I1", "X"), rename("F1", "G"); },
              {"A1.O12", "AU_ID", "SONUM"},
              "G",
              {"X", "I2", "I3"}},
          Row{"a function renamed, then its input",
              [&] { rename("G", "H"), rename("H.IN.I2", "Y"), rename("H", "K"); },
              {"A1.O12", "AU_ID", "SONUM"},
              "K",
              {"X", "Y", "I3"}},
          Row{"two names exchanged",
              [&] { rename("A2.IN.SONUM", "T"), rename("A2.IN.AU_ID", "SONUM"), rename("A2.IN.T", "AU_ID"); },
              {"A1.O12", "SONUM", "AU_ID"},
              "K",
              {"X", "Y", "I3"}},
          Row{"new ones, of which one takes a name that became free and gives it up",
              [&] { rename("A2.IN.SONUM", "T"), add("SONUM"), add("V"), fold(), rename("A2.IN.SONUM", "U"); },
              {"A1.O12", "T", "AU_ID", "U", "V"},
              "K",
              {"X", "Y", "I3"}},
          Row{"one takes the name of one that is gone",
              [&] { remove(node("A2.IN.T")), rename("A2.IN.U", "T"); },
              {"A1.O12", "AU_ID", "T", "V"},
              "K",
              {"X", "Y", "I3"}},
          Row{"other parameters under the same names",
              [&] {
                  zoom::ReplaceFunction(*form, node("K"), made({"I3", "Y", "X"}));
              },
              {"A1.O12", "AU_ID", "T", "V"},
              "K",
              {"I3", "Y", "X"}},
          Row{"another function under the name of one that is gone",
              [&] {
                  remove(node("K")), remove(node("A2.F2"));
                  node("A2").activity()->Act_Functions->AddFunctionProps(*made({"X", "I3", "Y"}), "K", 0);
              },
              {"A1.O12", "AU_ID", "T", "V"},
              "K",
              {"X", "I3", "Y"}}}) {
        SCOPED_TRACE(row.name);
        open();
        fold();
        row.edit();
        for (int twice = 0; twice < 2; ++twice) {
            zoom::ApplyZoomChanges(*form, true);
            const ActivityProperties& applied = graph.activity("A2");
            EXPECT_EQ(links::keysOf(applied.Act_Inputs), row.inputs);
            EXPECT_EQ(applied.Act_Functions.peek()->keyAt(1), row.function);
            EXPECT_EQ(links::keysOf(applied.Act_Functions.peek()->Item(1)->Function_Inputs), row.parameters);
            EXPECT_EQ(testkit::CanvasFaults::ofScenario(design), testkit::CanvasFaults::Lines{});
        }
    }
}

TEST_F(ZoomEdits, NewNodesTakeNoNameByWhichOthersAreLinked) {
    const auto addFunction = [&](const char* owner, const char* key) {
        graph.activity(owner).Act_Functions->AddFunctionProps({}, key, 0);
    };
    addFunction("A1", "Function1");
    design.Labels.Add({0, 0, 300, 300}, "Far", canvas::NodeTypeActivity);
    addFunction("Far", "Function2");
    design.Labels.Add({0, 0, 300, 300}, "Constant1", canvas::NodeTypeRecordSet);
    open();
    form->rules().placeNode(*form, "Function", {1000, 1000});
    EXPECT_NE(form->nodeNamed("Function3"), nullptr);
    form->rules().placeNode(*form, "Constant", {1000, 1000});
    ASSERT_NE(form->nodeNamed("Constant2"), nullptr);
    ports.messages.expect("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!",
                          "DUPLICATE NAME!", Icon::critical);
    EXPECT_FALSE(zoom::RenameNode(*form, node("Constant2"), "Far"));
}

TEST_F(ZoomEdits, AFunctionDoesNotJoinItsNamesake) {
    graph.activity("A1").Act_Functions->AddFunctionProps({}, "F9", 0).setParentKeyName("A1");
    open();  // which does not show it
    auto& output =
        place("F9", canvas::NodeTypeFunction).entity<FunctionProperties>()->Function_Outputs->Add("O", 0, "O");
    output.NodeKind = KindFunctionOutput;
    zoom::ExpandFunction(*form, index("F9"));
    EXPECT_FALSE(zoom::mayRelate(*form, R, node("A1.OUT.AU_ID"), node("F9.OUT.O")));
    refuse();
    EXPECT_EQ(draw("A1.OUT.AU_ID", "F9.OUT.O", R), nullptr);
    expectWhole();
}

TEST_F(ZoomEdits, AFunctionOfNoActivityLeavesNoLinkInTheScenario) {
    open();
    place("F2", canvas::NodeTypeAttribute);
    form->rules().releaseEdge(*form, *form->Lines.FindConnectingLine(index("A2"), index("A2.F2"), T, false));
    EXPECT_NE(index("F21"), canvas::kNoNode) << "its bare name is taken";
    open();
    LabelsD& brought = node("A2.F2");
    canvas::LinesD& tie = *form->Lines.FindConnectingLine(index("A2"), brought.Index(), T, false);
    EXPECT_TRUE(form->rules().releaseEdge(*form, tie));
    form->Lines.RemoveFull(tie.Index());
    EXPECT_EQ(brought.KeyName(), "F2") << "alone it has no owner in its name";
    EXPECT_EQ(node("F2.IN.I1").entity<ParameterProperties>()->ParentKeyName, "F2");
    ASSERT_NE(draw("RS3.PUB_ID", "F2.IN.I2", R), nullptr);
    const Texts drawn = edges();
    expectWhole();
    EXPECT_EQ(testkit::modelText(design).find("F2.IN"), std::string::npos);
    EXPECT_EQ(edges(), drawn) << "the view keeps it";
    // Tied to an activity the input is called by another key, and its edge stays.
    ASSERT_NE(draw("A1", "F2", T), nullptr);
    EXPECT_NE(node("RS3.PUB_ID").entity<AttributeProperties>()->RegulatorFor->Item("F2.A1.I2"), nullptr);
    expectWhole();
    EXPECT_EQ(edges(), drawn);
}

}  // namespace
