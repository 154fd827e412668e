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

std::int16_t givenIdentifier(StatementCache& repository, std::string_view sequence) {
    platform::Statement& row = repository.run(sequence);
    if (!row.fetch()) {
        throw platform::Fault("The sequence gave no number.");
    }
    const long long number = row.number(1);
    row.fetch();  // steps behind the only row, which frees the query
    return platform::checkedI16(number, "Identifier");
}

std::int16_t ScenarioWriter::given(std::string_view sequence) {
    identifierLost_ = true;
    const std::int16_t identifier = givenIdentifier(repository_, sequence);
    identifierLost_ = false;
    return identifier;
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
    repository_.run(sql::kAddLine, ScenarioID_, from, line.FromGrabbingPoint, to, line.ToGrabbingPoint(),
                    line.EdgeType(), line.Angle());
}

std::int16_t ScenarioWriter::addNodeRow(const std::string& name, const LabelsD& node) {
    repository_.run(sql::kAddNode, ScenarioID_, name, node.NodeType(), node.Left(), node.Top(), node.Width(),
                    node.Height());
    return given(sql::kNodeIdentifier);
}

void ScenarioWriter::changeNodeRow(const std::string& name, const LabelsD& node, std::int16_t NodeID) {
    repository_.run(sql::kChangeNode, name, node.Left(), node.Top(), node.Width(), node.Height(), NodeID);
}

void ScenarioWriter::saveRecordSet(RecordSetProperties& recordSet, const LabelsD& node) {
    SaveRecordSetNode(recordSet, node);
    if (auto* attributes = recordSet.RecordSet_Outputs.peek()) {
        for (AttributeProperties& attribute : *attributes) {
            SaveRecordSetOutput(recordSet, attribute);
            saveProviders(attribute.ProviderFor, recordSet.NodeID, attribute.SubNode_ID, sql::kProviderFor);
        }
    }
}

void ScenarioWriter::SaveRecordSetNode(RecordSetProperties& recordSet, const LabelsD& node) {
    if (recordSet.NodeID == 0) {
        const std::int16_t id = addNodeRow(recordSet.RecordSet_Name, node);
        repository_.run(sql::kAddRecordSet, id, recordSet.RecordSet_SQL);
        recordSet.NodeID = id;
        return;
    }
    if (recordSet.Changed) {
        changeNodeRow(recordSet.RecordSet_Name, node, recordSet.NodeID);
        repository_.run(sql::kChangeRecordSet, recordSet.RecordSet_SQL, recordSet.NodeID);
    }
    repository_.run(sql::kDropNodeLinks, recordSet.NodeID);
}

