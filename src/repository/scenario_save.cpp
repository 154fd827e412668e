// What a save asks, and how it ends.

#include <optional>

#include "repository/missing_types.h"
#include "repository/save_attempt.h"
#include "repository/stored_content.h"
#include "repository/stored_identity.h"

namespace orvent::repository {

using canvas::DrawForm;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

InterruptedSaves& ScenarioLoadSave::interrupted() {
    const std::string& source = services_.settings.login.ReposConnString;
    if (interrupted_.source != source) {
        interrupted_ = {{}, {}, source};
    }
    return interrupted_;
}

void ScenarioLoadSave::forgetInterruptedSaves() {
    interrupted_ = {};
}

void ScenarioLoadSave::goOnAfterBrokenSave(const DrawForm& form) {
    if (form.ScenarioID != 0) {
        interrupted().scenarios.insert(form.ScenarioID);
    } else {
        interrupted().names.insert(form.ScenarioName());
    }
}

SaveResult ScenarioLoadSave::SaveScenario(DrawForm& form, bool SaveAs) {
    if (form.KeptCaption.empty()) {
        form.KeptCaption = form.Caption();  // no dialog has kept it
    }
    const SaveResult result = save(form, SaveAs);
    if (result == SaveResult::saved) {
        markStored(form);
        if (!form.unstorable().empty()) {
            markUnsaved(form);
        }
        services_.messages.tell("Saved");
    } else if (form.Caption() != form.KeptCaption) {
        form.setCaption(form.KeptCaption);
    }
    form.KeptCaption.clear();
    return result;
}

SaveResult ScenarioLoadSave::save(DrawForm& form, bool SaveAs) {
    std::optional<StatementCache> repository;
    try {
        refuseNullCharacters(form);
        repository.emplace(openRepository(services_));
        if (repository->readOnly()) {
            throw OnlyRead();
        }
        refuseLongTexts(form, *repository);
        catalogue_.refreshTables(*repository);
        if (!hasItsTypes(form, services_, catalogue_, *repository)) {
            return SaveResult::givenUp;
        }
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);
        return SaveResult::givenUp;
    }
    SaveAttempt save(services_, catalogue_, windows_, interrupted(), *repository, form, SaveAs);
    while (!save.run()) {
        if (save.scenarioGone) {
            return SaveResult::scenarioGone;
        }
        if (!askAgain(save)) {
            if (save.fullWrite) {  // what the window shows now belongs to no stored scenario
                forgetStoredRows(form);
                form.ScenarioID = 0;
                markUnsaved(form);
            }
            return SaveResult::givenUp;
        }
    }
    return SaveResult::saved;
}

/// After a failed attempt: tells why and asks what now. False when the user gives up.
bool ScenarioLoadSave::askAgain(SaveAttempt& save) {
    if (!save.owner.empty()) {
        services_.messages.tell("This scenario belongs to " + save.owner + ".", {}, Icon::information);
        save.replace = false;
        return askNewName(save.form);
    }
    if (!save.nameTaken) {
        services_.messages.tell(save.fault, {}, Icon::critical);
    }
    if (save.hopeless) {
        return false;
    }
    const Answer answer = services_.messages.show("This Scenario Allready Exists.Would You Like To Replace It?",
                                                  "Overwrite Scenario", Icon::question, Buttons::destroyYesNoCancel);
    save.replace = answer == Answer::yes;
    if (save.replace || answer != Answer::no) {
        return save.replace;
    }
    // What another program has made of the scenario stays as it is.
    save.SaveAs = save.SaveAs || save.changedElsewhere;
    return askNewName(save.form);
}

/// The "No" of the question: true when the window has got another name to try.
bool ScenarioLoadSave::askNewName(DrawForm& form) {
    const std::string taken = form.ScenarioName();
    const std::string prompt = "PLEASE GIVE A NEW NAME FOR THIS SCENARIO:\n(give an empty name if you wish to exit)";
    std::string name = services_.input.ask(prompt, "Scenario Name", "");
    while (!name.empty() && name == taken) {
        name = services_.input.ask("YOU HAVE GIVEN THE SAME NAME!\n" + prompt, "Scenario Name", "");
    }
    if (name.empty()) {
        return false;
    }
    form.setScenarioName(name);
    return true;
}

}  // namespace orvent::repository
