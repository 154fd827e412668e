#include <cmath>
#include <memory>

#include "canvas/pointed_light.h"
#include "canvas/pointer_fixture.h"
#include "testkit/numbers.h"

using namespace orvent;
using namespace orvent::canvas;
using testkit::PointerStage;

namespace {

const std::string kDraw = "move n1 1900 1200|press n1 1900 1200|move n1 2500 1100 L|";

TEST(Pointer, WhatAGestureLeaves) {
    const std::string released = kDraw + "release h3 5000 1200|";
    const std::string invalid = " says This Relationship Is Not Valid";
    const struct {
        const char* tool;
        std::string events, seen;
    } rows[] = {
        // Drawing: the release decides, over a handle the move after it.
        {"Provider", kDraw + "release n5 5100 1200", "1.3-2.1 1.3-5.1 [1/0]"},
        {"Provider", kDraw + "release p 4500 1200", "1.3-2.1 [1/0]"},
        {"Provider", kDraw + "release l1 2500 1200", "1.3-2.1 [1/0]"},
        {"Provider", kDraw + "release n1 1900 1200", "1.3-2.1 [1/0]"},
        {"Provider", kDraw + "release n3 1500 3100", "1.3-2.1 [1/0]" + invalid},
        {"Provider", kDraw + "release h3@2 3500 1150", "1.3-2.1 1.3-2.3 [1/0]"},
        {"Provider", released + "move n5 5100 1200", "1.3-2.1 1.3-5.1 [1/0]"},
        {"Provider", released + "move h3 1 1|move o 1 1|move n2 3500 1000", "1.3-2.1 1.3-2.3 [1/0]"},
        {"Provider", released + "move n1 1100 1200", "1.3-2.1 [1/0]"},
        {"Provider", released + "move p 4500 1200", "1.3-2.1 [1/0]"},
        {"Provider", released + "move n3 1500 3100", "1.3-2.1 [1/0]" + invalid},
        {"Provider", released + "press n5 5100 1200|release n5 1 1", "1.3-2.1 [5/0]"},
        {"Provider", released + "key|", "[/0] unlink RS"},
        {"Provider", kDraw + "key|cancel", "1.3-2.1 [1/0]"},
        {"Provider", kDraw + "tool Arrow|move n1 1 1 L|release n1 1 1", "1.3-2.1 [1/0]"},
        {"Provider", kDraw + "move n5 5100 1200|", "1.3-2.1 [1/0]"},
        {"Provider", "press n1 1100 1200|release h3 1 1|move n2 3100 1500", "1.3-2.1 1.1-2.2 [1/0]"},
        {"Description", "press n1 1100 1200|release h3 1 1|move n2 3100 1100", "1.3-2.1 [1/0]"},
        {"Description", "press n3 1100 3300|release h3 1 1|move n2 3100 1100", "1.3-2.1 3.1-2.1 [3/0]"},
        {"Description", "press n3 1100 3300|release h3 1 1|move n1 1100 1100", "1.3-2.1 [3/0]" + invalid},
        {"Description", "press n2 3500 1500|release h3 1 1|move n4 3500 3010", "1.3-2.1 2.5-4.2 [2/0]"},
        {"Regulator", "press n2 3500 1500|release h3 1 1|move n5 5500 1010", "1.3-2.1 [2/0]"},
        // With an edge tool a node is taken before the handles above it, but for those of selected edges.
        {"Provider", "press h3@2 3500 1150|release h3 1 1|move n5 5100 1200", "1.3-2.1 2.3-5.1 [2/0]"},
        {"Provider", kDraw + "release h3 1 1|move h3@2 3500 1150", "1.3-2.1 1.3-2.3 [1/0]"},
        {"Provider", "press h3@2 3500 1150 R", "1.3-2.1 [2/0] ActivityM"},
        {"Provider", "press h2 1 1|release h2 1 1|press h3@2 3500 1150|move n5 1 1 L|release n5 5100 1200",
         "1.3-5.1 [/1]"},
        {"Move", "press h3@2 3500 1150|move n5 1 1 L|release n5 5100 1200", "1.3-5.1 [/1]"},
        // The end and the start of edge 1 are dragged.
        {"Arrow", "press h3 0 0|move h3 1 1 L|release n5 5100 1200", "1.3-5.1 [/1]"},
        {"Arrow", "press h3 0 0|move h3 1 1 L|release n2 3900 1300", "1.3-2.1 [/1]"},
        {"Arrow", "press h3 0 0|move h3 1 1 L|release n4 3100 3100", "[/0]" + invalid},
        {"Arrow", "press h1 0 0|move h1 1 1 L|release n5 5900 1200", "5.3-2.1 [/1]"},
        {"Arrow", "press h1 0 0|move h1 1 1 L|release n3 1100 3100", "1.3-2.1 [/1]"},
        // Selection, menus, double clicks.
        {"Arrow", "press n1 1 1|press n2 1 1 C|press n1 1 1 C", "1.3-2.1 [2/0]"},
        {"Arrow", "press n1 1 1|press h2 1 1|press h2 1 1 C|press h2 1 1 C|release h2 1 1|key", "[/0]"},
        {"Arrow", "press h2 1 1|press n1 1 1|press p 1 1 C", "1.3-2.1 [1/0]"},
        // Lines are pressed as handles are, unless the tool needs the picture below them; they begin no drag.
        {"Arrow", "press l1 2500 1200|move n5 5100 1200 L|release n5 5100 1200", "1.3-2.1 [/1]"},
        {"Provider", "press n1 1 1|release n1 1 1|press l1 2500 1200 R", "1.3-2.1 [1/1] EdgesM"},
        {"Provider", released + "press l1 2500 1200", "1.3-2.1 [/0]"},
        {"Crop", "press l1 2500 1200", "1.3-2.1 [/0]"},
        {"RecordSet", "press l1 2500 1200", "1.3-2.1 [/0] dialog RecordSet1"},
        // The menu of an edge that is not selected selects it.
        {"Arrow", "press n1 1 1|release n1 1 1|press h2 1 1 R", "1.3-2.1 [1/1] EdgesM"},
        {"Arrow", "press h2 1 1 R|press h2 1 1 R|choose EdgeDeleteM", "[/0] EdgesM EdgesM"},
        {"Arrow", "press n3 2300 3100 R|press n4 1 1 R|press n3 2400 3100 R", "1.3-2.1 [3/0] CommentM LogM"},
        {"Arrow", "double n1 1 1|double n2 1 1|double n4 1 1|double p 1 1", "1.3-2.1 [/0] dialog RS dialog Act"},
        {"Arrow", "key|press p 1 1 R|press n77 1 1|press h77 1 1|press o 1 1", "1.3-2.1 [/0]"},
        // Things that go in the middle of a gesture.
        {"Provider", kDraw + "delete n1|move n5 5100 1200 L|release n5 1 1|move n5 1 1", "[/0]"},
        {"Provider", released + "delete n1|move n5 5100 1200", "[/0]"},
        {"Provider", kDraw + "delete e2|move n1 1 1 L|release p 1 1|move n5 1 1", "1.3-2.1 [1/0]"},
        {"Move", "press n1 1 1|move n1 2 2 L|delete n1|move p 3 3 L|release p 3 3", "[/0]"},
        {"Resize", "press n1 1 1|delete n1|move p 3 3 L|release p 3 3", "[/0]"},
        {"Arrow", "press h2 1 1|move h2 2 2 L|delete e1|move p 3 3 L|release p 3 3", "[/0]"},
        {"Crop", "press p 0 0|move p 9000 2000 L|delete n1|move p 9000 2100 L|release p 1 1", "[25/0]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.tool + (": " + row.events));
        PointerStage stage(row.tool);
        stage.play(row.events);
        EXPECT_EQ(stage.seen(), row.seen);
        stage.play("cancel");
        EXPECT_EQ(stage.pointer->state(), PointerState::idle);
        EXPECT_TRUE(stage.form.light().isEmpty() && stage.view.DragOutlines.empty());
        EXPECT_FALSE(stage.form.RubberBand || stage.form.ConnectPending || stage.view.CroppingRect.Visible ||
                     stage.view.ResizeLabel.Visible || stage.view.DragOutline.Visible);
        std::ptrdiff_t ends = 0;
        for (const LabelsD& node : stage.form.Labels) {
            ends += node.StartingLines().Count() + node.EndingLines().Count();
        }
        EXPECT_EQ(ends, 2 * stage.form.Lines.Count());
    }
}

TEST(Pointer, AnEdgeFollowsThePointerAndKeepsItsCorner) {
    PointerStage stage("Provider");
    stage.play(kDraw);
    const LinesD& edge = *stage.form.Lines.at(2);
    const auto places = [&] { return stage.text(edge.Xm(), edge.Ym(), edge.X2(), edge.Y2()); };
    EXPECT_EQ(places(), "2050 1200 2500 1100");
    stage.play("press n1 2600 1700 R|move n1 2700 9000 L");
    EXPECT_EQ(places(), "2600 1700 2700 9000");
    stage.play("release h3 1 1|move n5 5100 1200");
    EXPECT_EQ(places(), "2600 1700 4950 1200");
    EXPECT_EQ(edge.arrowImage(), "ArrowR");
}

TEST(Pointer, WhereADragEnds) {
    const std::string at = "press n1 1100 1200|";
    const std::string still = "1000 1000 1000 400";
    const struct {
        const char* tool;
        std::string events;
        std::string shown;  ///< the outline before the last event
        std::string left;   ///< the box of node 1 in the end
    } rows[] = {
        {"Move", at + "move n2 3300 1210 L|release n2 3300 1210", "3200 1010 1000 400", "3200 1010 1000 400"},
        {"Move", at + "move p -9000 -50 L|release h1 -9000 -50", "-9100 -250 1000 400", "-9100 -250 1000 400"},
        {"Move", at + "move p 3e30 1e12 L|release p 3e30 1e12", "3e+30 1e+12 1000 400", "3e+30 1e+12 1000 400"},
        {"Move", at + "move o 1110 1210 L|release o 1110 1210", "1010 1010 1000 400", still},
        {"Move", at + "move p 5000 5000 L|cancel", "4900 4800 1000 400", still},
        {"Arrow", at + "move p 1140 1220 L|release p 1140 1220", "hidden", still},
        {"Arrow", at + "move p 1140 1230 L|move p 1130 1200 L|release p 1120 1200", "1030 1000 1000 400",
         "1020 1000 1000 400"},
        {"Arrow", at + "move p 5000 5000 L|cancel", "4900 4800 1000 400", still},
        {"Arrow", "press n1 1100 1200 C|move p 3000 3000 L|release p 3000 3000", "hidden", still},
        {"Provider", at + "move p 3000 3000 L|cancel", "hidden", still},
        {"Resize", "press n1 1990 1390|move p 2500 2000 L|release p 0 0", "1000 1000 1500 1000", "1000 1000 1500 1000"},
        {"Resize", "press n1 1010 1010|move p 900 800 L|release p 0 0", "900 800 1100 600", "900 800 1100 600"},
        {"Resize", "press n1 1010 1390|move p 1100 1500 L|release p 0 0", "1100 1000 900 500", "1100 1000 900 500"},
        {"Resize", "press n1 1990 1010|move p 2100 900 L|release p 0 0", "1000 900 1100 500", "1000 900 1100 500"},
        {"Resize", "press n1 1990 1200|move p 0 9000 L|release p 0 0", "1000 1000 10 400", "1000 1000 201 400"},
        {"Resize", "press n1 1010 1200|move p 2500 9000 L|release p 0 0", "2500 1000 10 400", "2500 1000 201 400"},
        {"Resize", "press n1 1500 1010|move p 0 1350 L|release p 0 0", "1000 1350 1000 50", "1000 1350 1000 152"},
        {"Resize", "press n1 1500 1200|move p 0 0 L|release p 0 0", still, still},
        {"Resize", "press n1 1990 1390|move p 2500 2000 L|cancel", "1000 1000 1500 1000", still},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.tool + (": " + row.events));
        PointerStage stage(row.tool);
        LabelsD& node = *stage.form.Labels.byIndex(1_node);
        node.recordSet()->Changed = false;
        const std::size_t last = row.events.rfind('|');
        stage.play(row.events.substr(0, last));
        EXPECT_EQ(stage.box(stage.host.tool == "Resize" ? stage.view.ResizeLabel : stage.view.DragOutline), row.shown);
        EXPECT_EQ(stage.box(1_node), still);
        stage.play(row.events.substr(last + 1));
        EXPECT_EQ(stage.box(1_node), row.left);
        EXPECT_EQ(node.recordSet()->Changed, row.left != still);
        EXPECT_EQ(stage.form.Lines.byIndex(1_edge)->X1(), node.GrabPoint(3).x);
    }
}

TEST(Pointer, AGroupIsDraggedAsAWhole) {
    PointerStage stage;
    const std::string begin = "press n1 1100 1200|press n2 3100 1200 C|press n3 1100 3100 C|press n2 3100 1200|";
    stage.play(begin + "release n2 3100 1200");
    EXPECT_EQ(stage.seen(), "1.3-2.1 [2/0]");
    stage.play(begin + "move p 3300 1210 L");
    EXPECT_EQ(stage.seen(), "1.3-2.1 [213/0]");
    EXPECT_EQ(stage.view.DragOutlines.size(), 2U);
    EXPECT_EQ(stage.view.DragOutlines[0].Left, 1200);
    stage.play("cancel");
    EXPECT_EQ(stage.seen() + stage.box(1_node) + stage.box(2_node),
              "1.3-2.1 [2/0]1000 1000 1000 4003000 1000 1000 600");
    stage.play(begin + "move p 3300 1210 L|delete n3|move p 3400 1210 L|release p 3300 1210");
    EXPECT_EQ(stage.seen() + stage.box(1_node) + stage.box(2_node),
              "1.3-2.1 [21/0]1200 1010 1000 4003200 1010 1000 600");
    stage.play("tool Move|press n2 3300 1210|move p 3400 1210 L|release p 3400 1210");
    EXPECT_EQ(stage.box(1_node) + stage.box(2_node), "1200 1010 1000 4003300 1010 1000 600");
}

TEST(Pointer, MiddlePointsStayInTheMiddleUntilTheyArePlaced) {
    const struct {
        const char* events;
        float x, y;
    } rows[] = {
        {"", 3000, 1200},  // between 3050 1200 and 2950 1200
        {"press h2 1 1|move p 2400 1900 L|release p 2400 1900", 2400, 1900},
        {"press l1 2500 1200|release l1 2500 1200|double l1 2500 1300", 2500, 1300},
        {"press h2 1 1 R|choose EdgeAngleVerticalUpM|choose EdgeAngleNoneM", 2050, 1200},
        {"press h2 1 1 R|choose EdgeAngleVerticalDownM|choose EdgeAngleStraightM|choose EdgeAngleNoneM", 3000, 1200},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.events);
        PointerStage stage;
        stage.play(row.events);
        stage.host.taken();
        const LinesD& edge = *stage.form.Lines.byIndex(1_edge);
        const float before = edge.Xm();
        stage.form.Labels.byIndex(1_node)->setLeft(2000);  // no hand: everything stays to the letter
        EXPECT_EQ(edge.Xm(), before);
        stage.form.Labels.byIndex(1_node)->setLeft(1000);
        stage.play("press n1 1100 1200|move p 2100 1200 L|release p 2100 1200");
        EXPECT_EQ(edge.Xm(), row.x);
        EXPECT_EQ(edge.Ym(), row.y);
    }
}

