#include "shell/tool_bars.h"

#include <gtest/gtest.h>

#include <functional>

#include "canvas/draw_form.h"
#include "testkit/scripted_ports.h"

namespace orvent::shell {
namespace {

class Tools : public testkit::CanvasTest {
  protected:
    struct ZoomCanvas : canvas::Canvas {
        using Canvas::Canvas;
        bool isZoom() const override { return true; }
    };

    /// The buttons of a bar as letters: "." off, "o" on, upper case when pressed.
    std::string shown(ToolBar bar) const {
        std::string letters;
        for (int position = 1; position <= static_cast<int>(toolButtons(bar).size()); ++position) {
            const char letter = tools.isEnabled(bar, position) ? 'o' : '.';
            letters += !tools.isPressed(bar, position) ? letter : letter == 'o' ? 'O' : ':';
        }
        return letters;
    }
    std::string all() const {
        return shown(ToolBar::MenuBar) + " " + shown(ToolBar::ArrowBar) + " " + shown(ToolBar::NodeBar) + " " +
               shown(ToolBar::EdgeBar);
    }

    ToolBars tools;
    canvas::DrawForm design{ports.services()};
    ZoomCanvas zoom{ports.services()};
};

TEST_F(Tools, StatesFollowTheFocus) {
    EXPECT_EQ(all(), "oo... .... ........ ....");
    tools.canvasFocused(design);
    EXPECT_EQ(all(), "oooo. oooo oooo.... oo..");
    EXPECT_TRUE(tools.DesignToolsOn() && !tools.ZoomToolsOn());
    tools.press(ToolBar::EdgeBar, 2);
    tools.canvasFocused(zoom);
    EXPECT_EQ(all(), "oooo. oooo ....oooo o:oo");  // dimmed, but not released
    EXPECT_TRUE(tools.ZoomToolsOn() && !tools.DesignToolsOn());
    tools.press(ToolBar::NodeBar, 5);
    tools.canvasFocused(design);
    EXPECT_EQ(all(), "oooo. oooo oooo.... oo..");
    EXPECT_EQ(tools.DrawMode(), "Function");  // survives the button
    tools.enablePrintAndSave(false);
    tools.canvasFocused(design);  // on already: nothing is set again
    EXPECT_EQ(all(), "oo... oooo oooo.... oo..");
    tools.setEmptyState();
    EXPECT_EQ(all(), "oo... .... ........ ....");
}

TEST_F(Tools, UndoFollowsDeletionsOnlyAtAChangeOfState) {
    tools.canvasFocused(design);
    design.DeletedNodes->Add(1, entities::DeletedActivity);
    const auto enabledAt = [this](const canvas::Canvas& canvas) {
        tools.canvasFocused(canvas);
        return tools.isMenuEnabled("Undo");
    };
    EXPECT_FALSE(enabledAt(design));
    EXPECT_FALSE(enabledAt(zoom)) << "nothing deleted there: unchanged";
    EXPECT_TRUE(enabledAt(design));
    EXPECT_TRUE(enabledAt(zoom));
    zoom.DeletedNodes->Add(1, entities::DeletedActivity);
    tools.canvasFocused(design);
    EXPECT_FALSE(enabledAt(zoom));
}

TEST_F(Tools, OneToolIsPressedInAllBars) {
    tools.canvasFocused(design);
    int told = 0;
    tools.changed = [&told] { ++told; };
    tools.press(ToolBar::EdgeBar, 1);
    tools.press(ToolBar::ArrowBar, 4);
    EXPECT_EQ(all(), "oooo. oooO oooo.... oo..");
    EXPECT_EQ(tools.DrawMode(), "Crop");
    tools.press(ToolBar::ArrowBar, 4);
    EXPECT_EQ(all(), "oooo. oooO oooo.... oo..");
    EXPECT_EQ(told, 3);
}

TEST_F(Tools, PalettesFloatDockAndHide) {
    Palettes& palettes = tools.palettes;
    std::vector<Palette> placed;
    palettes.atPointer = [&](Palette palette) { placed.push_back(palette); };
    constexpr Palette node = Palette::NodeForm;
    const std::pair<std::function<void()>, const char*> steps[] = {
        {[] {}, ""},
        {[&] { tools.canvasFocused(design); }, "band"},
        {[&] { palettes.toggle(node); }, "palette floats"},
        {[&] { palettes.minimize(true); }, " floats"},
        {[&] { palettes.minimize(false); }, "palette floats"},
        {[&] { palettes.dock(node, DockSide::left); }, "band"},
        {[&] { palettes.dock(node, DockSide::none); }, "palette floats"},
        {[&] { palettes.close(node); }, "band"},
    };
    for (const auto& [step, shown] : steps) {
        step();
        EXPECT_EQ(std::string(palettes.isBandShown(node) ? "band" : "") +
                      (palettes.isPaletteShown(node) ? "palette" : "") + (palettes.NodeFormActive() ? " floats" : ""),
                  shown);
    }
    EXPECT_EQ(palettes.side(node), DockSide::left);

    // A band dragged out is placed once, by whoever sees the pointer first.
    palettes.startDrag(Palette::EdgeForm);
    tools.pictureReached();
    EXPECT_FALSE(palettes.EdgeFormActive());
    palettes.drop();
    EXPECT_TRUE(palettes.ToolChange());
    tools.pictureReached();
    tools.pictureReached();
    EXPECT_TRUE(palettes.EdgeFormActive() && !palettes.ToolChange() && !palettes.MoveBand());
    EXPECT_EQ(placed, std::vector{Palette::EdgeForm});
    tools.setEmptyState();
    EXPECT_FALSE(palettes.isBandShown(node));
}

}  // namespace
}  // namespace orvent::shell
