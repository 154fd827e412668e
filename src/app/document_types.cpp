#include "app/document_types.h"

#include <algorithm>
#include <utility>

namespace orvent::app {

namespace {

template <class Definition>
const Definition* named(const std::vector<Definition>& types, const std::string& name) {
    const auto found = std::ranges::find(types, name, &Definition::name);
    return found == types.end() ? nullptr : &*found;
}

/// The rows of a table that are stored, by name.
std::vector<std::int16_t> storedRows(const entities::NameTable& table) {
    std::vector<std::int16_t> indices = table.listed();
    std::ranges::sort(indices, {}, [&table](std::int16_t index) { return table.name(index); });
    return indices;
}

void take(entities::NameTable& table, const std::string& name) {
    if (!name.empty()) {
        table.take(name);
    }
}

}  // namespace

DocumentTypes::DocumentTypes(const exchange::Document& document) : types_(document.types) {
    for (const std::vector<std::string>* names : {&std::as_const(types_.data), &document.dataTypes}) {
        for (const std::string& name : *names) {
            take(tables_.dataTypes, name);
        }
    }
    for (const exchange::FunctionTypeDefinition& type : types_.functions) {
        take(tables_.functionTypes, type.name);
    }
    for (const std::string& name : document.functionTypes) {
        take(tables_.functionTypes, name);
    }
    for (const exchange::ActivityTypeDefinition& type : types_.activities) {
        tables_.keepActivityType(type.name, type.sql, type.ldl);
        take(tables_.activityTypes, type.name);
    }
    for (const std::string& name : document.activityTypes) {
        if (!name.empty() && !named(types_.activities, name)) {
            tables_.keepActivityType(name, "", "");
            take(tables_.activityTypes, name);
        }
    }
}

std::optional<entities::FunctionTypeProperties> DocumentTypes::functionType(std::int16_t index) {
    const auto* type = named(types_.functions, tables_.functionTypes.name(index));
    return type ? std::optional(propertiesOf(*type, tables_)) : std::nullopt;
}

std::optional<entities::ActivityTypeProperties> DocumentTypes::activityType(std::int16_t index) {
    const auto* type = named(types_.activities, tables_.activityTypes.name(index));
    return type ? std::optional(propertiesOf(*type, tables_)) : std::nullopt;
}

exchange::TypeDefinitions allTypes(exchange::TypeCatalogue& catalogue) {
    exchange::TypeDefinitions types;
    const entities::CatalogueTables& tables = catalogue.tables();
    for (const std::int16_t index : storedRows(tables.dataTypes)) {
        types.data.push_back(tables.dataTypes.name(index));
    }
    for (const std::int16_t index : storedRows(tables.functionTypes)) {
        if (const auto type = catalogue.functionType(index)) {
            types.functions.push_back(exchange::definitionOf(*type, tables));
        }
    }
    for (const std::int16_t index : storedRows(tables.activityTypes)) {
        if (const auto type = catalogue.activityType(index)) {
            types.activities.push_back(exchange::definitionOf(*type, tables));
        }
    }
    return types;
}

}  // namespace orvent::app
