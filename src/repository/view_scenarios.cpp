#include "repository/view_scenarios.h"

#include <algorithm>
#include <array>

#include "platform/letter_case.h"
#include "repository/new_row.h"
#include "repository/scenario_statements.h"

namespace orvent::repository {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

namespace {

struct ModeWords {
    const char* title;
    const char* OKCaption;
};

/// By `ViewScenarios::Mode`.
constexpr std::array<ModeWords, 3> kModes = {{
    {"Save Scenario As", "SAVE"},
    {"Load Scenario", "LOAD"},
    {"Delete Scenario", "DELETE"},
}};

}  // namespace

bool ViewScenarios::open(Mode mode, canvas::DrawForm* target) {
    mode_ = mode;
    target_ = target;
    title = kModes[static_cast<std::size_t>(mode)].title;
    OKCaption = kModes[static_cast<std::size_t>(mode)].OKCaption;
    txtScenarioName = mode == Mode::Save && target ? target->Caption() : std::string();
    selected = -1;
    ScenarioView.clear();
    try {
        StatementCache repository = openRepository(services_);
        if (mode == Mode::Save && repository.readOnly()) {
            throw OnlyRead();  // before anybody thinks of a name
        }
        platform::Statement& row = repository.run(sql::kScenariosOfUser, services_.settings.login.User);
        while (row.fetch()) {
            if (const long long identifier = row.number(2); fits(identifier)) {  // no other can be loaded
                ScenarioView.push_back({row.text(1), static_cast<std::int16_t>(identifier)});
            }
        }
        return true;
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);
        return false;
    }
}

void ViewScenarios::clickItem(int item) {
    if (holds(item)) {
        selected = item;
        txtScenarioName = ScenarioView[static_cast<std::size_t>(item)].name;
    }
}

void ViewScenarios::changeName(const std::string& text) {
    txtScenarioName = text;
    if (mode_ != Mode::Save) {
        const auto named = std::ranges::find(ScenarioView, text, &Item::name);
        selected = named == ScenarioView.end() ? -1 : static_cast<int>(named - ScenarioView.begin());
    }
}

std::string ViewScenarios::hint() const {
    const bool unknown = mode_ != Mode::Save && !txtScenarioName.empty() && !holds(selected);
    return unknown ? "No such scenario" : "";
}

bool ViewScenarios::OKButton() {
    if (!canOK()) {
        return false;
    }
    switch (mode_) {
        case Mode::Save:
            saveTarget();
            break;
        case Mode::Load:
            loadSelected();
            break;
        case Mode::Delete:
            ScenarioViewDelete();
            break;
    }
    return true;
}

void ViewScenarios::saveTarget() {
    target_->KeptCaption = target_->Caption();
    target_->setCaption(txtScenarioName);
    if (std::ranges::find(ScenarioView, txtScenarioName, &Item::name) == ScenarioView.end()) {
        ScenarioView.push_back({txtScenarioName, 0});  // the list is seen behind what the save says
        show();
    }
    loadSave_.SaveScenario(*target_, true);
}

void ViewScenarios::loadSelected() {
    const Item item = ScenarioView[static_cast<std::size_t>(selected)];
    std::string name = item.name;
    const int slot = windows_.NewScenario(name);
    canvas::DrawForm* form = slot == -1 ? nullptr : windows_.scenario(slot);
    if (form && !loadSave_.LoadScenario(*form, item.Tag)) {
        windows_.discardScenario(slot);
    }
}

void ViewScenarios::ScenarioViewRename(int item, const std::string& text) {
    if (!holds(item) || text.empty()) {
        return;
    }
    Item& renamed = ScenarioView[static_cast<std::size_t>(item)];
    renamed.name = text;
    try {
        openRepository(services_).run(sql::kRenameScenario, text, renamed.Tag);
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);
    }
}

bool ViewScenarios::ScenarioViewDelete() {
    if (!holds(selected)) {
        return false;
    }
    const Item item = ScenarioView[static_cast<std::size_t>(selected)];
    const Answer answer =
        services_.messages.show("ARE YOU SURE YOU WANT TO DELETE SCENARIO " + platform::upperLetters(item.name) + " ?",
                                "Deleting Scenario", Icon::question, Buttons::destroyYesNo);
    if (answer != Answer::yes) {
        return false;
    }
    try {
        loadSave_.RemoveScenario(item.Tag, true);
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);
        return false;
    }
    ScenarioView.erase(ScenarioView.begin() + selected);
    selected = -1;
    return true;
}

}  // namespace orvent::repository
