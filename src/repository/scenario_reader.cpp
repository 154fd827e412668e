#include "repository/scenario_reader.h"

#include "entities/members.h"
#include "repository/scenario_statements.h"

namespace orvent::repository {

using entities::ActivityProperties;
using entities::AttributeProperties;
using entities::FunctionProperties;
using entities::LinkType;
using entities::ParameterProperties;
using entities::RecordSetProperties;
using platform::Statement;

namespace {

/// A null or empty text leaves the field as it is.
void copyFilled(Statement& row, int column, std::string& field) {
    std::string text = row.text(column);
    if (!text.empty()) {
        field = std::move(text);
    }
}

}  // namespace

std::string ScenarioReader::commentText(std::int16_t NodeID) {
    std::string text;
    Statement& row = repository_.run(sql::kCommentText, NodeID);
    while (row.fetch()) {
        text = row.text(1);
    }
    return text;
}

/// Adds a member without owner and links; nothing when the list has one of that key.
template <class Collection>
auto* ScenarioReader::addMember(Collection& collection, const SubNodeRow& row) {
    const std::int16_t type = catalogue_.DataTypeIndex(row.type);
    decltype(collection.Item(row.key)) added = nullptr;
    if (!collection.Item(row.key)) {
        if constexpr (requires { collection.Add(row.name, type, row.tag, row.key); }) {
            added = &collection.Add(row.name, type, row.tag, row.key);
        } else {
            added = &collection.Add(row.name, type, row.key);
        }
        added->SubNode_ID = row.id;
        added->NodeKind = row.kind;
    }
    return added;
}

void ScenarioReader::LoadActivity(ActivityProperties& activity) {
    readActivityRow(activity);
    for (const SubNodeRow& row : subNodeRows(sql::kActivitySubNodes, activity.NodeID, true)) {
        entities::withList(activity, row.kind, [&](auto& list, entities::NodeKindCode) {
            if (auto* member = addMember(*list, row)) {
                member->ParentKeyName = activity.Act_Name;
                readLinks(*member);
            }
        });
    }
    loadFunctions(activity);
}

void ScenarioReader::readActivityRow(ActivityProperties& activity) {
    std::string type;
    Statement& row = repository_.run(sql::kActivity, activity.NodeID);
    while (row.fetch()) {
        copyFilled(row, 1, activity.Act_Description);
        type = row.text(2);
        copyFilled(row, 3, activity.Act_Log);
        copyFilled(row, 4, activity.Act_SQL);
        copyFilled(row, 5, activity.Act_LDL);
        if (!row.isNull(6)) {
            activity.Act_SchemaNo = code(row, 6);
        }
    }
    activity.Act_Type = catalogue_.ActivityTypeIndex(type);
}

std::vector<ScenarioReader::SubNodeRow> ScenarioReader::subNodeRows(std::string_view sql, std::int16_t owner,
                                                                    bool tagged) {
    std::vector<SubNodeRow> rows;
    Statement& row = repository_.run(sql, owner);
    while (row.fetch()) {
        rows.push_back({identifier(row, 1), row.text(2), codeAs<entities::NodeKindCode>(row, 3), row.text(4),
                        row.text(5), tagged ? codeAs<entities::TagCode>(row, 6) : entities::TagNone});
    }
    return rows;
}

void ScenarioReader::loadFunctions(ActivityProperties& activity) {
    std::vector<FunctionRow> rows;
    Statement& found = repository_.run(sql::kActivityFunctions, activity.NodeID);
    while (found.fetch()) {
        rows.push_back(
            {identifier(found, 1), found.text(2), codeAs<entities::FunctionSourceCode>(found, 3), found.text(4)});
    }
    for (const FunctionRow& row : rows) {
        FunctionProperties function;
        function.Function_Key = row.key;
        function.Function_Name = row.key;
        function.Function_Source = row.source;
        function.Function_Type = catalogue_.FunctionTypeIndex(row.type);
        function.FunctionID = row.id;
        function.setParentKeyName(activity.Act_Name);
        loadFunctionSubNodes(function);
        if (!activity.Act_Functions->Item(row.key)) {
            activity.Act_Functions->AddFunctionProps(function, "", 0);
        }
    }
}

void ScenarioReader::loadFunctionSubNodes(FunctionProperties& function) {
    for (const SubNodeRow& row : subNodeRows(sql::kFunctionSubNodes, function.FunctionID, false)) {
        entities::withList(function, row.kind, [&](auto& list, entities::NodeKindCode kind) {
            if (ParameterProperties* parameter = addMember(*list, row)) {
                parameter->ParentKeyName = function.Function_Key;
                parameter->ParentFunctionActivity = function.ParentKeyName();
                if (kind == entities::KindFunctionInput) {
                    readLinks(*parameter);
                }
            }
        });
    }
}

void ScenarioReader::readLinks(AttributeProperties& attribute) {
    Statement& row = repository_.run(sql::kLinksByKind, attribute.SubNode_ID);
    while (row.fetch()) {
        switch (row.number(1)) {
            case sql::kProvidedFrom:
                attribute.ProvidedFrom->Add(row.text(4), codeAs<LinkType>(row, 3), row.text(2));
                break;
            case sql::kRegulatedFrom:
                attribute.RegulatedFrom->Add(row.text(4), codeAs<LinkType>(row, 3), row.text(2));
                break;
            case sql::kProviderFor:
                attribute.ProviderFor->Add(row.text(4), codeAs<LinkType>(row, 3), row.text(2));
                break;
            default:
                break;
        }
    }
}

void ScenarioReader::readLinks(ParameterProperties& parameter) {
    Statement& row = repository_.run(sql::kLinks, parameter.SubNode_ID);
    while (row.fetch()) {
        parameter.RegulatedFrom->Add(row.text(3), codeAs<LinkType>(row, 2), row.text(1));
    }
}

void ScenarioReader::LoadRecordSet(RecordSetProperties& recordSet) {
    Statement& row = repository_.run(sql::kRecordSet, recordSet.NodeID);
    while (row.fetch()) {
        copyFilled(row, 1, recordSet.RecordSet_SQL);
    }
    struct OutputRow {
        std::int16_t id;
        std::string key;
        std::string dbKey;
        std::string type;
    };
    std::vector<OutputRow> rows;
    Statement& found = repository_.run(sql::kRecordSetOutputs, recordSet.NodeID);
    while (found.fetch()) {
        rows.push_back({identifier(found, 1), found.text(2), found.text(3), found.text(4)});
    }
    for (const OutputRow& output : rows) {
        const std::int16_t type = catalogue_.DataTypeIndex(output.type);
        if (recordSet.RecordSet_Outputs->Item(output.key)) {
            continue;
        }
        // The name of a record set's attribute is not stored: it equals its key.
        AttributeProperties& attribute = recordSet.RecordSet_Outputs->Add(output.key, type, output.key);
        attribute.NodeKind = entities::KindRecordSetAttribute;
        attribute.ParentKeyName = recordSet.RecordSet_Name;
        attribute.SubNode_ID = output.id;
        recordSet.addDbKey(output.key, output.dbKey);
        Statement& links = repository_.run(sql::kLinks, attribute.SubNode_ID);
        while (links.fetch()) {
            attribute.ProviderFor->Add(links.text(3), codeAs<LinkType>(links, 2), links.text(1));
        }
    }
}

}  // namespace orvent::repository
