#pragma once

#include <cstdint>
#include <string>

#include "entities/attributes.h"
#include "entities/functions.h"
#include "entities/name_tables.h"
#include "forms/list.h"

namespace orvent::editors {

/// The lines of a row's tip that say the whole keys of its far ends; each may be empty.
std::string linksTip(const std::string& sources, const std::string& targets);

/// A row without columns.
forms::ListRow newRow(const std::string& key, const std::string& text, std::int16_t tag, const char* image);

/// Sets type, sources and targets of the row from its entity.
void RefreshAttributeRow(const entities::AttributeProperties& attribute, forms::ListRow& row,
                         const entities::CatalogueTables& tables);
void RefreshParameterRow(const entities::ParameterProperties& parameter, forms::ListRow& row,
                         const entities::CatalogueTables& tables);
void refreshFunctionRow(const entities::FunctionProperties& function, std::int16_t activityType, forms::ListRow& row,
                        const entities::CatalogueTables& tables);

}  // namespace orvent::editors
