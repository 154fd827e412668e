#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/menu_item.h"

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
    exportProgram,
    exportSql,
    exportDbt,
    openFile,
    exportFile,
    openRecent,
    earlierStates,
    closeScenario,
    login,
    changeUser,
    quit,
    undo,
    stepBack,
    stepForward,
    cutNodes,
    copyNodes,
    pasteNodes,
    duplicateNodes,
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
    findText,
    findNext,
    findPrevious,
    connectByName,
    typeAndSize,
    toggleNodes,
    toggleEdges,
    options,
    zoomIn,
    zoomOut,
    activityZoom,
    checkConsistency,
    metrics,
    createLdl,
    straighten,
    selectAll,
    fitToNames,
    viewLarger,
    viewSmaller,
    viewActualSize,
    viewFit,
    colourByMetric,
    viewHistory,
    viewProblems,
    viewOutline,
    viewTypes,
    viewMinimap,
    viewRows,
    countRows,
    viewProvider,
    viewPartOf,
    viewRegulator,
    viewInstanceOf,
    viewDerived,
    viewAttributes,
    makeRoom,
    lightPaths,
    legend,
    showDataTypes,
    showFunctionTypes,
    showActivityTypes,
    loadTestGraph,
    help,
    shortcuts,
    about,
};

inline constexpr std::size_t kCommands = static_cast<std::size_t>(Command::about) + 1;

using MenuItem = canvas::MenuItem<Command>;
using Menu = canvas::Menu<Command>;

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

/// The keys of a menu item, and what it is called: in each kind of window that calls it differently.
struct CommandKeys {
    std::string_view shortcut;
    std::string names;
};

std::span<const Menu> menus();
/// All items that have keys, the same keys once.
std::vector<CommandKeys> commandKeys();
std::span<const ButtonGroup> verticalMenu();
/// The commands of the buttons of `MenuBar`, in their order.
std::span<const Command> menuBarCommands();
std::span<const HandyKey> handyKeys();

}  // namespace orvent::shell
