#include "shell/commands.h"

#include <array>

namespace orvent::shell {

namespace {

using enum Command;
using enum Shown;

constexpr MenuItem separator(Shown shown) {
    return {"", "", newScenario, shown, "", ""};
}

constexpr std::array kFile = {
    MenuItem{"NewScenarioM", "New Scenario", newScenario, always, "new", "Ctrl+N"},
    MenuItem{"LoadScenarioM", "Load Scenario", loadScenario, always, "open", "Ctrl+O"},
    MenuItem{"SaveScenarioM", "Save Scenario", saveScenario, withScenario, "save", "Ctrl+S"},
    MenuItem{"SaveScenarioAsM", "Save Scenario As", saveScenarioAs, withScenario, "save-as", "Ctrl+Shift+S"},
    MenuItem{"DeleteScenarioM", "Delete Scenario", deleteScenario, always, "delete", ""},
    separator(withScenario),
    MenuItem{"PrintScenarioM", "Print Scenario", printScenario, withScenario, "print", "Ctrl+P"},
    MenuItem{"PrintPreviewM", "Print Preview", printPreview, withScenario, "", "Ctrl+Shift+P"},
    MenuItem{"ExportTxtM", "Export To Text", exportText, withScenario, "export-text", "Ctrl+E"},
    separator(withScenario),
    MenuItem{"CloseScenarioM", "Close Scenario", closeScenario, withScenario, "close", "Ctrl+W"},
    separator(withoutScenario),
    MenuItem{"LoginM", "Login", login, withoutScenario, "login", ""},
};

constexpr std::array kView = {
    MenuItem{"ViewLargerM", "Larger", viewLarger, withScenario, "", "Ctrl++; Ctrl+="},
    MenuItem{"ViewSmallerM", "Smaller", viewSmaller, withScenario, "", "Ctrl+-"},
    MenuItem{"ViewActualSizeM", "Actual Size", viewActualSize, withScenario, "", "Ctrl+1"},
    MenuItem{"ViewFitM", "Fit To Window", viewFit, withScenario, "fit", "Ctrl+0"},
    separator(withScenario),
    MenuItem{"SelectAllM", "Select All", selectAll, withScenario, "", "Ctrl+A"},
};

constexpr std::array kZoom = {
    MenuItem{"ZoomInM", "Zoom In", zoomIn, withScenario, "zoom-in", ""},
    MenuItem{"ZoomOutM", "Zoom Out", zoomOut, withScenario, "zoom-out", ""},
};

constexpr std::array kTypes = {
    MenuItem{"ShowDataTypesM", "Show Data Types", showDataTypes, always, "", ""},
    MenuItem{"ShowFunctionTypesM", "Show Function Types", showFunctionTypes, always, "", ""},
    MenuItem{"ShowActivityTypesM", "Show Activity Types", showActivityTypes, always, "", ""},
};

constexpr std::array kTest = {
    MenuItem{"LoadTestGraph", "Load Test Graph", loadTestGraph, always, "scenario", "Ctrl+T"},
};

constexpr std::array kHelp = {
    MenuItem{"HelpETLM", "Help In ORVENT II", help, always, "help", "F1"},
    MenuItem{"HelpShortcutsM", "Keyboard Shortcuts", shortcuts, always, "", "Ctrl+F1"},
    separator(always),
    MenuItem{"HelpAboutM", "About ORVENT II", about, always, "about", ""},
};

constexpr std::array kMenus = {
    Menu{"FileM", "File", kFile},    Menu{"ViewM", "View", kView},     Menu{"ZoomM", "Zoom", kZoom},
    Menu{"TypesM", "Types", kTypes}, Menu{"TestGraph", "Test", kTest}, Menu{"HelpM", "Help", kHelp},
};

constexpr std::array kGeneral = {
    Button{"Nodes", "Nodes", toggleNodes, "nodes"},
    Button{"Edges", "Edges", toggleEdges, "edges"},
    Button{"Login", "Login", changeUser, "login"},
    Button{"Options", "Options", options, "settings"},
};

constexpr std::array kDrawing = {
    Button{"ActivityZoom", "Activity Zoom", activityZoom, "activity-zoom"},
    Button{"ZoomIn", "Zoom In", zoomIn, "zoom-in"},
    Button{"ZoomOut", "Zoom Out", zoomOut, "zoom-out"},
};

constexpr std::array kMetrics = {
    Button{"CheckCons", "Consistency", checkConsistency, "consistency"},
    Button{"Metrics", "Metrics", metrics, "metrics"},
    Button{"LDL", "Create LDL", createLdl, "ldl"},
};

constexpr std::array kVertical = {
    ButtonGroup{"General", kGeneral},
    ButtonGroup{"Drawing", kDrawing},
    ButtonGroup{"Metrics", kMetrics},
};

constexpr std::array kMenuBar = {newScenario, loadScenario, saveScenario, printScenario, undo};

constexpr std::array kHandyKeys = {
    HandyKey{"Del", "Delete what is selected"},
    HandyKey{"Esc", "Give up what the mouse is doing"},
    HandyKey{"Arrow keys", "Select the next node in that direction"},
    HandyKey{"Ctrl+Click", "Select one more, or one less"},
    HandyKey{"Mouse wheel", "Scroll; with Shift, sideways"},
    HandyKey{"Ctrl+Mouse wheel", "Show the picture larger or smaller"},
    HandyKey{"Middle button", "Drag the picture"},
    HandyKey{"Double click", "Open a node; edit the text of a comment"},
};

}  // namespace

std::span<const Menu> menus() {
    return kMenus;
}

std::span<const ButtonGroup> verticalMenu() {
    return kVertical;
}

std::span<const Command> menuBarCommands() {
    return kMenuBar;
}

std::span<const HandyKey> handyKeys() {
    return kHandyKeys;
}

}  // namespace orvent::shell