TEST(Pointer, WhileAnEdgeIsDrawnItsEndsAreShown) {
    PointerStage stage("Provider");
    stage.play(kDraw + "move n5 5010 1200 L");
    EXPECT_EQ(stage.form.light().nodes, (std::vector{1_node, 2_node, 5_node}));
    EXPECT_TRUE(stage.view.GrabberVisible);
    EXPECT_EQ(stage.view.Grabber.x, 4950);
    stage.play("move n3 1500 3100 L");
    EXPECT_FALSE(stage.view.GrabberVisible);
    stage.play("release p 1 1");
    EXPECT_TRUE(stage.form.light().isEmpty());
    stage.play(kDraw + "release n1 1500 1200|press n4 1 1|release n4 1 1");
    stage.play("tool Arrow|press h3 0 0|move h3 1 1 L|release p 5100 1200|press h1 0 0|move h1 1 1 L|release n3 1 1");
    EXPECT_EQ(stage.host.hints,
              "An edge ends at a node.|An edge ends at another node than it starts from.|An edge of this kind cannot "
              "start here.|The end of an edge goes to a node.|This edge cannot start there.|");
}

TEST(Pointer, TheCropRectangleSelects) {
    PointerStage stage("Crop");
    const struct {
        const char *events, *rect, *seen;
    } rows[] = {
        {"press p 1049 851", "1000 900 15 15", "1.3-2.1 [/0]"},
        {"move p 2001 1401 L", "1000 900 1001 501", "1.3-2.1 [/0]"},  // the node touches the left side
        {"move p 990 700 L", "990 700 15 200", "1.3-2.1 [/0]"},
        {"release p 0 0|press p 900 900|move p 2001 1401 L", "900 900 1101 501", "1.3-2.1 [1/0]"},
        {"move p 9000 9000 L", "900 900 8100 8100", "1.3-2.1 [12345/0]"},
        {"move p 4100 2000 L", "900 900 3200 1100", "1.3-2.1 [12/0]"},
        {"release p 0 0", "hidden", "1.3-2.1 [12/0]"},
        {"press p 9000 9000 C", "9000 9000 15 15", "1.3-2.1 [12/0]"},
        {"move p 2900 2900 L", "2900 2900 6100 6100", "1.3-2.1 [4/0]"},
        {"cancel", "hidden", "1.3-2.1 [12/0]"},
        {"tool Arrow|press p 900 900|move p 940 915 L", "hidden", "1.3-2.1 [/0]"},  // not yet a drag
        {"move p 2001 1401 L", "900 900 1101 501", "1.3-2.1 [1/0]"},
        {"release p 0 0", "hidden", "1.3-2.1 [1/0]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.events);
        stage.play(row.events);
        EXPECT_EQ(stage.box(stage.view.CroppingRect), row.rect);
        EXPECT_EQ(stage.seen(), row.seen);
    }
}

TEST(Pointer, WhatAMoveShows) {
    PointerStage stage("Provider");
    Canvas& form = stage.form;
    const LabelsD& node = *form.Labels.byIndex(1_node);
    const LinesD& edge = *form.Lines.byIndex(1_edge);
    stage.play("move n1 1500 1390");
    EXPECT_TRUE(stage.view.GrabberVisible && form.OverLabel && form.CurrentNode == 1_node);
    EXPECT_EQ(form.GrabMark.y, 1450);
    stage.play("move p 0 0");
    EXPECT_FALSE(stage.view.GrabberVisible || form.OverLabel);
    const struct {
        const char* events;
        int zone, pointer;
    } rows[] = {{"tool Move|move n1 1 1", 0, 5},  {"move n2 3500 1300", 0, 0},
                {"move n1 1 1|move p 1 1", 0, 0}, {"tool Resize|move n1 1999 1399", 7, 8},
                {"move n1 1001 1001", 1, 8},      {"move n1 1001 1399", 3, 6},
                {"move n1 1999 1001", 5, 6},      {"move n1 1901 1200", 4, 9},
                {"move n1 1099 1200", 2, 9},      {"move n1 1500 1301", 6, 7},
                {"move n1 1500 1099", 8, 7},      {"move n1 1900 1300", 0, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.events);
        stage.play(row.events);
        EXPECT_EQ(stage.view.ResizeLabel.Tag, row.zone);
        EXPECT_EQ(node.MousePointer(), row.pointer);
    }
    stage.play("move h1 0 0");
    EXPECT_FALSE(edge.HighLighted() || form.OverLine || form.OverLabel);
    stage.play("press h1 0 0|release h1 0 0|move h2 0 0");
    EXPECT_TRUE(edge.HighLighted() && form.OverLine && form.ActiveEdge == 1_edge);
    stage.play("move p 0 0");
    EXPECT_FALSE(edge.HighLighted() || form.OverLine || form.ActiveEdge == 1_edge);
    stage.play("press h2 0 0|move p 2400 1900 L");
    EXPECT_EQ(stage.box(stage.view.DragOutline), "2355 1855 90 90");
    stage.play("release p 2400 1900|press h2 0 0|move p 1 1 L|release n1 1500 1200");  // at last on its own node
    EXPECT_EQ(edge.Xm(), 2400);
    stage.play("press h2 0 0|move p 1 1 L|release n4 3500 3100");
    EXPECT_EQ(edge.Ym(), 3100);
}

TEST(Pointer, ToolsPlaceNodes) {
    PointerStage stage;
    stage.form.Labels.Add({0, 0, 1, 1}, "RecordSet1", NodeTypeRecordSet);  // as after a load
    const struct {
        const char *events, *caption, *box, *asked;
    } rows[] = {
        {"tool RecordSet|press p 149 8151", "RecordSet2", "0 7975 1050 450", " dialog RecordSet2"},
        {"tool Activity|press p 2150 2250", "Activity1", "1675 1975 1050 450", " dialog Activity1"},
        {"tool Activity|press p 30 -90", "Activity2", "0 0 1050 450", " dialog Activity2"},
        {"tool Comment|press p 2149 2150", "Comment9", "1350 1825 1500 750", ""},
        {"tool Log|press p 2151 2151|release p 1 1", "LOG10", "1675 1975 1050 450", ""},
        {"tool Arrow|press p 2151 2151", "LOG10", "1675 1975 1050 450", ""},
    };
    for (const auto& row : rows) {
        stage.play(row.events);
        const LabelsD& node = *stage.form.Labels.at(stage.form.Labels.Count());
        EXPECT_EQ(node.Caption(), row.caption);
        EXPECT_EQ(stage.box(node.Index()), row.box);
        EXPECT_EQ(stage.host.taken(), row.asked);
        stage.pointer->editComment("typed at once");
    }
    EXPECT_EQ(stage.form.nodeNamed("Comment9")->Comment(), "typed at once");
    EXPECT_FALSE(std::signbit(SnapToGrid(-40)));
    EXPECT_EQ(SnapToGrid(250), 200);
    EXPECT_EQ(SnapToGrid(350), 400);
    EXPECT_EQ(SnapToGrid(-150), -200);
}

TEST(Pointer, MenuItemsActOnWhatTheyWereOpenedOn) {
    PointerStage stage;
    LabelsD& activity = *stage.form.Labels.byIndex(2_node);
    stage.play("press n2 1 1 R|move n1 1 1|choose ActivityPropertiesM|choose CreateFromLDLM|choose ActivityZoomM");
    EXPECT_EQ(stage.host.taken(), " ActivityM dialog Act wizard Act says Please set the activity's type!!");
    activity.activity()->Act_Type = 0;
    stage.play("choose ActivityZoomM|choose NoSuchM|choose ActivityNotReadyM");
    EXPECT_EQ(stage.host.taken(), " zoom Act");
    EXPECT_EQ(activity.Color(), 255 ^ 16744448);
    stage.play("press n2 1 1 R|press n1 1 1|release n1 1 1|choose ActivityPropertiesM|press n2 1 1|release n2 1 1");
    EXPECT_EQ(stage.host.taken(), " ActivityM dialog Act") << "another node was pressed on the way";
    stage.play("press h2 1 1 R|move p 1 1");
    for (const auto& [item, angle] :
         {std::pair{"EdgeAngleStraightM", AngleStraight}, std::pair{"EdgeAngleVerticalDownM", AngleVerticalDown},
          std::pair{"EdgeAngleVerticalUpM", AngleVerticalUp}, std::pair{"EdgeAngleNoneM", AngleNone}}) {
        stage.play(std::string("choose ") + item);
        EXPECT_EQ(stage.form.Lines.byIndex(1_edge)->Angle(), angle);
    }
    EXPECT_EQ(stage.seen(), "1.3-2.1 [2/1] EdgesM");
    stage.play("press n5 1 1|press n4 1 1 C|press n3 1 1 C|choose LogDeleteM|choose CommentDeleteM");
    EXPECT_EQ(stage.form.Labels.Count(), 4);
    stage.play("choose EdgeDeleteM");  // an edge that is not selected stays
    EXPECT_EQ(stage.form.Lines.Count(), 1);
    stage.play("press h1 1 1|choose EdgeDeleteM|press n2 1 1|choose ActivityDeleteM");
    EXPECT_EQ(stage.seen(), "[/0] unlink Act");
    stage.play("choose ActivityPropertiesM|choose ActivityNotReadyM|choose EdgeAngleNoneM");  // both are gone
}

TEST(Pointer, CrookedEdgesAreStraightened) {
    // A point at an activity stays one of its meaning: data comes in at 1 and 2, control at 5, and data goes out at 4.
    const struct {
        const char* tool;
        std::string events, offered, straight;
    } rows[] = {
        {"Provider", "press n1 1500 1100|release n2 3100 1100", "1.2-2.1", "1.3-2.1"},
        {"Provider", "press n1 1500 1100|release n5 5500 1350", "1.2-5.4", "1.3-5.1"},
        {"Provider", "press n1 1500 1100|release n2 3500 1500", "1.2-2.5", "1.3-2.5"},
        {"Provider", "press n2 3500 1100|release n5 5500 1350", "2.3-5.4", "2.4-5.1"},
        {"Provider", "press n5 5500 1100|release n2 3100 1500", "5.2-2.2", "5.1-2.1"},
        {"Description", "press n3 1100 3300|release n2 3500 1500", "3.1-2.5", "3.3-2.5"},
        {"Provider", "press n1 1950 1200|release n5 5050 1200", "", "1.3-5.1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.events);
        const auto stage = [&] {
            auto made = std::make_unique<PointerStage>(row.tool);
            made->form.Lines.RemoveFull(1_edge);
            made->play(row.events);
            return made;
        };
        const auto ends = [](PointerStage& played) { return played.seen().substr(0, 7); };
        const auto offered = stage();
        ASSERT_EQ(offered->form.offer().has_value(), !row.offered.empty());
        if (!row.offered.empty()) {
            EXPECT_EQ(offered->form.offer()->button, "Straighten");
            EXPECT_EQ(ends(*offered), row.offered);
            offered->form.answerOffer(true);
            EXPECT_EQ(ends(*offered), row.straight);
            EXPECT_FALSE(offered->form.offer());
            offered->form.Lines.RemoveFull(2_edge);
            offered->play(row.events);
            EXPECT_FALSE(offered->form.offer()) << "offered once";
        }
        const auto chosen = stage();
        chosen->play("press h4 1 1 R|choose EdgeStraightenM");
        EXPECT_EQ(ends(*chosen), row.straight) << "by the edge's menu";
        EXPECT_EQ(chosen->form.Lines.byIndex(2_edge)->Angle(), AngleStraight);
        EXPECT_FALSE(chosen->form.offer());
    }
    PointerStage many;
    many.form.Lines.addFullLine(1_node, 2, 5_node, 2, EdgeTypeProvider, AngleNone, 0);
    many.form.Lines.addFullLine(3_node, 1, 4_node, 3, EdgeTypeDescription, AngleNone, 0);
    many.form.SelectedLabels.Add(3_node);
    many.form.straightenEdges(nullptr);
    EXPECT_EQ(many.seen(), "1.3-2.1 1.2-5.2 3.3-4.1 [3/0]");
    many.form.SelectedLabels.Clear();
    many.form.straightenEdges(nullptr);
    EXPECT_EQ(many.seen(), "1.3-2.1 1.3-5.1 3.3-4.1 [/0]") << "all of them";
}

TEST(Pointer, KeysWalkAndGiveUp) {
    PointerStage stage("Move");
    stage.play("press n1 1100 1200|move n1 2000 2000 L");
    EXPECT_TRUE(stage.pointer->keyDown(RightKey));
    EXPECT_EQ(stage.seen() + stage.box(1_node), "1.3-2.1 [2/0] show Act1000 1000 1000 400");
    stage.play("press n1 1100 1200|move n1 2000 2000 L");
    EXPECT_TRUE(stage.pointer->keyDown(EscapeKey));
    EXPECT_EQ(stage.pointer->state(), PointerState::idle);
    EXPECT_EQ(stage.host.tool, "Move");
    stage.play("code 27");
    EXPECT_EQ(stage.host.tool, "Arrow");
    EXPECT_FALSE(stage.pointer->keyDown('Q'));
    EXPECT_TRUE(stage.pointer->keyDown('M'));
    stage.play("double n3 2300 3100");
    EXPECT_FALSE(stage.pointer->keyDown('M'));  // it is a letter of the text
}

TEST(Pointer, EachViewOfACanvasHasItsOwnStateAndOneGraph) {
    struct Watcher : CanvasListener {
        void pictureChanged() override { ++pictures; }
        int pictures = 0;
    } watcher;
    PointerStage stage("Crop");
    const CanvasSubscription listening = stage.form.listen(watcher);
    ViewState other(stage.form);
    CanvasPointer second(stage.form, other, {stage.host, stage.host, stage.host});
    int told = 0;
    other.changed = [&told] { ++told; };
    stage.view.window.resize(6000, 3000);
    other.window.resize(500, 12999);
    other.window.scrollTo(16500, 0);
    stage.play("press p 100 100|move p 2500 2500 L");
    EXPECT_TRUE(stage.view.CroppingRect.Visible && !other.CroppingRect.Visible);
    EXPECT_EQ(stage.form.SelectedLabels.Count(), 1) << "the selection is the graph's";
    EXPECT_TRUE(second.keyDown(EscapeKey));
    EXPECT_EQ(stage.pointer->state(), PointerState::cropping) << "it is not the second one's gesture";
    stage.play("cancel|tool Move|press n1 1100 1100");
    EXPECT_EQ(stage.view.window.seen().x, 0);
    stage.play("move p 5900 1100 L|cancel");
    EXPECT_EQ(stage.view.window.seen().x, 25);
    EXPECT_EQ(other.window.seen().x, 16500);
    EXPECT_EQ(told + watcher.pictures, 0);
    second.press({Hit::onNode(1_node), {1100, 1100}, LeftButton});
    second.move({{}, {16999, 1100}, LeftButton});
    EXPECT_TRUE(other.DragOutline.Visible && !stage.view.DragOutline.Visible);
    EXPECT_GT(told, 0);
    EXPECT_EQ(stage.form.PicForm.Width(), 17025);
    EXPECT_EQ(watcher.pictures, 1) << "all views hear that the picture grew";
    stage.play("delete n1");
    EXPECT_FALSE(other.DragOutline.Visible) << "whichever view it is dragged in";
}

TEST(Pointer, KeysMovePlaceAndDraw) {
    PointerStage stage;
    stage.view.window.resize(6000, 3000);
    stage.play("press n1 1 1|press n2 1 1 C|code 39 C|code 40 C");
    EXPECT_EQ(stage.seen() + stage.box(1_node) + stage.box(2_node),
              "1.3-2.1 [12/0] show Act show Act1100 1100 1000 4003100 1100 1000 600");
    // Free space near 3000 1500, where node 2 lies.
    stage.play("tool RecordSet|code 13");
    EXPECT_EQ(stage.seen() + stage.box(6_node), "1.3-2.1 [6/0] show RecordSet1 dialog RecordSet11875 1875 1050 450");
    stage.play("code 93");
    EXPECT_EQ(stage.host.taken(), " RecordSetM");
    // From record set 6 to the activity at its right, by the points that face each other.
    stage.play("tool Provider|code 13");
    EXPECT_EQ(stage.pointer->state(), PointerState::joining);
    EXPECT_EQ(stage.form.light().nodes, (std::vector{1_node, 2_node, 5_node, 6_node}));
    stage.play("code 39|code 13");
    EXPECT_EQ(stage.seen(), "1.3-2.1 6.3-2.2 [2/0] show Act");
    EXPECT_EQ(stage.pointer->state(), PointerState::idle);
    stage.play("code 13|code 13|code 13|code 27");
    EXPECT_EQ(stage.seen(), "1.3-2.1 6.3-2.2 [2/0]");
    EXPECT_TRUE(stage.form.light().isEmpty());
    stage.play("press p 1 1|press l1 1 1|release l1 1 1|code 93");
    EXPECT_EQ(stage.host.taken(), " EdgesM");
}

TEST(Pointer, LinksBehindAnEdgeStayLitUntilSomethingElseIsDone) {
    PointerStage stage;
    for (const auto& [from, to] : {std::pair(1_node, 2_node), {1_node, 5_node}, {5_node, 2_node}}) {
        stage.form.Lines.addFullLine(from, 2, to, 2, EdgeTypeProvider, AngleNone, 0);
    }
    PointedLight light(stage.form, *stage.pointer);
    const char* ends[] = {"press p 1 1|release p 1 1", "code 27", "delete n5"};
    for (const std::string end : ends) {
        SCOPED_TRACE(end);
        stage.host.behind = {2, "two"};
        stage.play("press l1 1 1 R");
        light.follow();  // as the window does
        stage.play("choose EdgeShowLinksM|move n5 5001 1001");
        light.follow();
        EXPECT_EQ(stage.form.light(), (Light{{1_node, 2_node}, {1_edge, 2_edge}, true, true}));
        EXPECT_EQ(std::exchange(stage.host.hints, ""), "two|");
        stage.play(end);
        light.follow();
        EXPECT_TRUE(stage.form.light().isEmpty());
        stage.host.behind = {0, "none"};
        stage.play("press l1 1 1 R|choose EdgeShowLinksM");
        EXPECT_TRUE(stage.form.light().isEmpty());
        EXPECT_EQ(std::exchange(stage.host.hints, ""), "none|");
    }
    EXPECT_EQ(stage.host.taken(), " EdgesM EdgesM EdgesM EdgesM EdgesM EdgesM");
}

TEST(Pointer, ACommentIsEditedInItsBox) {
    PointerStage stage;
    const LabelsD& comment = *stage.form.Labels.byIndex(3_node);
    stage.play("double n3 2400 3100");  // the strip for scrolling
    stage.pointer->editComment("none");
    stage.play("double n3 2300 3100");
    stage.pointer->editComment("words");
    EXPECT_FALSE(stage.pointer->keyDown(DeleteKey));
    EXPECT_TRUE(comment.entity<entities::CommentProperties>()->Changed);
    for (const char* end : {"cancel", "press p 1 1", "delete n3"}) {
        EXPECT_EQ(comment.Comment(), "words");
        stage.play(std::string("double n3 2300 3100|") + end);
        EXPECT_EQ(stage.view.EditedComment, kNoNode);
    }
}

TEST(Pointer, ANodeIsNamedInItsBox) {
    PointerStage stage;
    const auto named = [&stage] { return stage.view.NamedNode == 1_node ? stage.view.NodeName : std::string("-"); };
    EXPECT_FALSE(stage.pointer->beginNaming());
    stage.play("press n1 1500 1200|release n1 1500 1200");
    EXPECT_FALSE(stage.pointer->clickedAgain());
    // A second click means the name; a drag, Ctrl and a click on one of several do not.
    for (const auto& [clicks, again] : std::initializer_list<std::pair<const char*, bool>>{
             {"press n1 1500 1200|release n1 1500 1200", true},
             {"press n1 1500 1200|move n1 1900 1900 L|move n1 1500 1200 L|release n1 1500 1200", false},
             {"press n1 1500 1200 C|release n1 1500 1200 C", false},
             {"press n1 1500 1200|release n1 1500 1200", false},
             {"press n2 3500 1200 C|release n2 3500 1200 C|press n1 1500 1200|release n1 1500 1200", false}}) {
        stage.play(clicks);
        EXPECT_EQ(stage.pointer->clickedAgain(), again) << clicks;
    }
    stage.host.taken();
    EXPECT_TRUE(stage.pointer->keyDown(RenameKey));
    EXPECT_EQ(named(), "RS");
    EXPECT_FALSE(stage.pointer->keyDown('M'));
    stage.pointer->takeName("taken");
    EXPECT_EQ(named(), "taken");  // it can be mended
    stage.pointer->takeName("Orders");
    EXPECT_EQ(named(), "-");
    stage.pointer->takeName("Late");
    EXPECT_EQ(stage.host.taken(), " rename RS taken rename RS Orders");
    for (const char* end : {"cancel", "press p 1 1|press n1 1500 1200|release n1 1500 1200", "delete n1"}) {
        EXPECT_TRUE(stage.pointer->beginNaming()) << end;
        stage.play(end);
        EXPECT_EQ(named(), "-");
    }
    EXPECT_EQ(stage.host.taken(), "");
    stage.play("press n3 1500 3100|release n3 1500 3100");
    EXPECT_FALSE(stage.pointer->keyDown(RenameKey));  // a comment
}

TEST(DrawForm, TheClosingQuestionTellsWhetherAnythingIsLost) {
    PointerStage stage;
    stage.form.setScenarioName("Orders");
    const std::string question = " says ARE YOU SURE YOU WANT TO CLOSE Orders ?";
    EXPECT_TRUE(stage.form.QueryUnload());
    EXPECT_EQ(stage.host.taken(), question + " / Everything is saved.");
    stage.form.stored.changed = true;
    EXPECT_TRUE(stage.form.QueryUnload());
    EXPECT_EQ(stage.host.taken(), question +
                                      " / Changes that were not saved will be lost."
                                      "\nNo save keeps an activity without a type: Act.");
    stage.form.nodeNamed("Act")->activity()->Act_Type = 0;
    EXPECT_TRUE(stage.form.QueryUnload());
    EXPECT_EQ(stage.host.taken(), question + " / Changes that were not saved will be lost.");
}

TEST(Pointer, AWindowClosedInAGestureLeavesTheGraphAlone) {
    for (const char* tool : {"Provider", "Move", "Resize", "Crop"}) {
        PointerStage stage(tool);
        stage.play("press n1 1990 1390|move p 9 9 L");
        stage.pointer.reset();
        EXPECT_EQ(stage.seen() + stage.box(1_node), "1.3-2.1 [1/0]1000 1000 1000 400");
        stage.form.clear();
    }
}

}  // namespace
