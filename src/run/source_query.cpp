#include "run/source_query.h"

#include <algorithm>
#include <array>

#include "sql/design_rows.h"

namespace orvent::run {

std::string firstRows(const sql::Dialect& dialect, const std::string& query, std::size_t most) {
    constexpr std::array<std::string_view, 3> kLimited = {"sqlite", "postgresql", "mariadb"};
    const bool limited = std::find(kLimited.begin(), kLimited.end(), dialect.name) != kLimited.end();
    return query + (limited ? " LIMIT " + std::to_string(most) : " FETCH FIRST " + std::to_string(most) + " ROWS ONLY");
}

SourceQueries sourceQueries(const canvas::Canvas& form, const program::Predicate& predicate, std::size_t place) {
    SourceQueries queries;
    for (const sql::Dialect& dialect : sql::dialects()) {
        const sql::Held held = sql::DesignRows(form, dialect).heldBy(predicate, place);
        if (!held.why.empty()) {
            return {{}, held.why};
        }
        std::string columns;
        for (const std::string& column : held.columns) {
            columns += (columns.empty() ? "" : ", ") + column;
        }
        queries.byDialect[dialect.name] = "SELECT " + (columns.empty() ? "1" : columns) + " FROM " + held.from;
    }
    return queries;
}

}  // namespace orvent::run
