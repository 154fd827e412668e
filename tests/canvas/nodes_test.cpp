#include "canvas/node_tip.h"
#include "canvas/node_walk.h"
#include "canvas/pointer_fixture.h"
#include "platform/codes.h"
#include "testkit/numbers.h"

using namespace orvent;
using namespace orvent::canvas;

namespace {

std::pair<float, float> place(Point point) {
    return {point.x, point.y};
}

class Nodes : public testkit::CanvasTest {
  protected:
    Canvas form{ports.services()};

    LabelsD& add(NodeTypeCode type, const std::string& caption, const std::string& key = {}) {
        return form.Labels.Add({1000, 2000, 1200, 600}, caption, type, key);
    }
    void expectDuplicate() {
        ports.messages.expect("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!",
                              "DUPLICATE NAME!", platform::Icon::critical);
    }
};

TEST_F(Nodes, GrabPointsAndArrows) {
    const struct {
        NodeTypeCode type;
        std::int16_t schemata;
        int point;
        std::pair<float, float> place;
        const char* arrow;
    } rows[] = {
        {NodeTypeRecordSet, 0, 1, {950, 2300}, "ArrowR"},
        {NodeTypeRecordSet, 0, 2, {1600, 1950}, "ArrowD"},
        {NodeTypeRecordSet, 0, 3, {2250, 2300}, "ArrowL"},
        {NodeTypeRecordSet, 0, 4, {1600, 2650}, "ArrowU"},
        {NodeTypeRecordSet, 0, 5, {0, 0}, ""},
        {NodeTypeComment, 0, 0, {0, 0}, ""},
        {NodeTypeActivity, 2, 1, {950, 2200}, "ArrowR"},
        {NodeTypeActivity, 2, 2, {950, 2400}, "ArrowR"},
        {NodeTypeActivity, 1, 2, {950, 2300}, "ArrowR"},
        {NodeTypeActivity, 1, 3, {1650, 2150}, "ArrowD"},
        {NodeTypeActivity, 1, 4, {2250, 2300}, "ArrowL"},
        {NodeTypeActivity, 1, 5, {1650, 2450}, "ArrowU"},
        {NodeTypeActivity, 1, 6, {0, 0}, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(platform::numberOf(row.type)) + "/" + std::to_string(row.point));
        form.clear();
        LabelsD& node = add(row.type, "N");
        if (node.activity()) {
            node.activity()->Act_SchemaNo = row.schemata;
        }
        EXPECT_EQ(place(node.GrabPoint(row.point)), row.place);
        EXPECT_EQ(node.LineArrowDirection(row.point), row.arrow);
    }
}

TEST_F(Nodes, TipsTellNameTypeStateAndMembers) {
    LabelsD& activity = add(NodeTypeActivity, "Join1");
    activity.activity()->Act_Inputs->Add("A", 0, entities::TagNone, "A");
    activity.activity()->Act_Inputs->Add("B", 0, entities::TagNone, "B");
    activity.activity()->Act_Outputs->Add("C", 0, entities::TagNone, "C");
    LabelsD& recordSet = add(NodeTypeRecordSet, "RS");
    recordSet.recordSet()->RecordSet_Outputs->Add("A", 0, "A");
    recordSet.setReady(true);
    LabelsD& function = add(NodeTypeFunction, "F", "Join1.F");
    function.setToolTipText("Join1.F");
    const struct {
        const LabelsD& node;
        const char *type, *name, *kind, *counts;
    } rows[] = {
        {activity, "Join", "Join1", "Activity, Join, not ready", "inputs: 2, outputs: 1, parameters: 0"},
        {activity, "", "Join1", "Activity, not ready", "inputs: 2, outputs: 1, parameters: 0"},
        {recordSet, "", "RS", "Record set, ready", "attributes: 1"},
        {function, "SUM", "Join1.F", "Function, SUM, not ready", "inputs: 0, outputs: 0"},
        {add(NodeTypeLog, "LOG1"), "", "LOG", "Log", ""},
    };
    for (const auto& row : rows) {
        const NodeTip tip = tipOf(row.node, row.type);
        EXPECT_EQ(tip.name, row.name);
        EXPECT_EQ(tip.kind, row.kind);
        EXPECT_EQ(tip.counts, row.counts);
    }
}

TEST_F(Nodes, AReadyActivityTellsWhatItLacks) {
    LabelsD& node = add(NodeTypeActivity, "Join1");
    const auto lack = [&node](bool ready, std::int16_t type) {
        node.setReady(ready);
        node.activity()->Act_Type = type;
        return lackOf(node);
    };
    EXPECT_EQ(lack(false, -1), "");
    EXPECT_EQ(lack(true, -1), "no type and no source");
    EXPECT_EQ(lack(true, 0), "no source");
    node.activity()->Act_Inputs->Add("A", 0, entities::TagNone, "A");
    node.activity()
        ->Act_Inputs->Add("B", 0, entities::TagNone, "B")
        .ProvidedFrom->Add("RS.B", entities::LinkRecordSet, "RS");
    EXPECT_EQ(lack(true, -1), "no type");
    EXPECT_EQ(lack(true, 0), "");
    EXPECT_EQ(lackOf(add(NodeTypeRecordSet, "RS")), "");
}

TEST_F(Nodes, ThePlaceUnderThePointerMeansAGrabPoint) {
    const struct {
        NodeTypeCode type;
        float x, y;
        int point;
    } rows[] = {
        // A box of 1200 by 600.
        {NodeTypeRecordSet, 299, 0, 1},  {NodeTypeRecordSet, 300, 299, 2}, {NodeTypeRecordSet, 900, 300, 4},
        {NodeTypeRecordSet, 901, 0, 3},  {NodeTypeActivity, 801, 0, 4},    {NodeTypeActivity, 399, 300, 1},
        {NodeTypeActivity, 399, 301, 2}, {NodeTypeActivity, 400, 299, 3},  {NodeTypeActivity, 800, 300, 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.x) + ", " + std::to_string(row.y));
        form.clear();
        LabelsD& node = add(row.type, "N");
        EXPECT_EQ(place(node.DrawRect(row.x, row.y)), place(node.GrabPoint(row.point)));
        EXPECT_EQ(form.GrabbingPoint, row.point);
    }
}

