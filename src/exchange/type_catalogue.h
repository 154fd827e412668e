#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "entities/name_tables.h"
#include "entities/type_records.h"
#include "exchange/document.h"
#include "exchange/extract.h"

namespace orvent::exchange {

/// What documents need of the catalogue.
class TypeCatalogue {
  public:
    virtual ~TypeCatalogue() = default;

    virtual entities::CatalogueTables& tables() = 0;

    /// A whole type by its index, or nothing when it is stored no more. Throws a `Fault` when it cannot be read.
    virtual std::optional<entities::FunctionTypeProperties> functionType(std::int16_t index) = 0;
    virtual std::optional<entities::ActivityTypeProperties> activityType(std::int16_t index) = 0;

    /// Adds types, data types first; the tables know them then. All or none, as far as the repository allows; throws a
    /// `Fault` otherwise.
    virtual void add(const TypeDefinitions& types) = 0;
};

/// A type as its definition has it, and the other way round. Each type that a definition names must be in the tables.
FunctionTypeDefinition definitionOf(const entities::FunctionTypeProperties& type,
                                    const entities::CatalogueTables& tables);
ActivityTypeDefinition definitionOf(const entities::ActivityTypeProperties& type,
                                    const entities::CatalogueTables& tables);
entities::FunctionTypeProperties propertiesOf(const FunctionTypeDefinition& type,
                                              const entities::CatalogueTables& tables);
entities::ActivityTypeProperties propertiesOf(const ActivityTypeDefinition& type,
                                              const entities::CatalogueTables& tables);

/// The definitions of all types that the nodes use, and of those that these types use. What is stored no more has none.
TypeDefinitions definitionsFor(const Extract& extract, TypeCatalogue& catalogue);

/// How the types of a document stand in a catalogue.
struct TypeComparison {
    TypeDefinitions lacking;             ///< that the document defines and the catalogue lacks
    std::vector<std::string> undefined;  ///< lacking, and not defined by the document; a kind and a name
    std::vector<std::string> differing;  ///< of the same name, with another definition; a kind and a name

    bool nothingLacks() const { return lacking.empty() && undefined.empty(); }
};

TypeComparison compareTypes(const Document& document, TypeCatalogue& catalogue);

}  // namespace orvent::exchange
