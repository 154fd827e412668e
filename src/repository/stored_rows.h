#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "canvas/labels.h"
#include "canvas/lines.h"
#include "entities/name_tables.h"
#include "repository/content_mark.h"
#include "repository/scenario_statements.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// The row of a member, each content as the mark that the same content of a window has.
struct MemberRow {
    long long id = 0;
    long long kind = 0;      ///< `SubNode_Kind`
    std::uint64_t told = 0;  ///< what an update carries
    std::uint64_t kept = 0;  ///< what only the insert carries
    Mark links{};            ///< of the rows of its links, in their order
};

/// The row of a function, as `MemberRow`.
struct FunctionRow {
    long long id = 0;
    std::uint64_t told = 0;
    std::uint64_t kept = 0;
    std::vector<MemberRow> members;
};

/// All rows of a node but its edges.
struct NodeRows {
    long long id = 0;
    long long type = 0;  ///< `Node_Type`
    std::string name;
    std::uint64_t place = 0;
    std::uint64_t own = 0;  ///< of the row of its entity; 0 when there is none
    std::vector<MemberRow> members;
    std::vector<FunctionRow> functions;
    Mark strayLinks{};  ///< links of no member of the node

    /// Stands for all of it, the order of rows included.
    std::uint64_t mark() const;
};

/// The rows of one scenario as they stand in the repository, in the order in which it gives them.
struct StoredRows {
    std::vector<NodeRows> nodes;
    std::unordered_map<long long, std::size_t> places;  ///< in `nodes`, by identifier
    std::vector<std::string> lineEnds;                  ///< the two captions of each line, one behind the other
    std::uint64_t lines = 0;                            ///< in any order

    const NodeRows* find(long long id) const;
};

StoredRows readStoredRows(StatementCache& repository, const entities::CatalogueTables& tables, std::int16_t ScenarioID);

/// What a stored scenario was, by the identifiers of its nodes; 0 stands for its lines.
std::unordered_map<long long, std::uint64_t> marksOf(const StoredRows& rows);

// The marks of contents, for rows and for records alike. A type counts as its place in the name table, which a new name
// does not change.

std::uint64_t typeMark(const entities::NameTable& types, const std::string& name);
std::uint64_t placeMark(std::string_view name, canvas::NodeTypeCode type, const canvas::Box& box);
std::uint64_t recordSetMark(std::string_view sql);
std::uint64_t commentMark(std::string_view text);

struct ActivityText {
    std::string_view description, log, sql, ldl;
};
std::uint64_t activityMark(const ActivityText& text, std::uint64_t type, std::int64_t SchemaNo);

std::uint64_t memberMark(std::string_view key, std::string_view name, std::uint64_t type);
std::uint64_t functionMark(std::string_view key, std::uint64_t type);
/// What the update of a record set's attribute leaves out.
std::uint64_t outputMark(std::string_view dbKey, std::uint64_t type);
void addLink(Mark& mark, std::int64_t kind, std::string_view key, std::string_view name, std::int64_t type);
std::uint64_t lineMark(std::string_view from, std::int64_t fromPoint, std::string_view to, std::int64_t toPoint,
                       std::int64_t type, std::int64_t angle);

}  // namespace orvent::repository
