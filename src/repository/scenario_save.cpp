// The flow of a save: where a scenario is written to, and what happens when that fails.

#include <optional>

#include "platform/steps.h"
#include "repository/missing_types.h"
#include "repository/node_rows.h"
#include "repository/row_plan.h"
#include "repository/save_attempt.h"
#include "repository/scenario_statements.h"
#include "repository/scenario_writer.h"
#include "repository/stored_content.h"
#include "repository/stored_identity.h"

namespace orvent::repository {

using canvas::DrawForm;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

ScenarioLoadSave::Interrupted& ScenarioLoadSave::interrupted() {
    const std::string& source = services_.settings.login.ReposConnString;
    if (interrupted_.source != source) {
        interrupted_ = {{}, {}, source};
    }
    return interrupted_;
}

void ScenarioLoadSave::forgetInterruptedSaves() {
    interrupted_ = {};
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
    SaveAttempt save{.form = form,
                     .SaveAs = SaveAs,
                     .repository = *repository,
                     .before = StoredIdentity(form),
                     .wasUnsaved = form.stored.changed};
    while (!attempt(save)) {
        if (save.scenarioGone) {
            return SaveResult::scenarioGone;
        }
        if (!askAgain(save)) {
            if (save.fullWrite) {  // what the window shows now belongs to no stored scenario
                forgetStoredRows(form);
                form.ScenarioID = 0;
                form.stored.changed = true;
            }
            return SaveResult::givenUp;
        }
    }
    return SaveResult::saved;
}

bool ScenarioLoadSave::attempt(SaveAttempt& save) {
    save.nameTaken = false;
    save.owner.clear();
    save.fault.clear();
    try {
        const platform::Busy busy(services_.progress);
        refuseLongTexts(save.form, save.repository);  // the scenario may have another name by now
        if (save.replace) {
            takeOverScenario(save);
        } else {
            beginSave(save);
        }
        if (save.scenarioGone || !save.owner.empty()) {
            return false;
        }
        writeScenario(save);
        return true;
    } catch (const NoIdentifiersLeft& fault) {
        save.hopeless = true;
        save.fault = fault.description();
    } catch (const TextTooLong& fault) {
        save.hopeless = true;
        save.fault = fault.description();
    } catch (const OrderNotStored& fault) {
        save.hopeless = true;
        save.fault = fault.description();
    } catch (const platform::Fault& fault) {
        save.fault = fault.description();
    }
    return false;
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

/// Finds the rows to write to: those of the scenario that the window shows, or a scenario of its own.
void ScenarioLoadSave::beginSave(SaveAttempt& save) {
    DrawForm& form = save.form;
    if (form.ScenarioID == 0 || save.SaveAs) {
        addScenario(save);
        return;
    }
    markUnsaved(form);  // until the last statement is through
    if (findScenario(save)) {
        interrupted().scenarios.insert(form.ScenarioID);
        ApplyDeletions(form, form.ScenarioID, save.repository);
        arrangeRows(save);
    } else {
        save.scenarioGone = true;
    }
}

/// Brings the stored rows in the order of the window, as far as there are identifiers for it.
void ScenarioLoadSave::arrangeRows(SaveAttempt& save) {
    const RowPlan plan(save.form, catalogue_.tables, save.rows);
    const IdentifierNeed order = plan.anew();
    if (order.subNodes > 0 || order.functions > 0) {
        const IdentifierNeed others = newRows(save.form);
        try {
            requireIdentifiers(save.repository, sql::kDrawSubNode, order.subNodes + others.subNodes);
            requireIdentifiers(save.repository, sql::kDrawFunction, order.functions + others.functions);
        } catch (const NoIdentifiersLeft&) {
            save.orderLeft = true;
        }
    }
    plan.carryOut(save.repository, !save.orderLeft);
}

void ScenarioLoadSave::addScenario(SaveAttempt& save) {
    DrawForm& form = save.form;
    std::set<std::string>& uncertain = interrupted().names;
    const bool leftBefore = uncertain.contains(form.ScenarioName());
    // Until its identifier is known: the row may be made although the reply never comes.
    uncertain.insert(form.ScenarioName());
    std::int16_t ScenarioID = 0;
    try {
        save.repository.run(kScenarioRow.add, form.ScenarioName(), services_.settings.login.User);
        ScenarioID = identifierOf(save.repository, kScenarioRow);
    } catch (const NoIdentifiersLeft&) {
        uncertain.erase(form.ScenarioName());
        throw;
    } catch (const platform::DatabaseError& error) {
        if (error.integrityViolation() && leftBefore && isOwnLeftover(form.ScenarioName(), save.repository)) {
            takeOverScenario(save);
            return;
        }
        save.nameTaken = error.integrityViolation();
        if (save.nameTaken) {
            uncertain.erase(form.ScenarioName());
        }
        throw;
    }
    uncertain.erase(form.ScenarioName());
    save.fullWrite = true;
    markUnsaved(form);
    form.ScenarioID = ScenarioID;
    forgetStoredRows(form);
}

/// Whether the scenario of that name is the empty row that an interrupted save of this user has left.
bool ScenarioLoadSave::isOwnLeftover(const std::string& name, StatementCache& repository) {
    bool own = false;
    platform::Statement& owner = repository.run(sql::kScenarioOwner, name);
    while (owner.fetch()) {
        own = owner.text(1) == services_.settings.login.User;
    }
    std::optional<long long> identifier;
    platform::Statement& row = repository.run(sql::kScenarioByName, name);
    while (row.fetch()) {
        identifier = row.number(1);
    }
    return own && identifier && fits(*identifier) &&
           nodesOf(repository, static_cast<std::int16_t>(*identifier)).empty();
}

/// Makes the stored scenario of the window's name the window's own and empties it, unless it belongs to another user.
/// Everything is written anew then: the rows that the records know are gone.
void ScenarioLoadSave::takeOverScenario(SaveAttempt& save) {
    DrawForm& form = save.form;
    std::optional<long long> known;
    if (save.changedElsewhere && !save.SaveAs) {
        known = form.ScenarioID;  // whatever its name is by now
    } else {
        platform::Statement& owner = save.repository.run(sql::kScenarioOwner, form.ScenarioName());
        while (owner.fetch()) {
            const std::string user = owner.text(1);
            save.owner = user == services_.settings.login.User ? "" : user;
        }
        if (!save.owner.empty()) {
            return;
        }
        platform::Statement& row = save.repository.run(sql::kScenarioByName, form.ScenarioName());
        while (row.fetch()) {
            known = row.number(1);
        }
    }
    if (!known) {
        save.hopeless = true;
        throw platform::Fault("There is no scenario of the name \"" + form.ScenarioName() + "\".");
    }
    if (!fits(*known)) {
        throw NoIdentifiersLeft();
    }
    // Before the first row goes: what is stored stays when the rows to come would get no identifiers.
    const IdentifierNeed need = identifierNeed(form);
    requireIdentifiers(save.repository, sql::kDrawNode, need.nodes);
    requireIdentifiers(save.repository, sql::kDrawSubNode, need.subNodes);
    requireIdentifiers(save.repository, sql::kDrawFunction, need.functions);
    form.ScenarioID = static_cast<std::int16_t>(*known);
    interrupted().names.erase(form.ScenarioName());
    interrupted().scenarios.insert(form.ScenarioID);
    save.fullWrite = true;
    markUnsaved(form);
    forgetStoredRows(form);
    removeRows(form.ScenarioID, false, &form);
}

void ScenarioLoadSave::writeScenario(SaveAttempt& save) {
    DrawForm& form = save.form;
    const std::int16_t ScenarioID = form.ScenarioID;
    interrupted().scenarios.insert(ScenarioID);
    platform::Steps steps(services_.progress, static_cast<std::size_t>(form.Labels.Count()));
    ScenarioWriter writer(save.repository, catalogue_.tables, ScenarioID);
    for (canvas::LabelsD& node : form.Labels) {
        writer.saveNode(node, services_.messages);
        steps.next();
    }
    for (const canvas::LinesD& line : form.Lines) {
        const canvas::LabelsD* from = form.Labels.byIndex(line.FromLabel());
        const canvas::LabelsD* to = form.Labels.byIndex(line.ToLabel());
        if (from && to) {  // an edge that is just being drawn has no target yet
            writer.saveLine(line, from->Caption(), to->Caption());
        }
    }
    if (writer.exhausted() && save.fullWrite) {
        removeRows(ScenarioID, !save.replace, &form);
        save.before.restore(form);
        save.fullWrite = false;
        form.stored.changed = save.wasUnsaved;
        form.tellStored();
        interrupted().scenarios.erase(ScenarioID);
        throw NoIdentifiersLeft();
    }
    compareStored(save, writer.exhausted() || save.orderLeft);
    interrupted().scenarios.erase(ScenarioID);
    if (writer.exhausted()) {
        throw NoIdentifiersLeft();
    }
    if (save.orderLeft) {
        throw OrderNotStored();
    }
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
