// The frame's commands: what each of them does and when it can be chosen.

#include <algorithm>
#include <array>

#include "analysis/metric_tints.h"
#include "canvas/node_walk.h"
#include "canvas/scaling.h"
#include "links/check_consistency.h"
#include "platform/text.h"
#include "shell/exporters.h"
#include "shell/mdi_form.h"
#include "shell/options_form.h"
#include "shell/plain_forms.h"
#include "zoom/make_room.h"
#include "zoom/view_filters.h"

namespace orvent::shell {

namespace {

using canvas::EditAction;
using platform::Icon;

template <class Form>
void tell(FrameHost& host) {
    Form form;
    host.dialogs().show(form);
}

}  // namespace

struct MDIForm1::CommandRow {
    /// When a command can be chosen.
    enum class When {
        always,
        inWindow,   ///< a window with a canvas is in front, and no dialog of it is open
        inDesign,   ///< the same, and it is a design window
        inZoom,     ///< likewise a zoom view
        withSave,   ///< the same, and the button of `MenuBar` is on
        withPrint,  ///< likewise
        withUndo,   ///< the button of `MenuBar` is on
        withRecent,
        withScenario,  ///< a window with a canvas is in front
        back,          ///< a step of the scenario in front can be taken back
        forward,       ///< likewise, forward
        withoutWindows
    };

    Command command;
    When when;
    void (*run)(MDIForm1&);
    bool (*checked)(const MDIForm1&) = nullptr;  ///< whether its items bear a check mark; nothing: they have none
    const char* step = "";  ///< what it is called in the history where what has changed is not enough
};

struct MDIForm1::CommandTable {
    using Mode = repository::ViewScenarios::Mode;
    using enum CommandRow::When;

