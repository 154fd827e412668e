#pragma once

#include <span>

#include "canvas/menu_item.h"

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
    edit,            ///< an `EditAction`
    showLinks,       ///< of `ActiveEdge`: lights what they join and tells how many there are
    straightenEdge,  ///< the selection, when the edge is part of it, else the edge alone
};

using ContextItem = MenuItem<MenuAction>;
using ContextMenu = Menu<MenuAction>;

/// `EdgesM` of a canvas on which each link has an edge of its own.
const ContextMenu& edgesMenu();

/// The menus of a design window: `RecordSetM`, `ActivityM`, `CommentM`, `LogM` and `EdgesM`.
std::span<const ContextMenu> designMenus();

}  // namespace orvent::canvas
