#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entities/nodes.h"
#include "repository/catalogue.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// Reads the entities of one scenario over one connection. A row whose key its collection holds already is skipped.
/// Type names become indices, and an unknown data type raises the catalogue's question; so the rows of a query are
/// all read before the first of them is used, and no open query stands in the way of an answer that writes.
class ScenarioReader {
  public:
    ScenarioReader(StatementCache& repository, Catalogue& catalogue) : repository_(repository), catalogue_(catalogue) {}

    /// Fills an activity that has its `NodeID` and `Act_Name`.
    void LoadActivity(entities::ActivityProperties& activity);

    /// Fills a record set that has its `NodeID` and `RecordSet_Name`.
    void LoadRecordSet(entities::RecordSetProperties& recordSet);

    /// The text of a comment, empty when there is no row.
    std::string commentText(std::int16_t NodeID);

  private:
    struct SubNodeRow {
        std::int16_t id = 0;
        std::string key;
        entities::NodeKindCode kind = entities::KindFree;
        std::string name;
        std::string type;
        entities::TagCode tag = entities::TagNone;
    };
    struct FunctionRow {
        std::int16_t id = 0;
        std::string key;
        entities::FunctionSourceCode source = entities::SourceNone;
        std::string type;
    };

    void readActivityRow(entities::ActivityProperties& activity);
    std::vector<SubNodeRow> subNodeRows(std::string_view sql, std::int16_t owner, bool tagged);
    template <class Collection>
    auto* addMember(Collection& collection, const SubNodeRow& row);
    void loadFunctions(entities::ActivityProperties& activity);
    void loadFunctionSubNodes(entities::FunctionProperties& function);
    void readLinks(entities::AttributeProperties& attribute);
    void readLinks(entities::ParameterProperties& parameter);

    StatementCache& repository_;
    Catalogue& catalogue_;
};

/// An identifier as it is held in memory. Throws a `Fault` when it does not fit.
inline std::int16_t identifier(platform::Statement& row, int column) {
    return platform::checkedI16(row.number(column), "Identifier");
}

/// A stored code or mark. Throws a `Fault` when it does not fit.
inline std::int16_t code(platform::Statement& row, int column) {
    return platform::checkedI16(row.number(column), "Code");
}

/// A stored code as its type; one that no name stands for is kept as it came.
template <class Code>
Code codeAs(platform::Statement& row, int column) {
    return static_cast<Code>(code(row, column));
}

}  // namespace orvent::repository
