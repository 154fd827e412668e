#include "canvas/canvas.h"
#include "testkit/scripted_ports.h"

using namespace orvent;
using namespace orvent::canvas;

namespace orvent::canvas {
static bool operator==(const Point& a, const Point& b) {
    return a.x == b.x && a.y == b.y;
}
static void PrintTo(const Point& point, std::ostream* out) {
    *out << "(" << point.x << ", " << point.y << ")";
}
}  // namespace orvent::canvas

namespace {

class Nodes : public testkit::CanvasTest {
  protected:
    Canvas form{ports.services()};

    LabelsD& add(std::int32_t type, const std::string& caption, const std::string& key = {}) {
        return form.Labels.Add(1000, 1200, 2000, 600, caption, type, key);
    }
    void expectDuplicate() {
        ports.messages.expect("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!",
                              "DUPLICATE NAME!", platform::Icon::critical);
    }
};

TEST_F(Nodes, GrabPointsAndArrows) {
    struct Row {
        std::int32_t type;
        std::int16_t schemata;
        int point;
        Point place;
        const char* arrow;
    };
    const Row rows[] = {
        {NodeTypeRecordSet, 0, 1, {950, 2300}, "ArrowR"},
        {NodeTypeRecordSet, 0, 2, {1600, 1950}, "ArrowD"},
        {NodeTypeRecordSet, 0, 3, {2250, 2300}, "ArrowL"},
        {NodeTypeRecordSet, 0, 4, {1600, 2650}, "ArrowU"},
        {NodeTypeRecordSet, 0, 5, {0, 0}, ""},
        {NodeTypeComment, 0, 0, {0, 0}, ""},
        {NodeTypeActivity, 2, 1, {950, 2200}, "ArrowR"},
        {NodeTypeActivity, 2, 2, {950, 2400}, "ArrowR"},
        {NodeTypeActivity, 1, 1, {950, 2300}, "ArrowR"},
        {NodeTypeActivity, 1, 2, {950, 2300}, "ArrowR"},
        {NodeTypeActivity, 1, 3, {1650, 2150}, "ArrowD"},
        {NodeTypeActivity, 1, 4, {2250, 2300}, "ArrowL"},
        {NodeTypeActivity, 1, 5, {1650, 2450}, "ArrowU"},
        {NodeTypeActivity, 1, 6, {0, 0}, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.type) + "/" + std::to_string(row.point));
        form.clear();
        LabelsD& node = add(row.type, "N");
        if (node.activity()) {
            node.activity()->Act_SchemaNo = row.schemata;
        }
        EXPECT_EQ(node.GrabPoint(row.point), row.place);
        EXPECT_EQ(node.LineArrowDirection(row.point), row.arrow);
    }
}

TEST_F(Nodes, ThePlaceUnderThePointerMeansAGrabPoint) {
    struct Row {
        std::int32_t type;
        float x, y;
        int point;
    };
    // A box of 1200 by 600.
    const Row rows[] = {
        {NodeTypeRecordSet, 299, 0, 1},  {NodeTypeRecordSet, 300, 299, 2}, {NodeTypeRecordSet, 900, 300, 4},
        {NodeTypeRecordSet, 901, 0, 3},  {NodeTypeActivity, 801, 0, 4},    {NodeTypeActivity, 399, 300, 1},
        {NodeTypeActivity, 399, 301, 2}, {NodeTypeActivity, 400, 299, 3},  {NodeTypeActivity, 800, 300, 5},
    };
    for (const Row& row : rows) {
        form.clear();
        LabelsD& node = add(row.type, "N");
        EXPECT_EQ(node.DrawRect(row.x, row.y), node.GrabPoint(row.point)) << row.x << ", " << row.y;
        EXPECT_EQ(form.GrabbingPoint, row.point) << row.x << ", " << row.y;
        EXPECT_EQ(form.Grabber, node.GrabPoint(row.point));
    }
}

TEST_F(Nodes, ANewNodeOfEachKind) {
    struct Row {
        std::int32_t type;
        std::int32_t ready, notReady;
        std::size_t entity;  ///< which alternative `Properties` holds
    };
    const Row rows[] = {{1, 0, 255, 0},        {2, 0, 255, 7},        {3, 0, 255, 5},        {4, 16777215, 255, 4},
                        {5, 16777215, 255, 2}, {6, 16711680, 255, 6}, {7, 16777215, 255, 5}, {8, 0, 255, 1},
                        {9, 0, 0, 0},          {10, 0, 0, 3},         {11, 0, 0, 0}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        const LabelsD& node = add(row.type, "N" + std::to_string(row.type));
        EXPECT_EQ(node.ReadyColor, row.ready);
        EXPECT_EQ(node.NotReadyColor, row.notReady);
        EXPECT_EQ(node.Properties.index(), row.entity);
        EXPECT_EQ(node.Expanded, row.type == NodeTypeConstant);
        EXPECT_FALSE(node.Ready());
        EXPECT_EQ(form.ActiveLabel, node.Index());
        EXPECT_EQ(form.nodeNamed("N" + std::to_string(row.type)), &node);
    }
    EXPECT_EQ(form.nodeNamed("N3")->entity<entities::ParameterProperties>()->NodeKind, entities::KindConstant);
    EXPECT_EQ(form.nodeNamed("N3")->entity<entities::ParameterProperties>()->LabelIndex, 3);
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
    EXPECT_EQ(form.nodeNamed("RS1")->Index(), 1);
    other.setCaption("A");
    EXPECT_EQ(form.nodeNamed("A"), &other);
    other.setCaption("A");
    EXPECT_EQ(other.KeyName(), "A");

    expectDuplicate();
    EXPECT_EQ(add(NodeTypeRecordSet, "RS1").recordSet()->RecordSet_Name, "Error_myCode");
    form.quietNames = true;
    form.Labels.Remove(add(NodeTypeRecordSet, "RS1").Index());
    EXPECT_EQ(form.nodeNamed("RS1")->Index(), 1) << "a node that never had the name must not release it";
    other.setCaption("rs1");
    EXPECT_EQ(other.KeyName(), "rs1") << "names tell upper from lower case";
}

