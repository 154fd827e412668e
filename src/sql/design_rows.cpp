#include "sql/design_rows.h"

#include "entities/key_grammar.h"
#include "platform/text.h"

namespace orvent::sql {

using entities::AttributeProperties;
using entities::RecordSetProperties;

namespace {

/// A statement without the sign that ends it.
std::string withoutEnd(std::string_view statement) {
    std::string_view rest = platform::trimmed(statement);
    while (rest.ends_with(';')) {
        rest.remove_suffix(1);
        rest = platform::trimmed(rest);
    }
    return std::string(rest);
}

}  // namespace

Held DesignRows::heldBy(const program::Predicate& predicate, std::size_t) const {
    const RecordSetProperties& recordSet = *form_.Labels.byIndex(predicate.node)->recordSet();
    const bool fed = predicate.kind == program::PredicateKind::before;
    const std::string statement = fed ? "" : withoutEnd(recordSet.RecordSet_SQL);
    if (statement.empty()) {
        return tableOf(recordSet, fed);
    }
    // A comment at the end of the statement ends with its line.
    Held held{"(" + statement + "\n) s", {}, ""};
    for (const AttributeProperties& column : recordSet.RecordSet_Outputs) {
        const std::string& name = column.Attribute_Name;
        held.columns.push_back("s." + (isPlainName(name) ? name : dialect_.quoted(name)));
    }
    return held;
}

Held DesignRows::tableOf(const RecordSetProperties& recordSet, bool named) const {
    Held held;
    std::string table;
    std::size_t keys = 0;
    for (const AttributeProperties& column : recordSet.RecordSet_Outputs) {
        const std::string key = recordSet.dbKey(column.Key);
        if (key.empty()) {
            held.columns.push_back(dialect_.quoted(column.Attribute_Name));
            continue;
        }
        const std::string own = entities::BetweenFirstAndLastDot(key);
        if (++keys > 1 && own != table) {
            return {"", {}, "its columns come from several tables, and there is no statement that joins them"};
        }
        table = own;
        held.columns.push_back(dialect_.quoted(entities::AfterLastDot(key)));
    }
    if (keys < held.columns.size() && (keys > 0 || !named)) {
        return {"", {}, keys > 0 ? "some of its columns have no source" : "it has no source and no statement"};
    }
    held.from = dialect_.quoted(keys > 0 ? table : recordSet.RecordSet_Name);
    return held;
}

}  // namespace orvent::sql