TEST_F(Nodes, ANewNodeOfEachKind) {
    constexpr std::size_t alternatives[] = {0, 0, 7, 5, 4, 2, 6, 5, 1, 0, 3, 0};  // of `Properties`
    for (int code = 1; code <= 11; ++code) {
        SCOPED_TRACE(code);
        const auto type = static_cast<NodeTypeCode>(code);
        const LabelsD& node = add(type, "N" + std::to_string(code));
        EXPECT_EQ(node.NodeType(), type);
        EXPECT_EQ(node.Properties.index(), alternatives[code]);
        EXPECT_EQ(node.NotReadyColor, code < 9 ? 255 : 0);
        EXPECT_EQ(node.Expanded, type == NodeTypeConstant);
        EXPECT_FALSE(node.Ready());
        EXPECT_EQ(form.ActiveLabel, node.Index());
        EXPECT_EQ(form.nodeNamed("N" + std::to_string(code)), &node);
    }
    EXPECT_EQ(form.nodeNamed("N3")->entity<entities::ParameterProperties>()->NodeKind, entities::KindConstant);
    EXPECT_EQ(form.nodeNamed("N3")->entity<entities::ParameterProperties>()->LabelIndex, 3_node);
    EXPECT_EQ(form.nodeNamed("N8")->activity()->Act_Name, "N8");
    const LabelsD& input = add(NodeTypeAttribute, "AU_ID", "A.IN.AU_ID");
    EXPECT_EQ(form.nodeNamed("A.IN.AU_ID"), &input);
    EXPECT_EQ(form.nodeNamed("AU_ID"), nullptr);
    EXPECT_EQ(input.Caption(), "AU_ID");
}

