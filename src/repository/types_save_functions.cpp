// Writing the type catalogue.

#include "repository/catalogue.h"
#include "repository/catalogue_statements.h"
#include "repository/type_rows.h"

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

void Catalogue::addDataType(StatementCache& repository, const std::string& name) {
    repository.run(sql::kAddDataType, name);
    tables.dataTypes.take(name);
}

void Catalogue::addFunctionType(StatementCache& repository, const FunctionTypeProperties& type) {
    TypeRows(repository, tables).add(type);
    tables.functionTypes.take(type.FunctionType_Name);
}

void Catalogue::addActivityType(StatementCache& repository, const ActivityTypeProperties& type) {
    TypeRows(repository, tables).add(type);
    tables.activityTypes.take(type.ActType_Name);
    tables.activityTypeSql.resize(tables.activityTypes.size());
    tables.activityTypeLdl.resize(tables.activityTypes.size());
    const auto index = static_cast<std::size_t>(ActivityTypeIndex(type.ActType_Name));
    tables.activityTypeSql[index] = type.ActType_SQL;
    tables.activityTypeLdl[index] = type.ActType_LDL;
}

/// What an index means gets another name. False when `write` found nothing to change.
template <class Write>
bool Catalogue::rename(entities::NameTable& table, std::int16_t index, const std::string& newName, Write write) {
    renaming_ = Renaming{&table, index, newName};
    bool found = false;
    try {
        StatementCache repository = openRepository(services_);
        found = write(repository);
    } catch (const platform::Fault&) {
        settleRenaming();
        throw;
    }
    renaming_.reset();
    if (found) {
        table.rename(index, newName);
    }
    return found;
}

/// A step broke off: looks which name is stored. When the line is down it is the next reload that finds out.
void Catalogue::settleRenaming() {
    try {
        StatementCache repository = openRepository(services_);
        refreshTables(repository);
    } catch (const platform::Fault&) {
        // The first fault is the one to be told.
    }
}

void Catalogue::SaveFunctionType(const FunctionTypeProperties& type) {
    {
        StatementCache repository = openRepository(services_);
        addFunctionType(repository, type);
    }
    LoadFunctionTypes();
    tell("FUNCTION TYPE SAVED");
}

void Catalogue::UpdateFunctionType(const FunctionTypeProperties& type) {
    const std::int16_t index = type.FunctionType_NameIndex;
    const std::string oldName = wholeFunctionType(index).FunctionType_Name;
    rename(tables.functionTypes, index, type.FunctionType_Name, [&](StatementCache& repository) {
        TypeRows(repository, tables).change(oldName, type);
        return true;
    });
    tell("FUNCTION TYPE UPDATED");
}

void Catalogue::SaveActivityType(const ActivityTypeProperties& type) {
    {
        StatementCache repository = openRepository(services_);
        addActivityType(repository, type);
    }
    LoadActivityTypes();
    tell("Activity TYPE SAVED");
}

void Catalogue::UpdateActivityType(const ActivityTypeProperties& type) {
    const std::int16_t index = type.ActType_NameIndex;
    const std::string oldName = wholeActivityType(index).ActType_Name;
    rename(tables.activityTypes, index, type.ActType_Name, [&](StatementCache& repository) {
        TypeRows(repository, tables).change(oldName, type);
        return true;
    });
    // The generators take their templates from these tables, so the texts follow the name.
    tables.activityTypeSql[static_cast<std::size_t>(index)] = type.ActType_SQL;
    tables.activityTypeLdl[static_cast<std::size_t>(index)] = type.ActType_LDL;
    tell("Activity TYPE UPDATED");
}

std::int16_t Catalogue::SaveDataType(const std::string& name) {
    try {
        StatementCache repository = openRepository(services_);
        addDataType(repository, name);
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);
        return tables.dataTypes.first();
    }
    try {
        // Whoever asked may hold indices already: a scenario or a type that is half read.
        loadOrEnd([this](StatementCache& repository) { readDataTypes(repository, true); });
        tell("DATA TYPE SAVED");
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);  // stored it is, and the table holds it
    }
    return tables.dataTypes.indexOf(name).value_or(tables.dataTypes.first());
}

void Catalogue::UpdateDataType(std::int16_t oldIndex, const std::string& newName) {
    const std::string oldName = tables.dataTypes.name(oldIndex);
    const bool found = rename(tables.dataTypes, oldIndex, newName, [&](StatementCache& repository) {
        // A driver may leave out a row that bears the name already.
        return repository.run(sql::kChangeDataType, newName, oldName).changedRows() != 0 ||
               (newName == oldName && isStored(repository, oldName));
    });
    if (!found) {
        throw TypeGone(oldName);
    }
    tell("DATA TYPE UPDATED");
    LoadDataTypes();
}

bool Catalogue::removeType(const std::string& name, std::initializer_list<std::string_view> statements,
                           const std::string& deleted, const std::string& refusal) {
    long long rows = 0;
    try {
        StatementCache repository = openRepository(services_);
        for (const std::string_view statement : statements) {
            rows = repository.run(statement, name).changedRows();
        }
    } catch (const platform::DatabaseError& error) {
        const bool referred = deleteErrorNumber(error) == platform::kStillReferred;
        services_.messages.tell(referred ? refusal : error.description(), {}, Icon::critical);
        return false;
    }
    tell(rows == 0 ? TypeGone(name).description() : deleted);  // the last one deletes the type itself
    return true;
}

bool Catalogue::DeleteFunctionType(std::int16_t index) {
    if (!removeType(tables.functionTypes.name(index), {sql::kDropFunctionTypeParams, sql::kDropFunctionType},
                    "FUNCTION TYPE DELETED",
                    "THIS FUNCTION IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!")) {
        return false;
    }
    LoadFunctionTypes();
    return true;
}

bool Catalogue::DeleteActivityType(std::int16_t index) {
    if (!removeType(tables.activityTypes.name(index),
                    {sql::kDropActivityTypeParams, sql::kDropActivityTypeFunctions, sql::kDropActivityType},
                    "Activity TYPE DELETED",
                    "THIS ACTIVITY TYPE IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!")) {
        return false;
    }
    LoadActivityTypes();
    return true;
}

bool Catalogue::DeleteDataType(std::int16_t index) {
    if (!removeType(tables.dataTypes.name(index), {sql::kDropDataType}, "DATA TYPE DELETED",
                    "THIS DATATYPE IS USED BY OTHER SCENARIOS IN THE DATABASE AND CANNOT BE DELETED!")) {
        return false;
    }
    LoadDataTypes();
    return true;
}

}  // namespace orvent::repository
