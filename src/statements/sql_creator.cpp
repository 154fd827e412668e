#include "statements/sql_creator.h"

#include <unordered_set>

#include "entities/key_grammar.h"

namespace orvent::statements {

std::optional<std::string> CreateSelectStatement(const std::vector<AttributeRow>& listItems) {
    if (listItems.empty()) {
        return std::nullopt;
    }
    std::string select = " SELECT ";
    std::string from = " FROM ";
    std::unordered_set<std::string> tables;
    for (const AttributeRow& row : listItems) {
        const std::string table = entities::BetweenFirstAndLastDot(row.Key);
        if (tables.insert(table).second) {
            from += table + ", ";
        }
        select += table + "." + entities::AfterLastDot(row.Key) + " AS " + row.Text + ", ";
    }
    select.resize(select.size() - 2);
    from.resize(from.size() - 2);
    return select + from + ";";
}

}  // namespace orvent::statements
