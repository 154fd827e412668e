#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "canvas/labels.h"
#include "canvas/lines.h"

namespace orvent::canvas {

/// What a menu item does. Node commands act on `ActiveLabel`, edge angles on `ActiveEdge`, deletions on the selection.
enum class MenuAction {
    submenu,
    properties,
    zoom,
    expanded,  ///< has a check mark: the node's `Expanded`
    notReady,
    templateWizard,
    deleteNodes,
    deleteEdges,
    setAngle,
};

/// What an action is told: nothing, the kind of node to delete, or the angle to set.
using MenuValue = std::variant<std::monostate, NodeTypeCode, AngleCode>;

/// One item of a context menu.
struct ContextItem {
    std::string_view name;  ///< the item's own name, such as `ActivityDeleteM`
    std::string_view caption;
    MenuAction action;
    MenuValue value = {};                     ///< the `NodeType` to delete, or the `Angle` to set
    bool isDefault = false;                   ///< shown in bold
    std::span<const ContextItem> items = {};  ///< of a submenu
};

/// One context menu.
struct ContextMenu {
    std::string_view name;  ///< such as `ActivityM`
    std::span<const ContextItem> items;
};

/// `EdgesM`, which all canvases have.
const ContextMenu& edgesMenu();

/// The menus of a design window: `RecordSetM`, `ActivityM`, `CommentM`, `LogM` and `EdgesM`.
std::span<const ContextMenu> designMenus();

/// The menu of that name, or nothing.
const ContextMenu* findMenu(std::span<const ContextMenu> menus, std::string_view name);

/// The item of that name in any of the menus, submenus included, or nothing.
const ContextItem* findItem(std::span<const ContextMenu> menus, std::string_view name);

}  // namespace orvent::canvas
