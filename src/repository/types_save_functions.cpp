// Writing the type catalogue.

#include "repository/catalogue.h"
#include "repository/catalogue_statements.h"

namespace orvent::repository {

using entities::ActivityTypeProperties;
using entities::FunctionTypeProperties;
using platform::Icon;

namespace {

/// The number by which the product knows a failed DELETE.
std::uint32_t deleteErrorNumber(const platform::DatabaseError& error) {
    return error.integrityViolation() ? platform::kStillReferred : 0;
}

bool isStored(StatementCache& repository, const std::string& dataType) {
    platform::Statement& names = repository.run(sql::kDataTypes);
    bool found = false;
    while (names.fetch()) {
        found = found || names.text(1) == dataType;
    }
    return found;
}

}  // namespace

void Catalogue::tell(const std::string& text) {
    services_.messages.tell(text, {}, Icon::information);
}

void Catalogue::writeParams(StatementCache& repository, const FunctionTypeProperties& type) const {
    if (const auto* inputs = type.FunctionType_Inputs.peek()) {
        for (const entities::InputProperties& input : *inputs) {
            repository.run(sql::kAddFunctionTypeParam, type.FunctionType_Name, sql::kKindInput, input.Input_Name,
                           tables.dataTypes.name(input.Input_Type));
        }
    }
    if (const auto* outputs = type.FunctionType_Outputs.peek()) {
        for (const entities::OutputProperties& output : *outputs) {
            repository.run(sql::kAddFunctionTypeParam, type.FunctionType_Name, sql::kKindOutput, output.Output_Name,
                           tables.dataTypes.name(output.Output_Type));
        }
    }
}

void Catalogue::writeDependents(StatementCache& repository, const ActivityTypeProperties& type) const {
    if (const auto* parameters = type.ActType_Parameters.peek()) {
        for (const entities::ParamProperties& parameter : *parameters) {
            repository.run(sql::kAddActivityTypeParam, type.ActType_Name, sql::kKindParam, parameter.Parameter_Name,
                           tables.dataTypes.name(parameter.Parameter_Type));
        }
    }
    if (const auto* outputs = type.ActType_OutPuts.peek()) {
        for (const entities::OutputProperties& output : *outputs) {
            repository.run(sql::kAddActivityTypeParam, type.ActType_Name, sql::kKindOutput, output.Output_Name,
                           tables.dataTypes.name(output.Output_Type));
        }
    }
    if (const auto* functions = type.ActType_Functions.peek()) {
        for (const entities::UsedFunctionProperties& function : *functions) {
            repository.run(sql::kAddActivityTypeFunction, type.ActType_Name, function.Function_Name,
                           tables.functionTypes.name(function.Function_Type));
        }
    }
}

void Catalogue::SaveFunctionType(const FunctionTypeProperties& type) {
    {
        StatementCache repository = openRepository(services_);
        repository.run(sql::kAddFunctionType, type.FunctionType_Name, type.FunctionType_Description);
        writeParams(repository, type);
    }
    LoadFunctionTypes();
    tell("FUNCTION TYPE SAVED");
}

void Catalogue::UpdateFunctionType(const FunctionTypeProperties& type) {
    const std::string oldName = wholeFunctionType(type.FunctionType_NameIndex).FunctionType_Name;
    {
        StatementCache repository = openRepository(services_);
        repository.run(sql::kDropFunctionTypeParams, oldName);
        repository.run(sql::kChangeFunctionType, type.FunctionType_Name, type.FunctionType_Description, oldName);
        writeParams(repository, type);
    }
    tables.functionTypes.rename(type.FunctionType_NameIndex, type.FunctionType_Name);
    tell("FUNCTION TYPE UPDATED");
}

void Catalogue::SaveActivityType(const ActivityTypeProperties& type) {
    {
        StatementCache repository = openRepository(services_);
        repository.run(sql::kAddActivityType, type.ActType_Name, type.ActType_Description, type.ActType_SQL,
                       type.ActType_SchemaNo, type.ActType_ProviderSemantics, type.ActType_ConsumerSemantics,
                       type.ActType_LDL);
        writeDependents(repository, type);
    }
    LoadActivityTypes();
    tell("Activity TYPE SAVED");
}

void Catalogue::UpdateActivityType(const ActivityTypeProperties& type) {
    const std::int16_t index = type.ActType_NameIndex;
    const std::string oldName = wholeActivityType(index).ActType_Name;
    {
        StatementCache repository = openRepository(services_);
        repository.run(sql::kDropActivityTypeParams, oldName);
        repository.run(sql::kDropActivityTypeFunctions, oldName);
        repository.run(sql::kChangeActivityType, type.ActType_Name, type.ActType_Description, type.ActType_SQL,
                       type.ActType_SchemaNo, type.ActType_ProviderSemantics, type.ActType_ConsumerSemantics,
                       type.ActType_LDL, oldName);
        writeDependents(repository, type);
    }
    tables.activityTypes.rename(index, type.ActType_Name);
    // The generators take their templates from these tables, so the texts follow the name.
    tables.activityTypeSql[static_cast<std::size_t>(index)] = type.ActType_SQL;
    tables.activityTypeLdl[static_cast<std::size_t>(index)] = type.ActType_LDL;
    tell("Activity TYPE UPDATED");
}

std::int16_t Catalogue::SaveDataType(const std::string& name) {
    try {
        openRepository(services_).run(sql::kAddDataType, name);
        tables.dataTypes.add(name);
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);
        return 0;
    }
    try {
        LoadDataTypes();
        tell("DATA TYPE SAVED");
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);  // stored it is, and the table holds it
    }
    return tables.dataTypes.indexOf(name).value_or(0);
}

