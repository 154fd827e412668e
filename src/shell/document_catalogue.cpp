#include "shell/document_catalogue.h"

#include "platform/name_list.h"
#include "repository/type_additions.h"

namespace orvent::shell {

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
    repository::TypeAdditions additions(catalogue_, repository);
    try {
        for (const std::string& name : types.data) {
            if (!tables.dataTypes.indexOf(name)) {
                additions.add(name);
            }
        }
        for (const exchange::FunctionTypeDefinition& type : types.functions) {
            if (!tables.functionTypes.indexOf(type.name)) {
                additions.add(exchange::propertiesOf(type, tables));
            }
        }
        for (const exchange::ActivityTypeDefinition& type : types.activities) {
            if (!tables.activityTypes.indexOf(type.name)) {
                additions.add(exchange::propertiesOf(type, tables));
            }
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
