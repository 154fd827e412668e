#include "canvas/pointer_fixture.h"
#include "platform/codes.h"
#include "testkit/numbers.h"

using namespace orvent;
using namespace orvent::canvas;

namespace {

class Edges : public testkit::CanvasTest {
  protected:
    Canvas form{ports.services()};
    LabelsD& from = form.Labels.Add({0, 0, 1000, 400}, "RS1", NodeTypeRecordSet);
    LabelsD& to = form.Labels.Add({3000, 1000, 900, 600}, "A", NodeTypeActivity);

    LinesD& join(EdgeTypeCode type = EdgeTypeProvider, AngleCode angle = AngleNone) {
        return *form.Lines.addFullLine(from.Index(), 3, to.Index(), 2, type, angle, 77);
    }
    static std::string ends(const LinesD& edge) {
        return testkit::PointerStage::text(edge.X1(), edge.Y1(), edge.X2(), edge.Y2());
    }
    static void expectMiddle(const LinesD& edge, float x, float y) {
        EXPECT_EQ(edge.Xm(), x);
        EXPECT_EQ(edge.Ym(), y);
    }
};

TEST_F(Edges, AFullLineKnowsItsEnds) {
    const LinesD& edge = join();
    EXPECT_EQ(ends(edge), "1050 200 2950 1400");
    EXPECT_EQ(edge.FromLabel(), from.Index());
    EXPECT_EQ(edge.ToLabel(), to.Index());
    EXPECT_EQ(edge.Color(), 77);
    EXPECT_EQ(edge.arrowImage(), "ArrowR");
    EXPECT_EQ(*from.StartingLines().begin(), edge.Index());
    EXPECT_EQ(*to.EndingLines().begin(), edge.Index());
    EXPECT_EQ(join().MidBox(), HandleNumber{5});
    EXPECT_FALSE(form.Lines.addFullLine(from.Index(), 3, 99_node, 1, EdgeTypeProvider, AngleNone, 0));
    EXPECT_FALSE(form.Lines.addFullLine(99_node, 3, to.Index(), 1, EdgeTypeProvider, AngleNone, 0));
    EXPECT_EQ(form.Lines.Count(), 2);
    EXPECT_EQ(from.StartingLines().Count(), 2);
}

TEST_F(Edges, StyleComesFromTheKind) {
    using Style = std::tuple<std::int16_t, std::int16_t, bool>;
    for (const auto& [type, style] :
         {std::pair{0, Style{1, 2, true}}, {3, {2, 1, false}}, {6, {1, 1, false}}, {-1, {1, 1, false}}}) {
        const LinesD& edge = join(static_cast<EdgeTypeCode>(type));
        EXPECT_EQ(Style(edge.BorderStyle, edge.BorderWidth, !edge.arrowImage().empty()), style) << type;
    }
}

TEST_F(Edges, TheAngleDecidesTheMiddle) {
    const struct {
        AngleCode angle;
        float endY, x, y;
    } rows[] = {{AngleVerticalUp, 50, 0, 50},          {AngleVerticalUp, 100, 0, 100},
                {AngleVerticalUp, 150, 500, 100},      {AngleVerticalDown, 50, 500, 100},
                {AngleVerticalDown, 100, 500, 100},    {AngleVerticalDown, 150, 0, 150},
                {AngleStraight, 150, 0, 100},          {AngleNone, 150, 7, 8},
                {static_cast<AngleCode>(9), 150, 7, 8}};  // from (0, 100) to (500, endY)
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(platform::numberOf(row.angle)) + " to " + std::to_string(row.endY));
        LinesD& edge = form.Lines.Add({0, 100}, {7, 8}, {500, row.endY}, from.Index(), EdgeTypeProvider);
        edge.setAngle(row.angle);
        expectMiddle(edge, row.x, row.y);
        EXPECT_EQ(edge.middleHandleVisible(), row.angle == AngleNone || row.angle == static_cast<AngleCode>(9));
    }
}

TEST_F(Edges, BackToNoAngleAStraightOneRegainsItsMiddle) {
    LinesD& edge = join(EdgeTypeProvider, AngleStraight);
    edge.setAngle(AngleNone);
    expectMiddle(edge, 2000, 800);
    edge.setAngle(AngleVerticalUp);
    edge.setAngle(AngleNone);
    expectMiddle(edge, 2950, 200);
}

TEST_F(Edges, FollowTheirNodes) {
    LinesD& placed = join();
    placed.setMiddle({5, 6});
    const LinesD& angled = join(EdgeTypeProvider, AngleVerticalUp);
    from.setTop(3000);
    to.setBox({4000, 1000, 900, 900});
    EXPECT_EQ(ends(placed), "1050 3200 3950 1600");
    EXPECT_EQ(ends(angled), "1050 3200 3950 1600");
    expectMiddle(placed, 5, 6);
    expectMiddle(angled, 1050, 1600);
}

