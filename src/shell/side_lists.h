#pragma once

#include <string>
#include <vector>

#include "shell/canvas_dialogs.h"
#include "shell/find_form.h"
#include "shell/frame_host.h"
#include "shell/options_data.h"
#include "shell/outline_form.h"
#include "shell/problem_lists.h"
#include "shell/rows_form.h"
#include "shell/types_form.h"

namespace orvent::shell {

/// What the lists beside the windows ask of the frame. All of it outlives them.
struct SideListPorts {
    const Ports& ports;
    const std::string& source;  ///< names the repository of the moment
    FrameHost& host;
    Desk& desk;
    platform::SettingsStore& store;
    platform::Progress& progress;
    const OptionsData& options;
    repository::Catalogue& catalogue;
    CanvasDialogs& dialogs;
};

/// The lists beside the windows: which of them are shown, and what they tell of the window in front.
class SideLists : private FindPorts, private OutlinePorts, private TypesPorts {
  public:
    SideLists(const SideListPorts& ports, ScenarioListeners& scenarios)
        : ports_(ports),
          facts_(ports.ports.states, ports.ports.progress, ports.source),
          rows_({ports.ports, ports.host.dialogs(), ports.catalogue.tables, ports.options, facts_, ports.desk,
                 [this](canvas::NodeNumber node) { showNode(node); }}),
          problems_(scenarios, ports.catalogue.tables),
          find_(*this, ports.catalogue.tables),
          outline_(*this, ports.catalogue.tables),
          types_(*this, ports.catalogue.tables.activityTypes) {}

    /// Shows those that were shown in the last run.
    void begin();
    void toggle(Dock dock);
    /// Shows it, and the keyboard goes there.
    void enter(Dock dock);
    /// Enters one that is not shown, and closes one that is.
    void toggleEntered(Dock dock) { ports_.host.dockShown(dock) ? toggle(dock) : enter(dock); }
    void closed(Dock dock);  ///< by its own button

    /// What is unfinished or doubtful in the scenario in front, when that was found out last.
    std::vector<ProblemLine> problems() const;
    /// Selects a node of the scenario in front and brings it into view.
    void goToNode(canvas::NodeNumber node);
    FindForm& find() { return find_; }
    OutlineForm& outline() { return outline_; }
    TypesForm& types() { return types_; }
    RowsForm& rows() { return rows_; }
    const RowsForm& rows() const { return rows_; }
    KeptFacts& facts() { return facts_; }
    /// Goes to the next hit, or the one before; with none, to where words are typed.
    void findNext(bool back);

    /// These have changed.
    void touch(const canvas::DrawForm& form, const canvas::Touched& touched);
    /// Some time has passed since a window changed; `isWhole` is about its scenario.
    void settle(canvas::CanvasForm& form, bool isWhole);
    void frontChanged();
    /// The form is about to go.
    void forget(canvas::CanvasForm& form);
    /// The program has nothing to do. True when there is more to be done when it is idle again.
    bool idle() {
        const bool more = rows_.idle();
        return find_.idle() || more;
    }

  private:
    // FindPorts
    analysis::Unfinished unfinishedOf(canvas::CanvasForm& form) const override;
    void goTo(canvas::CanvasForm& form, const canvas::LabelsD& node) override;
    void openMember(canvas::CanvasForm& form, canvas::LabelsD& node, const analysis::Place& place) override {
        ports_.dialogs.openAt(form, node, place);
    }

    // OutlinePorts
    void showNode(canvas::NodeNumber node) override;
    void openPlace(const analysis::Place& place) override;
    bool mayRename(const analysis::Place& place) const override;
    bool rename(const analysis::Place& place, const std::string& name) override;

    // TypesPorts
    std::vector<repository::ActivityTypeWords> activityTypes() override { return ports_.catalogue.activityTypeWords(); }
    void placeInFront(const std::string& key) override;

    void show(Dock dock, bool shown);
    void followDocks();
    canvas::LabelsD* editable(const analysis::Place& place) const;

    SideListPorts ports_;
    KeptFacts facts_;
    RowsForm rows_;
    ProblemLists problems_;
    FindForm find_;
    OutlineForm outline_;
    TypesForm types_;
};

}  // namespace orvent::shell