    static constexpr std::array<CommandRow, kCommands> rows = {{
        {Command::newScenario, always,
         [](MDIForm1& f) {
             std::string name;
             f.NewScenario(name);
         }},
        {Command::loadScenario, always,
         [](MDIForm1& f) {
             f.showScenarios(Mode::Load, nullptr);
             f.histories_.beginFilled();
         }},
        {Command::saveScenario, withSave,
         [](MDIForm1& f) {
             f.activeEnabled()->Save();
             if (zoom::ZoomForm* view = f.zoomInFront()) {
                 f.zoomApplied(*view);
             }
         }},
        {Command::saveScenarioAs, inDesign, [](MDIForm1& f) { f.saveAs(*f.activeScenario()); }},
        {Command::deleteScenario, always, [](MDIForm1& f) { f.showScenarios(Mode::Delete, nullptr); }},
        {Command::printScenario, withPrint,
         [](MDIForm1& f) { f.desk_.paint(*f.activeEnabled(), PictureTarget::printer); }},
        {Command::printPreview, withPrint,
         [](MDIForm1& f) { f.desk_.paint(*f.activeEnabled(), PictureTarget::preview); }},
        {Command::exportText, inDesign, [](MDIForm1& f) { f.exportAs(kTextExporter); }},
        {Command::exportProgram, inDesign, [](MDIForm1& f) { f.exportAs(kProgramExporter); }},
        {Command::exportSql, inDesign, [](MDIForm1& f) { f.exportAs(kSqlExporter); }},
        {Command::exportDbt, inDesign, [](MDIForm1& f) { f.exportAs(kDbtExporter); }},
        {Command::openFile, always,
         [](MDIForm1& f) {
             f.files_.open();
             f.histories_.beginFilled();
         }},
        {Command::exportFile, inDesign,
         [](MDIForm1& f) {
             f.files_.exportTo(*f.activeScenario());
             f.host_.commandsChanged();
         }},
        {Command::openRecent, withRecent, [](MDIForm1& f) { f.openFile(f.recentFiles().front()); }},
        {Command::earlierStates, always, [](MDIForm1& f) { f.showEarlierStates(); }},
        {Command::closeScenario, inWindow, [](MDIForm1& f) { f.close(*f.activeEnabled()); }},
        {Command::login, withoutWindows, [](MDIForm1& f) { f.login(); }},
        {Command::changeUser, always, [](MDIForm1& f) { f.changeUser(); }},
        {Command::quit, always, [](MDIForm1& f) { f.host_.unloadFrame(); }},
        {Command::undo, withUndo, [](MDIForm1& f) { f.ports_.messages.tell("Undo"); }},
        {Command::stepBack, back, [](MDIForm1& f) { f.histories_.step(*f.activeScenario(), true); }},
        {Command::stepForward, forward, [](MDIForm1& f) { f.histories_.step(*f.activeScenario(), false); }},
        {Command::cutNodes, inDesign, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::cut); }},
        {Command::copyNodes, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::copy); }},
        {Command::pasteNodes, inDesign, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::paste); }, nullptr,
         "Pasted "},
        {Command::duplicateNodes, inDesign, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::duplicate); },
         nullptr, "Duplicated "},
        {Command::tidyUp, inDesign, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::tidyUp); }},
        {Command::alignLeft, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::alignLeft); }},
        {Command::alignCentre, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::alignCentre); }},
        {Command::alignRight, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::alignRight); }},
        {Command::alignTop, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::alignTop); }},
        {Command::alignMiddle, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::alignMiddle); }},
        {Command::alignBottom, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::alignBottom); }},
        {Command::distributeAcross, inWindow,
         [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::distributeAcross); }},
        {Command::distributeDown, inWindow,
         [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::distributeDown); }},
        {Command::selectUpstream, inWindow,
         [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::selectUpstream); }},
        {Command::selectDownstream, inWindow,
         [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::selectDownstream); }},
        {Command::selectConnected, inWindow,
         [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::selectConnected); }},
        {Command::selectBetween, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::selectBetween); }},
        {Command::selectSameType, inWindow,
         [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::selectSameType); }},
        {Command::findText, withScenario, [](MDIForm1& f) { f.lists_.enter(Dock::find); }},
        {Command::findNext, withScenario, [](MDIForm1& f) { f.lists_.findNext(false); }},
        {Command::findPrevious, withScenario, [](MDIForm1& f) { f.lists_.findNext(true); }},
        {Command::connectByName, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::connectByName); }},
        {Command::typeAndSize, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::typeAndSize); }},
        {Command::toggleNodes, always, [](MDIForm1& f) { f.tools_.palettes.toggle(Palette::NodeForm); }},
        {Command::toggleEdges, always, [](MDIForm1& f) { f.tools_.palettes.toggle(Palette::EdgeForm); }},
        {Command::options, always, [](MDIForm1& f) { f.showOptions(); }},
        {Command::zoomIn, inWindow, [](MDIForm1& f) { f.zoom(true); }},
        {Command::zoomOut, inWindow, [](MDIForm1& f) { f.zoom(false); }},
        {Command::activityZoom, inDesign, [](MDIForm1& f) { f.zoomSelected(); }},
        {Command::checkConsistency, inDesign, [](MDIForm1& f) { f.consistency_.run(*f.activeScenario()); }, nullptr,
         "Consistency"},
        {Command::metrics, inDesign, [](MDIForm1& f) { f.showMetrics(); }},
        {Command::createLdl, inDesign,
         [](MDIForm1& f) {
             f.histories_.touchAll(*f.activeScenario());  // of a statement no canvas tells
             f.ldl_.LDLScenario(*f.activeScenario());
         },
         nullptr, "Create LDL"},
        {Command::straighten, inWindow, [](MDIForm1& f) { f.activeEnabled()->straightenEdges(nullptr); }, nullptr,
         "Straighten"},
        {Command::selectAll, inWindow, [](MDIForm1& f) { canvas::selectAllNodes(*f.activeEnabled()); }},
        {Command::fitToNames, inWindow, [](MDIForm1& f) { f.edit(*f.activeEnabled(), EditAction::fitToNames); }},
        {Command::viewLarger, inWindow,
         [](MDIForm1& f) { f.desk_.changeView(*f.activeEnabled(), ViewChange::larger); }},
        {Command::viewSmaller, inWindow,
         [](MDIForm1& f) { f.desk_.changeView(*f.activeEnabled(), ViewChange::smaller); }},
        {Command::viewActualSize, inWindow,
         [](MDIForm1& f) { f.desk_.changeView(*f.activeEnabled(), ViewChange::actualSize); }},
        {Command::viewFit, inWindow, [](MDIForm1& f) { f.desk_.changeView(*f.activeEnabled(), ViewChange::fit); }},
        {Command::colourByMetric, inDesign, [](MDIForm1& f) { f.toggleTints(); },
         [](const MDIForm1& f) { return f.tints_.contains(f.activeScenario()); }},
        {Command::viewHistory, always, [](MDIForm1& f) { f.lists_.toggle(Dock::history); },
         [](const MDIForm1& f) { return f.host_.dockShown(Dock::history); }},
        {Command::viewProblems, always, [](MDIForm1& f) { f.lists_.toggle(Dock::problems); },
         [](const MDIForm1& f) { return f.host_.dockShown(Dock::problems); }},
        {Command::viewOutline, always, [](MDIForm1& f) { f.lists_.toggleEntered(Dock::outline); },
         [](const MDIForm1& f) { return f.host_.dockShown(Dock::outline); }},
        {Command::viewTypes, always, [](MDIForm1& f) { f.lists_.toggleEntered(Dock::types); },
         [](const MDIForm1& f) { return f.host_.dockShown(Dock::types); }},
        {Command::viewMinimap, always, [](MDIForm1& f) { f.lists_.toggle(Dock::minimap); },
         [](const MDIForm1& f) { return f.host_.dockShown(Dock::minimap); }},
        {Command::viewRows, always, [](MDIForm1& f) { f.lists_.toggle(Dock::rows); },
         [](const MDIForm1& f) { return f.host_.dockShown(Dock::rows); }},
        {Command::countRows, inDesign, [](MDIForm1& f) { f.lists_.rows().toggleCounts(); },
         [](const MDIForm1& f) { return f.lists_.rows().countsShown(); }},
        {Command::viewProvider, inZoom, [](MDIForm1& f) { f.toggleMark(&zoom::ViewMarks::ViewProviderM); },
         [](const MDIForm1& f) { return f.marked(&zoom::ViewMarks::ViewProviderM); }},
        {Command::viewPartOf, inZoom, [](MDIForm1& f) { f.toggleMark(&zoom::ViewMarks::ViewPartOfM); },
         [](const MDIForm1& f) { return f.marked(&zoom::ViewMarks::ViewPartOfM); }},
        {Command::viewRegulator, inZoom, [](MDIForm1& f) { f.toggleMark(&zoom::ViewMarks::ViewRegulatorM); },
         [](const MDIForm1& f) { return f.marked(&zoom::ViewMarks::ViewRegulatorM); }},
        {Command::viewInstanceOf, inZoom, [](MDIForm1& f) { f.toggleMark(&zoom::ViewMarks::ViewInstanceOfM); },
         [](const MDIForm1& f) { return f.marked(&zoom::ViewMarks::ViewInstanceOfM); }},
        {Command::viewDerived, inZoom, [](MDIForm1& f) { f.toggleMark(&zoom::ViewMarks::ViewDerivedM); },
         [](const MDIForm1& f) { return f.marked(&zoom::ViewMarks::ViewDerivedM); }},
        {Command::viewAttributes, inZoom, [](MDIForm1& f) { f.toggleMark(&zoom::ViewMarks::ViewAttributesM); },
         [](const MDIForm1& f) { return f.marked(&zoom::ViewMarks::ViewAttributesM); }},
        {Command::makeRoom, inZoom, [](MDIForm1& f) { zoom::MakeRoom(*f.zoomInFront()); }},
        {Command::lightPaths, inZoom, [](MDIForm1& f) { f.toggleSight(&zoom::ZoomSight::LightPathsM); },
         [](const MDIForm1& f) { return f.options_.sight.LightPathsM; }},
        {Command::legend, inZoom, [](MDIForm1& f) { f.toggleSight(&zoom::ZoomSight::LegendM); },
         [](const MDIForm1& f) { return f.options_.sight.LegendM; }},
        {Command::showDataTypes, always, [](MDIForm1& f) { f.showTypes(editors::TypeKind::data); }},
        {Command::showFunctionTypes, always, [](MDIForm1& f) { f.showTypes(editors::TypeKind::function); }},
        {Command::showActivityTypes, always, [](MDIForm1& f) { f.showTypes(editors::TypeKind::activity); }},
        {Command::loadTestGraph, always, [](MDIForm1& f) { f.LoadTestGraph(); }},
        {Command::help, always, [](MDIForm1& f) { f.ports_.help.open(f.options_.HelpFile); }},
        {Command::shortcuts, always, [](MDIForm1& f) { tell<ShortcutsForm>(f.host_); }},
        {Command::about, always, [](MDIForm1& f) { tell<AboutForm>(f.host_); }},
    }};
};

