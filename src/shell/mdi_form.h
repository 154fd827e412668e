#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "canvas/canvas_pointer.h"
#include "canvas/draw_form.h"
#include "editors/column_offers.h"
#include "editors/type_editor.h"
#include "editors/zoom_nodes.h"
#include "links/canvas_links.h"
#include "repository/catalogue.h"
#include "repository/scenario_load_save.h"
#include "repository/scenario_windows.h"
#include "repository/services.h"
#include "repository/view_scenarios.h"
#include "shell/canvas_dialogs.h"
#include "shell/commands.h"
#include "shell/consistency_check.h"
#include "shell/desk.h"
#include "shell/document_catalogue.h"
#include "shell/frame_host.h"
#include "shell/metrics_scenarios.h"
#include "shell/options_data.h"
#include "shell/ports.h"
#include "shell/scenario_clipboard.h"
#include "shell/scenario_files.h"
#include "shell/scenario_histories.h"
#include "shell/side_lists.h"
#include "shell/tool_bars.h"
#include "shell/wizard_window.h"
#include "statements/ldl_form.h"
#include "statements/ldl_scenario.h"
#include "zoom/zoom_form.h"

namespace orvent::shell {

/// The main frame: the values of the run, the table of open scenarios and the commands. It is made at start and lives
/// until the program ends. A `Fault` that a command leaves is shown by the program's event loop.
class MDIForm1 : public repository::ScenarioWindows,
                 public WindowKeeper,
                 private canvas::ScenarioStore,
                 private HistoryPorts {
  public:
    static constexpr int kSlots = 11;

    MDIForm1(const Ports& ports, FrameHost& host, Desk& desk);
    ~MDIForm1() override;

    /// Start-up: settings, silent test of the repository, login, catalogue, place of the frame. False when the user
    /// cancelled the login: the program ends without a window.
    bool start();

    /// Does what the menu item or button stands for.
    void run(Command command);
    bool isEnabled(Command command) const;
    /// The same with the check mark of its menu items.
    canvas::ItemState stateOf(Command command) const;
    /// The kind of the window in front, which decides what the menus hold.
    canvas::WindowKind front() const;
    /// The tool in use, the tool bars and the palettes.
    ToolBars& tools() { return tools_; }

    /// What the gestures of a canvas lean on.
    canvas::PointerPorts pointerPorts() { return {tools_, dialogs_, links_}; }

    /// Shows a window beside those of the scenarios, and holds it until it is closed.
    void show(std::unique_ptr<canvas::CanvasForm> form);
    /// A scenario's window closes the views over it first.
    bool close(canvas::CanvasForm& form) override;
    void ZoomActivity(int Slot, canvas::NodeNumber NodeIndex) override;
    void applied(canvas::CanvasForm& form) override;
    void edit(canvas::CanvasForm& form, canvas::EditAction action) override;
    void settle(const std::string& words) override { histories_.settle(words); }
    void enabledChanged() override { host_.commandsChanged(); }
    /// The frame's close request: closes the windows beside the scenarios', then every scenario in slot order. False
    /// when one of them was kept.
    bool unload();
    /// The scenario in front, when its design window takes input, or nothing.
    canvas::DrawForm* activeScenario() const;

    // ScenarioWindows
    int NewScenario(std::string& name) override;
    int slotCount() const override { return kSlots; }
    canvas::DrawForm* scenario(int slot) override;
    void discardScenario(int slot) override;
    void scenarioGone(std::int16_t ScenarioID, const canvas::DrawForm* except) override;
    void enableFrame(bool enabled) override;

    /// Some time has passed since a window changed: marks its scenario when it holds unsaved work, and tints it anew.
    void noticeChanges(canvas::CanvasForm& form);
    /// The program has nothing to do: what was done to the scenarios is a step of theirs.
    bool idle();
    /// Another window is in front now.
    void frontChanged();
    /// The current group of the vertical menu, from 1 on.
    int currentGroup() const { return currentGroup_; }
    void chooseGroup(int group);
    bool anyScenario() const;
    /// Opens a scenario's file, as by the menu.
    void openFile(const std::string& path);
    const std::vector<std::string>& recentFiles() const { return files_.recent(); }
    /// Tells the listener of scenarios that come and go while its holder keeps the subscription.
    [[nodiscard]] ScenarioSubscription listen(ScenarioListener& listener) { return scenarioListeners_.add(listener); }
    const ScenarioHistories& histories() const { return histories_; }
    /// Brings the scenario in front to a line of its history.
    void goToStep(std::size_t line);
    HistoryLines stepsInFront() const;
    /// The lists beside the windows.
    SideLists& lists() { return lists_; }
    const SideLists& lists() const { return lists_; }
    const OptionsData& options() const { return options_; }
    repository::Services& services() { return services_; }
    repository::Catalogue& catalogue() { return catalogue_; }

  private:
    struct CommandRow;
    struct CommandTable;
    static std::span<const CommandRow> commandRows();

    // HistoryPorts
    std::string whyNotNow(const canvas::DrawForm& form) const override;
    bool isWhole(const canvas::DrawForm& form) const override;
    void historyChanged(canvas::DrawForm& form) override;
    void changed(canvas::DrawForm& form, const canvas::Touched& touched) override;

    canvas::CanvasForm* activeEnabled() const;
    canvas::DrawForm& OpenSlot(int slot, const std::string& name);
    void freeSlot(int slot);
    void discard(canvas::CanvasForm& form);
    canvas::CanvasForm* viewOver(const canvas::DrawForm& scenario) const;
    canvas::CanvasForm* openZoom() const;
    /// The zoom view in front, when it takes input, or nothing.
    zoom::ZoomForm* zoomInFront() const;
    void offerLeftScenarios();
    bool bringBack(const std::string& file);
    void showEarlierStates();
    bool openEarlier(const std::string& file, std::string name);
    void zoomApplied(zoom::ZoomView& view);
    void connectByName(canvas::CanvasForm& form);
    void toggleTints();
    void toggleMark(bool zoom::ViewMarks::*mark);
    bool marked(bool zoom::ViewMarks::*mark) const;
    void toggleSight(bool zoom::ZoomSight::*mark);
    void zoomSelected();
    void dropped(canvas::CanvasForm& form);
    bool showUserLogin();
    void login();
    void changeUser();
    void loadCatalogue();
    void LoadTestGraph();
    void showOptions();
    void showMetrics();
    void showTypes(editors::TypeKind kind);
    void zoom(bool in);
    void saveScenario(canvas::DrawForm& form) override;
    void saveAs(canvas::DrawForm& form);
    void exportAs(std::string_view exporter);
    void showScenarios(repository::ViewScenarios::Mode mode, canvas::DrawForm* target);

    Ports ports_;
    FrameHost& host_;
    Desk& desk_;
    OptionsData options_;
    repository::Services services_;
    repository::Catalogue catalogue_;
    repository::ScenarioLoadSave loadSave_;
    WizardAnswers wizardAnswers_;
    statements::LDLForm wizard_;
    UnfinishedStatements unfinished_;
    statements::LDLScenarioWriter ldl_;
    ConsistencyCheck consistency_;
    ToolBars tools_;
    int currentGroup_ = 1;
    editors::ZoomNodes nodes_;
    CanvasDialogs dialogs_;
    links::CanvasLinks links_;
    editors::ColumnOffers columnOffers_{options_.ShortNames};
    DocumentCatalogue documentTypes_;
    ScenarioFiles files_;
    ScenarioClipboard clipboard_;
    ScenarioListeners scenarioListeners_;
    SideLists lists_;
    ScenarioRecovery recovery_;
    EarlierStates earlier_;
    ScenarioHistories histories_;
    MetricsScenarios<kSlots> metricsScenarios_;

    // A slot is used exactly while it holds a scenario.
    std::array<std::unique_ptr<canvas::DrawForm>, kSlots> ScenarioForms;
    std::vector<std::unique_ptr<canvas::CanvasForm>> others_;                    ///< windows beside the scenarios'
    std::map<const canvas::CanvasForm*, std::unique_ptr<canvas::Tints>> tints_;  ///< of the windows that show some
};

}  // namespace orvent::shell
