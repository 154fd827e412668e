#include "repository/stored_identity.h"

namespace orvent::repository {

namespace {

template <class Collection>
void forgetSubNodes(const entities::Lazy<Collection>& collection) {
    if (Collection* items = collection.peek()) {
        for (auto& item : *items) {
            item.SubNode_ID = 0;
        }
    }
}

void forgetSubNodes(entities::ActivityProperties& activity) {
    forgetSubNodes(activity.Act_Inputs);
    forgetSubNodes(activity.Act_Outputs);
    forgetSubNodes(activity.Act_Parameters);
    activity.Act_Inputs->Changed = true;
    if (auto* functions = activity.Act_Functions.peek()) {
        for (entities::FunctionProperties& function : *functions) {
            function.FunctionID = 0;
            forgetSubNodes(function.Function_Inputs);
            forgetSubNodes(function.Function_Outputs);
        }
    }
}

/// The field that holds a node's identifier, or nothing for a node that is never saved.
std::int16_t* identifierOf(canvas::LabelsD& node) {
    if (auto* activity = node.activity()) {
        return &activity->NodeID;
    }
    if (auto* recordSet = node.recordSet()) {
        return &recordSet->NodeID;
    }
    if (auto* comment = node.entity<entities::CommentProperties>()) {
        return &comment->NodeID;
    }
    return node.NodeType() == canvas::NodeTypeLog ? std::get_if<std::int16_t>(&node.Properties) : nullptr;
}

}  // namespace

void forgetStoredRows(canvas::LabelsD& node) {
    if (std::int16_t* id = identifierOf(node)) {
        *id = 0;
    }
    if (auto* activity = node.activity()) {
        forgetSubNodes(*activity);
    } else if (auto* recordSet = node.recordSet()) {
        forgetSubNodes(recordSet->RecordSet_Outputs);
    }
}

void forgetStoredRows(canvas::DrawForm& form) {
    for (canvas::LabelsD& node : form.Labels) {
        forgetStoredRows(node);
    }
    form.DeletedNodes->Clear();
}

std::unordered_set<std::int16_t> storedNodes(const canvas::DrawForm& form) {
    std::unordered_set<std::int16_t> identifiers;
    for (int position = 1; position <= form.Labels.Count(); ++position) {
        if (const std::int16_t* id = identifierOf(*form.Labels.at(position))) {
            identifiers.insert(*id);
        }
    }
    identifiers.erase(0);
    return identifiers;
}

}  // namespace orvent::repository