std::span<const MDIForm1::CommandRow> MDIForm1::commandRows() {
    constexpr const auto& rows = CommandTable::rows;
    static_assert(std::all_of(rows.begin(), rows.end(),
                              [](const CommandRow& row) {
                                  return &row - rows.data() == static_cast<std::ptrdiff_t>(row.command) && row.run;
                              }),
                  "a command is not in its own row");
    return rows;
}

void MDIForm1::run(Command command) {
    if (!isEnabled(command)) {
        return;
    }
    histories_.settle();
    const CommandRow& row = commandRows()[static_cast<std::size_t>(command)];
    {
        const ScenarioHistories::Running running(histories_);
        row.run(*this);
    }
    histories_.settle(row.step);
    if (canvas::DrawForm* form = activeScenario()) {
        lists_.settle(*form, isWhole(*form));  // of a statement, or of the catalogue, no canvas tells
    }
}

bool MDIForm1::isEnabled(Command command) const {
    using enum CommandRow::When;
    const CommandRow::When when = commandRows()[static_cast<std::size_t>(command)].when;
    switch (when) {
        case always:
            return true;
        case inWindow:
            return activeEnabled() != nullptr;
        case inDesign:
            return activeScenario() != nullptr;
        case inZoom:
            return zoomInFront() != nullptr;
        case withSave:
            return activeEnabled() && tools_.isMenuEnabled("Save");
        case withPrint:
            return activeEnabled() && tools_.isMenuEnabled("Print");
        case withUndo:
            return tools_.isMenuEnabled("Undo");
        case withScenario:
            return desk_.active() != nullptr;
        case withRecent:
            return !recentFiles().empty();
        case back:
        case forward:
            return histories_.canStep(activeScenario(), when == back);
        case withoutWindows:
            return !anyScenario();
    }
    return false;
}