TEST_F(Nodes, ATakenNameIsToldOnceAndFreesTheOldOne) {
    add(NodeTypeRecordSet, "RS1");
    LabelsD& other = add(NodeTypeActivity, "A");
    expectDuplicate();
    other.setCaption("RS1");
    EXPECT_EQ(other.KeyName(), "Error_myCode");
    EXPECT_EQ(other.Caption(), "Error_myCode");
    EXPECT_FALSE(form.isNameTaken("A"));
    EXPECT_EQ(form.nodeNamed("RS1")->Index(), 1_node);
    other.setCaption("A");
    EXPECT_EQ(form.nodeNamed("A"), &other);
    other.setCaption("A");
    EXPECT_EQ(other.KeyName(), "A");

    expectDuplicate();
    EXPECT_EQ(add(NodeTypeRecordSet, "RS1").recordSet()->RecordSet_Name, "Error_myCode");
    form.quietNames = true;
    form.Labels.Remove(add(NodeTypeRecordSet, "RS1").Index());
    EXPECT_EQ(form.nodeNamed("RS1")->Index(), 1_node) << "a node that never had the name must not release it";
    other.setCaption("rs1");
    EXPECT_EQ(other.KeyName(), "rs1") << "names tell upper from lower case";
}

TEST_F(Nodes, CommentsAndLogsTakeTheNextNumber) {
    const struct {
        NodeTypeCode type;
        const char *first, *second, *third;
    } rows[] = {{NodeTypeComment, "Comment1", "Comment2", "Comment3"},
                {NodeTypeLog, "Log7", "Log8", "Log9"},
                {NodeTypeComment, "note", "Comment1", "Comment2"}};
    for (const auto& row : rows) {
        form.clear();
        add(row.type, row.first);
        LabelsD& second = add(row.type, row.first);
        EXPECT_EQ(second.KeyName(), "");
        EXPECT_EQ(second.Caption(), row.second);
        EXPECT_EQ(form.nodeNamed(row.second), &second);
        EXPECT_EQ(add(row.type, row.first).Caption(), row.third);
        form.Labels.Remove(second.Index());
        EXPECT_FALSE(form.isNameTaken(row.second));
        EXPECT_EQ(form.NamesColl.Count(), 2);
    }
}

TEST_F(Nodes, ReadinessAndSelectionMixByXor) {
    const std::int32_t mask = ports.settings.SelColor;
    LabelsD& node = add(NodeTypeFunction, "F");
    const std::int32_t plain = node.Color();
    EXPECT_EQ(form.SelectedLabels.Add(node.Index()), &node);
    EXPECT_EQ(form.SelectedLabels.Add(node.Index()), nullptr);
    EXPECT_EQ(node.Color(), plain ^ mask);
    form.SelectedLabels.Remove(node.Index());
    EXPECT_EQ(node.Color(), plain);
    form.SelectedLabels.Add(node.Index());
    node.setReady(true);
    EXPECT_EQ(node.Color(), 16711680 ^ mask);
    node.setReady(false);
    EXPECT_EQ(node.Color(), 255 ^ mask);
    EXPECT_EQ(form.SelectedLabels.Item(node.Index()), &node);
    form.SelectedLabels.Clear();
    EXPECT_EQ(node.Color(), 255);
    EXPECT_EQ(form.SelectedLabels.Count(), 0);

    ports.settings.SelColor = -1;  // of which a colour takes 24 bits
    form.SelectedLabels.Add(node.Index());
    EXPECT_EQ(node.Color(), 0xFFFF00);
    node.setReady(true);
    EXPECT_EQ(node.Color(), 0x00FFFF);
    form.SelectedLabels.Clear();
    EXPECT_EQ(node.Color(), 0xFF0000);

    LabelsD& comment = add(NodeTypeComment, "C");
    comment.setReady(true);
    EXPECT_EQ(comment.Color(), 0xCCFFFF) << "comments have no colour of readiness";
    EXPECT_FALSE(form.SelectedLabels.Add(99_node));
}

TEST_F(Nodes, SizesHaveALeastAndMovingMarksTheEntity) {
    LabelsD& node = add(NodeTypeActivity, "A");
    EXPECT_FALSE(node.activity()->Changed);
    node.setWidth(100);
    node.setHeight(100);
    EXPECT_EQ(node.Width(), 201);
    EXPECT_EQ(node.Height(), 152);
    EXPECT_TRUE(node.activity()->Changed);
    EXPECT_EQ(form.Labels.Add({0, 0, 1, 1}, "B", NodeTypeLog).Width(), 201);
    add(NodeTypeLog, "Log1").setLeft(5);  // has no entity to mark
}

