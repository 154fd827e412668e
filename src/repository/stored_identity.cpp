#include "repository/stored_identity.h"

#include "canvas/owners.h"

namespace orvent::repository {

namespace {

template <class Owner, class Visit>
void eachMemberIdentifier(Owner& owner, Visit visit) {
    eachMember(owner, [&visit](auto& member) { visit(member.SubNode_ID); });
}

template <class Visit>
void eachIdentifier(entities::FunctionProperties& function, Visit visit) {
    visit(function.FunctionID);
    eachMemberIdentifier(function, visit);
}

/// Visits the identifiers of a node and of all its members, in an order that stays.
template <class Visit>
void eachIdentifier(canvas::LabelsD& node, Visit visit) {
    if (std::int16_t* id = node.rowIdentifier()) {
        visit(*id);
    }
    canvas::withOwner(node, [&visit](auto& owner) { eachMemberIdentifier(owner, visit); });
    if (auto* activity = node.activity()) {
        for (entities::FunctionProperties& function : activity->Act_Functions) {
            visit(function.FunctionID);
        }
    }
}

void forget(std::int16_t& identifier) {
    identifier = 0;
}

}  // namespace

void forgetStoredRows(entities::FunctionProperties& function) {
    eachIdentifier(function, forget);
}

void forgetStoredRows(canvas::LabelsD& node) {
    eachIdentifier(node, forget);
    if (auto* activity = node.activity()) {
        activity->Act_Inputs->Changed = true;
    }
}

void forgetStoredRows(canvas::DrawForm& form) {
    for (canvas::LabelsD& node : form.Labels) {
        forgetStoredRows(node);
    }
    form.DeletedNodes->Clear();
}

StoredIdentity::StoredIdentity(canvas::DrawForm& form) : ScenarioID_(form.ScenarioID) {
    for (canvas::LabelsD& node : form.Labels) {
        eachIdentifier(node, [this](std::int16_t identifier) { identifiers_.push_back(identifier); });
    }
    for (int position = 1; position <= form.DeletedNodes->Count(); ++position) {
        deletedNodes_.emplace_back(*form.DeletedNodes->Item(position), form.DeletedNodes->keyAt(position));
    }
}

void StoredIdentity::restore(canvas::DrawForm& form) const {
    form.ScenarioID = ScenarioID_;
    auto kept = identifiers_.begin();
    for (canvas::LabelsD& node : form.Labels) {
        eachIdentifier(node, [&kept](std::int16_t& identifier) { identifier = *kept++; });
    }
    form.DeletedNodes->Clear();
    for (const auto& [deleted, key] : deletedNodes_) {
        form.DeletedNodes->Add(deleted.NodeID, deleted.NodeKind, key);
    }
}

IdentifierNeed identifierNeed(const canvas::DrawForm& form) {
    IdentifierNeed need;
    for (const canvas::LabelsD& node : form.Labels) {
        need.nodes += node.rowIdentifier() ? 1 : 0;
        canvas::withOwner(node, [&need](const auto& owner) {
            eachListDeep(owner, [&need](const auto& list, entities::NodeKindCode) { need.subNodes += list.count(); });
        });
        need.functions += node.activity() ? node.activity()->Act_Functions.count() : 0;
    }
    return need;
}

IdentifierNeed newRows(canvas::DrawForm& form) {
    IdentifierNeed need;
    const auto count = [&need](const std::int16_t& identifier) { need.subNodes += identifier == 0 ? 1 : 0; };
    for (canvas::LabelsD& node : form.Labels) {
        eachIdentifier(node, count);  // nodes and functions are taken for members: a few too many
        if (const auto* activity = node.activity()) {
            for (const entities::FunctionProperties& function : activity->Act_Functions) {
                need.functions += function.FunctionID == 0 ? 1 : 0;
            }
        }
    }
    return need;
}

std::unordered_set<long long> storedNodes(const canvas::DrawForm& form) {
    std::unordered_set<long long> identifiers;
    for (const canvas::LabelsD& node : form.Labels) {
        if (const std::int16_t* id = node.rowIdentifier()) {
            identifiers.insert(*id);
        }
    }
    identifiers.erase(0);
    return identifiers;
}

void forgetNodesWithoutRow(canvas::DrawForm& form, const std::unordered_set<long long>& rows) {
    for (canvas::LabelsD& node : form.Labels) {
        const std::int16_t* id = node.rowIdentifier();
        if (id && *id != 0 && !rows.contains(*id)) {
            forgetStoredRows(node);
        }
    }
}

}  // namespace orvent::repository
