// The flow of a save: where a scenario is written to, and what happens when that fails.

#include <optional>

#include "platform/steps.h"
#include "repository/scenario_load_save.h"
#include "repository/scenario_statements.h"
#include "repository/scenario_writer.h"
#include "repository/stored_identity.h"

namespace orvent::repository {

using canvas::DrawForm;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

/// One save with all its attempts, and how the last attempt failed.
struct ScenarioLoadSave::SaveAttempt {
    DrawForm& form;
    bool SaveAs;
    StatementCache& repository;
    bool replace = false;    ///< the user wants the stored scenario of that name replaced
    bool nameTaken = false;  ///< the scenario's own row was refused
    bool noSuchName = false;
    std::string fault;
};

void ScenarioLoadSave::SaveScenario(DrawForm& form, bool SaveAs) {
    if (form.KeptCaption.empty()) {
        form.KeptCaption = form.Caption();  // no dialog has kept it
    }
    if (save(form, SaveAs)) {
        services_.messages.tell("Saved");
    } else if (form.Caption() != form.KeptCaption) {
        form.setCaption(form.KeptCaption);
    }
    form.KeptCaption.clear();
}

/// True when the scenario was written, false when the save was given up.
bool ScenarioLoadSave::save(DrawForm& form, bool SaveAs) {
    std::optional<StatementCache> repository;
    try {
        repository.emplace(openRepository(services_));
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);
        return false;
    }
    SaveAttempt save{form, SaveAs, *repository, false, false, false, {}};
    while (!attempt(save)) {
        if (!save.nameTaken) {
            services_.messages.tell(save.fault, {}, Icon::critical);
        }
        if (save.noSuchName) {
            return false;
        }
        const Answer answer = services_.messages.show("This Scenario Allready Exists.Would You Like To Replace It?",
                                                      "Overwrite Scenario", Icon::question, Buttons::yesNoCancel);
        save.replace = answer == Answer::yes;
        if (answer == Answer::cancel || (answer == Answer::no && !askNewName(form))) {
            return false;
        }
    }
    return true;
}

bool ScenarioLoadSave::attempt(SaveAttempt& save) {
    save.nameTaken = false;
    save.noSuchName = false;
    try {
        const platform::Busy busy(services_.progress);
        if (save.replace) {
            takeOverScenario(save);
        } else {
            beginSave(save);
        }
        writeScenario(save);
        return true;
    } catch (const platform::Fault& fault) {
        save.fault = fault.description();
        return false;
    }
}

/// Finds the rows to write to: those of the scenario that the window shows, or a scenario of its own.
void ScenarioLoadSave::beginSave(SaveAttempt& save) {
    DrawForm& form = save.form;
    if (form.ScenarioID != 0 && !save.SaveAs) {
        if (unfinished_.contains(form.ScenarioID)) {
            windows_.scenarioGone(form.ScenarioID, &form);
            removeUnknownNodes(form, save.repository);
        }
        ApplyDeletions(form, form.ScenarioID, save.repository);
        return;
    }
    try {
        save.repository.run(sql::kAddScenario, form.ScenarioName(), services_.settings.login.User);
    } catch (const platform::DatabaseError& error) {
        save.nameTaken = error.integrityViolation();
        throw;
    }
    form.ScenarioID = givenIdentifier(save.repository, sql::kScenarioIdentifier);
    forgetStoredRows(form);
}

/// Makes the stored scenario of the window's name the window's own and empties it. Everything is written anew then:
/// the rows that the records know are gone.
void ScenarioLoadSave::takeOverScenario(SaveAttempt& save) {
    DrawForm& form = save.form;
    std::optional<std::int16_t> known;
    platform::Statement& row = save.repository.run(sql::kScenarioByName, form.ScenarioName());
    while (row.fetch()) {
        known = platform::checkedI16(row.number(1), "Identifier");
    }
    if (!known) {
        save.noSuchName = true;
        throw platform::Fault("There is no scenario of the name \"" + form.ScenarioName() + "\".");
    }
    form.ScenarioID = *known;
    unfinished_.insert(*known);
    forgetStoredRows(form);
    removeRows(*known, false, &form);
}

void ScenarioLoadSave::writeScenario(SaveAttempt& save) {
    DrawForm& form = save.form;
    const std::int16_t ScenarioID = form.ScenarioID;
    unfinished_.insert(ScenarioID);
    platform::Steps steps(services_.progress, static_cast<std::size_t>(form.Labels.Count()));
    ScenarioWriter writer(save.repository, catalogue_.tables, ScenarioID);
    for (canvas::LabelsD& node : form.Labels) {
        writer.saveNode(node, services_.messages);
        steps.next();
    }
    for (const canvas::LinesD& line : form.Lines) {
        const canvas::LabelsD* from = form.Labels.byIndex(line.FromLabel);
        const canvas::LabelsD* to = form.Labels.byIndex(line.ToLabel);
        if (from && to) {  // an edge that is just being drawn has no target yet
            writer.saveLine(line, from->Caption(), to->Caption());
        }
    }
    unfinished_.erase(ScenarioID);
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
