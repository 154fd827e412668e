#include "shell/commands.h"

#include <array>

namespace orvent::shell {

namespace {

using enum Command;
using enum Shown;

constexpr MenuItem kSeparator = {"", "", newScenario, always, "", ""};

constexpr std::array<MenuItem, 11> kFile = {{
    {"NewScenarioM", "New Scenario", newScenario, always, "new", "Ctrl+N"},
    {"LoadScenarioM", "Load Scenario", loadScenario, always, "open", "Ctrl+O"},
    {"SaveScenarioM", "Save Scenario", saveScenario, withScenario, "save", "Ctrl+S"},
    {"SaveScenarioAsM", "Save Scenario As", saveScenarioAs, withScenario, "save-as", "Ctrl+Shift+S"},
    {"DeleteScenarioM", "Delete Scenario", deleteScenario, always, "delete", ""},
    kSeparator,
    {"ExportTxtM", "Export To Text", exportText, withScenario, "export-text", "Ctrl+E"},
    {"", "", exportText, withScenario, "", ""},
    {"CloseScenarioM", "Close Scenario", closeScenario, withScenario, "close", "Ctrl+W"},
    {"", "", login, withoutScenario, "", ""},
    {"LoginM", "Login", login, withoutScenario, "login", ""},
}};

constexpr std::array<MenuItem, 3> kTypes = {{
    {"ShowDataTypesM", "Show Data Types", showDataTypes, always, "", ""},
    {"ShowFunctionTypesM", "Show Function Types", showFunctionTypes, always, "", ""},
    {"ShowActivityTypesM", "Show Activity Types", showActivityTypes, always, "", ""},
}};

constexpr std::array<MenuItem, 1> kTest = {{
    {"LoadTestGraph", "Load Test Graph", loadTestGraph, always, "scenario", "Ctrl+T"},
}};

constexpr std::array<MenuItem, 3> kHelp = {{
    {"HelpETLM", "Help In ORVENT II", help, always, "help", "F1"},
    kSeparator,
    {"HelpAboutM", "About ORVENT II", about, always, "about", ""},
}};

constexpr std::array<Menu, 4> kMenus = {{
    {"FileM", "File", kFile},
    {"TypesM", "Types", kTypes},
    {"TestGraph", "Test", kTest},
    {"HelpM", "Help", kHelp},
}};

constexpr std::array<Button, 3> kMenuBar = {{
    {"New", "Open New Scenario", newScenario, "new"},
    {"Load", "Load Scenario", loadScenario, "open"},
    {"Save", "Save Scenario", saveScenario, "save"},
}};

constexpr std::array<Button, 1> kGeneral = {{{"Login", "Login", changeUser, "login"}}};
constexpr std::array<Button, 1> kMetrics = {{{"LDL", "Create LDL", createLdl, "ldl"}}};

constexpr std::array<ButtonGroup, 2> kVertical = {{{"General", kGeneral}, {"Metrics", kMetrics}}};

}  // namespace

std::span<const Menu> menus() {
    return kMenus;
}

std::span<const Button> menuBar() {
    return kMenuBar;
}

std::span<const ButtonGroup> verticalMenu() {
    return kVertical;
}

}  // namespace orvent::shell
