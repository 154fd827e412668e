#include "shell/commands.h"

#include <algorithm>
#include <array>

#include "shell/tool_bars.h"

namespace orvent::shell {

namespace {

using enum Command;
using canvas::WindowKind;
using canvas::WindowKinds;

constexpr WindowKinds anyWindow = canvas::kEveryWindow;
constexpr WindowKinds withoutWindow(WindowKind::none);
constexpr WindowKinds designWindow(WindowKind::design);
constexpr WindowKinds zoomWindow(WindowKind::zoom);
constexpr WindowKinds withWindow(WindowKind::design, WindowKind::zoom);

constexpr MenuItem item(std::string_view name, std::string_view caption, Command command, WindowKinds windows,
                        std::string_view icon, std::string_view shortcut, std::string_view tip = "") {
    return {name, caption, command, {}, false, {}, windows, icon, shortcut, tip};
}

constexpr MenuItem separator(WindowKinds windows) {
    return item("", "", newScenario, windows, "", "");
}

constexpr std::array kFile = {
    item("NewScenarioM", "New Scenario", newScenario, anyWindow, "new", "Ctrl+N"),
    item("LoadScenarioM", "Load Scenario", loadScenario, anyWindow, "open", "Ctrl+O"),
    item("SaveScenarioM", "Save Scenario", saveScenario, designWindow, "save", "Ctrl+S"),
    item("SaveScenarioAsM", "Save Scenario As", saveScenarioAs, designWindow, "save-as", "Ctrl+Shift+S"),
    item("SaveChangesM", "Save Changes", saveScenario, zoomWindow, "save", "Ctrl+S"),
    item("DeleteScenarioM", "Delete Scenario", deleteScenario, anyWindow, "delete", ""),
    separator(withWindow),
    item("PrintScenarioM", "Print Scenario", printScenario, designWindow, "print", "Ctrl+P"),
    item("PrintZoomM", "Print Zoom", printScenario, zoomWindow, "print", "Ctrl+P"),
    item("PrintPreviewM", "Print Preview", printPreview, withWindow, "", "Ctrl+Shift+P"),
    item("ExportTxtM", "Export To Text", exportText, designWindow, "export-text", "Ctrl+E"),
    item("ExportProgramM", "Export Program", exportProgram, designWindow, "", ""),
    item("ExportSqlM", "Export SQL...", exportSql, designWindow, "", ""),
    item("ExportDbtM", "Export dbt Project...", exportDbt, designWindow, "", ""),
    separator(anyWindow),
    item("OpenFileM", "Open File...", openFile, anyWindow, "open", "Ctrl+Shift+O"),
    item("ExportFileM", "Export To File...", exportFile, designWindow, "", "Ctrl+Shift+E"),
    item("OpenRecentM", "Open Recent", openRecent, anyWindow, "", ""),
    item("EarlierStatesM", "Earlier States...", earlierStates, anyWindow, "", ""),
    separator(withWindow),
    item("CloseScenarioM", "Close Scenario", closeScenario, designWindow, "close", "Ctrl+W"),
    item("CloseZoomingM", "Close Zooming", closeScenario, zoomWindow, "close", "Ctrl+W"),
    separator(withoutWindow),
    item("LoginM", "Login", login, withoutWindow, "login", ""),
    separator(anyWindow),
    item("QuitM", "Quit", quit, anyWindow, "", "Ctrl+Q"),
};

constexpr std::array kAlign = {
    item("AlignLeftM", "Left", alignLeft, withWindow, "", ""),
    item("AlignCentreM", "Centre", alignCentre, withWindow, "", ""),
    item("AlignRightM", "Right", alignRight, withWindow, "", ""),
    item("AlignTopM", "Top", alignTop, withWindow, "", ""),
    item("AlignMiddleM", "Middle", alignMiddle, withWindow, "", ""),
    item("AlignBottomM", "Bottom", alignBottom, withWindow, "", ""),
};

constexpr std::array kDistribute = {
    item("DistributeAcrossM", "Across", distributeAcross, withWindow, "", "", "The same room between any two"),
    item("DistributeDownM", "Down", distributeDown, withWindow, "", "", "The same room between any two"),
};

constexpr std::array kSelect = {
    item("SelectUpstreamM", "Upstream", selectUpstream, withWindow, "", "Ctrl+U", "All from which data comes here"),
    item("SelectDownstreamM", "Downstream", selectDownstream, withWindow, "", "Ctrl+Shift+U", "All to which it goes"),
    item("SelectConnectedM", "Connected", selectConnected, withWindow, "", "Ctrl+Shift+A", "All that edges lead to"),
    item("SelectBetweenM", "Between Two", selectBetween, withWindow, "", "Ctrl+B", "The ways from one to the other"),
    item("SelectSameTypeM", "Same Type", selectSameType, withWindow, "", "Ctrl+K"),
};

constexpr std::array kEdit = {
    item("StepBackM", "Step Back", stepBack, designWindow, "", "Ctrl+Z", "Takes the last change of the scenario back"),
    item("StepForwardM", "Step Forward", stepForward, designWindow, "", "Ctrl+Shift+Z; Ctrl+Y",
         "Brings back what was taken back"),
    separator(designWindow),
    item("CutM", "Cut", cutNodes, designWindow, "", "Ctrl+X"),
    item("CopyM", "Copy", copyNodes, withWindow, "", "Ctrl+C"),
    item("PasteM", "Paste", pasteNodes, designWindow, "", "Ctrl+V"),
    item("DuplicateM", "Duplicate", duplicateNodes, designWindow, "", "Ctrl+D"),
    separator(designWindow),
    item("TidyUpM", "Tidy Up", tidyUp, designWindow, "tidy-up", "Ctrl+Shift+T",
         "Places the selected nodes, or all, by the flow from left to right"),
    separator(zoomWindow),
    MenuItem{"AlignM", "Align", newScenario, {}, false, kAlign, withWindow},
    MenuItem{"DistributeM", "Distribute", newScenario, {}, false, kDistribute, withWindow},
    MenuItem{"SelectM", "Select", newScenario, {}, false, kSelect, withWindow},
    separator(withWindow),
    item("FindM", "Find...", findText, withWindow, "", "Ctrl+F", "Searches names, types, statements and comments"),
    item("FindNextM", "Find Next", findNext, withWindow, "", "F3"),
    item("FindPreviousM", "Find Previous", findPrevious, withWindow, "", "Shift+F3"),
    separator(withWindow),
    item("ConnectByNameM", "Connect By Name...", connectByName, withWindow, "", "Ctrl+J",
         "Proposes pairs of members whose names fit: of two selected nodes, or of all in a zoom"),
    item("TypeAndSizeM", "Type And Size...", typeAndSize, withWindow, "", "",
         "Gives all selected nodes one type, or one size"),
};

constexpr std::array kRelationships = {
    item("ViewPartOfM", "Part Of", viewPartOf, zoomWindow, "", ""),
    item("ViewInstanceOfM", "Instance Of", viewInstanceOf, zoomWindow, "", ""),
    item("ViewRegulatorM", "Regulator", viewRegulator, zoomWindow, "", ""),
    item("ViewProviderM", "Provider", viewProvider, zoomWindow, "", ""),
    item("ViewDerivedM", "Derived", viewDerived, zoomWindow, "", ""),
};

constexpr std::array kView = {
    item("ViewLargerM", "Larger", viewLarger, withWindow, "", "Ctrl++; Ctrl+="),
    item("ViewSmallerM", "Smaller", viewSmaller, withWindow, "", "Ctrl+-"),
    item("ViewActualSizeM", "Actual Size", viewActualSize, withWindow, "", "Ctrl+1"),
    item("ViewFitM", "Fit To Window", viewFit, withWindow, "fit", "Ctrl+0"),
    separator(withWindow),
    item("SelectAllM", "Select All", selectAll, withWindow, "", "Ctrl+A"),
    item("FitToNamesM", "Fit To Names", fitToNames, withWindow, "", "",
         "Widens the boxes of the selected nodes, or of all, until their names can be read"),
    separator(designWindow),
    item("ColourByMetricM", "Colour By Metric", colourByMetric, designWindow, "", ""),
    item("ViewHistoryM", "History", viewHistory, designWindow, "", "Ctrl+H"),
    item("ViewProblemsM", "Problems", viewProblems, withWindow, "", "F8",
         "Lists what is unfinished or doubtful in the scenario"),
    item("ViewOutlineM", "Outline", viewOutline, withWindow, "", "F7",
         "The scenario as a tree, in the order of its flow"),
    item("ViewTypesM", "Types", viewTypes, withWindow, "", "F6",
         "Activity types and other nodes, to be dragged into the picture"),
    item("ViewMinimapM", "Minimap", viewMinimap, withWindow, "", "Ctrl+M",
         "The whole picture in a corner of each window"),
    item("ViewRowsM", "Rows", viewRows, withWindow, "", "F9",
         "The rows of the selected node and those that come in, on a sample or at the source"),
    item("CountRowsM", "Count Rows", countRows, designWindow, "", "Shift+F9",
         "How many rows go in and out of each node, in the picture"),
    separator(zoomWindow),
    MenuItem{"ViewRelationshipsM", "Relationships", newScenario, {}, false, kRelationships, zoomWindow},
    item("ViewAttributesM", "Attributes", viewAttributes, zoomWindow, "", "",
         "Shows or hides parameters, functions and constants with their edges; attributes always stay"),
    separator(zoomWindow),
    item("MakeRoomM", "Make Room", makeRoom, zoomWindow, "", ""),
    item("LightPathsM", "Light Paths", lightPaths, zoomWindow, "", ""),
    item("LegendM", "Legend", legend, zoomWindow, "", ""),
};

constexpr std::array kZoom = {
    item("ZoomInM", "Zoom In", zoomIn, withWindow, "zoom-in", ""),
    item("ZoomOutM", "Zoom Out", zoomOut, withWindow, "zoom-out", ""),
    separator(designWindow),
    item("ActivityZoomM", "Activity Zoom", activityZoom, designWindow, "activity-zoom", "Alt+Return"),
};

constexpr std::array kTypes = {
    item("ShowDataTypesM", "Show Data Types", showDataTypes, anyWindow, "", ""),
    item("ShowFunctionTypesM", "Show Function Types", showFunctionTypes, anyWindow, "", ""),
    item("ShowActivityTypesM", "Show Activity Types", showActivityTypes, anyWindow, "", ""),
};

constexpr std::array kTest = {
    item("LoadTestGraph", "Load Test Graph", loadTestGraph, anyWindow, "scenario", "Ctrl+T"),
};

constexpr std::array kHelp = {
    item("HelpETLM", "Help In ORVENT II", help, anyWindow, "help", "F1"),
    item("HelpShortcutsM", "Keyboard Shortcuts", shortcuts, anyWindow, "", "Ctrl+F1"),
    separator(anyWindow),
    item("HelpAboutM", "About ORVENT II", about, anyWindow, "about", ""),
};

constexpr std::array kMenus = {
    Menu{"FileM", kFile, "File"}, Menu{"EditM", kEdit, "Edit"},    Menu{"ViewM", kView, "View"},
    Menu{"ZoomM", kZoom, "Zoom"}, Menu{"TypesM", kTypes, "Types"}, Menu{"TestGraph", kTest, "Test"},
    Menu{"HelpM", kHelp, "Help"},
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
    Button{"Straighten", "Straighten", straighten, "straighten"},
    Button{"TidyUp", "Tidy Up", tidyUp, "tidy-up"},
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

constexpr std::array<Command, kMenuBarButtons> kMenuBarCommands = {newScenario, loadScenario, saveScenario,
                                                                   printScenario, undo};

constexpr std::array kHandyKeys = {
    HandyKey{"Del", "Delete what is selected"},
    HandyKey{"Esc", "Give up the gesture; again: the arrow"},
    HandyKey{"Arrow keys", "Select the next node in that direction"},
    HandyKey{"Ctrl+Arrow keys", "Move the selected nodes by 100 twips"},
    HandyKey{"Enter", "Open a node, place one, or draw an edge"},
    HandyKey{"Shift+F10", "Open the menu of what is selected"},
    HandyKey{"Tab", "Go to the side menu and the tabs"},
    HandyKey{"Drag a node", "Move it, or the whole selection"},
    HandyKey{"Drag the ground", "Select what lies in a rectangle"},
    HandyKey{"Ctrl+Click", "Select one more, or one less"},
    HandyKey{"Mouse wheel", "Scroll; with Shift, sideways"},
    HandyKey{"Ctrl+Mouse wheel", "Show the picture larger or smaller"},
    HandyKey{"Middle button", "Drag the picture"},
    HandyKey{"Double click", "Open a node; edit a comment; set a line's corner"},
};

}  // namespace

std::span<const Menu> menus() {
    return kMenus;
}

std::span<const ButtonGroup> verticalMenu() {
    return kVertical;
}

std::span<const Command> menuBarCommands() {
    return kMenuBarCommands;
}

namespace {

void addKeys(std::vector<CommandKeys>& keys, std::span<const MenuItem> items) {
    for (const MenuItem& item : items) {
        addKeys(keys, item.items);
        const auto known = std::find_if(keys.begin(), keys.end(),
                                        [&](const CommandKeys& row) { return row.shortcut == item.shortcut; });
        if (known != keys.end()) {
            known->names += " / " + std::string(item.caption);
        } else if (!item.shortcut.empty()) {
            keys.push_back({item.shortcut, std::string(item.caption)});
        }
    }
}

}  // namespace

std::vector<CommandKeys> commandKeys() {
    std::vector<CommandKeys> keys;
    for (const Menu& menu : kMenus) {
        addKeys(keys, menu.items);
    }
    // Out of their sub-menu the items need its name.
    for (const MenuItem& item : kSelect) {
        const auto row = std::find_if(keys.begin(), keys.end(),
                                      [&](const CommandKeys& each) { return each.shortcut == item.shortcut; });
        row->names = "Select " + row->names;
    }
    return keys;
}

std::span<const HandyKey> handyKeys() {
    return kHandyKeys;
}

}  // namespace orvent::shell
