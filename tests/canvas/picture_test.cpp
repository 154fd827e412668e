#include <cmath>
#include <functional>
#include <sstream>

#include "canvas/picture_window.h"
#include "canvas/scaling.h"
#include "testkit/numbers.h"
#include "testkit/scripted_ports.h"

using namespace orvent;
using namespace orvent::canvas;

namespace {

TEST(Picture, ScrollsAndGrowsByTheRules) {
    PictureArea picture;
    PictureWindow window(picture);
    const auto drag = [&](float x, float y, float width, float height) {
        return [=, &window] { window.dragOver({x, y}, width, height); };
    };
    const auto corner = [&](float dx, float dy) { return [=, &window] { window.dragCorner(dx, dy); }; };
    const auto resize = [&](float x, float y) { return [=, &window] { window.resize(x, y); }; };
    const auto scroll = [&](float x, float y) { return [=, &window] { window.scrollTo(x, y); }; };
    const struct {
        std::function<void()> step;
        const char* place;  ///< left and top (never -0), width, height, and the largest values of the bars
    } rows[] = {
        {drag(1e9F, 1e9F, 10, 10), "0 0 17000 13000 0 0"},  // there is no window yet
        {resize(8000, 12980), "0 0 17000 13000 9000 20"},
        {drag(7000, 5000, 1000, 400), "0 0 17000 13000 9000 20"},  // not beyond the border
        {drag(7001, 5000, 1000, 400), "-25 0 17000 13000 9000 20"},
        {drag(1024, 12600, 1000, 400), "0 -45 17000 13025 9000 45"},
        {scroll(8999, 7), "-8999 -7 17000 13025 9000 45"},
        {drag(16900, 5000, 1000, 400), "-9025 -7 17025 13025 9025 45"},
        {drag(9500, 100, 10, 400), "-9025 0 17025 13025 9025 45"},
        {scroll(-5, 1e9F), "0 -45 17025 13025 9025 45"},
        {corner(-9026, 75), "0 -120 17025 13100 9025 120"},
        {corner(-9025, -100), "0 -20 8000 13000 0 20"},
        {[&] {
             picture.setSize(1e6F, 20000);
             window.settle();
         },
         "0 -20 1e+06 20000 32767 7020"},
        {[&] { picture.setLargest(32000); }, "0 -20 1e+06 20000 32767 7020"},
        {corner(1, 50000), "-24000 -19020 32000 32000 24000 19020"},
        {resize(100, 1e6F), "-24000 0 32000 32000 31900 0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        row.step();
        std::ostringstream place;
        place << 0 + window.Left() << ' ' << 0 + window.Top() << ' ' << picture.Width() << ' ' << picture.Height()
              << ' ' << window.ScrollBarHor().Max << ' ' << window.ScrollBarVer().Max;
        EXPECT_EQ(place.str(), row.place);
    }
    EXPECT_EQ(window.ScrollBarHor().Length, 270);

    // The bars end at 32,767; the border is that of what the view shows beyond.
    PictureArea wide;
    PictureWindow part(wide);
    wide.setSize(60000, 13000);
    part.resize(10000, 10000);
    part.scrollTo(40000, 0);
    EXPECT_EQ(part.ScrollBarHor().Value, 32767);
    EXPECT_FALSE(part.dragOver({45000, 5000}, 1000, 400));
    EXPECT_EQ(part.seen().x, 40000) << "not at its border";
    EXPECT_FALSE(part.dragOver({49500, 5000}, 1000, 400));
    EXPECT_EQ(part.seen().x, 40025);
    EXPECT_EQ(wide.Width(), 60000);
    EXPECT_FALSE(part.dragOver({40500, 5000}, 1000, 400));
    EXPECT_EQ(part.seen().x, 40000);
    EXPECT_FALSE(part.dragOver({40025, 12601}, 10, 400)) << "it scrolls downwards first";
    part.scrollTo(40000, 2980);
    EXPECT_TRUE(part.dragOver({45000, 12601}, 10, 400));
    EXPECT_EQ(wide.Height(), 13025);
}

TEST(Ratio, AsksUntilItIsOne) {
    const char* const wrong = "WRONG NUMBER FORMAT!!";
    const char* const small = "PLEASE GIVE A ZOOM RATIO MORE THAN ONE!!";
    using Refused = std::vector<std::pair<const char*, const char*>>;
    const std::tuple<Refused, const char*, double> rows[] = {
        {{}, "1,5", 1.5},
        {{}, " 2.5 ", 2.5},
        {{}, "", 1},
        {{{"0", wrong}, {"abc", wrong}, {"-3", small}}, "", 1},
        {{{"1", small}, {"0x9", wrong}, {"inf", wrong}, {" ", wrong}, {"1,5 2", wrong}, {"1.000,5", wrong}},
         "1e9",
         1e9},
    };
    for (const auto& [refused, answer, ratio] : rows) {
        testkit::ScriptedInputBox input;
        testkit::ScriptedMessageBox messages;
        for (const auto& [text, message] : refused) {
            input.expect("ZOOM OUT RATIO :", "Zooming OUT", "", text);
            messages.expect(message, "", platform::Icon::warning);
        }
        input.expect("ZOOM OUT RATIO :", "Zooming OUT", "", answer);
        EXPECT_EQ(GetRatio(input, messages, "OUT"), ratio);
    }
}

TEST(Scaling, APictureThatWouldNotComeBackIsRefused) {
    struct Row {
        Box one, other;
        bool in;
        double by;
        bool may;
    };
    const Box far{900000, 0, 99000, 300}, beyond{2e6F, 0, 100, 100}, home{0, 0, 1000, 300};
    for (const Row& row :
         {Row{home, {3000, 0, 1000, 300}, true, 250, true}, Row{home, {3000, 0, 1000, 300}, true, 251, false},
          Row{home, far, true, 1.001, true}, Row{home, far, true, 1.1, false}, Row{home, beyond, true, 1.5, true},
          Row{{-600000, 0, 10, 10}, home, true, 2, false}, Row{home, {0, -990000, 10, 10}, true, 2, false},
          Row{home, {99, 0, 1000, 300}, false, 1e6, true}, Row{home, {100, 0, 1000, 300}, false, 100, true},
          Row{home, {100, 0, 1000, 300}, false, 101, false}, Row{home, {3000, 4000, 1000, 300}, false, 5000, true},
          Row{home, {3000, 4000, 1000, 300}, false, 5001, false}}) {
        testkit::CanvasPorts ports;
        Canvas form(ports.services());
        form.Labels.Add(row.one, "A", NodeTypeRecordSet);
        form.Labels.Add(row.other, "B", NodeTypeRecordSet);
        EXPECT_EQ(mayZoom(form, row.in, row.by), row.may) << row.other.Left << (row.in ? " in " : " out ") << row.by;
    }
}

TEST(Scaling, BoxesAndPictureAreMultiplied) {
    testkit::CanvasPorts ports;
    testkit::QuietProgress progress;
    Canvas form(ports.services());
    const LabelsD& node = form.Labels.Add({1000, 12000, 1000, 300}, "A", NodeTypeRecordSet);
    form.Labels.Add({16500, 0, 1000, 300}, "B", NodeTypeRecordSet);
    const LinesD& edge = *form.Lines.addFullLine(1_node, 3, 2_node, 1, EdgeTypeProvider, AngleNone, 0);
    const float middle = edge.Xm();
    Zoom(form, true, 1, progress);
    EXPECT_TRUE(progress.statuses.empty());
    Zoom(form, true, 1.5, progress);
    EXPECT_EQ(node.Left(), 1500);
    EXPECT_EQ(node.Height(), 450);
    EXPECT_EQ(edge.Y1(), 18225);
    EXPECT_EQ(edge.Xm(), 1.5F * middle);
    EXPECT_EQ(form.PicForm.Width(), 26250);  // the rightmost node reaches beyond 25500
    EXPECT_EQ(form.PicForm.Height(), 19500);
    Zoom(form, false, 3, progress);
    EXPECT_EQ(node.Top(), 6000);
    EXPECT_EQ(form.PicForm.Height(), 6500);
    EXPECT_EQ(progress.statuses,
              (std::vector<std::string>{"Zooming In By 1.5...", "Ready", "Zooming Out By3...", "Ready"}));
    EXPECT_EQ(progress.pointerShape, platform::PointerShape::ordinary);
    // No ratio makes a place that is no number.
    for (int i = 0; i < 18; ++i) {
        Zoom(form, i < 9, i == 5 ? 1e300 : 1e9, progress);
        EXPECT_TRUE(std::isfinite(node.Left() + node.Width() + edge.X2() + edge.Xm() + form.PicForm.Width()));
    }
}

}  // namespace