canvas::ItemState MDIForm1::stateOf(Command command) const {
    const CommandRow& row = commandRows()[static_cast<std::size_t>(command)];
    return {isEnabled(command), row.checked ? std::optional(row.checked(*this)) : std::nullopt};
}

void MDIForm1::chooseGroup(int group) {
    currentGroup_ = group;
    host_.commandsChanged();
}

void MDIForm1::showOptions() {
    OptionsForm dialog(options_, ports_);
    dialog.open();
    host_.dialogs().show(dialog);
    host_.problemsChanged();
}

void MDIForm1::showMetrics() {
    const analysis::MetricsServices services{metricsScenarios_, options_.TransDepth, ports_.store,
                                             ports_.progress,   ports_.saveDialog,   ports_.folder};
    host_.dialogs().open(
        std::make_unique<analysis::MetricsForm>(services, metricsScenarios_.numberOf(activeScenario()->slot())));
}

void MDIForm1::showTypes(editors::TypeKind kind) {
    editors::TypeEditor editor(kind, services_, catalogue_, host_.dialogs(), anyScenario());
    host_.dialogs().show(editor);
    lists_.types().renew();  // of a description no table tells
}

void MDIForm1::zoom(bool in) {
    canvas::CanvasForm& form = *activeEnabled();
    double by = canvas::GetRatio(ports_.input, ports_.messages, in ? "IN" : "OUT");
    while (!canvas::mayZoom(form, in, by)) {
        ports_.messages.tell("PLEASE GIVE A SMALLER ZOOM RATIO!!", "", Icon::warning);
        by = canvas::GetRatio(ports_.input, ports_.messages, in ? "IN" : "OUT");
    }
    canvas::Zoom(form, in, by, ports_.progress);
}

void MDIForm1::openFile(const std::string& path) {
    histories_.settle();
    files_.open(path);
    histories_.beginFilled();
    host_.commandsChanged();
}

void MDIForm1::saveAs(canvas::DrawForm& form) {
    const ScenarioHistories::Saving saving(histories_, form);
    showScenarios(repository::ViewScenarios::Mode::Save, &form);
}

void MDIForm1::saveScenario(canvas::DrawForm& form) {
    const ScenarioHistories::Saving saving(histories_, form);
    if (form.ScenarioID == 0 || loadSave_.SaveScenario(form, false) == repository::SaveResult::scenarioGone) {
        saveAs(form);
    }
}

}  // namespace orvent::shell
