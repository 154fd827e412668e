// Drawn edges of the zoom view: which stand, the links and members they become, and how they are taken back.

#include <map>

#include "links/edge_links.h"
#include "zoom/expand_collapse.h"
#include "zoom/member_ties.h"
#include "zoom/relationship_rules.h"
#include "zoom/zoom_fixture.h"

using namespace orvent;
using namespace orvent::entities;
using canvas::LabelsD;
using platform::Icon;

namespace relationships {

/// A view around the activity A: providers B and R, consumer D, a function F of its own, and a constant C. Nothing is
/// linked yet.
class Relationship : public testkit::CanvasTest {
  protected:
    static inline const std::vector<const char*> kNodes = {"A.IN.i", "A.OUT.o", "A.PARAM.p", "F.IN.fi", "F.OUT.fo",
                                                           "C",      "R.r",     "B.OUT.bo",  "D.IN.di"};

    Relationship() {
        for (const char* type : {"NUMBER", "DATE", kDefinedBySource}) {
            catalogue.dataTypes.add(type);
        }
        for (const char* name : {"A", "B", "D"}) {
            design.Labels.Add({0, 0, 1050, 450}, name, canvas::NodeTypeActivity);
        }
        design.Labels.Add({0, 0, 1050, 450}, "R", canvas::NodeTypeRecordSet)
            .recordSet()
            ->RecordSet_Outputs->Add("r", 0, "r");
        for (const auto& [from, to] : {std::pair("B", "A"), std::pair("R", "A"), std::pair("A", "D")}) {
            design.Lines.addFullLine(design.NamesColl.Item(from), 4, design.NamesColl.Item(to), 1,
                                     canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
        }
        ActivityProperties& a = *design.nodeNamed("A")->activity();
        a.Act_Inputs->Add("i", 0, tagOf(LinkRecordSet), "i");
        a.Act_Outputs->Add("o", 0, entities::TagNone, "o");
        a.Act_Parameters->Add("p", 0, tagOf(LinkTypeParameter), "p");
        a.Act_Functions->AddFunctionProps(function(), "F", 0).setParentKeyName("A");
        design.nodeNamed("B")->activity()->Act_Outputs->Add("bo", 0, entities::TagNone, "bo");
        design.nodeNamed("D")->activity()->Act_Inputs->Add("di", 0, entities::TagNone, "di");
        for (const char* name : {"A", "B", "D"}) {
            own(*design.nodeNamed(name)->activity(), name);
        }
        design.nodeNamed("R")->recordSet()->RecordSet_Outputs->Item("r")->ParentKeyName = "R";
        zoom::buildZoomView(form, *design.nodeNamed("A"));
        LabelsD& constant = form.Labels.Add({0, 0, 450, 450}, "C", canvas::NodeTypeConstant);
        constant.entity<ParameterProperties>()->Key = "C";
    }

    static FunctionProperties function() {
        FunctionProperties made;
        made.Function_Source = SourceOwn;
        made.Function_Inputs->Add("fi", 0, "fi").NodeKind = KindFunctionInput;
        made.Function_Outputs->Add("fo", 0, "fo").NodeKind = KindFunctionOutput;
        made.Function_Inputs->Item(1)->ParentKeyName = "F";
        made.Function_Outputs->Item(1)->ParentKeyName = "F";
        return made;
    }

    /// Another function like that one, shown with its parameters.
    void addFunction(const std::string& key, FunctionSourceCode source, bool free) {
        LabelsD& shown = form.Labels.Add({0, 0, 1050, 450}, key, canvas::NodeTypeFunction);
        auto& added = *shown.entity<FunctionProperties>();
        added.Function_Inputs->AddFullParameter(*function().Function_Inputs->Item(1), "fi", false, 0);
        added.Function_Outputs->AddFullParameter(*function().Function_Outputs->Item(1), "fo", false, 0);
        added.NodeKind = KindFunction;
        for (ParameterProperties* parameter : {added.Function_Inputs->Item(1), added.Function_Outputs->Item(1)}) {
            parameter->ParentKeyName = key;
        }
        if (!free) {
            zoom::AttachFunction(form, shown, node("A"), true);
            shown.entity<FunctionProperties>()->Function_Source = source;
        }
        zoom::ExpandFunction(form, shown.Index());
    }

    static void own(ActivityProperties& activity, const std::string& name) {
        activity.Act_Name = name;
        for (auto& item : activity.Act_Inputs) {
            item.ParentKeyName = name;
        }
        for (auto& item : activity.Act_Outputs) {
            item.ParentKeyName = name;
        }
        for (auto& item : activity.Act_Parameters) {
            item.ParentKeyName = name;
        }
    }

    LabelsD& node(const std::string& name) { return *form.nodeNamed(name); }

    /// Draws an edge and says what it means. Gives its number, which is dead when it was refused.
    canvas::EdgeNumber draw(const std::string& from, const std::string& to, canvas::EdgeTypeCode kind,
                            std::int16_t fromGrab = 3) {
        canvas::EdgeNumber edge =
            form.Lines
                .addFullLine(node(from).Index(), fromGrab, node(to).Index(), 1, kind, canvas::AngleVerticalDown, 5)
                ->Index();
        zoom::CreateRelationship(form, edge);
        return edge;
    }

    /// Every link of the view's nodes: "holder list type name key edge's-number".
    std::vector<std::string> links() {
        std::vector<std::string> lines;
        for (LabelsD& each : form.Labels) {
            const auto add = [&](const std::string& list, auto& held) {
                for (const auto& link : held) {
                    lines.push_back(each.KeyName() + " " + list + " " + std::to_string(static_cast<int>(link.type())) +
                                    " " + link.name() + " " + link.key() + " " + canvas::textOf(link.LineIndex));
                }
            };
            if (auto* attribute = each.entity<AttributeProperties>()) {
                testkit::LinkGraph::eachList(*attribute, add);
            } else if (auto* parameter = each.entity<ParameterProperties>()) {
                testkit::LinkGraph::eachList(*parameter, add);
            }
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    void expectWarning(const std::string& text, Icon icon = Icon::warning) {
        ports.messages.expect(text, "", icon, platform::Buttons::ok, platform::Answer::ok);
    }

    entities::CatalogueTables catalogue;
    testkit::QuietProgress progress;
    testkit::LetterMeasure narrow{0};
    canvas::DrawForm design{ports.services(), nullptr};
    zoom::ZoomForm form{zoom::ZoomServices{ports.services(), catalogue, progress, narrow}, design};
};

struct Allowed {
    canvas::EdgeTypeCode kind;
    const char* from;
    const char* to;
    const char* source;      ///< the links at the end where the edge then starts
    const char* sourceLink;  ///< list, type, name, key
    const char* target;
    const char* targetLink;
    std::optional<TagCode> tagOfTo{};
};

constexpr auto P = canvas::EdgeTypeProvider;
constexpr auto R = canvas::EdgeTypeRegulator;

const std::vector<Allowed> kAllowed = {
    {P, "A.IN.i", "A.OUT.o", "A.IN.i", "-> 3 A .OUT.o", "A.OUT.o", "<- 3 A .IN.i"},
    {P, "A.OUT.o", "D.IN.di", "A.OUT.o", "-> 2 D D.IN.di", "D.IN.di", "<- 2 A A.OUT.o", TagActivity},
    {P, "B.OUT.bo", "A.IN.i", "B.OUT.bo", "-> 2 A A.IN.i", "A.IN.i", "<- 2 B B.OUT.bo", TagActivity},
    {P, "B.OUT.bo", "D.IN.di", "B.OUT.bo", "-> 2 D D.IN.di", "D.IN.di", "<- 2 B B.OUT.bo", TagActivity},
    {P, "A.OUT.o", "R.r", "A.OUT.o", "-> 1 R R.r", "R.r", "<- 1 A A.OUT.o"},
    {P, "B.OUT.bo", "R.r", "B.OUT.bo", "-> 1 R R.r", "R.r", "<- 1 B B.OUT.bo"},
    {P, "R.r", "A.IN.i", "R.r", "-> 1 A A.IN.i", "A.IN.i", "<- 1 R R.r", TagRecordSet},
    {P, "R.r", "D.IN.di", "R.r", "-> 1 D D.IN.di", "D.IN.di", "<- 1 R R.r", TagRecordSet},
    {R, "A.IN.i", "A.PARAM.p", "A.IN.i", "~> 3 A .PARAM.p", "A.PARAM.p", "<~ 3 A .IN.i"},
    {R, "A.IN.i", "F.IN.fi", "A.IN.i", "~> 13 F F.IN.fi", "F.IN.fi", "<~ 13 A .IN.i"},
    {R, "A.OUT.o", "A.PARAM.p", "A.PARAM.p", "~> 10 A .OUT.o", "A.OUT.o", "<~ 10 A .PARAM.p"},
    {R, "A.OUT.o", "F.OUT.fo", "F.OUT.fo", "~> 11 A .OUT.o", "A.OUT.o", "<~ 11 F F.OUT.fo"},
    {R, "A.PARAM.p", "A.IN.i", "A.IN.i", "~> 3 A .PARAM.p", "A.PARAM.p", "<~ 3 A .IN.i"},
    {R, "A.PARAM.p", "A.OUT.o", "A.PARAM.p", "~> 10 A .OUT.o", "A.OUT.o", "<~ 10 A .PARAM.p"},
    {R, "A.PARAM.p", "R.r", "R.r", "~> 1 A A.PARAM.p", "A.PARAM.p", "<~ 1 R R.r"},
    {R, "A.PARAM.p", "C", "C", "~> 6 A A.PARAM.p", "A.PARAM.p", "<~ 6 C C"},
    {R, "C", "A.PARAM.p", "C", "~> 6 A A.PARAM.p", "A.PARAM.p", "<~ 6 C C"},
    {R, "C", "F.IN.fi", "C", "~> 14 F F.IN.fi", "F.IN.fi", "<~ 14 C C"},
    {R, "F.IN.fi", "A.IN.i", "A.IN.i", "~> 13 F F.IN.fi", "F.IN.fi", "<~ 13 A .IN.i"},
    {R, "F.IN.fi", "R.r", "R.r", "~> 14 F F.A.fi", "F.IN.fi", "<~ 14 R R.r"},
    {R, "F.IN.fi", "C", "C", "~> 14 F F.IN.fi", "F.IN.fi", "<~ 14 C C"},
    {R, "F.OUT.fo", "A.OUT.o", "F.OUT.fo", "~> 11 A .OUT.o", "A.OUT.o", "<~ 11 F F.OUT.fo"},
    {R, "R.r", "F.IN.fi", "R.r", "~> 12 F F.A.fi", "F.IN.fi", "<~ 12 R R.r"},
    {R, "R.r", "A.PARAM.p", "R.r", "~> 1 A A.PARAM.p", "A.PARAM.p", "<~ 1 R R.r"},
};

const Allowed* allowedRow(canvas::EdgeTypeCode kind, const std::string& from, const std::string& to) {
    for (const Allowed& row : kAllowed) {
        if (row.kind == kind && row.from == from && row.to == to) {
            return &row;
        }
    }
    return nullptr;
}

TEST_F(Relationship, EveryPairStandsAsToldOrIsRefused) {
    ASSERT_EQ(links(), std::vector<std::string>{});
    const std::string whole = testkit::modelText(form);
    int stood = 0;
    for (const auto kind : {P, R}) {
        for (const std::string from : kNodes) {
            for (const std::string to : kNodes) {
                SCOPED_TRACE((kind == P ? "provider " : "regulator ") + from + " to " + to);
                if (from == to) {
                    continue;
                }
                const Allowed* row = allowedRow(kind, from, to);
                EXPECT_EQ(zoom::mayRelate(form, kind, node(from), node(to)), row != nullptr);
                if (!row) {
                    expectWarning("This Relationship Is Not Valid!");
                }
                const canvas::EdgeNumber edge = draw(from, to, kind);
                if (!row) {
                    EXPECT_EQ(form.Lines.byIndex(edge), nullptr);
                    ASSERT_EQ(testkit::modelText(form), whole);
                    continue;
                }
                ++stood;
                const canvas::LinesD* drawn = form.Lines.byIndex(edge);
                ASSERT_NE(drawn, nullptr);
                EXPECT_EQ(form.Labels.byIndex(drawn->FromLabel())->KeyName(), row->source);
                EXPECT_EQ(form.Labels.byIndex(drawn->ToLabel())->KeyName(), row->target);
                EXPECT_EQ(drawn->FromGrabbingPoint(), row->source == from ? 3 : 1) << "the end keeps its place";
                EXPECT_EQ(drawn->ToGrabbingPoint(), row->source == from ? 1 : 3);
                EXPECT_EQ(drawn->Angle(), canvas::AngleVerticalDown);
                EXPECT_EQ(drawn->Color(), 5);
                std::vector<std::string> expected = {
                    std::string(row->source) + " " + row->sourceLink + " " + canvas::textOf(edge),
                    std::string(row->target) + " " + row->targetLink + " " + canvas::textOf(edge)};
                std::sort(expected.begin(), expected.end());
                EXPECT_EQ(links(), expected);
                auto* input = node(to).entity<AttributeProperties>();
                if (row->tagOfTo) {
                    EXPECT_EQ(input->Tag, *row->tagOfTo);
                    input->Tag = to == "A.IN.i" ? TagRecordSet : TagNone;
                }
                zoom::RemoveRelationship(form, edge);
                EXPECT_NE(form.Lines.byIndex(edge), nullptr) << "the edge is left to the caller";
                form.Lines.RemoveFull(edge);
                ASSERT_EQ(testkit::modelText(form), whole);
            }
        }
    }
    EXPECT_EQ(stood, static_cast<int>(kAllowed.size()));
}

TEST_F(Relationship, SecondSourcesAndSecondEdgesAreRefused) {
    struct Row {
        canvas::EdgeTypeCode kind;
        const char* first[2];
        const char* second[2];
        const char* message;
    };
    for (const Row& row : {
             Row{P, {"R.r", "A.IN.i"}, {"B.OUT.bo", "A.IN.i"}, "This Relationship Is Not Valid!"},
             Row{R, {"C", "A.PARAM.p"}, {"A.IN.i", "A.PARAM.p"}, "This Relationship Is Not Valid!"},
             Row{R, {"C", "A.PARAM.p"}, {"A.PARAM.p", "R.r"}, "This Relationship Is Not Valid!"},
             Row{R, {"C", "A.PARAM.p"}, {"A.PARAM.p", "A.IN.i"}, "This Relationship Is Not Valid!"},
             Row{R, {"R.r", "F.IN.fi"}, {"A.IN.i", "F.IN.fi"}, "This Relationship Is Not Valid!"},
             Row{R, {"R.r", "F.IN.fi"}, {"F.IN.fi", "C"}, "This Relationship Is Not Valid!"},
             Row{P, {"B.OUT.bo", "A.IN.i"}, {"R.r", "A.IN.i"}, "This Relationship Is Not Valid!"},
             Row{R, {"A.IN.i", "A.PARAM.p"}, {"A.PARAM.p", "C"}, "This Relationship Is Not Valid!"},
             Row{R, {"A.IN.i", "A.PARAM.p"}, {"C", "A.PARAM.p"}, "This Relationship Is Not Valid!"},
             Row{R, {"R.r", "F.IN.fi"}, {"C", "F.IN.fi"}, "This Relationship Is Not Valid!"},
             Row{R, {"C", "F.IN.fi"}, {"F.IN.fi", "R.r"}, "This Relationship Is Not Valid!"},
             Row{R, {"C", "F.IN.fi"}, {"F.IN.fi", "A.IN.i"}, "This Relationship Is Not Valid!"},
             Row{R, {"C", "F.IN.fi"}, {"R.r", "F.IN.fi"}, "This Relationship Is Not Valid!"},
             Row{R, {"C", "A.PARAM.p"}, {"R.r", "A.PARAM.p"}, "This Relationship Is Not Valid!"},
             Row{P, {"R.r", "A.IN.i"}, {"R.r", "A.IN.i"}, "THIS LINE ALLREADY EXISTS!!"},
         }) {
        SCOPED_TRACE(row.second[0] + std::string(" to ") + row.second[1]);
        const canvas::EdgeNumber first = draw(row.first[0], row.first[1], row.kind);
        ASSERT_NE(form.Lines.byIndex(first), nullptr);
        const std::vector<std::string> before = links();
        expectWarning(row.message);
        ASSERT_EQ(form.Lines.byIndex(draw(row.second[0], row.second[1], row.kind)), nullptr);
        EXPECT_EQ(links(), before);
        zoom::RemoveRelationship(form, first);
        form.Lines.RemoveFull(first);
    }
    // What regulates a parameter depends on where it came from.
    for (const auto& [tag, from, to, stands] : {std::tuple(0, "A.IN.i", "A.PARAM.p", true),
                                                {3, "A.IN.i", "A.PARAM.p", false},
                                                {0, "A.PARAM.p", "A.IN.i", false},
                                                {3, "A.PARAM.p", "R.r", false},
                                                {0, "A.PARAM.p", "C", true}}) {
        SCOPED_TRACE(from + std::string(" to ") + to);
        node("A.PARAM.p").entity<ParameterProperties>()->Tag = static_cast<TagCode>(tag);
        if (!stands) {
            expectWarning("This Relationship Is Not Valid!");
        }
        const canvas::EdgeNumber edge = draw(from, to, R);
        ASSERT_EQ(form.Lines.byIndex(edge) != nullptr, stands);
        if (stands) {
            zoom::RemoveRelationship(form, edge);
            form.Lines.RemoveFull(edge);
        }
    }
    // A record set may know a function's input by either key.
    const canvas::EdgeNumber twoKeys = draw("R.r", "F.IN.fi", R);
    node("R.r").entity<AttributeProperties>()->RegulatorFor->Add("F", LinkRecordSetFunction, "F.IN.fi");
    zoom::RemoveRelationship(form, twoKeys);
    form.Lines.RemoveFull(twoKeys);
    EXPECT_EQ(links(), std::vector<std::string>{});
    // An output may be provided many times.
    draw("A.OUT.o", "R.r", P);
    draw("B.OUT.bo", "R.r", P);
    EXPECT_EQ(links().size(), 4U);
}

TEST_F(Relationship, DataTypesMustAgreeUnlessTheSourceDefinesThem) {
    auto& input = *node("A.IN.i").entity<AttributeProperties>();
    input.Attribute_Type = 1;
    expectWarning("This Relationship Is Not Valid!\nDifferent Data Types Found.\nSource: NUMBER.\nTarget: DATE.");
    EXPECT_FALSE(zoom::mayRelate(form, P, node("R.r"), node("A.IN.i")));
    draw("R.r", "A.IN.i", P);
    EXPECT_EQ(links(), std::vector<std::string>{});

    input.Attribute_Type = 2;
    input.Changed = false;
    draw("R.r", "A.IN.i", P);
    EXPECT_EQ(input.Attribute_Type, 0);
    EXPECT_TRUE(input.Changed);
    EXPECT_EQ(node("A.IN.i").ToolTipText(), "i(NUMBER)");

    // Drawn against the direction of regulation, the node where the edge was drawn to still takes the type.
    auto& parameter = *node("A.PARAM.p").entity<ParameterProperties>();
    parameter.Parameter_Type = 2;
    expectWarning("This Relationship Is Not Valid!\nDifferent Data Types Found.\nSource: " +
                  std::string(kDefinedBySource) + ".\nTarget: NUMBER.");
    draw("A.PARAM.p", "A.OUT.o", R);
    draw("A.OUT.o", "A.PARAM.p", R);
    EXPECT_EQ(parameter.Parameter_Type, 0);
}

TEST_F(Relationship, PartOfEdgesOfOtherPairsMeanNothing) {
    LabelsD& other = form.Labels.Add({0, 0, 1050, 450}, "S", canvas::NodeTypeRecordSet);
    other.recordSet()->RecordSet_Outputs->Add("s", 0, "s");
    zoom::ExpandRecordSet(form, other.Index());
    draw("C", "A.PARAM.p", R);
    const auto before = links();
    for (const auto& [from, to] : {std::pair("R", "S.s"), std::pair("F", "R.r"), std::pair("A", "C"),
                                   std::pair("A", "D"), std::pair("R.r", "A"), std::pair("R", "F")}) {
        SCOPED_TRACE(from + std::string(" to ") + to);
        EXPECT_FALSE(zoom::mayRelate(form, canvas::EdgeTypePartOf, node(from), node(to)));
        const canvas::EdgeNumber edge = draw(from, to, canvas::EdgeTypePartOf);
        for (const char* owner : {"R", "F"}) {
            zoom::CollapseWhole(form, node(owner));
            EXPECT_EQ(node("R").recordSet()->RecordSet_Outputs.count(), 1);
            zoom::ExpandRecordSet(form, node("R").Index());
            zoom::ExpandFunction(form, node("F").Index());
        }
        if (canvas::LinesD* drawn = form.Lines.byIndex(edge)) {
            EXPECT_TRUE(form.rules().releaseEdge(form, *drawn));
            form.Lines.RemoveFull(edge);
        }
        EXPECT_EQ(node("C").entity<ParameterProperties>()->NodeKind, KindConstant);
        EXPECT_EQ(links().size(), before.size());
        EXPECT_NE(form.nodeNamed("S.s"), nullptr);
        EXPECT_NE(form.nodeNamed("R.r"), nullptr);
    }
}

TEST_F(Relationship, PartOfEdgesMakeMembers) {
    const auto place = [&](const char* name, canvas::NodeTypeCode kind) -> LabelsD& {
        return form.Labels.Add({0, 0, 300, 300}, name, kind);
    };
    LabelsD& attribute = place("X", canvas::NodeTypeAttribute);
    ActivityProperties& a = *node("A").activity();
    a.Act_Inputs->Changed = false;
    EXPECT_TRUE(zoom::mayRelate(form, canvas::EdgeTypePartOf, node("A"), attribute));
    EXPECT_FALSE(zoom::mayRelate(form, canvas::EdgeTypePartOf, attribute, node("A")));
    const canvas::EdgeNumber edge = draw("A", "X", canvas::EdgeTypePartOf, 1);
    EXPECT_EQ(attribute.KeyName(), "A.IN.X");
    EXPECT_TRUE(a.Act_Inputs->Changed);
    auto* input = a.Act_Inputs->Item("X");
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input, attribute.entity<AttributeProperties>()) << "the node shows what stands in the collection";
    EXPECT_EQ(input->NodeKind, KindInput);
    EXPECT_EQ(input->ParentKeyName, "A");
    EXPECT_EQ(input->LabelIndex, attribute.Index());
    draw("R.r", "A.IN.X", P);

    // A second owner is refused, and so is a name that is there.
    EXPECT_FALSE(zoom::mayRelate(form, canvas::EdgeTypePartOf, node("D"), node("A.IN.X")));
    expectWarning("This Relationship Is Not Valid!");
    draw("D", "A.IN.X", canvas::EdgeTypePartOf, 4);
    place("i", canvas::NodeTypeAttribute);
    expectWarning("An Input With The Same Name Allready Exists.\nPlease Rename The Current Attribute!", Icon::none);
    draw("A", "i", canvas::EdgeTypePartOf, 1);
    EXPECT_EQ(a.Act_Inputs->Count(), 2);
    EXPECT_EQ(node("i").entity<AttributeProperties>()->NodeKind, KindFree);
    draw("A", "i", canvas::EdgeTypePartOf, 4);
    EXPECT_NE(a.Act_Outputs->Item("i"), nullptr);
    place("o", canvas::NodeTypeAttribute);
    expectWarning("An Output With The Same Name Allready Exists.\nPlease Rename The Current Attribute!", Icon::none);
    draw("A", "o", canvas::EdgeTypePartOf, 4);
    place("p", canvas::NodeTypeParameter);
    expectWarning("A Parameter With The Same Name Allready Exists.\nPlease Rename The Current Parameter!", Icon::none);
    draw("A", "p", canvas::EdgeTypePartOf);

    // Taken out again, the attribute is free: no owner, no links, its stored row goes.
    input->SubNode_ID = 7;
    zoom::RemoveRelationship(form, edge);
    EXPECT_EQ(a.Act_Inputs->Item("X"), nullptr);
    EXPECT_EQ(attribute.KeyName(), "X");
    EXPECT_EQ(attribute.entity<AttributeProperties>()->ParentKeyName, "");
    EXPECT_EQ(attribute.entity<AttributeProperties>()->SubNode_ID, 0);
    EXPECT_EQ(links(), std::vector<std::string>{});
    ASSERT_EQ(form.DeletedNodes->Count(), 1);
    EXPECT_EQ(form.DeletedNodes->Item(1)->NodeID, 7);
    EXPECT_EQ(form.DeletedNodes->Item(1)->NodeKind, KindInput);
}

TEST_F(Relationship, FreeFunctionsAreAttachedAndDetached) {
    const canvas::EdgeNumber tie =
        form.Lines.FindConnectingLine(node("A").Index(), node("F").Index(), canvas::EdgeTypePartOf, false)->Index();
    FunctionProperties& owned = *node("F").entity<FunctionProperties>();
    owned.FunctionID = 5;
    owned.Function_Inputs->Item("fi")->SubNode_ID = 6;
    owned.Function_Outputs->Item("fo")->SubNode_ID = 7;
    draw("R.r", "F.IN.fi", R);
    zoom::RemoveRelationship(form, tie);
    form.Lines.RemoveFull(tie);
    const auto free = std::get<platform::Shared<FunctionProperties>>(node("F").Properties).share();
    EXPECT_EQ(node("A").activity()->Act_Functions.count(), 0);
    EXPECT_EQ(free->ParentKeyName(), "");
    EXPECT_EQ(free->Function_Source, SourceNone);
    EXPECT_EQ(free->FunctionID, 0);
    EXPECT_EQ(free->Function_Inputs->Item("fi")->SubNode_ID + free->Function_Outputs->Item("fo")->SubNode_ID, 0);
    EXPECT_EQ(links(), std::vector<std::string>{}) << "the record set's link under the function's old key goes too";
    ASSERT_EQ(form.DeletedNodes->Count(), 1);
    EXPECT_EQ(form.DeletedNodes->Item(1)->NodeKind, KindFunction);

    // A regulator edge to its input ties it to the activity of the other end.
    draw("F.IN.fi", "A.IN.i", R);
    const FunctionProperties* tied = node("A").activity()->Act_Functions->Item("F");
    ASSERT_NE(tied, nullptr);
    EXPECT_EQ(tied, node("F").entity<FunctionProperties>());
    EXPECT_EQ(tied->Function_Inputs.peek()->Item("fi"), node("F.IN.fi").entity<ParameterProperties>());
    EXPECT_EQ(tied->Function_Source, SourceOwn);
    EXPECT_EQ(node("F.IN.fi").entity<ParameterProperties>()->ParentFunctionActivity, "A");
    const canvas::LinesD* drawn =
        form.Lines.FindConnectingLine(node("A").Index(), node("F").Index(), canvas::EdgeTypePartOf, false);
    ASSERT_NE(drawn, nullptr);
    EXPECT_EQ(drawn->FromGrabbingPoint(), 5);
    EXPECT_EQ(drawn->ToGrabbingPoint(), 2);

    // Drawn from the function the edge is turned round, and is the only one.
    zoom::DetachFunction(form, node("F"), nullptr);
    EXPECT_EQ(node("A").activity()->Act_Functions->Item("F"), tied) << "of no activity";
    EXPECT_FALSE(zoom::mayRelate(form, canvas::EdgeTypePartOf, node("D"), node("F")));
    zoom::DetachFunction(form, node("F"), &node("A"));
    form.Lines.RemoveFull(drawn->Index());
    EXPECT_TRUE(zoom::mayRelate(form, canvas::EdgeTypePartOf, node("F"), node("A")));
    const canvas::EdgeNumber edge = draw("F", "A", canvas::EdgeTypePartOf);
    EXPECT_EQ(form.Lines.byIndex(edge)->FromLabel(), node("A").Index());
    EXPECT_NE(node("A").activity()->Act_Functions->Item("F"), nullptr);
    expectWarning("This Relationship Is Not Valid!");
    draw("D", "F", canvas::EdgeTypePartOf);
}

/// Every edge to a function's parameter, for a function that is free, one that was attached by hand, and one that the
/// activity's type brought. "@" stands for the function's key, "*" for how a record set names its input.
TEST_F(Relationship, FunctionsGiveTheirLinksBack) {
    struct Function {
        const char* key;
        const char* recordSetsKey;
        FunctionSourceCode source;
        bool free;
    };
    struct Row {
        const char* from;
        const char* to;
        const char* source;
        const char* target;
        bool attaches = false;
    };
    const std::vector<Row> rows = {
        {"A.IN.i", "@.IN.fi", "A.IN.i ~> 13 @ @.IN.fi", "@.IN.fi <~ 13 A .IN.i", true},
        {"@.IN.fi", "A.IN.i", "A.IN.i ~> 13 @ @.IN.fi", "@.IN.fi <~ 13 A .IN.i", true},
        {"A.OUT.o", "@.OUT.fo", "@.OUT.fo ~> 11 A .OUT.o", "A.OUT.o <~ 11 @ @.OUT.fo", true},
        {"@.OUT.fo", "A.OUT.o", "@.OUT.fo ~> 11 A .OUT.o", "A.OUT.o <~ 11 @ @.OUT.fo", true},
        {"C", "@.IN.fi", "C ~> 14 @ @.IN.fi", "@.IN.fi <~ 14 C C"},
        {"@.IN.fi", "C", "C ~> 14 @ @.IN.fi", "@.IN.fi <~ 14 C C"},
        {"R.r", "@.IN.fi", "R.r ~> 12 @ *", "@.IN.fi <~ 12 R R.r"},
        {"@.IN.fi", "R.r", "R.r ~> 14 @ *", "@.IN.fi <~ 14 R R.r"},
        // Members of another activity take a free function only.
        {"D.IN.di", "@.IN.fi", "D.IN.di ~> 13 @ @.IN.fi", "@.IN.fi <~ 13 D .IN.di", true},
        {"@.IN.fi", "D.IN.di", "D.IN.di ~> 13 @ @.IN.fi", "@.IN.fi <~ 13 D .IN.di", true},
        {"B.OUT.bo", "@.OUT.fo", "@.OUT.fo ~> 11 B .OUT.bo", "B.OUT.bo <~ 11 @ @.OUT.fo", true},
        {"@.OUT.fo", "B.OUT.bo", "@.OUT.fo ~> 11 B .OUT.bo", "B.OUT.bo <~ 11 @ @.OUT.fo", true},
    };
    for (const Function& made : {Function{"F", "F.A.fi", SourceOwn, false}, Function{"G", "G.IN.fi", SourceNone, true},
                                 Function{"A.T", "A.T.IN.fi", SourceActivityType, false}}) {
        const std::string key = made.key;
        const auto filled = [&](std::string text) {
            for (const auto& [mark, word] : {std::pair('@', made.key), std::pair('*', made.recordSetsKey)}) {
                for (std::size_t at; (at = text.find(mark)) != std::string::npos;) {
                    text.replace(at, 1, word);
                }
            }
            return text;
        };
        for (const Row& row : rows) {
            const std::string from = filled(row.from), to = filled(row.to);
            SCOPED_TRACE(from + " to " + to);
            if (!form.nodeNamed(key)) {
                addFunction(key, made.source, made.free);
            }
            const bool stands = made.free || (row.source + std::string(row.target)).find_first_of("BD") > 99;
            EXPECT_EQ(zoom::mayRelate(form, R, node(from), node(to)), stands);
            if (!stands) {
                expectWarning("This Relationship Is Not Valid!");
            }
            const canvas::EdgeNumber edge = draw(from, to, R);
            ASSERT_EQ(form.Lines.byIndex(edge) != nullptr, stands);
            const std::string number = " " + canvas::textOf(edge);
            std::vector<std::string> expected = {filled(row.source) + number, filled(row.target) + number};
            std::sort(expected.begin(), expected.end());
            EXPECT_EQ(links(), stands ? expected : std::vector<std::string>{});
            const bool attached = made.free && row.attaches;
            const std::string owner = node(key).entity<FunctionProperties>()->ParentKeyName();
            EXPECT_EQ(owner, attached ? std::string(1, row.source[0] == '@' ? row.target[0] : row.source[0])
                                      : std::string(made.free ? "" : "A"));
            if (stands) {
                zoom::RemoveRelationship(form, edge);
                form.Lines.RemoveFull(edge);
            }
            EXPECT_EQ(links(), std::vector<std::string>{});
            EXPECT_EQ(node(key).entity<FunctionProperties>()->ParentKeyName(), owner) << "attached it stays";
            if (attached) {
                form.Lines.RemoveFull(
                    form.Lines
                        .FindConnectingLine(node(owner).Index(), node(key).Index(), canvas::EdgeTypePartOf, false)
                        ->Index());
                zoom::DetachFunction(form, node(key), &node(owner));
            }
        }
    }
}

class Consistency : public testkit::CanvasTest {
  protected:
    void expectQuestion(platform::Answer answer) {
        ports.messages.expect(
            "This Action Will Delete All Non Consistent Provider Relationships!\nAre you Sure You Want to Continue?",
            "Checking Consistency", Icon::none, platform::Buttons::okCancel, answer);
    }

    void draw(const char* from, const char* to, canvas::EdgeTypeCode kind) {
        design.Lines.addFullLine(design.NamesColl.Item(from), 3, design.NamesColl.Item(to), 1, kind, canvas::AngleNone,
                                 7);
    }

    /// "from grab kind to grab angle", sorted.
    std::vector<std::string> edges() {
        std::vector<std::string> lines;
        for (const canvas::LinesD& edge : design.Lines) {
            lines.push_back(
                design.Labels.byIndex(edge.FromLabel())->Caption() + " " + std::to_string(edge.FromGrabbingPoint()) +
                " " + std::to_string(static_cast<int>(edge.EdgeType())) + " " +
                design.Labels.byIndex(edge.ToLabel())->Caption() + " " + std::to_string(edge.ToGrabbingPoint()) + " " +
                std::to_string(static_cast<int>(edge.Angle())));
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    testkit::QuietProgress progress;
    canvas::DrawForm design{ports.services(), nullptr};
    testkit::LinkGraph graph{design};
};

TEST_F(Consistency, ProviderEdgesFollowTheLinks) {
    draw("RS2", "A1", canvas::EdgeTypeProvider);  // no link stands behind it
    draw("RS1", "A1", canvas::EdgeTypeProvider);
    draw("RS1", "A1", canvas::EdgeTypeProvider);  // a second time
    draw("RS1", "A2", canvas::EdgeTypeProvider);
    draw("RS3", "A2", canvas::EdgeTypeProvider);
    draw("A3", "RS1", canvas::EdgeTypeDescription);
    graph.add("A3.IN.AU_ID <- 2 GONE GONE.OUT.AU_ID");
    graph.add("A3.IN.OWN <- 2 A3 A3.OUT.AU_ID");
    graph.add("F1.OUT.O1 <~ 12 RS1 RS1.AU_ID");
    const std::vector<std::string> before = edges();
    expectQuestion(platform::Answer::cancel);
    EXPECT_FALSE(links::CheckConsistency(design, progress).has_value());
    EXPECT_EQ(edges(), before);

    const std::vector<std::string> expected = {
        "A1 4 0 A2 1 3",  // one for two inputs
        "A2 4 0 A3 1 3",  "A2 4 0 RS2 1 3", "A3 3 4 RS1 1 0", "A3 4 0 A3 1 3", "RS1 3 0 A1 1 3",
        "RS1 3 0 A2 5 3",  // regulates
        "RS3 3 0 A2 5 3", "RS4 3 0 A2 1 3", "RS4 3 0 A2 5 3",
    };
    for (int run = 0; run < 2; ++run) {
        expectQuestion(platform::Answer::ok);
        const std::optional<links::EdgeChanges> changes = links::CheckConsistency(design, progress);
        ASSERT_TRUE(changes);
        EXPECT_EQ(edges(), expected);
        EXPECT_EQ(links::changeWords(*changes),
                  run == 0 ? "Deleted: RS2 → A1, RS1 → A1. Drawn: A2 → RS2, A1 → A2, RS4 → A2 and 3 more"
                           : "Every provider edge has its links; none was missing.");
        EXPECT_EQ(progress.pointerShape, platform::PointerShape::ordinary);
    }
    // A node whose name another one bears is fed, and feeds nobody.
    design.quietNames = true;
    LabelsD& second = design.Labels.addLabel(*design.nodeNamed("A2"));
    LabelsD& third = design.Labels.addLabel(*design.nodeNamed("RS4"));
    ASSERT_EQ(third.KeyName(), canvas::kErrorName);
    graph.add("A3.IN.TWICE <- 1 Error_myCode Error_myCode.SONUM");
    expectQuestion(platform::Answer::ok);
    links::CheckConsistency(design, progress);
    EXPECT_EQ(design.Lines.Count(), static_cast<int>(expected.size()) + 6);
    EXPECT_EQ(second.StartingLines().Count() + third.StartingLines().Count(), 0);
    EXPECT_EQ(second.EndingLines().Count(), 6);
}

TEST_F(Consistency, AnEdgeTellsTheLinksThatItStandsFor) {
    draw("A3", "RS1", canvas::EdgeTypeDescription);
    graph.add("RS1.AU_ID <- 1 A3 A3.OUT.AU_ID");
    const std::string none = "No link stands behind this edge.";
    for (const auto& [from, to, words] : std::vector<std::tuple<std::string, std::string, std::string>>{
             {"A1", "A2", "2 links: A1.OUT.A1.O12 → A2.IN.A1.O12, A1.OUT.AU_ID → A2.IN.AU_ID"},
             {"RS1", "A1", "1 link: RS1.AU_ID → A1.IN.AU_ID"},
             {"RS3", "A2", "3 links: RS3.PUB_ID → A2.PARAM.PUB_ID, RS3.PUB_ID → F1.IN.I2, RS3.PUB_ID → A2.F2.IN.I2"},
             {"A2", "A3", "1 link: A2.OUT.AU_ID → A3.IN.AU_ID"},
             {"A2", "RS1", none},
             {"A2", "A2", none}}) {
        SCOPED_TRACE(from + to);
        draw(from.c_str(), to.c_str(), canvas::EdgeTypeProvider);
        EXPECT_EQ(links::linkWords(links::linksBehind(design, *design.Lines.at(design.Lines.Count()))), words);
    }
    EXPECT_EQ(links::linksBehind(design, *design.Lines.at(1)).size(), 0U) << "a description stands for nothing";
    EXPECT_EQ(links::linkWords({{"A", "B"}, {"C", "D"}, {"E", "F"}, {"G", "H"}, {"I", "J"}}),
              "5 links: A → B, C → D, E → F and 2 more");
}

}  // namespace relationships
