#pragma once

#include <string>

#include "entities/name_tables.h"
#include "exchange/extract.h"
#include "exchange/type_definitions.h"

namespace orvent::exchange {

struct WriteOptions {
    std::string program;  ///< the version of this program
    bool stored = false;  ///< with the rows that the scenario stands for, for this user's own windows alone
};

/// The document of a scenario. The same scenario gives the same bytes, whatever the order of the catalogue's tables:
/// UTF-8, members in a fixed order, two blanks a level, each member and each list of links on a line of its own.
/// Of `types` it takes what `definitionsFor` has gathered.
std::string writeDocument(const Extract& extract, const entities::CatalogueTables& tables, const TypeDefinitions& types,
                          const WriteOptions& options);

/// The same for a whole scenario.
std::string writeDocument(const canvas::DrawForm& form, const entities::CatalogueTables& tables,
                          const TypeDefinitions& types, const WriteOptions& options);

}  // namespace orvent::exchange