void Catalogue::UpdateDataType(std::int16_t oldIndex, const std::string& newName) {
    const std::string oldName = tables.dataTypes.name(oldIndex);
    {
        StatementCache repository = openRepository(services_);
        // A driver may leave out a row that bears the name already.
        if (repository.run(sql::kChangeDataType, newName, oldName).changedRows() == 0 &&
            (newName != oldName || !isStored(repository, oldName))) {
            throw TypeGone(oldName);
        }
    }
    tell("DATA TYPE UPDATED");
    LoadDataTypes();
}

bool Catalogue::removeType(const std::string& name, std::initializer_list<std::string_view> statements,
                           const std::string& refusal) {
    try {
        StatementCache repository = openRepository(services_);
        for (const std::string_view statement : statements) {
            repository.run(statement, name);
        }
        return true;
    } catch (const platform::DatabaseError& error) {
        const bool referred = deleteErrorNumber(error) == platform::kStillReferred;
        services_.messages.tell(referred ? refusal : error.description(), {}, Icon::critical);
    }
    return false;
}

bool Catalogue::DeleteFunctionType(std::int16_t index) {
    if (!removeType(tables.functionTypes.name(index), {sql::kDropFunctionTypeParams, sql::kDropFunctionType},
                    "THIS FUNCTION IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!")) {
        return false;
    }
    tell("FUNCTION TYPE DELETED");
    LoadFunctionTypes();
    return true;
}

bool Catalogue::DeleteActivityType(std::int16_t index) {
    if (!removeType(tables.activityTypes.name(index),
                    {sql::kDropActivityTypeParams, sql::kDropActivityTypeFunctions, sql::kDropActivityType},
                    "THIS ACTIVITY TYPE IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!")) {
        return false;
    }
    tell("Activity TYPE DELETED");
    LoadActivityTypes();
    return true;
}

bool Catalogue::DeleteDataType(std::int16_t index) {
    if (!removeType(tables.dataTypes.name(index), {sql::kDropDataType},
                    "THIS DATATYPE IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!")) {
        return false;
    }
    tell("DATA TYPE DELETED");
    LoadDataTypes();
    return true;
}

}  // namespace orvent::repository