void ScenarioWriter::SaveRecordSetOutput(const RecordSetProperties& recordSet, AttributeProperties& attribute) {
    if (attribute.SubNode_ID == 0) {
        repository_.run(sql::kAddRecordSetOutput, recordSet.NodeID, attribute.Key, recordSet.dbKey(attribute.Key),
                        tables_.dataTypes.name(attribute.Attribute_Type));
        attribute.SubNode_ID = given(sql::kSubNodeIdentifier);
    } else if (attribute.Changed) {
        repository_.run(sql::kChangeRecordSetOutput, attribute.Key, attribute.SubNode_ID);
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

void ScenarioWriter::saveActivity(ActivityProperties& activity, const LabelsD& node) {
    SaveActivityNode(activity, node);
    if (activity.Act_Inputs->Changed) {
        for (AttributeProperties& input : *activity.Act_Inputs) {
            SaveAttributeSubNode(activity, input);
        }
        activity.Act_Inputs->Changed = false;  // only now: an interrupted save must come back to the inputs
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

void ScenarioWriter::SaveActivityNode(ActivityProperties& activity, const LabelsD& node) {
    const std::string& type = tables_.activityTypes.name(activity.Act_Type);
    if (activity.NodeID == 0) {
        const std::int16_t id = addNodeRow(activity.Act_Name, node);
        repository_.run(sql::kAddActivity, id, activity.Act_Description, type, activity.Act_Log, activity.Act_SQL,
                        activity.Act_SchemaNo, activity.Act_LDL);
        activity.NodeID = id;
        return;
    }
    if (activity.Changed) {
        changeNodeRow(activity.Act_Name, node, activity.NodeID);
        repository_.run(sql::kChangeActivity, activity.Act_Description, type, activity.Act_Log, activity.Act_SQL,
                        activity.Act_LDL, activity.Act_SchemaNo, activity.NodeID);
    }
    repository_.run(sql::kDropNodeLinks, activity.NodeID);
}

void ScenarioWriter::SaveActivityFunction(const ActivityProperties& activity, FunctionProperties& function) {
    if (function.FunctionID == 0) {
        repository_.run(sql::kAddActivityFunction, activity.NodeID, function.Function_Key,
                        tables_.functionTypes.name(function.Function_Type), function.Function_Source);
        function.FunctionID = given(sql::kFunctionIdentifier);
    } else if (function.Changed) {
        repository_.run(sql::kChangeActivityFunction, function.Function_Key,
                        tables_.functionTypes.name(function.Function_Type), function.FunctionID);
    }
}

void ScenarioWriter::SaveAttributeSubNode(const ActivityProperties& activity, AttributeProperties& attribute) {
    if (attribute.SubNode_ID == 0) {
        repository_.run(sql::kAddActivitySubNode, activity.NodeID, attribute.Key, attribute.NodeKind,
                        attribute.Attribute_Name, tables_.dataTypes.name(attribute.Attribute_Type), attribute.Tag);
        attribute.SubNode_ID = given(sql::kSubNodeIdentifier);
    } else if (attribute.Changed) {
        repository_.run(sql::kChangeActivitySubNode, attribute.Key, attribute.Attribute_Name,
                        tables_.dataTypes.name(attribute.Attribute_Type), attribute.SubNode_ID);
    }
}

void ScenarioWriter::SaveParameterSubNode(const ActivityProperties& activity, ParameterProperties& parameter) {
    if (parameter.SubNode_ID == 0) {
        repository_.run(sql::kAddActivitySubNode, activity.NodeID, parameter.Key, parameter.NodeKind,
                        parameter.Parameter_Name, tables_.dataTypes.name(parameter.Parameter_Type), parameter.Tag);
        parameter.SubNode_ID = given(sql::kSubNodeIdentifier);
    } else if (parameter.Changed) {
        repository_.run(sql::kChangeActivitySubNode, parameter.Key, parameter.Parameter_Name,
                        tables_.dataTypes.name(parameter.Parameter_Type), parameter.SubNode_ID);
    }
}

void ScenarioWriter::SaveFunctionSubNode(const FunctionProperties& function, ParameterProperties& parameter) {
    if (parameter.SubNode_ID == 0) {
        repository_.run(sql::kAddFunctionSubNode, function.FunctionID, parameter.Key, parameter.NodeKind,
                        parameter.Parameter_Name, tables_.dataTypes.name(parameter.Parameter_Type));
        parameter.SubNode_ID = given(sql::kSubNodeIdentifier);
    } else if (parameter.Changed) {
        repository_.run(sql::kChangeFunctionSubNode, parameter.Key, parameter.Parameter_Name,
                        tables_.dataTypes.name(parameter.Parameter_Type), parameter.SubNode_ID);
    }
}

void ScenarioWriter::saveProviders(const entities::Lazy<entities::ProviderLinks>& links, std::int16_t NodeID,
                                   std::int16_t SubNode_ID, sql::LinkKind kind) {
    if (const auto* held = links.peek()) {
        for (const entities::ProviderProperties& link : *held) {
            SaveProviderLink(NodeID, SubNode_ID, kind, link);
        }
    }
}

void ScenarioWriter::saveRegulators(const entities::Lazy<entities::RegulatorLinks>& links, std::int16_t NodeID,
                                    std::int16_t SubNode_ID) {
    if (const auto* held = links.peek()) {
        for (const entities::RegulatorProperties& link : *held) {
            SaveRegulatorLink(NodeID, SubNode_ID, link);
        }
    }
}

void ScenarioWriter::SaveProviderLink(std::int16_t NodeID, std::int16_t SubNode_ID, sql::LinkKind kind,
                                      const entities::ProviderProperties& link) {
    repository_.run(sql::kAddLink, NodeID, SubNode_ID, kind, link.Provider_Key, link.Provider_Name, link.Provider_Type);
}

void ScenarioWriter::SaveRegulatorLink(std::int16_t NodeID, std::int16_t SubNode_ID,
                                       const entities::RegulatorProperties& link) {
    repository_.run(sql::kAddLink, NodeID, SubNode_ID, sql::kRegulatedFrom, link.Regulator_Key, link.Regulator_name,
                    link.Regulator_type);
}

void ScenarioWriter::SaveCommentNode(CommentProperties& comment, const LabelsD& node) {
    if (comment.NodeID == 0) {
        const std::int16_t id = addNodeRow(node.Caption(), node);
        repository_.run(sql::kAddComment, id, comment.Comment);
        comment.NodeID = id;
    } else if (comment.Changed) {
        changeNodeRow(node.Caption(), node, comment.NodeID);
        repository_.run(sql::kChangeComment, comment.Comment, comment.NodeID);
    }
}

void ScenarioWriter::SavePlainNode(LabelsD& node) {
    std::int16_t* id = std::get_if<std::int16_t>(&node.Properties);
    if (!id) {
        return;
    }
    if (*id == 0) {
        *id = addNodeRow(node.Caption(), node);
    } else {
        repository_.run(sql::kMoveNode, node.Left(), node.Top(), node.Width(), node.Height(), *id);
    }
}

}  // namespace orvent::repository
