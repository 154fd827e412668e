#include "entities/link_types.h"
#include "links/members.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/expand_collapse.h"
#include "zoom/view_filters.h"
#include "zoom/zoom_fixture.h"

using namespace orvent;
using namespace orvent::entities;
using canvas::LabelsD;
using zoom::ViewMarks;

namespace {

class ZoomView : public testkit::ZoomTest {
  protected:
    int visible(int kind) const {
        int count = 0;
        for (const canvas::LinesD& each : form->Lines) {
            count += static_cast<int>(each.EdgeType()) == kind && each.Visible() ? 1 : 0;
        }
        return count;
    }

    /// Grab points, angle and colour of an edge.
    static std::string stroke(const canvas::LinesD& edge) {
        return std::to_string(edge.FromGrabbingPoint()) + " " + std::to_string(edge.ToGrabbingPoint()) + " " +
               std::to_string(static_cast<int>(edge.Angle())) + " " + std::to_string(edge.Color());
    }

    template <class List>
    static Texts keys(List& list) {
        Texts result;
        for (auto& item : list) {
            result.push_back(item.Key);
        }
        return result;
    }

    Texts names() const {
        Texts result;
        for (const std::string& line : boxes()) {
            result.push_back(line.substr(0, line.find('\'')));
        }
        return result;
    }
};

TEST_F(ZoomView, ShowsEveryMemberAtItsPlaceUnderItsWholeKey) {
    design.nodeNamed("A2")->setBox({4000, 4000, 2000, 900});  // the view has sizes of its own
    open();
    const Texts expected = {
        "A1 'A1' 150 1050 1050 450",
        "A1.OUT.A1.O12 'A1.O12' 1200 1650 1050 225",
        "A1.OUT.AU_ID 'AU_ID' 1200 1950 1050 225",
        "A2 'A2' 5550 37 1050 450",
        "A2.F2 'A2.F2' 5550 3037 1050 450",
        "A2.F2.IN.I1 'I1' 5015 3637 1050 225",
        "A2.F2.IN.I2 'I2' 5015 3937 1050 225",
        "A2.F2.IN.I3 'I3' 5015 4237 1050 225",
        "A2.F2.IN.I4 'I4' 5015 4537 1050 225",
        "A2.F2.OUT.O1 'O1' 6085 3637 1050 225",
        "A2.IN.A1.O12 'A1.O12' 3450 637 1050 225",
        "A2.IN.AU_ID 'AU_ID' 3450 937 1050 225",
        "A2.IN.SONUM 'SONUM' 3450 1237 1050 225",
        "A2.OUT.A1.O12 'A1.O12' 7650 637 1050 225",
        "A2.OUT.AU_ID 'AU_ID' 7650 937 1050 225",
        "A2.OUT.ED_ID 'ED_ID' 7650 1237 1050 225",
        "A2.OUT.SONUM 'SONUM' 7650 1537 1050 225",
        "A2.PARAM.AU_ID 'AU_ID' 5550 1837 1050 225",
        "A2.PARAM.PUB_ID 'PUB_ID' 5550 2137 1050 225",
        "A2.PARAM.SONUM 'SONUM' 5550 2437 1050 225",
        "A3 'A3' 7650 1050 1050 450",
        "A3.IN.AU_ID 'AU_ID' 6600 1650 1050 225",
        "C1 'C1' 3450 2437 450 450",
        "F1 'F1' 2925 4987 1050 450",
        "F1.IN.I1 'I1' 2390 5587 1050 225",
        "F1.IN.I2 'I2' 2390 5887 1050 225",
        "F1.IN.I3 'I3' 2390 6187 1050 225",
        "F1.OUT.O1 'O1' 3460 5587 1050 225",
        "RS2 'RS2' 7650 112 1050 450",
        "RS2.ED_ID 'ED_ID' 7650 712 1050 225",
        "RS3 'RS3' 150 2325 1050 450",
        "RS3.PUB_ID 'PUB_ID' 150 2925 1050 225",
        "RS4 'RS4' 150 150 1050 450",
        "RS4.SONUM 'SONUM' 150 750 1050 225",
    };
    EXPECT_EQ(boxes(), expected);
    EXPECT_EQ(node("A2.IN.SONUM").ToolTipText(), "SONUM(NUMBER)");
    EXPECT_EQ(node("C1").ToolTipText(), "C1(NUMBER)");
    EXPECT_EQ(node("F1").ToolTipText(), "");
    EXPECT_EQ(progress.pointerShape, platform::PointerShape::ordinary);
}

TEST_F(ZoomView, DrawsTheLinksOfTheModel) {
    open();
    const Texts expected = {
        "A1.OUT.A1.O12 0 A2.IN.A1.O12",  "A1.OUT.AU_ID 0 A2.IN.AU_ID",
        "A2.F2.OUT.O1 3 A2.OUT.A1.O12",  "A2.IN.A1.O12 0 A2.OUT.A1.O12",
        "A2.IN.A1.O12 3 A2.F2.IN.I1",    "A2.IN.A1.O12 3 F1.IN.I1",
        "A2.IN.AU_ID 0 A2.OUT.AU_ID",    "A2.IN.AU_ID 3 A2.PARAM.AU_ID",
        "A2.IN.SONUM 0 A2.OUT.SONUM",    "A2.IN.SONUM 3 A2.PARAM.SONUM",
        "A2.OUT.AU_ID 0 A3.IN.AU_ID",    "A2.OUT.ED_ID 0 RS2.ED_ID",
        "A2.PARAM.AU_ID 3 A2.OUT.AU_ID", "C1 3 A2.F2.IN.I4",
        "C1 3 A2.PARAM.SONUM",           "F1.OUT.O1 3 A2.OUT.A1.O12",
        "RS3.PUB_ID 3 A2.F2.IN.I2",      "RS3.PUB_ID 3 A2.PARAM.PUB_ID",
        "RS3.PUB_ID 3 F1.IN.I2",         "RS4.SONUM 0 A2.IN.SONUM",
        "RS4.SONUM 3 A2.F2.IN.I3",       "RS4.SONUM 3 F1.IN.I3",
    };
    EXPECT_EQ(edges(), expected);
    expectSound();
    for (const LabelsD& each : form->Labels) {
        const int owners = static_cast<int>(std::count_if(
            each.EndingLines().begin(), each.EndingLines().end(),
            [&](canvas::EdgeNumber line) { return form->Lines.byIndex(line)->EdgeType() == canvas::EdgeTypePartOf; }));
        const bool member = each.entity<AttributeProperties>() || each.NodeType() == canvas::NodeTypeParameter ||
                            each.entity<FunctionProperties>();
        EXPECT_EQ(owners, member ? 1 : 0) << each.KeyName();
    }
    for (const auto& [name, grab] : {std::pair("A2.IN.SONUM", 1),
                                     {"A2.OUT.SONUM", 4},
                                     {"A2.PARAM.SONUM", 5},
                                     {"A2.F2", 5},
                                     {"F1", 5},
                                     {"F1.IN.I1", 4},
                                     {"F1.OUT.O1", 4},
                                     {"RS4.SONUM", 4}}) {
        EXPECT_EQ(stroke(*form->Lines.byIndex(*node(name).EndingLines().begin())), std::to_string(grab) + " 2 1 0")
            << name;
    }
}

TEST_F(ZoomView, ExpandingGrowsThePicture) {
    open();
    struct Row {
        const char* owner;
        void (*unfold)(zoom::ZoomView&, canvas::NodeNumber);
        const char* last;  ///< of what then appears
        bool widens;
    };
    for (const Row& row :
         {Row{"A2", zoom::ExpandInputs, "A2.IN.SONUM", false}, Row{"A2", zoom::ExpandOutputs, "A2.OUT.SONUM", true},
          Row{"A2", zoom::ExpandParameters, "A2.PARAM.SONUM", false},
          Row{"F1", zoom::ExpandFunction, "F1.OUT.O1", true}, Row{"RS4", zoom::ExpandRecordSet, "RS4.SONUM", true}}) {
        SCOPED_TRACE(row.last);
        zoom::CollapseWhole(*form, node(row.owner));
        node(row.owner).setBox({20000, 12900, 1050, 450});
        form->PicForm.setSize(17000, 13000);
        row.unfold(*form, index(row.owner));
        const LabelsD& last = node(row.last);
        EXPECT_EQ(form->PicForm.Width(), row.widens ? last.box().right() + last.Width() : 17000);
        EXPECT_GT(form->PicForm.Height(), 13000 + 3 * 450);
        EXPECT_LE(form->PicForm.Height(), last.box().bottom() + 3 * 450);
    }
}

TEST_F(ZoomView, NeighboursComeByProviderEdgesOnly) {
    edge("RS1", "A1", canvas::EdgeTypeRegulator);
    edge("RS1", "A1", canvas::EdgeTypeDescription);
    edge("A1", "RS3");
    open("A1");
    EXPECT_EQ(index("RS1"), canvas::kNoNode);
    EXPECT_EQ(node("RS3").Top(), node("A2").Top() + 450 + 150 + 4 * (225 + 150) - 37.5F) << "below four outputs";
    EXPECT_FALSE(node("A2").activity()->Act_Outputs->Expanded);
    open("A3");
    EXPECT_TRUE(node("A2").Expanded);
    EXPECT_TRUE(node("A2").activity()->Act_Outputs->Expanded);
    EXPECT_FALSE(node("A2").activity()->Act_Inputs->Expanded);
    EXPECT_TRUE(node("A3").activity()->Act_Parameters->Expanded) << "without any";
}

TEST_F(ZoomView, ApplyWithoutEditsChangesNothing) {
    const std::string before = testkit::modelText(design);
    open();
    node("A2.IN.SONUM").setLeft(2222);
    node("F1.OUT.O1").setReady(false);
    node("RS4").setTop(9999);
    EXPECT_EQ(form->BiggestHeight, 9999 + 450 + 3 * 450) << "a moved node counts as a new one does";
    // Edges that a hand has led.
    canvas::LinesD& bent =
        *form->Lines.FindConnectingLine(index("A1.OUT.AU_ID"), index("A2.IN.AU_ID"), canvas::EdgeTypeProvider, false);
    bent.setGrabPoint(canvas::EdgeEnd::start, 4);
    bent.setAngle(canvas::AngleNone);
    bent.placeMiddle({123, 456});
    form->Lines.FindConnectingLine(index("A2"), index("A2.OUT.ED_ID"), canvas::EdgeTypePartOf, false)
        ->setAngle(canvas::AngleVerticalDown);
    form->Lines.FindConnectingLine(index("F1.OUT.O1"), index("A2.OUT.A1.O12"), canvas::EdgeTypeRegulator, false)
        ->setGrabPoint(canvas::EdgeEnd::end, 2);
    const auto strokes = [&] {
        Texts lines;
        for (const canvas::LinesD& edge : form->Lines) {
            lines.push_back(form->Labels.byIndex(edge.FromLabel())->KeyName() + " " +
                            form->Labels.byIndex(edge.ToLabel())->KeyName() + " " + stroke(edge) + " " +
                            std::to_string(edge.Xm()) + " " + std::to_string(edge.Y2()));
        }
        return sorted(lines);
    };
    const Texts shown = boxes(), drawn = edges(true), led = strokes();
    for (int twice = 0; twice < 2; ++twice) {
        zoom::ApplyZoomChanges(*form, true);
        EXPECT_EQ(testkit::modelText(design), before);
        EXPECT_EQ(boxes(), shown);
        EXPECT_EQ(edges(true), drawn);
        EXPECT_EQ(strokes(), led);
        EXPECT_EQ(node("F1.OUT.O1").Color(), 255);
        expectSound();
    }
    zoom::ApplyZoomChanges(*form, false);
    EXPECT_EQ(testkit::modelText(design), before);
    // What is left: the design's nodes, the function that was drawn by itself, and the constant.
    EXPECT_EQ(form->Labels.Count(), 8);
    EXPECT_EQ(edges(true), Texts{});
}

TEST_F(ZoomView, ApplyKeepsTheOrderWhateverWasFolded) {
    open();
    ActivityProperties& activity = *node("A2").activity();
    auto& attribute = activity.Act_Outputs->Add("NEW", 0, entities::TagNone, "NEW");
    attribute.ParentKeyName = "A2";
    const Texts order = keys(activity.Act_Outputs);
    zoom::CollapseActivity(*form, index("A2"));
    // The new one has no node, so it stays where it is; the others come back in reverse.
    EXPECT_EQ(keys(activity.Act_Outputs), (Texts{order[3], order[2], order[1], order[0], "NEW"}));
    EXPECT_EQ(links::keysOf(activity.Act_Functions), (Texts{"A2.F2", "F1"}));
    zoom::ExpandActivity(*form, index("A2"));
    zoom::ApplyZoomChanges(*form, true);
    EXPECT_EQ(keys(design.nodeNamed("A2")->activity()->Act_Outputs), order);
    EXPECT_EQ(keys(node("A2").activity()->Act_Outputs), order);
}

TEST_F(ZoomView, CollapsingAndExpandingGivesTheSameView) {
    open();
    const Texts shown = names(), drawn = edges(true);
    for (const char* name : {"RS4", "A1", "RS2", "A3", "F1", "A2.F2", "A2"}) {
        SCOPED_TRACE(name);
        zoom::CollapseWhole(*form, node(name));
        EXPECT_FALSE(node(name).Expanded);
        expectSound();
        if (node(name).entity<FunctionProperties>()) {
            zoom::ExpandFunction(*form, index(name));
            zoom::ExpandFunction(*form, index(name));
        } else {
            zoom::ExpandByPlace(*form, node(name));
            zoom::ExpandByPlace(*form, node(name));
        }
        expectSound();
        EXPECT_EQ(edges(true), drawn);
    }
    EXPECT_EQ(names(), shown);
}

TEST_F(ZoomView, NoConstantIsMadeForWhatIsNone) {
    auto& parameter = *graph.activity("A2").Act_Parameters->Item("PUB_ID");
    parameter.RegulatedFrom->Add("RS1", LinkConstant, "RS1");  // a record set outside the view
    parameter.RegulatedFrom->Add("RS2", LinkConstant, "RS2");  // one in it
    parameter.RegulatedFrom->Add("A2.IN.SONUM", LinkConstant, "A2.IN.SONUM");
    parameter.RegulatedFrom->Add("C.2", LinkConstant, "C.2");
    parameter.RegulatedFrom->Add("C3", LinkConstantFunction, "C3");  // of another kind of member
    auto& input = *graph.activity("A2").Act_Functions->Item("F1")->Function_Inputs->Item("I1");
    input.RegulatedFrom->Add("C4", LinkConstant, "C4");
    input.RegulatedFrom->Add("C5", LinkConstantFunction, "C5");
    open();
    Texts constants;
    for (const LabelsD& each : form->Labels) {
        if (each.NodeType() == canvas::NodeTypeConstant) {
            constants.push_back(each.KeyName());
        }
    }
    EXPECT_EQ(sorted(constants), (Texts{"C.2", "C1", "C5"}));
    expectSound();
}

TEST_F(ZoomView, AnUnknownDataTypeStopsBeforeAnythingHasChanged) {
    open();
    zoom::CollapseActivity(*form, index("A2"));
    node("A2").activity()->Act_Inputs->Item(2)->Attribute_Type = 7;
    const Texts shown = boxes();
    EXPECT_THROW(zoom::ExpandInputs(*form, index("A2")), platform::Fault);
    EXPECT_EQ(boxes(), shown);
    EXPECT_EQ(progress.pointerShape, platform::PointerShape::ordinary);
}

TEST_F(ZoomView, NewIdentifiersReachTheView) {
    open();
    std::int16_t id = 100;
    ActivityProperties& stored = *design.nodeNamed("A2")->activity();
    stored.NodeID = id++;
    stored.Act_Inputs->Item("SONUM")->SubNode_ID = id++;
    stored.Act_Inputs->Changed = false;
    stored.Act_Outputs->Item("ED_ID")->SubNode_ID = id++;
    stored.Act_Parameters->Item("PUB_ID")->SubNode_ID = id++;
    stored.Act_Functions->Item("F1")->FunctionID = id++;
    stored.Act_Functions->Item("A2.F2")->Function_Outputs->Item("O1")->SubNode_ID = id++;
    stored.Act_Functions->Item("F1")->Function_Inputs->Item("I1")->SubNode_ID = id++;
    design.nodeNamed("RS4")->recordSet()->NodeID = id++;
    design.nodeNamed("RS4")->recordSet()->RecordSet_Outputs->Item("SONUM")->SubNode_ID = id++;
    zoom::RefreshZoomIdentities(*form);
    const ActivityProperties& shown = *node("A2").activity();
    const std::vector<int> found = {shown.NodeID,
                                    node("A2.IN.SONUM").entity<AttributeProperties>()->SubNode_ID,
                                    node("A2.OUT.ED_ID").entity<AttributeProperties>()->SubNode_ID,
                                    node("A2.PARAM.PUB_ID").entity<ParameterProperties>()->SubNode_ID,
                                    node("F1").entity<FunctionProperties>()->FunctionID,
                                    node("A2.F2.OUT.O1").entity<ParameterProperties>()->SubNode_ID,
                                    node("F1.IN.I1").entity<ParameterProperties>()->SubNode_ID,
                                    node("RS4").recordSet()->NodeID,
                                    node("RS4.SONUM").entity<AttributeProperties>()->SubNode_ID};
    EXPECT_EQ(found, (std::vector<int>{100, 101, 102, 103, 104, 105, 106, 107, 108}));
    EXPECT_FALSE(shown.Act_Inputs.peek()->Changed);
}

TEST_F(ZoomView, FiltersHideEdgesAndNoLinks) {
    const std::string before = testkit::modelText(design);
    open();
    struct Row {
        bool ViewMarks::*mark;
        int kind;
        int edges;
    };
    for (const Row& row : {Row{&ViewMarks::ViewProviderM, 0, 8}, Row{&ViewMarks::ViewPartOfM, 1, 27},
                           Row{&ViewMarks::ViewRegulatorM, 3, 14}}) {
        EXPECT_EQ(visible(row.kind), row.edges);
        zoom::toggleFilter(*form, row.mark);
        EXPECT_EQ(visible(row.kind), 0);
        zoom::ApplyZoomChanges(*form, true);
        EXPECT_EQ(visible(row.kind), 0);
        zoom::toggleFilter(*form, row.mark);
        EXPECT_EQ(visible(row.kind), row.edges);
    }
    // Details go with their edges, and come back without those that another filter hides.
    zoom::toggleFilter(*form, &ViewMarks::ViewAttributesM);
    EXPECT_FALSE(node("A2.PARAM.SONUM").Visible() || node("F1").Visible() || node("C1").Visible());
    EXPECT_TRUE(node("A2.IN.SONUM").Visible());
    EXPECT_EQ(visible(3), 0);
    zoom::toggleFilter(*form, &ViewMarks::ViewPartOfM);
    zoom::toggleFilter(*form, &ViewMarks::ViewAttributesM);
    EXPECT_EQ(visible(1), 0);
    EXPECT_EQ(visible(3), 14);
    EXPECT_EQ(testkit::modelText(design), before);
}

TEST_F(ZoomView, InstanceOfShowsEachTypeOnce) {
    graph.activity("A2").Act_Inputs->Item("SONUM")->Attribute_Type = 1;
    open();
    const std::size_t nodes = boxes().size(), drawn = edges().size();
    const int top = static_cast<int>(form->BiggestHeight) - 450 - 50;
    for (int twice = 0; twice < 2; ++twice) {
        form->PicForm.setSize(5000, 13000);
        zoom::toggleFilter(*form, &ViewMarks::ViewInstanceOfM);
        EXPECT_EQ(form->PicForm.Width(), node("VARCHAR2(20)").box().right());
        EXPECT_EQ(boxes().size(), nodes + 3);
        EXPECT_EQ(edges().size(), drawn + 27);  // all but the activities, the record sets and the constant
        const auto box = [&](const std::string& name, int left) {
            return name + " '" + name + "' " + std::to_string(left) + " " + std::to_string(top) + " 1050 450";
        };
        for (const std::string& line : {box("NUMBER", 8750), box("VARCHAR2(20)", 9850), box("SUM", 3200)}) {
            const Texts all = boxes();
            EXPECT_TRUE(std::find(all.begin(), all.end(), line) != all.end()) << line;
        }
        EXPECT_EQ(node("NUMBER").Color(), 128 | 0 << 8 | 64 << 16);
        EXPECT_EQ(node("VARCHAR2(20)").Color(), 0 | 192 << 8 | 0 << 16);
        const auto strokeTo = [&](const char* type, const char* from) {
            const auto* edge =
                form->Lines.FindConnectingLine(index(from), index(type), canvas::EdgeTypeReserved, false);
            return edge ? stroke(*edge) : std::string();
        };
        EXPECT_EQ(strokeTo("VARCHAR2(20)", "A2.IN.SONUM"), "3 2 1 " + std::to_string(192 << 8));
        EXPECT_EQ(strokeTo("NUMBER", "A2.PARAM.SONUM"), "3 2 1 " + std::to_string(128 | 64 << 16));
        EXPECT_EQ(strokeTo("NUMBER", "F1.IN.I1"), "4 2 1 " + std::to_string(128 | 64 << 16));
        EXPECT_EQ(strokeTo("SUM", "F1"), "1 2 1 16711680");
        zoom::ApplyZoomChanges(*form, true);
        EXPECT_EQ(edges().size(), drawn + 27);
        zoom::toggleFilter(*form, &ViewMarks::ViewInstanceOfM);
        EXPECT_EQ(boxes().size(), nodes);
        EXPECT_EQ(edges().size(), drawn);
    }
}

TEST_F(ZoomView, DerivedEdgesShowWhatAnOutputDependsOn) {
    graph.add("A2.PARAM.PUB_ID ~> 10 A2 .OUT.ED_ID");
    graph.add("A2.OUT.ED_ID <~ 10 A2 .PARAM.PUB_ID");
    open();
    const Texts drawn = edges();
    for (int twice = 0; twice < 2; ++twice) {
        zoom::toggleFilter(*form, &ViewMarks::ViewDerivedM);
        Texts all = edges();
        Texts derived;
        std::set_difference(all.begin(), all.end(), drawn.begin(), drawn.end(), std::back_inserter(derived));
        EXPECT_EQ(derived, (Texts{"A2.IN.AU_ID 5 A2.OUT.AU_ID", "RS3.PUB_ID 5 A2.OUT.ED_ID"}));
        EXPECT_EQ(stroke(*form->Lines.at(form->Lines.Count())), "3 1 3 0");
        zoom::toggleFilter(*form, &ViewMarks::ViewDerivedM);
        EXPECT_EQ(visible(5), 0);
    }
}

}  // namespace