TEST_F(Edges, AnUnknownAngleLeavesTheMiddleHandleAsItWas) {
    for (const AngleCode former : {AngleNone, AngleVerticalUp, AngleVerticalDown, AngleStraight}) {
        for (const int unknown : {4, -1}) {
            LinesD& edge = join(EdgeTypeProvider, former);
            edge.setAngle(static_cast<AngleCode>(unknown));
            EXPECT_EQ(edge.middleHandleVisible(), former == AngleNone) << platform::numberOf(former);
            EXPECT_EQ(platform::numberOf(edge.Angle()), unknown);
            edge.setAngle(AngleNone);
            EXPECT_TRUE(edge.middleHandleVisible());
        }
    }
}

TEST_F(Edges, AnEndIsAttachedThroughOneDoor) {
    const auto lists = [&] {
        std::string text;
        for (const LabelsD& node : form.Labels) {
            for (const LineNumbers* list : {&node.StartingLines(), &node.EndingLines()}) {
                for (const EdgeNumber number : *list) {
                    text += textOf(number);
                }
                text += list == &node.StartingLines() ? ">" : " ";
            }
        }
        return text;
    };
    LinesD& drawn = form.Lines.Add({1, 2}, {3, 4}, {5, 6}, from.Index(), EdgeTypeProvider, 3);
    EXPECT_EQ(lists(), "> > ") << "an edge that is being drawn";
    drawn.attach(EdgeEnd::start, from, 3);
    drawn.attach(EdgeEnd::end, to, 2);
    EXPECT_EQ(ends(drawn), "1050 200 2950 1400");
    LinesD& other = join();
    EXPECT_EQ(lists(), "12> >12 ");
    drawn.attach(EdgeEnd::end, to, 4);
    EXPECT_EQ(lists(), "12> >21 ") << "once, also at the node where it was";
    drawn.attach(EdgeEnd::start, to, 4);
    drawn.attach(EdgeEnd::end, from, 1);
    EXPECT_EQ(lists(), "2>1 1>2 ");
    EXPECT_EQ(drawn.arrowImage(), "ArrowR");
    EXPECT_EQ(drawn.FromGrabbingPoint(), 4);
    drawn.detach(EdgeEnd::start);
    EXPECT_EQ(drawn.FromLabel(), 0_node);
    EXPECT_EQ(lists(), "2>1 >2 ");
    to.EndingLinesClear();
    EXPECT_EQ(other.ToLabel(), 0_node);
    EXPECT_EQ(lists(), "2>1 > ");
    EXPECT_EQ(form.Lines.RemoveFull(other.Index())->FromLabel(), from.Index()) << "handed back with its ends";
    EXPECT_EQ(form.Labels.Remove(to.Index())->KeyName(), "A");
    EXPECT_EQ(lists(), ">1 ");
}

TEST_F(Edges, FindingAndRemoving) {
    const EdgeNumber regulator = join(EdgeTypeRegulator).Index(), older = join().Index(), newer = join().Index();
    const auto find = [&](bool remove) {
        const LinesD* edge = form.Lines.FindConnectingLine(from.Index(), to.Index(), EdgeTypeProvider, remove);
        return edge ? edge->Index() : kNoEdge;
    };
    EXPECT_EQ(find(false), older);
    EXPECT_EQ(find(true), kNoEdge);
    EXPECT_EQ(find(false), newer);
    EXPECT_FALSE(form.Lines.FindConnectingLine(to.Index(), from.Index(), EdgeTypeProvider, false));
    EXPECT_FALSE(form.Lines.FindConnectingLine(99_node, to.Index(), EdgeTypeProvider, true));
    EXPECT_EQ(from.StartingLines().Count(), 2);

    form.Lines.Remove(newer);
    EXPECT_EQ(from.StartingLines().Count(), 2) << "the plain removal leaves the lists of the nodes alone";
    form.Lines.RemoveFull(regulator);
    form.Lines.RemoveFull(regulator);
    EXPECT_EQ(from.StartingLines().Count(), 1);
    EXPECT_EQ(to.EndingLines().Count(), 1);
    EXPECT_EQ(form.Lines.Count(), 0);
    EXPECT_EQ(join().Index(), 4_edge);
}

TEST_F(Edges, Selection) {
    LinesD& edge = join();
    LinesD& other = join();
    EXPECT_EQ(form.SelectedLines.Add(other.Index()), &other);
    EXPECT_EQ(form.SelectedLines.Add(edge.Index()), &edge);
    EXPECT_FALSE(form.SelectedLines.Add(edge.Index()));
    form.SelectedLines.Remove(other.Index());
    EXPECT_TRUE(edge.Selected() && !other.Selected());
    EXPECT_FALSE(form.SelectedLines.Item(other.Index()));
    form.SelectedLines.Clear();
    EXPECT_FALSE(edge.Selected());
    form.SelectedLines.Add(edge.Index());
    form.Lines.RemoveFull(edge.Index());
    EXPECT_EQ(form.SelectedLines.Count(), 0);
}

}  // namespace
