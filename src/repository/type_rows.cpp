#include "repository/type_rows.h"

#include <utility>
#include <vector>

#include "repository/catalogue_statements.h"

namespace orvent::repository {

using entities::ActivityTypeProperties;
using entities::FunctionTypeProperties;
using platform::checkedI16;
using platform::Statement;

template <class Add>
void TypeRows::eachParam(std::string_view sql, const std::string& type, std::string_view kind,
                         const DataTypeIndex& indexOf, Add add) {
    // All rows are read before the first type name may lead to a question and to writing.
    std::vector<std::pair<std::string, std::string>> rows;
    Statement& params = repository_.run(sql, type, kind);
    while (params.fetch()) {
        rows.emplace_back(params.text(1), params.text(2));
    }
    for (const auto& [name, dataType] : rows) {
        add(name, indexOf(dataType));
    }
}

bool TypeRows::read(ActivityTypeProperties& type, const DataTypeIndex& indexOf) {
    bool found = false;
    Statement& row = repository_.run(sql::kActivityType, type.ActType_Name);
    while (row.fetch()) {
        found = true;
        type.ActType_Description = row.text(1);
        type.ActType_SQL = row.text(2);
        type.ActType_LDL = row.text(3);
        type.ActType_SchemaNo = checkedI16(row.number(4), "Schema number");
        type.ActType_ProviderSemantics = checkedI16(row.number(5), "Provider semantics");
        type.ActType_ConsumerSemantics = checkedI16(row.number(6), "Consumer semantics");
    }
    eachParam(
        sql::kActivityTypeParams, type.ActType_Name, sql::kKindParam, indexOf,
        [&](const std::string& name, std::int16_t dataType) { type.ActType_Parameters->Add(name, dataType, name); });
    eachParam(sql::kActivityTypeParams, type.ActType_Name, sql::kKindOutput, indexOf,
              [&](const std::string& name, std::int16_t dataType) { type.ActType_OutPuts->Add(name, dataType, name); });
    Statement& functions = repository_.run(sql::kActivityTypeFunctions, type.ActType_Name);
    while (functions.fetch()) {
        const std::string name = functions.text(1);
        type.ActType_Functions->Add(
            name, tables_.functionTypes.indexOf(functions.text(2)).value_or(tables_.functionTypes.first()), name);
    }
    return found;
}

bool TypeRows::read(FunctionTypeProperties& type, const DataTypeIndex& indexOf) {
    bool found = false;
    Statement& row = repository_.run(sql::kFunctionType, type.FunctionType_Name);
    while (row.fetch()) {
        found = true;
        type.FunctionType_Description = row.text(1);
    }
    eachParam(
        sql::kFunctionTypeParams, type.FunctionType_Name, sql::kKindInput, indexOf,
        [&](const std::string& name, std::int16_t dataType) { type.FunctionType_Inputs->Add(name, dataType, name); });
    eachParam(
        sql::kFunctionTypeParams, type.FunctionType_Name, sql::kKindOutput, indexOf,
        [&](const std::string& name, std::int16_t dataType) { type.FunctionType_Outputs->Add(name, dataType, name); });
    return found;
}

void TypeRows::addMembers(const FunctionTypeProperties& type) {
    if (const auto* inputs = type.FunctionType_Inputs.peek()) {
        for (const entities::InputProperties& input : *inputs) {
            repository_.run(sql::kAddFunctionTypeParam, type.FunctionType_Name, sql::kKindInput, input.Input_Name,
                            tables_.dataTypes.name(input.Input_Type));
        }
    }
    if (const auto* outputs = type.FunctionType_Outputs.peek()) {
        for (const entities::OutputProperties& output : *outputs) {
            repository_.run(sql::kAddFunctionTypeParam, type.FunctionType_Name, sql::kKindOutput, output.Output_Name,
                            tables_.dataTypes.name(output.Output_Type));
        }
    }
}

void TypeRows::addMembers(const ActivityTypeProperties& type) {
    if (const auto* parameters = type.ActType_Parameters.peek()) {
        for (const entities::ParamProperties& parameter : *parameters) {
            repository_.run(sql::kAddActivityTypeParam, type.ActType_Name, sql::kKindParam, parameter.Parameter_Name,
                            tables_.dataTypes.name(parameter.Parameter_Type));
        }
    }
    if (const auto* outputs = type.ActType_OutPuts.peek()) {
        for (const entities::OutputProperties& output : *outputs) {
            repository_.run(sql::kAddActivityTypeParam, type.ActType_Name, sql::kKindOutput, output.Output_Name,
                            tables_.dataTypes.name(output.Output_Type));
        }
    }
    if (const auto* functions = type.ActType_Functions.peek()) {
        for (const entities::UsedFunctionProperties& function : *functions) {
            repository_.run(sql::kAddActivityTypeFunction, type.ActType_Name, function.Function_Name,
                            tables_.functionTypes.name(function.Function_Type));
        }
    }
}

void TypeRows::add(const FunctionTypeProperties& type) {
    repository_.run(sql::kAddFunctionType, type.FunctionType_Name, type.FunctionType_Description);
    addMembers(type);
}

void TypeRows::add(const ActivityTypeProperties& type) {
    repository_.run(sql::kAddActivityType, type.ActType_Name, type.ActType_Description, type.ActType_SQL,
                    type.ActType_SchemaNo, type.ActType_ProviderSemantics, type.ActType_ConsumerSemantics,
                    type.ActType_LDL);
    addMembers(type);
}

void TypeRows::change(const std::string& oldName, const FunctionTypeProperties& type) {
    repository_.run(sql::kDropFunctionTypeParams, oldName);
    repository_.run(sql::kChangeFunctionType, type.FunctionType_Name, type.FunctionType_Description, oldName);
    addMembers(type);
}

void TypeRows::change(const std::string& oldName, const ActivityTypeProperties& type) {
    repository_.run(sql::kDropActivityTypeParams, oldName);
    repository_.run(sql::kDropActivityTypeFunctions, oldName);
    repository_.run(sql::kChangeActivityType, type.ActType_Name, type.ActType_Description, type.ActType_SQL,
                    type.ActType_SchemaNo, type.ActType_ProviderSemantics, type.ActType_ConsumerSemantics,
                    type.ActType_LDL, oldName);
    addMembers(type);
}

}  // namespace orvent::repository
