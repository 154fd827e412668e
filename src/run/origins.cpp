#include "run/origins.h"

#include "platform/text.h"
#include "run/record_source.h"
#include "run/row_text.h"
#include "run/source_query.h"

namespace orvent::run {

using program::Predicate;

/// The engine takes names for the same that differ by case alone.
std::string Origins::freeName(const std::string& name) const {
    std::string result = name;
    for (int number = 2; !taken_.insert(platform::lowerCase(result)).second; ++number) {
        result = name + " " + std::to_string(number);
    }
    return result;
}

sql::Held Origins::heldBy(const Predicate& predicate, std::size_t place) const {
    Origin origin;
    const auto given = form_.facts.find(predicate.node);
    if (given != form_.facts.end() && given->second.facts) {
        std::vector<std::string> columns;
        for (const program::Column& column : predicate.columns) {
            columns.push_back(column.name);
        }
        origin.rows = rowsInOrder(*given->second.facts, columns);
    } else {
        const RecordSource source = recordSource(*form_.Labels.byIndex(predicate.node)->recordSet());
        SourceQueries queries =
            source.why.empty() ? sourceQueries(form_, predicate, place) : SourceQueries{{}, source.why};
        if (queries.why.empty()) {
            origin.alias = source.alias;
            origin.queries = std::move(queries.byDialect);
            origin.most = most_;
        } else if (predicate.kind == program::PredicateKind::before) {
            origin.rows.emplace();
        } else {
            return {"", {}, queries.why};
        }
    }
    origin.table = freeName("held " + predicate.name);
    sql::Held held{dialect_.quoted(origin.table), {}, ""};
    for (std::size_t column = 1; column <= predicate.columns.size(); ++column) {
        held.columns.push_back("c" + std::to_string(column));
    }
    found_[place] = std::move(origin);
    return held;
}

}  // namespace orvent::run
