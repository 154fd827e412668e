#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "canvas/labels.h"
#include "canvas/lines.h"

namespace orvent::canvas {

/// The kinds of window that menus and commands tell apart.
enum class WindowKind { none, design, zoom };

/// A set of them.
class WindowKinds {
  public:
    template <class... Kinds>
    constexpr explicit WindowKinds(Kinds... kinds) : bits_((bit(kinds) | ... | 0U)) {}
    constexpr bool has(WindowKind kind) const { return (bits_ & bit(kind)) != 0; }

  private:
    static constexpr unsigned bit(WindowKind kind) { return 1U << static_cast<unsigned>(kind); }
    unsigned bits_;
};

inline constexpr WindowKinds kEveryWindow(WindowKind::none, WindowKind::design, WindowKind::zoom);

/// What is done with the selected nodes: by way of the clipboard, with their places and boxes, with the selection, or
/// with their members.
enum class EditAction {
    cut,
    copy,
    paste,
    duplicate,
    fitToNames,
    tidyUp,
    alignLeft,
    alignCentre,
    alignRight,
    alignTop,
    alignMiddle,
    alignBottom,
    distributeAcross,
    distributeDown,
    selectUpstream,
    selectDownstream,
    selectConnected,
    selectBetween,
    selectSameType,
    connectByName,
    typeAndSize,
};

/// What an action is told: nothing, the kind of node to delete, the angle to set, or what to do with the selected
/// nodes.
using MenuValue = std::variant<std::monostate, NodeTypeCode, AngleCode, EditAction>;

/// How an item stands at the moment.
struct ItemState {
    bool enabled = true;
    std::optional<bool> checked = {};  ///< nothing for an item without a check mark
};

/// One item of a menu. `Action` says what it does: a command of the frame in the menu bar, a `MenuAction` in a context
/// menu. An empty caption is a separator.
template <class Action>
struct MenuItem {
    std::string_view name;  ///< the item's own name, such as `NewScenarioM`
    std::string_view caption;
    Action action{};
    MenuValue value = {};                  ///< what the action needs to know
    bool isDefault = false;                ///< shown in bold
    std::span<const MenuItem> items = {};  ///< of a submenu
    WindowKinds windows = kEveryWindow;    ///< that have it in their menu
    std::string_view icon = {};            ///< empty for none
    std::string_view shortcut = {};        ///< portable text, several after "; ", empty for none
    std::string_view tip = {};             ///< what it does, where the caption does not tell
};

/// One menu. A menu of the bar without an item to show is not shown.
template <class Action>
struct Menu {
    std::string_view name;
    std::span<const MenuItem<Action>> items;
    std::string_view caption = {};  ///< in the menu bar
};

/// The menu of that name, or nothing.
template <class Action>
const Menu<Action>* findMenu(std::span<const Menu<Action>> menus, std::string_view name) {
    for (const Menu<Action>& menu : menus) {
        if (menu.name == name) {
            return &menu;
        }
    }
    return nullptr;
}

/// The item of that name, submenus included, or nothing.
template <class Action>
const MenuItem<Action>* findItem(std::span<const MenuItem<Action>> items, std::string_view name) {
    for (const MenuItem<Action>& item : items) {
        if (item.name == name) {
            return &item;
        }
        if (const MenuItem<Action>* inner = findItem(item.items, name)) {
            return inner;
        }
    }
    return nullptr;
}

/// The item of that name in any of the menus, or nothing.
template <class Action>
const MenuItem<Action>* findItem(std::span<const Menu<Action>> menus, std::string_view name) {
    for (const Menu<Action>& menu : menus) {
        if (const MenuItem<Action>* item = findItem(menu.items, name)) {
            return item;
        }
    }
    return nullptr;
}

}  // namespace orvent::canvas
