#include "shell/stored_types.h"

#include <algorithm>

#include "repository/catalogue_statements.h"

namespace orvent::shell {

using exchange::TypeDefinitions;

namespace {

template <class Read>
auto orNothing(const Read& read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const repository::TypeGone&) {
        return std::nullopt;
    }
}

/// Takes types away again. A type that is refused stays: the fault that led here is the one to be told.
void takeBack(const TypeDefinitions& types, repository::StatementCache& repository) {
    const auto drop = [&repository](std::string_view sql, const std::string& name) {
        try {
            repository.run(sql, name);
        } catch (const platform::Fault&) {
        }
    };
    for (const exchange::ActivityTypeDefinition& type : types.activities) {
        drop(repository::sql::kDropActivityTypeParams, type.name);
        drop(repository::sql::kDropActivityTypeFunctions, type.name);
        drop(repository::sql::kDropActivityType, type.name);
    }
    for (const exchange::FunctionTypeDefinition& type : types.functions) {
        drop(repository::sql::kDropFunctionTypeParams, type.name);
        drop(repository::sql::kDropFunctionType, type.name);
    }
    for (const std::string& name : types.data) {
        drop(repository::sql::kDropDataType, name);
    }
}

/// The last type is another user's, who was quicker.
void forgetLast(TypeDefinitions& types) {
    if (!types.activities.empty()) {
        types.activities.pop_back();
    } else if (!types.functions.empty()) {
        types.functions.pop_back();
    }
}

/// The names of a table that are stored.
std::vector<std::int16_t> stored(const entities::NameTable& table) {
    std::vector<std::int16_t> indices = table.listed();
    std::ranges::sort(indices, {}, [&table](std::int16_t index) { return table.name(index); });
    return indices;
}

}  // namespace

std::optional<entities::FunctionTypeProperties> StoredTypes::functionType(std::int16_t index) {
    return orNothing([&] { return catalogue_.wholeFunctionType(index); });
}

std::optional<entities::ActivityTypeProperties> StoredTypes::activityType(std::int16_t index) {
    return orNothing([&] { return catalogue_.wholeActivityType(index); });
}

void StoredTypes::add(const TypeDefinitions& types) {
    repository::StatementCache repository = openRepository(services_);
    TypeDefinitions written;
    try {
        write(types, repository, written);
    } catch (const platform::Fault& fault) {
        const auto* refused = dynamic_cast<const platform::DatabaseError*>(&fault);
        if (refused && refused->integrityViolation()) {
            forgetLast(written);
        }
        takeBack(written, repository);
        catalogue_.refreshTables(repository);
        throw;
    }
}

void StoredTypes::write(const TypeDefinitions& types, repository::StatementCache& repository,
                        TypeDefinitions& written) {
    for (const std::string& name : types.data) {
        catalogue_.addDataType(repository, name);
        written.data.push_back(name);
    }
    // Of a type whose lines are refused its own row is there already.
    for (const exchange::FunctionTypeDefinition& type : types.functions) {
        written.functions.push_back(type);
        catalogue_.addFunctionType(repository, propertiesOf(type, tables()));
    }
    for (const exchange::ActivityTypeDefinition& type : types.activities) {
        written.activities.push_back(type);
        catalogue_.addActivityType(repository, propertiesOf(type, tables()));
    }
}

TypeDefinitions StoredTypes::all() {
    TypeDefinitions types;
    for (const std::int16_t index : stored(tables().dataTypes)) {
        types.data.push_back(tables().dataTypes.name(index));
    }
    for (const std::int16_t index : stored(tables().functionTypes)) {
        if (const auto type = functionType(index)) {
            types.functions.push_back(exchange::definitionOf(*type, tables()));
        }
    }
    for (const std::int16_t index : stored(tables().activityTypes)) {
        if (const auto type = activityType(index)) {
            types.activities.push_back(exchange::definitionOf(*type, tables()));
        }
    }
    return types;
}

}  // namespace orvent::shell
