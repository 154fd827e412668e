#pragma once

#include <optional>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "program/checked_program.h"
#include "sql/rule_query.h"

namespace orvent::sql {

/// What a record set that nobody feeds is read from.
struct Held {
    std::string from;                  ///< a table's name, or a query in brackets with a name behind it
    std::vector<std::string> columns;  ///< one for each of the record set's, in SQL
    std::string why;                   ///< it cannot be read; then the others are empty
};

/// Tells what record sets are read from.
class HeldRows {
  public:
    virtual ~HeldRows() = default;
    /// Of the predicate at that place, which is given.
    virtual Held heldBy(const program::Predicate& predicate, std::size_t place) const = 0;
};

/// One predicate as a query over others that stand before it.
struct Query {
    std::size_t predicate;   ///< its place in the program
    std::string select;      ///< empty when there is none
    std::string why;         ///< and why there is none
    std::vector<int> reads;  ///< the predicates that it names, by their places
    /// Gives one number: how many rows fall together here with equal ones, before an aggregate here or further on;
    /// empty where none can.
    std::string fallen{};
};

struct Compiled {
    std::vector<Query> queries;  ///< of every predicate, in the order of the flow
    std::vector<Table> tables;   ///< where the rows of each predicate are looked for
};

struct CompileOptions {
    /// Sets of rows are meant; here as many rows as there are ways to derive them.
    bool keepDuplicates = false;
    std::string prefix;      ///< of the names of all tables
    OwnFunctions functions;  ///< as the designer says them
};

/// Writes the program as queries: rules of one head are united, "not" is NOT EXISTS, an aggregate goes over the
/// different rows of its group. NULL matches where the program says so. A predicate that hangs on a finding, on a
/// circle or on a record set that cannot be read has no query, and no other one is the worse for it.
Compiled compiled(const program::Program& program, const canvas::DrawForm& form,
                  const entities::CatalogueTables& catalogue, const Dialect& dialect, const HeldRows& held,
                  const CompileOptions& options);

/// The rows of one predicate as a single query that needs no other one beside it; empty where it has no query.
std::string wholeQuery(const Compiled& compiled, const Dialect& dialect, std::size_t predicate);

}  // namespace orvent::sql
