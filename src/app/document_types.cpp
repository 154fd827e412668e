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

}  // namespace orvent::app
