// What stands in the repository beside what a window shows and knows.

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "platform/name_list.h"
#include "repository/node_rows.h"
#include "repository/row_plan.h"
#include "repository/save_attempt.h"
#include "repository/scenario_statements.h"
#include "repository/stored_content.h"

namespace orvent::repository {

using canvas::DrawForm;

namespace {

std::string namesLine(const std::string& word, const std::vector<std::string>& names) {
    return names.empty() ? "" : "\n" + word + ": " + platform::nameList(names) + ".";
}

/// Tells what of the scenario is not as the window has read or written it last; empty when all of it is.
std::string changesElsewhere(const DrawForm& form, const StoredRows& rows) {
    std::unordered_map<long long, std::uint64_t> known = form.stored.rows;
    std::vector<std::string> changed, added, gone;
    for (const auto& [id, mark] : marksOf(rows)) {
        const auto former = known.find(id);
        const NodeRows* node = rows.find(id);
        if (former == known.end()) {
            added.push_back(node ? node->name : "edges");
        } else {
            if (former->second != mark) {
                changed.push_back(node ? node->name : "edges");
            }
            known.erase(former);
        }
    }
    for (const canvas::LabelsD& node : form.Labels) {
        const std::int16_t* id = node.rowIdentifier();
        if (id && known.erase(*id) > 0) {
            gone.push_back(node.Caption());
        }
    }
    if (changed.empty() && added.empty() && gone.empty() && known.empty()) {
        return {};
    }
    for (auto* names : {&changed, &added}) {
        std::ranges::sort(*names);
    }
    return "The stored scenario was changed elsewhere since it was loaded or saved here." +
           namesLine("Changed", changed) + namesLine("New", added) + namesLine("Gone", gone);
}

}  // namespace

/// Looks what another program has left of the scenario that the window shows. False when it is not the window's any
/// more. Throws a `Fault` when it is not what the window knows, unless a save of this program has left it so; then what
/// is gone becomes new.
bool SaveAttempt::findScenario() {
    const std::int16_t ScenarioID = form.ScenarioID;
    platform::Statement& row = repository_.run(sql::kScenarioName, ScenarioID);
    const bool found = row.fetch();
    while (row.fetch()) {
    }
    if (!found) {
        windows_.scenarioGone(ScenarioID, nullptr);
        form.ScenarioID = 0;
        return false;
    }
    rows_ = readStoredRows(repository_, catalogue_.tables, ScenarioID);
    const std::unordered_set<long long> own = storedNodes(form);
    std::unordered_set<long long> deleted;
    for (const canvas::DeletedNode& node : *form.DeletedNodes) {
        deleted.insert(node.NodeKind >= entities::DeletedActivity ? node.NodeID : 0);
    }
    std::unordered_set<long long> stored;
    std::vector<StoredNode> others;
    for (const NodeRows& node : rows_.nodes) {
        stored.insert(node.id);
        if (!own.contains(node.id) && !deleted.contains(node.id)) {
            others.push_back({node.id, nodeType(node.type)});
        }
    }
    const bool interruptedHere = interrupted_.scenarios.contains(ScenarioID);
    const bool noneLeft = std::ranges::none_of(own, [&](long long id) { return stored.contains(id); });
    if (!interruptedHere && noneLeft && !others.empty()) {
        form.ScenarioID = 0;  // replaced; another window may show what stands there now
        return false;
    }
    if (interruptedHere) {
        windows_.scenarioGone(ScenarioID, &form);
        for (const StoredNode& node : others) {  // rows that nobody knows
            removeMembers(repository_, node);
            repository_.run(sql::kDropNode, node.id);
        }
    } else if (const std::string words = changesElsewhere(form, rows_); !words.empty()) {
        changedElsewhere = true;
        throw platform::Fault(words);
    }
    forgetNodesWithoutRow(form, stored);
    return true;
}

/// Reads back what was written, and keeps what it is. Throws a `Fault` when it is not what the window shows, unless
/// that is known to be `incomplete`.
void SaveAttempt::compareStored(bool incomplete) {
    const StoredRows rows = readStoredRows(repository_, catalogue_.tables, form.ScenarioID);
    form.stored.rows = marksOf(rows);
    const RowPlan plan(form, catalogue_.tables, rows);
    if (!incomplete && !plan.differing().empty()) {
        throw platform::Fault(
            "The repository does not hold what was saved; somebody else may be saving this scenario."
            "\nNot as shown here: " +
            platform::nameList(plan.differing()) + ".");
    }
}

}  // namespace orvent::repository
