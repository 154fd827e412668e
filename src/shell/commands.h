#pragma once

#include <span>
#include <string_view>

#include "canvas/canvas_form.h"

namespace orvent::shell {

/// The commands of the frame and of a design window.
enum class Command {
    newScenario,
    loadScenario,
    saveScenario,
    saveScenarioAs,
    deleteScenario,
    printScenario,
    printPreview,
    exportText,
    closeScenario,
    login,
    changeUser,
    undo,
    toggleNodes,
    toggleEdges,
    options,
    zoomIn,
    zoomOut,
    activityZoom,
    checkConsistency,
    metrics,
    createLdl,
    selectAll,
    viewLarger,
    viewSmaller,
    viewActualSize,
    viewFit,
    showDataTypes,
    showFunctionTypes,
    showActivityTypes,
    loadTestGraph,
    help,
    shortcuts,
    about,
};

/// The kinds of window that have an item in their menu.
class WindowKinds {
  public:
    template <class... Kinds>
    constexpr explicit WindowKinds(Kinds... kinds) : bits_((bit(kinds) | ... | 0U)) {}
    constexpr bool has(canvas::WindowKind kind) const { return (bits_ & bit(kind)) != 0; }

  private:
    static constexpr unsigned bit(canvas::WindowKind kind) { return 1U << static_cast<unsigned>(kind); }
    unsigned bits_;
};

/// One menu item; an empty caption is a separator.
struct MenuItem {
    std::string_view name;  ///< the item's own name, such as `NewScenarioM`
    std::string_view caption;
    Command command;
    WindowKinds windows;
    std::string_view icon;      ///< empty for none
    std::string_view shortcut;  ///< portable text, several after "; ", empty for none
};

/// One menu of the menu bar. A menu without an item to show is not shown.
struct Menu {
    std::string_view name;
    std::string_view caption;
    std::span<const MenuItem> items;
};

/// One item of `VerticalMenu`.
struct Button {
    std::string_view key;
    std::string_view text;
    Command command;
    std::string_view icon;
};

/// One group of `VerticalMenu`.
struct ButtonGroup {
    std::string_view caption;
    std::span<const Button> buttons;
};

/// A use of the keyboard or the mouse in a scenario's window that is no menu item.
struct HandyKey {
    std::string_view keys;
    std::string_view meaning;
};

std::span<const Menu> menus();
std::span<const ButtonGroup> verticalMenu();
/// The commands of the buttons of `MenuBar`, in their order.
std::span<const Command> menuBarCommands();
std::span<const HandyKey> handyKeys();

}  // namespace orvent::shell
