// Logging in, and in again as another user.

#include <algorithm>

#include "repository/starter_catalogue.h"
#include "shell/mdi_form.h"

namespace orvent::shell {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

void MDIForm1::login() {
    if (showUserLogin()) {
        currentGroup_ = 1;
        host_.maximizeFrame();
        loadSave_.forgetInterruptedSaves();
        loadCatalogue();
        repository::offerStarterCatalogue(services_, catalogue_);
        host_.commandsChanged();
    } else {
        host_.unloadFrame();
    }
}

void MDIForm1::changeUser() {
    // A view over a scenario disables it, too; dialogs are open over the view then.
    const bool dialogOpen =
        std::any_of(ScenarioForms.begin(), ScenarioForms.end(),
                    [&](const auto& form) { return form && !form->Enabled() && !viewOver(*form); }) ||
        std::any_of(others_.begin(), others_.end(), [](const auto& view) { return !view->Enabled(); });
    if (dialogOpen) {
        ports_.messages.tell("Please Close All Property Forms Before Login Out!", "Property Form(s) Open!");
        return;
    }
    const Answer answer = ports_.messages.show(
        "All active Scenarios must close in order to login as a different user!\nAre you sure you want to continue?",
        "Login", Icon::none, Buttons::okCancel);
    if (answer != Answer::ok || !unload()) {
        return;
    }
    tools_.enablePrintAndSave(false);
    login();
}

}  // namespace orvent::shell
