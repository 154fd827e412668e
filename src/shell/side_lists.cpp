#include "shell/side_lists.h"

#include "canvas/node_kinds.h"

namespace orvent::shell {

namespace {

struct DockRow {
    Dock dock;
    const char* key;  ///< what it is called in the settings
};

constexpr DockRow kDocks[] = {{Dock::history, "History"}, {Dock::problems, "Problems"}, {Dock::find, "Find"},
                              {Dock::outline, "Outline"}, {Dock::types, "Types"},       {Dock::minimap, "Minimap"},
                              {Dock::rows, "Rows"}};

}  // namespace

void SideLists::begin() {
    for (const DockRow& row : kDocks) {
        show(row.dock, ports_.store.value("View", row.key, "0") == "1");
    }
}

void SideLists::show(Dock dock, bool shown) {
    ports_.host.showDock(dock, shown);
    followDocks();
}

void SideLists::followDocks() {
    find_.show(ports_.host.dockShown(Dock::find));
    outline_.show(ports_.host.dockShown(Dock::outline));
    types_.show(ports_.host.dockShown(Dock::types));
    rows_.show(ports_.host.dockShown(Dock::rows));
}

void SideLists::toggle(Dock dock) {
    show(dock, !ports_.host.dockShown(dock));
    closed(dock);
}

void SideLists::enter(Dock dock) {
    if (!ports_.host.dockShown(dock)) {
        toggle(dock);
    }
    ports_.host.enterDock(dock);
}

void SideLists::closed(Dock dock) {
    for (const DockRow& row : kDocks) {
        if (row.dock == dock) {
            ports_.store.setValue("View", row.key, ports_.host.dockShown(dock) ? "1" : "0");
        }
    }
    followDocks();
    ports_.host.commandsChanged();
}

std::vector<ProblemLine> SideLists::problems() const {
    canvas::CanvasForm* form = ports_.desk.active();
    return form ? problems_.linesOf(form->scenario(), ports_.options.problems) : std::vector<ProblemLine>();
}

void SideLists::goToNode(canvas::NodeNumber node) {
    canvas::CanvasForm* front = ports_.desk.active();
    canvas::DrawForm* form = front ? &front->scenario() : nullptr;
    if (const canvas::LabelsD* place = form ? form->Labels.byIndex(node) : nullptr) {
        goTo(*form, *place);
    }
}

void SideLists::goTo(canvas::CanvasForm& form, const canvas::LabelsD& node) {
    if (form.Enabled()) {
        form.ClearCrop();
        form.SelectedLines.Clear();
        form.SelectedLabels.Add(node.Index());
        form.ActiveLabel = node.Index();
    }
    ports_.desk.reveal(form, node);
}

void SideLists::findNext(bool back) {
    if (!ports_.host.dockShown(Dock::find)) {
        toggle(Dock::find);
    }
    if (find_.Count() == 0) {
        ports_.host.enterDock(Dock::find);
    }
    find_.next(back);
}

/// In a zoom that is in front, the node of the scenario that it shows.
void SideLists::showNode(canvas::NodeNumber node) {
    canvas::CanvasForm* front = ports_.desk.active();
    if (!front || !front->isZoom()) {
        goToNode(node);
    } else if (const canvas::LabelsD* its = front->scenario().Labels.byIndex(node)) {
        if (const canvas::LabelsD* shown = front->nodeNamed(its->KeyName())) {
            goTo(*front, *shown);
        }
    }
}

/// The node of a place, when the window in front is that of the scenario, and takes input.
canvas::LabelsD* SideLists::editable(const analysis::Place& place) const {
    canvas::CanvasForm* front = ports_.desk.active();
    return front && !front->isZoom() && front->Enabled() ? front->Labels.byIndex(place.node) : nullptr;
}

void SideLists::openPlace(const analysis::Place& place) {
    if (canvas::LabelsD* node = editable(place)) {
        ports_.dialogs.openAt(*ports_.desk.active(), *node, place);
    }
}

bool SideLists::mayRename(const analysis::Place& place) const {
    const canvas::LabelsD* node = editable(place);
    const bool isRow = place.function == 0 &&
                       (place.list == entities::KindInput || place.list == entities::KindOutput ||
                        place.list == entities::KindParameter || place.list == entities::KindRecordSetAttribute);
    return node && (isRow || (place.isNode() && ports_.dialogs.nameInPlace(*ports_.desk.active(), *node)));
}

bool SideLists::rename(const analysis::Place& place, const std::string& name) {
    canvas::CanvasForm& form = *ports_.desk.active();
    return place.isNode() ? ports_.dialogs.rename(form, *editable(place), name)
                          : ports_.dialogs.renameAt(form, *editable(place), place, name);
}

void SideLists::placeInFront(const std::string& key) {
    canvas::CanvasForm* front = ports_.desk.active();
    if (front && !front->isZoom() && front->Enabled()) {
        ports_.dialogs.placeAlone(front->scenario(), key);
    } else {
        ports_.progress.status("Nodes are placed in the window of a scenario.");
    }
}

/// A zoom has no list of problems; there it is what is not ready.
analysis::Unfinished SideLists::unfinishedOf(canvas::CanvasForm& form) const {
    if (!form.isZoom()) {
        return problems_.unfinishedOf(form.scenario(), ports_.options.problems);
    }
    analysis::Unfinished unfinished;
    for (const canvas::LabelsD& node : form.Labels) {
        if (canvas::nodeKind(node.NodeType()).showsReadiness && !node.Ready()) {
            unfinished.emplace_back(node.Index(), std::string());
        }
    }
    return unfinished;
}

void SideLists::touch(const canvas::DrawForm& form, const canvas::Touched& touched) {
    problems_.touch(form, touched);
    rows_.touch(form);
    if (find_.watched() == &form) {
        find_.touch(touched);
    }
    if (outline_.watched() == &form) {
        outline_.touch(touched);
    }
}

void SideLists::settle(canvas::CanvasForm& form, bool isWhole) {
    if (isWhole && problems_.settle(form.scenario())) {
        ports_.host.problemsChanged();
        if (find_.watched() == &form) {
            find_.followUnfinished();
        }
    }
    // Of a zoom no history tells what has changed.
    if (form.isZoom() && find_.watched() == &form) {
        find_.touchAll();
    }
    if (outline_.watched() == &form) {
        outline_.follow();
    }
    types_.follow();
}

void SideLists::frontChanged() {
    canvas::CanvasForm* front = ports_.desk.active();
    find_.watch(front);
    rows_.watch(front);
    outline_.watch(front ? &front->scenario() : nullptr);
    types_.follow();
}

void SideLists::forget(canvas::CanvasForm& form) {
    rows_.forget(form);
    if (find_.watched() == &form) {
        find_.watch(nullptr);
    }
    if (outline_.watched() == &form) {
        outline_.watch(nullptr);
    }
}

}  // namespace orvent::shell
