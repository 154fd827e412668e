#include "canvas/canvas.h"
#include "testkit/scripted_ports.h"

using namespace orvent;
using namespace orvent::canvas;

namespace {

class Edges : public testkit::CanvasTest {
  protected:
    Canvas form{ports.services()};
    LabelsD& from = form.Labels.Add(0, 1000, 0, 400, "RS1", NodeTypeRecordSet);
    LabelsD& to = form.Labels.Add(3000, 900, 1000, 600, "A", NodeTypeActivity);

    LinesD& join(std::int32_t type = EdgeTypeProvider, std::int32_t angle = AngleNone) {
        return *form.Lines.addFullLine(from.Index(), 3, to.Index(), 2, type, angle, 77);
    }
    static void expectMiddle(const LinesD& edge, float x, float y) {
        EXPECT_EQ(edge.Xm(), x);
        EXPECT_EQ(edge.Ym(), y);
    }
};

TEST_F(Edges, AFullLineKnowsItsEnds) {
    const LinesD& edge = join();
    EXPECT_EQ(edge.X1(), 1050);
    EXPECT_EQ(edge.Y1(), 200);
    EXPECT_EQ(edge.X2(), 2950);
    EXPECT_EQ(edge.Y2(), 1400);
    expectMiddle(edge, 2000, 800);
    EXPECT_EQ(edge.FromLabel, from.Index());
    EXPECT_EQ(edge.ToLabel, to.Index());
    EXPECT_EQ(edge.Color(), 77);
    EXPECT_EQ(edge.arrowImage(), "ArrowR");
    EXPECT_EQ(from.StartingLines.at(1), edge.Index());
    EXPECT_EQ(to.EndingLines.at(1), edge.Index());
    EXPECT_EQ(join().MidBox(), 5);
    EXPECT_FALSE(form.Lines.addFullLine(from.Index(), 3, 99, 1, EdgeTypeProvider, 0, 0));
    EXPECT_FALSE(form.Lines.addFullLine(99, 3, to.Index(), 1, EdgeTypeProvider, 0, 0));
    EXPECT_EQ(form.Lines.Count(), 2);
    EXPECT_EQ(from.StartingLines.Count(), 2);
}

TEST_F(Edges, StyleOfEachKind) {
    struct Row {
        std::int32_t type;
        std::int16_t style, width;
        bool arrow;
    };
    for (const Row& row : {Row{0, 1, 2, true}, Row{1, 1, 1, false}, Row{2, 2, 1, true}, Row{3, 2, 1, false},
                           Row{4, 3, 1, true}, Row{5, 4, 1, true}, Row{6, 1, 1, false}, Row{-1, 1, 1, false}}) {
        SCOPED_TRACE(row.type);
        const LinesD& edge = join(row.type);
        EXPECT_EQ(edge.BorderStyle, row.style);
        EXPECT_EQ(edge.BorderWidth, row.width);
        EXPECT_EQ(!edge.arrowImage().empty(), row.arrow);
    }
}

TEST_F(Edges, TheAngleDecidesTheMiddle) {
    struct Row {
        std::int32_t angle;
        float endY, x, y;
    };
    // From (0, 100) to (500, endY).
    for (const Row& row : {Row{AngleVerticalUp, 50, 0, 50}, Row{AngleVerticalUp, 100, 0, 100},
                           Row{AngleVerticalUp, 150, 500, 100}, Row{AngleVerticalDown, 50, 500, 100},
                           Row{AngleVerticalDown, 100, 500, 100}, Row{AngleVerticalDown, 150, 0, 150},
                           Row{AngleStraight, 150, 0, 100}, Row{AngleNone, 150, 7, 8}, Row{9, 150, 7, 8}}) {
        SCOPED_TRACE(std::to_string(row.angle) + " to " + std::to_string(row.endY));
        LinesD& edge = form.Lines.Add({0, 100}, {7, 8}, {500, row.endY}, from.Index(), EdgeTypeProvider);
        edge.setAngle(row.angle);
        expectMiddle(edge, row.x, row.y);
        EXPECT_EQ(edge.Angle(), row.angle);
        EXPECT_EQ(edge.middleHandleVisible(), row.angle == AngleNone || row.angle == 9);
    }
}

TEST_F(Edges, BackToNoAngle) {
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
    to.setBox(4000, 1000, 900, 900);
    for (const LinesD* edge : std::initializer_list<const LinesD*>{&placed, &angled}) {
        EXPECT_EQ(edge->Y1(), 3200);
        EXPECT_EQ(edge->X2(), 3950);
        EXPECT_EQ(edge->Y2(), 1600);
    }
    expectMiddle(placed, 5, 6);
    expectMiddle(angled, 1050, 1600);
}

TEST_F(Edges, FindingAndRemoving) {
    const std::int32_t regulator = join(EdgeTypeRegulator).Index(), older = join().Index(), newer = join().Index();
    const auto find = [&](bool remove) {
        const LinesD* edge = form.Lines.FindConnectingLine(from.Index(), to.Index(), EdgeTypeProvider, remove);
        return edge ? edge->Index() : -1;
    };
    EXPECT_EQ(find(false), older);
    EXPECT_EQ(find(true), -1);
    EXPECT_EQ(find(false), newer);
    EXPECT_FALSE(form.Lines.FindConnectingLine(to.Index(), from.Index(), EdgeTypeProvider, false));
    EXPECT_FALSE(form.Lines.FindConnectingLine(99, to.Index(), EdgeTypeProvider, true));
    EXPECT_EQ(from.StartingLines.Count(), 2);

    form.Lines.Remove(newer);
    EXPECT_EQ(from.StartingLines.Count(), 2) << "the plain removal leaves the lists of the nodes alone";
    form.Lines.RemoveFull(regulator);
    form.Lines.RemoveFull(regulator);
    EXPECT_EQ(from.StartingLines.Count(), 1);
    EXPECT_EQ(to.EndingLines.Count(), 1);
    EXPECT_EQ(form.Lines.Count(), 0);
    EXPECT_EQ(join().Index(), 4);
}

TEST_F(Edges, Selection) {
    LinesD& edge = join();
    LinesD& other = join();
    EXPECT_EQ(form.SelectedLines.Add(other.Index()), &other);
    EXPECT_EQ(form.SelectedLines.Add(edge.Index()), &edge);
    EXPECT_FALSE(form.SelectedLines.Add(edge.Index()));
    EXPECT_EQ(form.SelectedLines.members(), (std::vector<std::int32_t>{other.Index(), edge.Index()}));
    form.SelectedLines.Remove(other.Index());
    EXPECT_FALSE(other.Selected());
    EXPECT_TRUE(edge.Selected());
    EXPECT_EQ(form.SelectedLines.Item(edge.Index()), &edge);
    EXPECT_FALSE(form.SelectedLines.Item(other.Index()));
    form.SelectedLines.Clear();
    EXPECT_FALSE(edge.Selected());
    form.SelectedLines.Add(edge.Index());
    form.Lines.RemoveFull(edge.Index());
    EXPECT_EQ(form.SelectedLines.Count(), 0);
}

}  // namespace
