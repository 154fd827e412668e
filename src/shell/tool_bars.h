#pragma once

#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "canvas/canvas_host.h"
#include "shell/palettes.h"

namespace orvent::shell {

/// The tool bars. `NodeBar` and `EdgeBar` have twins in the palettes `NodeForm` and `EdgeForm`, which show the same
/// buttons in the same state.
enum class ToolBar { MenuBar, ArrowBar, NodeBar, EdgeBar };
inline constexpr std::size_t kToolBars = 4;
inline constexpr std::size_t kMenuBarButtons = 5;

/// One button of a tool bar.
struct ToolButton {
    std::string_view key;  ///< what `DrawMode` holds while a tool is pressed
    std::string_view toolTip;
    std::string_view icon;
    char letter = 0;  ///< the key that presses it on a canvas, 0 for none
};

/// The buttons of a bar; positions count from 1.
std::span<const ToolButton> toolButtons(ToolBar bar);

/// Which tools there are and which one is pressed: one state for all bars and for the whole run. The three settings of
/// the bars (no scenario, design canvas, zoom canvas) touch only the buttons that their table names.
class ToolBars : public canvas::ToolState {
  public:
    ToolBars();

    /// The key of the tool pressed last. It stays when its button is released or disabled.
    const std::string& DrawMode() const override { return drawMode_; }
    bool DesignToolsOn() const { return designToolsOn_; }
    bool ZoomToolsOn() const { return zoomToolsOn_; }

    bool isEnabled(ToolBar bar, int position) const { return state(bar, position).enabled; }
    bool isPressed(ToolBar bar, int position) const { return state(bar, position).pressed; }
    /// The same for a button of `MenuBar` by its key.
    bool isMenuEnabled(std::string_view key) const;

    /// A tool of `ArrowBar`, `NodeBar`, `EdgeBar` or of a palette was pressed: all others are released.
    void press(ToolBar bar, int position);

    /// The last scenario closed.
    void setEmptyState();
    /// A part of a design or of a zoom canvas took the focus. Nothing happens when that state is on already.
    void setDesignState(const canvas::Canvas& canvas);
    void setZoomState(const canvas::Canvas& canvas);
    /// "Print" and "Save" follow the scenario windows on their own, too.
    void enablePrintAndSave(bool enabled);

    // canvas::ToolState
    void canvasFocused(const canvas::Canvas& canvas) override;
    bool pressTool(std::string_view key) override;
    bool pressLetter(char letter) override;
    void hint(std::string_view words) override;
    void pictureReached() override { palettes.place(); }

    Palettes palettes;
    std::function<void()> changed;                 ///< the bars have to be shown again
    std::function<void(std::string_view)> hinted;  ///< words are to be shown for a moment

  private:
    static constexpr std::size_t kMostButtons = 8;
    struct Button {
        bool enabled = false;
        bool pressed = false;
    };

    const Button& state(ToolBar bar, int position) const;
    Button& state(ToolBar bar, int position);
    void apply(int column, bool anyDeleted);
    template <class Wanted>
    bool pressFirst(const Wanted& wanted);
    void tell();

    std::array<std::array<Button, kMostButtons>, kToolBars> buttons_;
    std::string drawMode_;
    bool designToolsOn_ = false;
    bool zoomToolsOn_ = false;
};

}  // namespace orvent::shell
