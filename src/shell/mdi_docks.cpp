// The frame's part in the lists beside its windows.

#include "shell/mdi_form.h"

namespace orvent::shell {

namespace {

constexpr Dock kDocks[] = {Dock::history, Dock::problems};

/// What a dock is called in the settings.
const char* keyOf(Dock dock) {
    return dock == Dock::history ? "History" : "Problems";
}

}  // namespace

void MDIForm1::showDocks() {
    for (const Dock dock : kDocks) {
        host_.showDock(dock, ports_.store.value("View", keyOf(dock), "0") == "1");
    }
}

void MDIForm1::toggleDock(Dock dock) {
    host_.showDock(dock, !host_.dockShown(dock));
    dockClosed(dock);
}

void MDIForm1::dockClosed(Dock dock) {
    ports_.store.setValue("View", keyOf(dock), host_.dockShown(dock) ? "1" : "0");
    host_.commandsChanged();
}

void MDIForm1::settleProblems(const canvas::DrawForm& form) {
    if (isWhole(form) && problems_.settle(form)) {
        host_.problemsChanged();
    }
}

HistoryLines MDIForm1::stepsInFront() const {
    canvas::CanvasForm* form = desk_.active();
    return form ? histories_.linesOf(form->scenario()) : HistoryLines{};
}

std::vector<ProblemLine> MDIForm1::problems() const {
    canvas::CanvasForm* form = desk_.active();
    return form ? problems_.linesOf(form->scenario(), options_.problems) : std::vector<ProblemLine>();
}

void MDIForm1::goToNode(canvas::NodeNumber node) {
    canvas::CanvasForm* front = desk_.active();
    canvas::DrawForm* form = front ? &front->scenario() : nullptr;
    const canvas::LabelsD* place = form ? form->Labels.byIndex(node) : nullptr;
    if (!place) {
        return;
    }
    if (form->Enabled()) {
        form->ClearCrop();
        form->SelectedLines.Clear();
        form->SelectedLabels.Add(node);
        form->ActiveLabel = node;
    }
    desk_.reveal(*form, *place);
}

}  // namespace orvent::shell
