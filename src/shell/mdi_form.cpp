#include "shell/mdi_form.h"

#include <algorithm>

#include "repository/repos_form.h"
#include "repository/starter_catalogue.h"
#include "repository/stored_content.h"
#include "repository/user_login.h"
#include "repository/view_scenarios.h"
#include "shell/sample_scenario.h"
#include "zoom/build_view.h"

namespace orvent::shell {

namespace {

using platform::Icon;

constexpr int kSampleSlot = 10;
constexpr const char* kSampleName = "Sample";
// Place of the frame in twips, with the step of 100 that the login adds in the normal state.
constexpr int kLeft = 600, kTop = 600, kWidth = 10000, kHeight = 8000;

}  // namespace

MDIForm1::MDIForm1(const Ports& ports, FrameHost& host, Desk& desk)
    : ports_(ports),
      host_(host),
      desk_(desk),
      services_{ports.database, ports.dataSources, ports.messages, ports.input,
                ports.files,    ports.store,       ports.progress, options_.repository},
      catalogue_(
          services_, [this] { host_.endProgram(); }, [this] { return anyScenario(); }),
      loadSave_(services_, catalogue_, *this),
      wizardAnswers_(options_, ports.store, catalogue_),
      wizard_(ports.messages, catalogue_.tables, wizardAnswers_, host.dialogs()),
      unfinished_(host, desk, wizard_),
      ldl_(ports.messages, ports.folder, ports.progress, &wizard_, &unfinished_),
      consistency_(host, desk, ports.progress),
      dialogs_(desk, *this,
               {services_, catalogue_, wizard_, ports.folder, ports.saveDialog, nodes_, host.dialogs(),
                &options_.ShortNames}),
      documentTypes_(services_, catalogue_),
      files_(ports, services_, *this, {documentTypes_, host.dialogs()}),
      clipboard_({ports.clipboard, ports.messages, ports.progress, links_}, {documentTypes_, host.dialogs()}),
      lists_({ports_, options_.repository.login.ReposConnString, host, desk, ports.store, ports.progress, options_,
              catalogue_, dialogs_},
             scenarioListeners_),
      recovery_({ports.states, ports.progress, catalogue_.tables, options_.repository.login.ReposConnString}),
      earlier_({ports.states, ports.progress, catalogue_.tables, options_.repository.login.ReposConnString}),
      histories_(scenarioListeners_, *this, recovery_, earlier_, lists_.facts()),
      metricsScenarios_(*this, scenarioListeners_, desk) {
    tools_.changed = [this] { host_.commandsChanged(); };
    tools_.palettes.changed = tools_.changed;
    tools_.palettes.atPointer = [this](Palette palette) { host_.placePalette(palette); };
}

MDIForm1::~MDIForm1() = default;

bool MDIForm1::start() {
    const std::string fault = LoadOptions(options_, ports_.store, ports_.folder);
    if (!fault.empty()) {
        ports_.messages.tell(fault, "", Icon::critical);
    }
    {
        repository::ReposForm reposForm(services_);
        reposForm.open();
        if (!reposForm.test(true)) {
            repository::LoginValues& values = options_.repository.login;
            values.ReposConnString.clear();
            values.ReposLogin.clear();
            values.ReposPasw.clear();
        }
    }
    if (!showUserLogin()) {
        return false;
    }
    loadCatalogue();
    repository::offerStarterCatalogue(services_, catalogue_);
    host_.placeFrame(kLeft, kTop, kWidth, kHeight);
    ports_.progress.status("Ready");
    lists_.begin();
    host_.commandsChanged();
    offerLeftScenarios();
    return true;
}

bool MDIForm1::showUserLogin() {
    repository::UserLogin userLogin(services_);
    userLogin.runReposForm = [this] {
        repository::ReposForm reposForm(services_);
        reposForm.open();
        host_.dialogs().show(reposForm);
    };
    userLogin.open();
    host_.dialogs().show(userLogin);
    return userLogin.loggedIn;
}

void MDIForm1::loadCatalogue() {
    catalogue_.LoadDataTypes();
    catalogue_.LoadFunctionTypes();
    catalogue_.LoadActivityTypes();
}

canvas::CanvasForm* MDIForm1::activeEnabled() const {
    canvas::CanvasForm* active = desk_.active();
    return active && active->Enabled() ? active : nullptr;
}

canvas::DrawForm* MDIForm1::activeScenario() const {
    canvas::CanvasForm* active = activeEnabled();
    return active && active->kind() == canvas::WindowKind::design ? &active->scenario() : nullptr;
}

canvas::WindowKind MDIForm1::front() const {
    const canvas::CanvasForm* active = desk_.active();
    return active ? active->kind() : canvas::WindowKind::none;
}

bool MDIForm1::anyScenario() const {
    return std::any_of(ScenarioForms.begin(), ScenarioForms.end(), [](const auto& form) { return form != nullptr; });
}

canvas::DrawForm* MDIForm1::scenario(int slot) {
    return slot >= 0 && slot < kSlots ? ScenarioForms[static_cast<std::size_t>(slot)].get() : nullptr;
}

int MDIForm1::NewScenario(std::string& name) {
    int slot = 0;
    while (slot < kSlots && scenario(slot)) {
        ++slot;
    }
    if (slot == kSlots) {
        ports_.messages.tell(
            "Maximum Number Of Possible Concurrently Loaded Scenarios is Exceeded\n"
            "You Will Have To Close One Of the Allready Open Scenarios Before Opening A New One");
        return -1;
    }
    if (name.empty()) {
        name = ports_.input.ask("Give The Name Of The New Scenario:", "Scenario Name",
                                "Scenario" + std::to_string(slot + 1));
        if (name.empty()) {
            ports_.progress.status("No scenario was made.");
            return -1;
        }
    }
    try {
        OpenSlot(slot, name);
    } catch (const platform::Fault& fault) {
        repository::showFault(services_, fault);
        return -1;
    }
    return slot;
}

canvas::DrawForm& MDIForm1::OpenSlot(int slot, const std::string& name) {
    catalogue_.LoadDataTypes();
    canvas::ScenarioStore* store = this;
    auto form = std::make_unique<canvas::DrawForm>(canvas::CanvasServices{ports_.messages, options_.canvas}, store);
    form->setCaption(name);
    form->Tag = std::to_string(slot);
    form->edgeOffers = &columnOffers_;
    canvas::DrawForm& opened = *form;
    ScenarioForms[static_cast<std::size_t>(slot)] = std::move(form);
    desk_.show(opened);
    tools_.enablePrintAndSave(true);
    ports_.progress.status("Ready");  // no longer what an earlier try said
    scenarioListeners_.tell([&opened](ScenarioListener& listener) { listener.scenarioOpened(opened); });
    return opened;
}

void MDIForm1::show(std::unique_ptr<canvas::CanvasForm> form) {
    canvas::CanvasForm& shown = *form;
    others_.push_back(std::move(form));
    desk_.show(shown);
}

/// A window that shows a part of the scenario, and keeps the scenario's own from taking input.
canvas::CanvasForm* MDIForm1::viewOver(const canvas::DrawForm& scenario) const {
    for (const auto& held : others_) {
        if (&held->scenario() == &scenario) {
            return held.get();
        }
    }
    return nullptr;
}

canvas::CanvasForm* MDIForm1::openZoom() const {
    for (const auto& held : others_) {
        if (held->kind() == canvas::WindowKind::zoom) {
            return held.get();
        }
    }
    return nullptr;
}

zoom::ZoomForm* MDIForm1::zoomInFront() const {
    return dynamic_cast<zoom::ZoomForm*>(activeEnabled());
}

void MDIForm1::ZoomActivity(int Slot, canvas::NodeNumber NodeIndex) {
    canvas::DrawForm* design = scenario(Slot);
    const canvas::LabelsD* node = design ? design->Labels.byIndex(NodeIndex) : nullptr;
    if (!node || !node->activity()) {
        return;
    }
    if (canvas::CanvasForm* other = openZoom()) {
        const bool goesOn =
            ports_.messages.show("You are allready Zooming on another Activity\nAre you sure you want to continue?",
                                 "Activity Zoom", Icon::question, platform::Buttons::okCancel) == platform::Answer::ok;
        if (!goesOn || !close(*other)) {
            return;
        }
    }
    auto form = std::make_unique<zoom::ZoomForm>(
        zoom::ZoomServices{{ports_.messages, options_.canvas}, catalogue_.tables, ports_.progress, desk_}, *design);
    form->setSight(options_.sight);
    zoom::buildZoomView(*form, *node);
    const zoom::ZoomForm& shown = *form;
    show(std::move(form));
    desk_.present(*openZoom(), *shown.central());
    host_.commandsChanged();
}

/// The command: acts on the one selected node, when that is an activity.
void MDIForm1::zoomSelected() {
    canvas::DrawForm& form = *activeScenario();
    const auto selected = form.SelectedLabels.members();
    if (selected.size() == 1) {
        form.CurrentNode = selected.front();
        ZoomActivity(form.slot(), selected.front());
    }
}

bool MDIForm1::close(canvas::CanvasForm& form) {
    const auto isScenario = [&] { return &form.scenario() == &form; };
    while (isScenario() && viewOver(form.scenario())) {
        if (!close(*viewOver(form.scenario()))) {
            return false;
        }
    }
    if (!form.Enabled()) {
        ports_.messages.tell(form.Caption() + " stays open until its dialog is closed.", {}, Icon::information);
        return false;
    }
    noticeChanges(form);  // its question tells whether something is lost
    if (!form.QueryUnload()) {
        return false;
    }
    if (auto* view = dynamic_cast<zoom::ZoomView*>(&form)) {
        zoomApplied(*view);
    }
    discard(form);
    return true;
}

void MDIForm1::discard(canvas::CanvasForm& form) {
    const auto place =
        std::find_if(others_.begin(), others_.end(), [&](const auto& held) { return held.get() == &form; });
    if (place == others_.end()) {
        freeSlot(form.scenario().slot());
        return;
    }
    const std::unique_ptr<canvas::CanvasForm> held = std::move(*place);
    others_.erase(place);
    dropped(*held);
}

void MDIForm1::discardScenario(int slot) {
    freeSlot(slot);
}

void MDIForm1::freeSlot(int slot) {
    const std::unique_ptr<canvas::DrawForm> form = std::move(ScenarioForms[static_cast<std::size_t>(slot)]);
    if (form) {
        while (canvas::CanvasForm* view = viewOver(*form)) {
            discard(*view);
        }
        scenarioListeners_.tell([&form](ScenarioListener& listener) { listener.scenarioClosed(*form); });
        dropped(*form);
    }
}

/// A form that nobody holds any more goes from the desk.
void MDIForm1::dropped(canvas::CanvasForm& form) {
    lists_.forget(form);
    desk_.drop(form);
    tints_.erase(&form);
    form.clear();
    if (!desk_.active()) {
        tools_.enablePrintAndSave(false);
    }
    if (!anyScenario()) {
        tools_.setEmptyState();
    }
    host_.commandsChanged();
}

bool MDIForm1::unload() {
    while (!others_.empty()) {
        if (!close(*others_.back())) {
            return false;
        }
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        canvas::DrawForm* form = scenario(slot);
        if (form && !close(*form)) {
            return false;
        }
    }
    return true;
}

void MDIForm1::scenarioGone(std::int16_t ScenarioID, const canvas::DrawForm* except) {
    for (const auto& form : ScenarioForms) {
        if (form && form.get() != except && form->ScenarioID == ScenarioID) {
            form->ScenarioID = 0;  // its next save goes through the dialog and writes everything
            form->stored.changed = form->stored.forced = true;
            form->deleted = true;
            form->tellStored();
        }
    }
}

void MDIForm1::noticeChanges(canvas::CanvasForm& form) {
    canvas::DrawForm& scenario = form.scenario();
    // A dialog over the design takes its entity out of the graph while it is open; that is no change.
    if (scenario.Enabled() || viewOver(scenario)) {
        repository::isUnsaved(scenario);
    }
    histories_.idle();
    lists_.settle(form, isWhole(scenario));
    if (const auto place = tints_.find(&form); place != tints_.end()) {
        place->second->countAnew();
        desk_.showTints(form, place->second.get());
    }
}

/// For the moment the graph is whole, though the dialog stays open.
void MDIForm1::applied(canvas::CanvasForm& form) {
    repository::isUnsaved(form.scenario());
    histories_.settleNow(form.scenario(), {}, true);
}

bool MDIForm1::idle() {
    const bool more = histories_.idle();
    return lists_.idle() || more;
}

void MDIForm1::frontChanged() {
    canvas::CanvasForm* form = desk_.active();
    const canvas::DrawForm* scenario = form ? &form->scenario() : nullptr;
    lists_.frontChanged();
    ldl_.cameForward(scenario);
    consistency_.cameForward(scenario);
}

void MDIForm1::enableFrame(bool enabled) {
    host_.enableFrame(enabled);
}

void MDIForm1::LoadTestGraph() {
    if (canvas::DrawForm* former = scenario(kSampleSlot)) {
        if (!close(*former)) {
            return;
        }
    }
    loadCatalogue();
    canvas::DrawForm& form = OpenSlot(kSampleSlot, kSampleName);
    buildSampleScenario(form, catalogue_);
    histories_.beginFilled();
}

void MDIForm1::showScenarios(repository::ViewScenarios::Mode mode, canvas::DrawForm* target) {
    repository::ViewScenarios dialog(services_, loadSave_, *this);
    if (dialog.open(mode, target)) {
        host_.dialogs().show(dialog);
    }
}

}  // namespace orvent::shell
