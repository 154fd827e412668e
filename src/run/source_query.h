#pragma once

#include <map>
#include <string>
#include <string_view>

#include "canvas/canvas.h"
#include "program/checked_program.h"
#include "sql/dialect.h"

namespace orvent::run {

/// The query with an end that gives its first rows only.
std::string firstRows(const sql::Dialect& dialect, const std::string& query, std::size_t most);

/// The queries that read a record set nobody feeds from its data source, by the names of dialects.
struct SourceQueries {
    std::map<std::string_view, std::string> byDialect;
    std::string why;  ///< there is none; then the others are empty
};
SourceQueries sourceQueries(const canvas::Canvas& form, const program::Predicate& predicate, std::size_t place);

}  // namespace orvent::run
