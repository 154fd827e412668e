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

/// What a row of a dialog's lists stands for.
enum class RowKind : std::int16_t { input, output, parameter, constant, function };

/// A row without columns.
forms::ListRow newRow(const std::string& key, const std::string& text, entities::TagCode tag, RowKind kind);
/// How what the row stands for came to its list.
inline entities::TagCode tagOf(const forms::ListRow& row) {
    return static_cast<entities::TagCode>(row.Tag);
}

/// Its picture, and whether its label can be edited, follow from what it stands for.
void setKind(forms::ListRow& row, RowKind kind);
inline RowKind kindOf(const forms::ListRow& row) {
    return static_cast<RowKind>(row.Kind);
}
inline bool isFunctionRow(const forms::ListRow& row) {
    return kindOf(row) == RowKind::function;
}

/// Sets type, sources and targets of the row from its entity.
void RefreshAttributeRow(const entities::AttributeProperties& attribute, forms::ListRow& row,
                         const entities::CatalogueTables& tables);
void RefreshParameterRow(const entities::ParameterProperties& parameter, forms::ListRow& row,
                         const entities::CatalogueTables& tables);
void refreshFunctionRow(const entities::FunctionProperties& function, std::int16_t activityType, forms::ListRow& row,
                        const entities::CatalogueTables& tables);

}  // namespace orvent::editors
