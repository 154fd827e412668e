#include "run/record_source.h"

#include "entities/key_grammar.h"

namespace orvent::run {

RecordSource recordSource(const entities::RecordSetProperties& recordSet) {
    RecordSource source;
    for (const entities::AttributeProperties& column : recordSet.RecordSet_Outputs) {
        const std::string alias = entities::BeforeFirstDot(recordSet.dbKey(column.Key));
        if (alias.empty() || alias == source.alias) {
            continue;
        }
        if (!source.alias.empty()) {
            return {"", "its columns come from several data sources"};
        }
        source.alias = alias;
    }
    if (source.alias.empty()) {
        source.why = "its columns come from no data source, and no rows are given by hand";
    }
    return source;
}

}  // namespace orvent::run