TEST_F(Nodes, CommentsAndLogsTakeTheNextNumber) {
    struct Row {
        std::int32_t type;
        const char *first, *second, *third;
    };
    for (const Row& row :
         {Row{NodeTypeComment, "Comment1", "Comment2", "Comment3"}, Row{NodeTypeLog, "Log7", "Log8", "Log9"},
          Row{NodeTypeComment, "note", "Comment1", "Comment2"}}) {
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

TEST_F(Nodes, TextOfTheBox) {
    LabelsD& log = add(NodeTypeLog, "Log1");
    EXPECT_EQ(log.shownText(), "LOG");
    EXPECT_EQ(log.Caption(), "Log1");
    LabelsD& comment = add(NodeTypeComment, "Comment1");
    comment.setComment("words");
    EXPECT_EQ(comment.shownText(), "words");
    EXPECT_EQ(comment.Caption(), "Comment1");
    EXPECT_EQ(add(NodeTypeActivity, "A").shownText(), "A");
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

    LabelsD& comment = add(NodeTypeComment, "C");
    const std::int32_t yellow = comment.Color();
    comment.setReady(true);
    EXPECT_EQ(comment.Color(), yellow);
    EXPECT_FALSE(form.SelectedLabels.Add(99));
}

TEST_F(Nodes, SizesHaveALeastAndMovingMarksTheEntity) {
    LabelsD& node = add(NodeTypeActivity, "A");
    EXPECT_FALSE(node.activity()->Changed);
    node.setWidth(100);
    node.setHeight(100);
    EXPECT_EQ(node.Width(), 201);
    EXPECT_EQ(node.Height(), 152);
    EXPECT_TRUE(node.activity()->Changed);
    EXPECT_EQ(form.Labels.Add(0, 1, 0, 1, "B", NodeTypeLog).Width(), 201);
    LabelsD& log = add(NodeTypeLog, "Log1");
    log.setLeft(5);
    EXPECT_EQ(std::get<std::int16_t>(log.Properties), 0);
}

TEST_F(Nodes, RemovingTakesEdgesNamesAndSelection) {
    const std::int32_t a = add(NodeTypeActivity, "A").Index(), b = add(NodeTypeActivity, "B").Index();
    const auto join = [&](std::int32_t from, std::int32_t to) {
        return form.Lines.addFullLine(from, 4, to, 1, EdgeTypeProvider, AngleNone, 0)->Index();
    };
    join(a, b);
    join(b, a);
    const std::int32_t self = join(a, a);
    const std::int32_t kept = join(b, b);
    form.SelectedLabels.Add(a);
    form.SelectedLines.Add(self);
    form.ActiveEdge = form.CurrentEdge = self;
    form.ActiveLabel = form.CurrentNode = form.ConnectFromLabel = a;
    form.Labels.Remove(a);
    form.Labels.Remove(a);
    EXPECT_EQ(form.Lines.Count(), 1);
    EXPECT_EQ(form.Labels.byIndex(b)->StartingLines.Count(), 1);
    EXPECT_EQ(form.Labels.byIndex(b)->EndingLines.at(1), kept);
    EXPECT_FALSE(form.isNameTaken("A"));
    EXPECT_EQ(form.SelectedLabels.Count() + form.SelectedLines.Count(), 0);
    for (const std::int32_t field :
         {form.ActiveEdge, form.CurrentEdge, form.ActiveLabel, form.CurrentNode, form.ConnectFromLabel}) {
        EXPECT_EQ(field, -1);
    }
    EXPECT_EQ(add(NodeTypeActivity, "A").Index(), 3) << "numbers are never used again";
    EXPECT_EQ(form.Labels.Item("2")->KeyName(), "B");
    EXPECT_FALSE(form.Labels.Item("1"));
    EXPECT_FALSE(form.Labels.Item("B"));
}

class Zoom : public Canvas {
  public:
    using Canvas::Canvas;
    bool isZoom() const override { return true; }
};

TEST_F(Nodes, ACopyOnAnotherCanvas) {
    LabelsD& node = add(NodeTypeActivity, "A");
    node.activity()->Act_SQL = "sql";
    node.activity()->NodeID = 4;
    node.setReady(true);
    Zoom zoom(ports.services());
    const LabelsD& copy = zoom.Labels.addLabel(node);
    EXPECT_EQ(copy.KeyName(), "A");
    EXPECT_EQ(copy.Top(), node.Top());
    EXPECT_EQ(copy.Color(), node.Color());
    EXPECT_TRUE(copy.Ready());
    ASSERT_NE(copy.activity(), node.activity());
    EXPECT_EQ(copy.activity()->Act_SQL, "sql");
    EXPECT_EQ(copy.activity()->NodeID, 4);
    EXPECT_EQ(zoom.BiggestHeight, 2000 + 600 + 3 * 450);
    zoom.Labels.Add(0, 300, 2600, 300, "B", NodeTypeRecordSet);
    EXPECT_EQ(zoom.BiggestHeight, 2000 + 600 + 3 * 450);
    EXPECT_EQ(form.BiggestHeight, 0);
}

}  // namespace
