#include "shell/document_catalogue.h"

#include <vector>

#include "platform/name_list.h"
#include "platform/text_limit.h"
#include "repository/type_additions.h"

namespace orvent::shell {

namespace {

exchange::TypeDefinitions lackingOf(exchange::TypeDefinitions types, const entities::CatalogueTables& tables) {
    std::erase_if(types.data, [&](const std::string& name) { return tables.dataTypes.indexOf(name).has_value(); });
    std::erase_if(types.functions,
                  [&](const auto& type) { return tables.functionTypes.indexOf(type.name).has_value(); });
    std::erase_if(types.activities,
                  [&](const auto& type) { return tables.activityTypes.indexOf(type.name).has_value(); });
    return types;
}

/// Throws a `Fault` for a name that the repository cannot keep.
void refuseLongNames(const exchange::TypeDefinitions& types, const repository::StatementCache& repository) {
    const auto refuse = [](const std::string& name, const platform::TextLimit& limit, const char* of) {
        if (const std::string excess = limit.excess(name); !excess.empty()) {
            throw platform::Fault("The name " + platform::quotedShort(name) + " " + excess + of + ".");
        }
    };
    const auto refuseName = [&, limit = repository.textLimit(repository::kTypeNameWidth, platform::TextColumn::key)](
                                const std::string& name) { refuse(name, limit, " of a type's name"); };
    const auto refuseLines = [&, limit = repository.textLimit(repository::kTypeLineWidth, platform::TextColumn::plain)](
                                 const std::vector<exchange::TypeMember>& lines) {
        for (const exchange::TypeMember& line : lines) {
            refuse(line.name, limit, " of a name");
        }
    };
    for (const std::string& name : types.data) {
        refuseName(name);
    }
    for (const exchange::FunctionTypeDefinition& type : types.functions) {
        refuseName(type.name);
        refuseLines(type.inputs);
        refuseLines(type.outputs);
    }
    for (const exchange::ActivityTypeDefinition& type : types.activities) {
        refuseName(type.name);
        refuseLines(type.outputs);
        refuseLines(type.parameters);
        refuseLines(type.functions);
    }
}

}  // namespace

std::optional<entities::FunctionTypeProperties> DocumentCatalogue::functionType(std::int16_t index) {
    try {
        return catalogue_.wholeFunctionType(index);
    } catch (const repository::TypeGone&) {
        return std::nullopt;
    }
}

std::optional<entities::ActivityTypeProperties> DocumentCatalogue::activityType(std::int16_t index) {
    try {
        return catalogue_.wholeActivityType(index);
    } catch (const repository::TypeGone&) {
        return std::nullopt;
    }
}

void DocumentCatalogue::add(const exchange::TypeDefinitions& types) {
    repository::StatementCache repository = repository::openRepository(services_);
    catalogue_.refreshTables(repository);
    const entities::CatalogueTables& tables = catalogue_.tables;
    const exchange::TypeDefinitions lacking = lackingOf(types, tables);
    repository::TypeAdditions additions(catalogue_, repository);
    try {
        refuseLongNames(lacking, repository);
        for (const std::string& name : lacking.data) {
            additions.add(name);
        }
        for (const exchange::FunctionTypeDefinition& type : lacking.functions) {
            additions.add(exchange::propertiesOf(type, tables));
        }
        for (const exchange::ActivityTypeDefinition& type : lacking.activities) {
            additions.add(exchange::propertiesOf(type, tables));
        }
    } catch (const platform::Fault& fault) {
        std::string words = "The types were not added.\n" + fault.description();
        if (const auto left = additions.takeBack(); !left.empty()) {
            words += "\nThese may be there in part: " + platform::nameList(left) + ".";
        }
        try {
            catalogue_.refreshTables(repository);
        } catch (const platform::Fault&) {
            // The next reload finds out what is there; the first fault is the one to be told.
        }
        throw platform::Fault(words);
    }
}

}  // namespace orvent::shell
