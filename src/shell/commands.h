#pragma once

#include <span>
#include <string_view>

namespace orvent::shell {

/// The commands of the frame and of a design window.
enum class Command {
    newScenario,
    loadScenario,
    saveScenario,
    saveScenarioAs,
    deleteScenario,
    exportText,
    closeScenario,
    login,
    changeUser,
    showDataTypes,
    showFunctionTypes,
    showActivityTypes,
    loadTestGraph,
    createLdl,
    help,
    about,
};

/// Which windows' menu holds an item.
enum class Shown { always, withoutScenario, withScenario };

/// One menu item; an empty caption is a separator.
struct MenuItem {
    std::string_view name;  ///< the item's own name, such as `NewScenarioM`
    std::string_view caption;
    Command command;
    Shown shown;
    std::string_view icon;      ///< empty for none
    std::string_view shortcut;  ///< portable text, empty for none
};

/// One menu of the menu bar.
struct Menu {
    std::string_view name;
    std::string_view caption;
    std::span<const MenuItem> items;
};

/// One button of `MenuBar` or item of `VerticalMenu`.
struct Button {
    std::string_view key;
    std::string_view text;  ///< tool-tip or caption
    Command command;
    std::string_view icon;
};

/// One group of `VerticalMenu`.
struct ButtonGroup {
    std::string_view caption;
    std::span<const Button> buttons;
};

std::span<const Menu> menus();
std::span<const Button> menuBar();
std::span<const ButtonGroup> verticalMenu();

}  // namespace orvent::shell
