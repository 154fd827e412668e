#include "repository/scenario_writer.h"

#include "repository/scenario_statements.h"
#include "repository/stored_identity.h"

namespace orvent::repository {

using canvas::LabelsD;
using entities::ActivityProperties;
using entities::AttributeProperties;
using entities::CommentProperties;
using entities::FunctionProperties;
using entities::ParameterProperties;
using entities::RecordSetProperties;

/// Inserts a record and gives its identifier, or 0 when there is none left.
template <class... Values>
std::int16_t ScenarioWriter::add(const NewRow& row, const Values&... values) {
    if (exhausted_) {
        return 0;
    }
    std::int16_t identifier = 0;
    // Lost from here on: the INSERT may be carried out though its reply never comes.
    identifierLost_ = true;
    try {
        repository_.run(row.add, values...);
        identifier = identifierOf(repository_, row);
    } catch (const NoIdentifiersLeft&) {
        exhausted_ = true;
    } catch (const platform::DatabaseError& error) {
        identifierLost_ = !error.integrityViolation();  // a refused row is not there
        throw;
    }
    identifierLost_ = false;
    return identifier;
}

/// Rewrites a stored record. When it is gone its identifier becomes 0, and it is new.
template <class... Values>
void ScenarioWriter::change(std::int16_t& identifier, std::string_view has, std::string_view sql,
                            const Values&... values) {
    // Some drivers count only rows whose values became others, so none does not mean that it is gone.
    if (repository_.run(sql, values..., identifier).changedRows() == 0 && !repository_.finds(has, identifier)) {
        identifier = 0;
    }
}

void ScenarioWriter::saveNode(LabelsD& node, platform::MessageBox& messages) {
    try {
        saveEntity(node, messages);
    } catch (const platform::Fault&) {
        if (identifierLost_) {
            forgetStoredRows(node);
        }
        throw;
    }
}

void ScenarioWriter::saveEntity(LabelsD& node, platform::MessageBox& messages) {
    if (ActivityProperties* activity = node.activity()) {
        if (activity->Act_Type == -1) {
            messages.tell("Activity \"" + activity->Act_Name + "\" has no activity type defined and will not be saved!",
                          {}, platform::Icon::warning);
            return;
        }
        saveActivity(*activity, node);
    } else if (RecordSetProperties* recordSet = node.recordSet()) {
        saveRecordSet(*recordSet, node);
    } else if (auto* comment = node.entity<CommentProperties>()) {
        SaveCommentNode(*comment, node);
    } else if (node.NodeType() == canvas::NodeTypeLog) {
        SavePlainNode(node);
    }
}

void ScenarioWriter::saveLine(const canvas::LinesD& line, const std::string& from, const std::string& to) {
    repository_.run(sql::kAddLine, ScenarioID_, from, line.FromGrabbingPoint(), to, line.ToGrabbingPoint(),
                    line.EdgeType(), line.Angle());
}

std::int16_t ScenarioWriter::addNodeRow(const std::string& name, const LabelsD& node) {
    return add(kNodeRow, ScenarioID_, name, node.NodeType(), node.Left(), node.Top(), node.Width(), node.Height());
}

/// Rewrites the row of a node. When it is gone the whole node is new.
void ScenarioWriter::changeNodeRow(const std::string& name, LabelsD& node, std::int16_t& NodeID) {
    change(NodeID, sql::kHasNode, sql::kChangeNode, name, node.Left(), node.Top(), node.Width(), node.Height());
    if (NodeID == 0) {
        forgetStoredRows(node);
    }
}

void ScenarioWriter::saveRecordSet(RecordSetProperties& recordSet, LabelsD& node) {
    SaveRecordSetNode(recordSet, node);
    if (recordSet.NodeID == 0) {
        return;
    }
    if (auto* attributes = recordSet.RecordSet_Outputs.peek()) {
        for (AttributeProperties& attribute : *attributes) {
            SaveRecordSetOutput(recordSet, attribute);
            saveProviders(attribute.ProviderFor, recordSet.NodeID, attribute.SubNode_ID, sql::kProviderFor);
        }
    }
}

/// Adds or rewrites the row of a node and the row of its entity. `addOwn` adds the latter under an identifier;
/// `changeOwn` rewrites it, and sets the identifier to 0 when it is gone. True when the node was stored already.
template <class Entity, class Add, class Change>
bool ScenarioWriter::saveRows(Entity& entity, const std::string& name, LabelsD& node, Add addOwn, Change changeOwn) {
    if (entity.NodeID != 0 && entity.Changed) {
        changeNodeRow(name, node, entity.NodeID);
    }
    if (entity.NodeID == 0) {
        if (const std::int16_t id = addNodeRow(name, node)) {
            addOwn(id);
            entity.NodeID = id;
        }
        return false;
    }
    if (entity.Changed) {
        std::int16_t id = entity.NodeID;
        changeOwn(id);
        if (id == 0) {
            addOwn(entity.NodeID);
        }
    }
    return true;
}

void ScenarioWriter::SaveRecordSetNode(RecordSetProperties& recordSet, LabelsD& node) {
    const std::string& text = recordSet.RecordSet_SQL;
    const bool wasStored = saveRows(
        recordSet, recordSet.RecordSet_Name, node,
        [&](std::int16_t id) { repository_.run(sql::kAddRecordSet, id, text); },
        [&](std::int16_t& id) { change(id, sql::kHasRecordSet, sql::kChangeRecordSet, text); });
    if (wasStored) {
        repository_.run(sql::kDropNodeLinks, recordSet.NodeID);
    }
}

void ScenarioWriter::SaveRecordSetOutput(const RecordSetProperties& recordSet, AttributeProperties& attribute) {
    if (attribute.SubNode_ID != 0 && attribute.Changed) {
        change(attribute.SubNode_ID, sql::kHasRecordSetOutput, sql::kChangeRecordSetOutput, attribute.Key);
    }
    if (attribute.SubNode_ID == 0) {
        attribute.SubNode_ID = add(kRecordSetOutputRow, recordSet.NodeID, attribute.Key, recordSet.dbKey(attribute.Key),
                                   tables_.dataTypes.name(attribute.Attribute_Type));
    }
}

// The links of inputs come back from their far ends. What would be lost is the order of an input's sources, which
// means something where an input has several; so these links are written, and loading reads them first.
void ScenarioWriter::saveSourceOrder(const ActivityProperties& activity) {
    for (const AttributeProperties& input : *activity.Act_Inputs.peek()) {
        if (input.ProvidedFrom.count() > 1) {
            saveProviders(input.ProvidedFrom, activity.NodeID, input.SubNode_ID, sql::kProvidedFrom);
        }
    }
}

void ScenarioWriter::saveActivity(ActivityProperties& activity, LabelsD& node) {
    SaveActivityNode(activity, node);
    if (activity.NodeID == 0) {
        return;
    }
    if (activity.Act_Inputs->Changed) {
        for (AttributeProperties& input : *activity.Act_Inputs) {
            SaveAttributeSubNode(activity, input);
        }
        // Only now: an interrupted save must come back to the inputs.
        activity.Act_Inputs->Changed = exhausted_;
    }
    saveSourceOrder(activity);
    if (auto* outputs = activity.Act_Outputs.peek()) {
        for (AttributeProperties& output : *outputs) {
            SaveAttributeSubNode(activity, output);
            saveProviders(output.ProvidedFrom, activity.NodeID, output.SubNode_ID, sql::kProvidedFrom);
            saveRegulators(output.RegulatedFrom, activity.NodeID, output.SubNode_ID);
            saveProviders(output.ProviderFor, activity.NodeID, output.SubNode_ID, sql::kProviderFor);
        }
    }
    if (auto* parameters = activity.Act_Parameters.peek()) {
        for (ParameterProperties& parameter : *parameters) {
            SaveParameterSubNode(activity, parameter);
            saveRegulators(parameter.RegulatedFrom, activity.NodeID, parameter.SubNode_ID);
        }
    }
    saveActivityFunctions(activity);
}

void ScenarioWriter::saveActivityFunctions(ActivityProperties& activity) {
    auto* functions = activity.Act_Functions.peek();
    if (!functions) {
        return;
    }
    for (FunctionProperties& function : *functions) {
        SaveActivityFunction(activity, function);
        if (auto* inputs = function.Function_Inputs.peek()) {
            for (ParameterProperties& input : *inputs) {
                SaveFunctionSubNode(function, input);
                saveRegulators(input.RegulatedFrom, activity.NodeID, input.SubNode_ID);
            }
        }
        if (auto* outputs = function.Function_Outputs.peek()) {
            for (ParameterProperties& output : *outputs) {
                SaveFunctionSubNode(function, output);
            }
        }
    }
}

void ScenarioWriter::SaveActivityNode(ActivityProperties& activity, LabelsD& node) {
    const std::string& type = tables_.activityTypes.name(activity.Act_Type);
    const bool wasStored = saveRows(
        activity, activity.Act_Name, node,
        [&](std::int16_t id) {
            repository_.run(sql::kAddActivity, id, activity.Act_Description, type, activity.Act_Log, activity.Act_SQL,
                            activity.Act_SchemaNo, activity.Act_LDL);
        },
        [&](std::int16_t& id) {
            change(id, sql::kHasActivity, sql::kChangeActivity, activity.Act_Description, type, activity.Act_Log,
                   activity.Act_SQL, activity.Act_LDL, activity.Act_SchemaNo);
        });
    if (wasStored) {
        repository_.run(sql::kDropNodeLinks, activity.NodeID);
    }
}

void ScenarioWriter::SaveActivityFunction(const ActivityProperties& activity, FunctionProperties& function) {
    if (function.FunctionID != 0 && function.Changed) {
        change(function.FunctionID, sql::kHasActivityFunction, sql::kChangeActivityFunction, function.Function_Key,
               tables_.functionTypes.name(function.Function_Type));
        if (function.FunctionID == 0) {
            forgetStoredRows(function);
        }
    }
    if (function.FunctionID == 0) {
        function.FunctionID = add(kFunctionRow, activity.NodeID, function.Function_Key,
                                  tables_.functionTypes.name(function.Function_Type),
                                  static_cast<std::int16_t>(function.Function_Source));
    }
}

template <class Member>
void ScenarioWriter::saveSubNode(const ActivityProperties& activity, Member& member, const std::string& name,
                                 std::int16_t dataType) {
    if (member.SubNode_ID != 0 && member.Changed) {
        change(member.SubNode_ID, sql::kHasActivitySubNode, sql::kChangeActivitySubNode, member.Key, name,
               tables_.dataTypes.name(dataType));
    }
    if (member.SubNode_ID == 0) {
        member.SubNode_ID = add(kActivitySubNodeRow, activity.NodeID, member.Key, member.NodeKind, name,
                                tables_.dataTypes.name(dataType), static_cast<std::int16_t>(member.Tag));
    }
}

void ScenarioWriter::SaveAttributeSubNode(const ActivityProperties& activity, AttributeProperties& attribute) {
    saveSubNode(activity, attribute, attribute.Attribute_Name, attribute.Attribute_Type);
}

void ScenarioWriter::SaveParameterSubNode(const ActivityProperties& activity, ParameterProperties& parameter) {
    saveSubNode(activity, parameter, parameter.Parameter_Name, parameter.Parameter_Type);
}

void ScenarioWriter::SaveFunctionSubNode(const FunctionProperties& function, ParameterProperties& parameter) {
    if (function.FunctionID == 0) {
        return;
    }
    if (parameter.SubNode_ID != 0 && parameter.Changed) {
        change(parameter.SubNode_ID, sql::kHasFunctionSubNode, sql::kChangeFunctionSubNode, parameter.Key,
               parameter.Parameter_Name, tables_.dataTypes.name(parameter.Parameter_Type));
    }
    if (parameter.SubNode_ID == 0) {
        parameter.SubNode_ID = add(kFunctionSubNodeRow, function.FunctionID, parameter.Key, parameter.NodeKind,
                                   parameter.Parameter_Name, tables_.dataTypes.name(parameter.Parameter_Type));
    }
}

void ScenarioWriter::saveProviders(const entities::Lazy<entities::ProviderLinks>& links, std::int16_t NodeID,
                                   std::int16_t SubNode_ID, sql::LinkKind kind) {
    const auto* held = links.peek();
    if (held && SubNode_ID != 0) {
        for (const entities::ProviderProperties& link : *held) {
            SaveProviderLink(NodeID, SubNode_ID, kind, link);
        }
    }
}

void ScenarioWriter::saveRegulators(const entities::Lazy<entities::RegulatorLinks>& links, std::int16_t NodeID,
                                    std::int16_t SubNode_ID) {
    const auto* held = links.peek();
    if (held && SubNode_ID != 0) {
        for (const entities::RegulatorProperties& link : *held) {
            SaveRegulatorLink(NodeID, SubNode_ID, link);
        }
    }
}

void ScenarioWriter::SaveProviderLink(std::int16_t NodeID, std::int16_t SubNode_ID, sql::LinkKind kind,
                                      const entities::ProviderProperties& link) {
    repository_.run(sql::kAddLink, NodeID, SubNode_ID, kind, link.Provider_Key(), link.Provider_Name,
                    link.Provider_Type);
}

void ScenarioWriter::SaveRegulatorLink(std::int16_t NodeID, std::int16_t SubNode_ID,
                                       const entities::RegulatorProperties& link) {
    repository_.run(sql::kAddLink, NodeID, SubNode_ID, sql::kRegulatedFrom, link.Regulator_Key(), link.Regulator_name,
                    link.Regulator_type);
}

void ScenarioWriter::SaveCommentNode(CommentProperties& comment, LabelsD& node) {
    saveRows(
        comment, node.Caption(), node, [&](std::int16_t id) { repository_.run(sql::kAddComment, id, comment.Comment); },
        [&](std::int16_t& id) { change(id, sql::kHasComment, sql::kChangeComment, comment.Comment); });
}

void ScenarioWriter::SavePlainNode(LabelsD& node) {
    std::int16_t* id = std::get_if<std::int16_t>(&node.Properties);
    if (!id) {
        return;
    }
    if (*id != 0) {
        change(*id, sql::kHasNode, sql::kMoveNode, node.Left(), node.Top(), node.Width(), node.Height());
    }
    if (*id == 0) {
        *id = addNodeRow(node.Caption(), node);
    }
}

}  // namespace orvent::repository
