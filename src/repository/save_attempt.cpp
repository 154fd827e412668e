#include "repository/save_attempt.h"

#include <optional>
#include <set>

#include "platform/steps.h"
#include "repository/node_rows.h"
#include "repository/row_plan.h"
#include "repository/scenario_load_save.h"
#include "repository/scenario_statements.h"
#include "repository/scenario_writer.h"
#include "repository/stored_content.h"

namespace orvent::repository {

SaveAttempt::SaveAttempt(Services& services, Catalogue& catalogue, ScenarioWindows& windows,
                         InterruptedSaves& interrupted, StatementCache& repository, canvas::DrawForm& shown, bool asNew)
    : form(shown),
      SaveAs(asNew),
      services_(services),
      catalogue_(catalogue),
      windows_(windows),
      interrupted_(interrupted),
      repository_(repository),
      before_(shown),
      wasUnsaved_(shown.stored.changed) {}

bool SaveAttempt::run() {
    nameTaken = false;
    owner.clear();
    fault.clear();
    try {
        const platform::Busy busy(services_.progress);
        refuseLongTexts(form, repository_);  // the scenario may have another name by now
        if (replace) {
            takeOverScenario();
        } else {
            begin();
        }
        if (scenarioGone || !owner.empty()) {
            return false;
        }
        write();
        return true;
    } catch (const NoIdentifiersLeft& caught) {
        hopeless = true;
        fault = caught.description();
    } catch (const TextTooLong& caught) {
        hopeless = true;
        fault = caught.description();
    } catch (const OrderNotStored& caught) {
        hopeless = true;
        fault = caught.description();
    } catch (const platform::Fault& caught) {
        fault = caught.description();
    }
    return false;
}

/// Finds the rows to write to: those of the scenario that the window shows, or a scenario of its own.
void SaveAttempt::begin() {
    if (form.ScenarioID == 0 || SaveAs) {
        addScenario();
        return;
    }
    markBroken(form);
    if (findScenario()) {
        interrupted_.scenarios.insert(form.ScenarioID);
        ScenarioLoadSave::ApplyDeletions(form, form.ScenarioID, repository_);
        arrangeRows();
    } else {
        scenarioGone = true;
    }
}

/// Brings the stored rows in the order of the window, as far as there are identifiers for it.
void SaveAttempt::arrangeRows() {
    const RowPlan plan(form, catalogue_.tables, rows_);
    const IdentifierNeed order = plan.anew();
    if (order.subNodes > 0 || order.functions > 0) {
        const IdentifierNeed others = newRows(form);
        try {
            requireIdentifiers(repository_, sql::kDrawSubNode, order.subNodes + others.subNodes);
            requireIdentifiers(repository_, sql::kDrawFunction, order.functions + others.functions);
        } catch (const NoIdentifiersLeft&) {
            orderLeft_ = true;
        }
    }
    plan.carryOut(repository_, !orderLeft_);
}

void SaveAttempt::addScenario() {
    std::set<std::string>& uncertain = interrupted_.names;
    const bool leftBefore = uncertain.contains(form.ScenarioName());
    // Until its identifier is known: the row may be made although the reply never comes.
    uncertain.insert(form.ScenarioName());
    std::int16_t ScenarioID = 0;
    try {
        repository_.run(kScenarioRow.add, form.ScenarioName(), services_.settings.login.User);
        ScenarioID = identifierOf(repository_, kScenarioRow);
    } catch (const NoIdentifiersLeft&) {
        uncertain.erase(form.ScenarioName());
        throw;
    } catch (const platform::DatabaseError& error) {
        if (error.integrityViolation() && leftBefore && isOwnLeftover()) {
            takeOverScenario();
            return;
        }
        nameTaken = error.integrityViolation();
        if (nameTaken) {
            uncertain.erase(form.ScenarioName());
        }
        throw;
    }
    uncertain.erase(form.ScenarioName());
    fullWrite = true;
    form.ScenarioID = ScenarioID;
    markBroken(form);
    forgetStoredRows(form);
}

/// Whether the scenario of that name is the empty row that an interrupted save of this user has left.
bool SaveAttempt::isOwnLeftover() {
    bool own = false;
    platform::Statement& user = repository_.run(sql::kScenarioOwner, form.ScenarioName());
    while (user.fetch()) {
        own = user.text(1) == services_.settings.login.User;
    }
    std::optional<long long> identifier;
    platform::Statement& row = repository_.run(sql::kScenarioByName, form.ScenarioName());
    while (row.fetch()) {
        identifier = row.number(1);
    }
    return own && identifier && fits(*identifier) &&
           nodesOf(repository_, static_cast<std::int16_t>(*identifier)).empty();
}

/// Makes the stored scenario of the window's name the window's own and empties it, unless it belongs to another user.
/// Everything is written anew then: the rows that the records know are gone.
void SaveAttempt::takeOverScenario() {
    std::optional<long long> known;
    if (changedElsewhere && !SaveAs) {
        known = form.ScenarioID;  // whatever its name is by now
    } else {
        platform::Statement& stored = repository_.run(sql::kScenarioOwner, form.ScenarioName());
        while (stored.fetch()) {
            const std::string user = stored.text(1);
            owner = user == services_.settings.login.User ? "" : user;
        }
        if (!owner.empty()) {
            return;
        }
        platform::Statement& row = repository_.run(sql::kScenarioByName, form.ScenarioName());
        while (row.fetch()) {
            known = row.number(1);
        }
    }
    if (!known) {
        hopeless = true;
        throw platform::Fault("There is no scenario of the name \"" + form.ScenarioName() + "\".");
    }
    if (!fits(*known)) {
        throw NoIdentifiersLeft();
    }
    // Before the first row goes: what is stored stays when the rows to come would get no identifiers.
    const IdentifierNeed need = identifierNeed(form);
    requireIdentifiers(repository_, sql::kDrawNode, need.nodes);
    requireIdentifiers(repository_, sql::kDrawSubNode, need.subNodes);
    requireIdentifiers(repository_, sql::kDrawFunction, need.functions);
    form.ScenarioID = static_cast<std::int16_t>(*known);
    interrupted_.names.erase(form.ScenarioName());
    interrupted_.scenarios.insert(form.ScenarioID);
    fullWrite = true;
    markBroken(form);
    forgetStoredRows(form);
    removeRows(services_, windows_, form.ScenarioID, false, &form);
}

void SaveAttempt::write() {
    const std::int16_t ScenarioID = form.ScenarioID;
    interrupted_.scenarios.insert(ScenarioID);
    platform::Steps steps(services_.progress, static_cast<std::size_t>(form.Labels.Count()));
    ScenarioWriter writer(repository_, catalogue_.tables, ScenarioID);
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
    if (writer.exhausted() && fullWrite) {
        removeRows(services_, windows_, ScenarioID, !replace, &form);
        before_.restore(form);
        fullWrite = false;
        form.stored.changed = form.stored.forced = wasUnsaved_;
        form.stored.broken = false;
        form.tellStored();
        interrupted_.scenarios.erase(ScenarioID);
        throw NoIdentifiersLeft();
    }
    compareStored(writer.exhausted() || orderLeft_);
    interrupted_.scenarios.erase(ScenarioID);
    if (writer.exhausted()) {
        throw NoIdentifiersLeft();
    }
    if (orderLeft_) {
        throw OrderNotStored();
    }
}

}  // namespace orvent::repository
