#include "shell/commands.h"

#include <array>

namespace orvent::shell {

namespace {

using enum Command;
using canvas::WindowKind;

constexpr WindowKinds always(WindowKind::none, WindowKind::design, WindowKind::zoom);
constexpr WindowKinds withoutWindow(WindowKind::none);
constexpr WindowKinds inDesign(WindowKind::design);
constexpr WindowKinds inZoom(WindowKind::zoom);
constexpr WindowKinds withWindow(WindowKind::design, WindowKind::zoom);

constexpr MenuItem separator(WindowKinds windows) {
    return {"", "", newScenario, windows, "", ""};
}

constexpr std::array kFile = {
    MenuItem{"NewScenarioM", "New Scenario", newScenario, always, "new", "Ctrl+N"},
    MenuItem{"LoadScenarioM", "Load Scenario", loadScenario, always, "open", "Ctrl+O"},
    MenuItem{"SaveScenarioM", "Save Scenario", saveScenario, inDesign, "save", "Ctrl+S"},
    MenuItem{"SaveScenarioAsM", "Save Scenario As", saveScenarioAs, inDesign, "save-as", "Ctrl+Shift+S"},
    MenuItem{"SaveChangesM", "Save Changes", saveScenario, inZoom, "save", "Ctrl+S"},
    MenuItem{"DeleteScenarioM", "Delete Scenario", deleteScenario, always, "delete", ""},
    separator(withWindow),
    MenuItem{"PrintScenarioM", "Print Scenario", printScenario, inDesign, "print", "Ctrl+P"},
    MenuItem{"PrintZoomM", "Print Zoom", printScenario, inZoom, "print", "Ctrl+P"},
    MenuItem{"PrintPreviewM", "Print Preview", printPreview, withWindow, "", "Ctrl+Shift+P"},
    MenuItem{"ExportTxtM", "Export To Text", exportText, inDesign, "export-text", "Ctrl+E"},
    separator(withWindow),
    MenuItem{"CloseScenarioM", "Close Scenario", closeScenario, inDesign, "close", "Ctrl+W"},
    MenuItem{"CloseZoomingM", "Close Zooming", closeScenario, inZoom, "close", "Ctrl+W"},
    separator(withoutWindow),
    MenuItem{"LoginM", "Login", login, withoutWindow, "login", ""},
};

constexpr std::array kView = {
    MenuItem{"ViewLargerM", "Larger", viewLarger, withWindow, "", "Ctrl++; Ctrl+="},
    MenuItem{"ViewSmallerM", "Smaller", viewSmaller, withWindow, "", "Ctrl+-"},
    MenuItem{"ViewActualSizeM", "Actual Size", viewActualSize, withWindow, "", "Ctrl+1"},
    MenuItem{"ViewFitM", "Fit To Window", viewFit, withWindow, "fit", "Ctrl+0"},
    separator(withWindow),
    MenuItem{"SelectAllM", "Select All", selectAll, withWindow, "", "Ctrl+A"},
};

constexpr std::array kZoom = {
    MenuItem{"ZoomInM", "Zoom In", zoomIn, withWindow, "zoom-in", ""},
    MenuItem{"ZoomOutM", "Zoom Out", zoomOut, withWindow, "zoom-out", ""},
    separator(inDesign),
    MenuItem{"ActivityZoomM", "Activity Zoom", activityZoom, inDesign, "activity-zoom", "Alt+Return"},
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