TEST_F(Nodes, RemovingTakesEdgesNamesAndSelection) {
    const NodeNumber a = add(NodeTypeActivity, "A").Index(), b = add(NodeTypeActivity, "B").Index();
    std::vector<EdgeNumber> lines;
    for (const auto& [from, to] : {std::pair{a, b}, {b, a}, {a, a}, {b, b}}) {
        lines.push_back(form.Lines.addFullLine(from, 4, to, 1, EdgeTypeProvider, AngleNone, 0)->Index());
    }
    const EdgeNumber self = lines[2], kept = lines[3];
    form.SelectedLabels.Add(a);
    form.SelectedLines.Add(self);
    form.ActiveEdge = form.CurrentEdge = self;
    form.ActiveLabel = form.CurrentNode = form.ConnectFromLabel = a;
    form.Labels.Remove(a);
    form.Labels.Remove(a);
    EXPECT_EQ(form.Lines.Count(), 1);
    EXPECT_EQ(form.Labels.byIndex(b)->StartingLines().Count(), 1);
    EXPECT_EQ(*form.Labels.byIndex(b)->EndingLines().begin(), kept);
    EXPECT_FALSE(form.isNameTaken("A"));
    EXPECT_EQ(form.SelectedLabels.Count() + form.SelectedLines.Count(), 0);
    for (const NodeNumber field : {form.ActiveLabel, form.CurrentNode, form.ConnectFromLabel}) {
        EXPECT_EQ(field, kNoNode);
    }
    for (const EdgeNumber field : {form.ActiveEdge, form.CurrentEdge}) {
        EXPECT_EQ(field, kNoEdge);
    }
    EXPECT_EQ(add(NodeTypeActivity, "A").Index(), 3_node) << "numbers are never used again";
    EXPECT_EQ(form.Labels.Item("2")->KeyName(), "B");
    EXPECT_FALSE(form.Labels.Item("1"));
    EXPECT_FALSE(form.Labels.Item("B"));
}

TEST_F(Nodes, ACopyOnAnotherCanvas) {
    LabelsD& node = add(NodeTypeActivity, "A");
    node.activity()->Act_SQL = "sql";
    node.setReady(true);
    testkit::ZoomCanvas zoom(ports.services());
    const LabelsD& copy = zoom.Labels.addLabel(node);
    EXPECT_EQ(copy.KeyName(), "A");
    EXPECT_EQ(copy.Top(), node.Top());
    EXPECT_TRUE(copy.Ready());
    ASSERT_NE(copy.activity(), node.activity());
    EXPECT_EQ(copy.activity()->Act_SQL, "sql");
    EXPECT_EQ(zoom.BiggestHeight, 2000 + 600 + 3 * 450);
    zoom.Labels.Add({0, 2600, 300, 300}, "B", NodeTypeRecordSet);
    EXPECT_EQ(zoom.BiggestHeight, 2000 + 600 + 3 * 450);
    EXPECT_EQ(form.BiggestHeight, 0);
}

TEST_F(Nodes, AWalkFollowsRowsAndColumns) {
    EXPECT_EQ(walk(form, Direction::right), nullptr);
    for (const auto& [name, left, top] :
         {std::tuple{"a", 0.0F, 0.0F}, {"b", 3000.0F, 300.0F}, {"c", 1500.0F, 3000.0F}, {"d", 9000.0F, 0.0F}}) {
        form.Labels.Add({left, top, 1050, 450}, name, NodeTypeRecordSet);
    }
    using enum Direction;
    for (const auto& [direction, name] :
         {std::pair{right, "a"}, {right, "b"}, {right, "d"}, {right, ""}, {left, "b"}, {down, "c"}, {up, "b"}}) {
        const LabelsD* node = walk(form, direction);
        EXPECT_EQ(node ? node->KeyName() : "", name);
        EXPECT_EQ(form.SelectedLabels.Count(), 1);
    }
    form.nodeNamed("c")->setVisible(false);
    selectAllNodes(form);
    EXPECT_EQ(form.SelectedLabels.Count(), 3) << "what is not seen is not taken";
}

}  // namespace
