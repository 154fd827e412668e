// The frame's part in histories and in what a program that did not end properly has left.

#include "repository/stored_content.h"
#include "shell/earlier_form.h"
#include "shell/mdi_form.h"
#include "shell/recovery_form.h"

namespace orvent::shell {

void MDIForm1::zoomApplied(zoom::ZoomView& view) {
    canvas::DrawForm& design = view.ParForm();
    for (const zoom::NewANDoldIndex& pair : view.New2OldIndex) {
        design.touched->node(pair.OldIndex);
    }
    histories_.settleNow(design, "Applied " + view.central()->Caption());
}

HistoryLines MDIForm1::stepsInFront() const {
    canvas::CanvasForm* form = desk_.active();
    return form ? histories_.linesOf(form->scenario()) : HistoryLines{};
}

void MDIForm1::goToStep(std::size_t line) {
    if (canvas::DrawForm* form = activeScenario()) {
        histories_.settle();
        histories_.goTo(*form, line);
    }
}

std::string MDIForm1::whyNotNow(const canvas::DrawForm& form) const {
    return viewOver(form)   ? "A zoom of this scenario is open."
           : form.Enabled() ? ""
                            : "A dialog of this scenario is open.";
}

/// A dialog over the design takes its entity out of the graph; a view and its dialogs leave it alone.
bool MDIForm1::isWhole(const canvas::DrawForm& form) const {
    return (form.Enabled() || viewOver(form)) && form.typing == 0 && !form.RubberBand;
}

void MDIForm1::changed(canvas::DrawForm& form, const canvas::Touched& touched) {
    lists_.touch(form, touched);
}

void MDIForm1::historyChanged(canvas::DrawForm&) {
    host_.commandsChanged();
}

/// What a program that did not end properly has left.
void MDIForm1::offerLeftScenarios() {
    const std::vector<std::string> left = ports_.states.claimLeft();
    if (!left.empty()) {
        RecoveryForm dialog(ports_.states, left, [this](const std::string& file) { return bringBack(file); });
        host_.dialogs().show(dialog);
        host_.commandsChanged();
    }
}

/// The scenario is unsaved, and goes on being the stored one that it was, if that is of this repository.
bool MDIForm1::bringBack(const std::string& file) {
    try {
        history::KeptState state = history::readState(ports_.states.read(file));
        std::string name = state.name;
        const int slot = NewScenario(name);
        if (slot < 0) {
            return false;
        }
        canvas::DrawForm& form = *scenario(slot);
        const bool stored = state.source == options_.repository.login.ReposConnString;
        std::vector<history::Told> told = state.told;
        history::fillForm(form, std::move(state), catalogue_.tables,
                          stored ? history::TakenOver::withRows : history::TakenOver::asNew);
        if (form.stored.broken) {
            loadSave_.goOnAfterBrokenSave(form);
        }
        recovery_.goOn(form, std::move(told));
        histories_.beginAnew(form);
        form.tellStored();
        ports_.states.drop(file);
        return true;
    } catch (const platform::Fault& fault) {
        repository::showFault(services_, fault);
        return false;
    }
}

void MDIForm1::showEarlierStates() {
    EarlierForm dialog(
        earlier_, activeScenario(),
        [this](const std::string& file, const std::string& name) { return openEarlier(file, name); },
        [this] {
            return std::make_unique<canvas::DrawForm>(canvas::CanvasServices{ports_.messages, options_.canvas});
        });
    host_.dialogs().show(dialog);
}

/// The copy is unsaved, and belongs to no stored scenario.
bool MDIForm1::openEarlier(const std::string& file, std::string name) {
    try {
        history::KeptState state = earlier_.read(file);
        const int slot = NewScenario(name);
        if (slot < 0) {
            return false;
        }
        canvas::DrawForm& form = *scenario(slot);
        history::fillForm(form, std::move(state), catalogue_.tables, history::TakenOver::asNew);
        histories_.beginAnew(form);
        form.tellStored();
        return true;
    } catch (const platform::Fault& fault) {
        repository::showFault(services_, fault);
        return false;
    }
}

}  // namespace orvent::shell
