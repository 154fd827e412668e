#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvent::statements {

/// The notation for what an activity type's SQL refers to: the input attributes of an activity, and the sources they
/// come from, overall and for its first and second input. No operation fills them in; they are only coloured.
inline constexpr std::array<std::string_view, 8> kSqlPlaceholders = {
    "[INPUTS]", "[INPUTS1]", "[INPUTS2]", "[SOURCES]", "[SOURCES1]", "[SOURCES2]", "[", "]"};

/// A row of a record set's attribute list.
struct AttributeRow {
    std::string Key;   ///< `<alias>.<table>.<column>`; the table may hold dots
    std::string Text;  ///< the attribute's name in the record set
};

/// The SELECT that defines a record set with these attributes, with its leading blank. The alias does not reach it, and
/// several tables are not joined. Nothing without rows: then the text at hand is kept.
std::optional<std::string> CreateSelectStatement(const std::vector<AttributeRow>& listItems);

}  // namespace orvent::statements
