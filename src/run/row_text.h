#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "entities/node_facts.h"

namespace orvent::run {

/// Rows as text: a line each, values parted by commas, or by tabs for other programs' tables. NULL is nothing at all,
/// the empty text two quotation marks. A value that holds what parts values stands in quotation marks, doubled within.
std::string rowText(const std::vector<std::string>& columns, const std::vector<entities::FieldRow>& rows,
                    char separator);

/// Takes such a text apart. Values are parted by tabs, semicolons or commas, whichever stands first outside quotation
/// marks. The first line names the columns where one of its values is the name of one of `columns`; other names there
/// are left out. Else values go to the columns in their order. Throws a `platform::Fault` that names the line of a row
/// with more values than there are columns.
entities::Facts factsFrom(std::string_view text, const std::vector<std::string>& columns);

/// The rows with their values in the order of these columns; one that they have not is NULL.
std::vector<entities::FieldRow> rowsInOrder(const entities::Facts& facts, const std::vector<std::string>& columns);

}  // namespace orvent::run
