#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/tokens.h"

namespace orvent::odbc {

/// Whether an item of a table's definition that begins with the word, in lower case, is no column.
bool isConstraint(std::string_view word);

/// The columns of a table's definition that belong to keys, in lower case.
std::set<std::string> keyColumnsOf(const std::vector<Token>& tokens);

}  // namespace orvent::odbc
