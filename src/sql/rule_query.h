#pragma once

#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "program/checked_program.h"
#include "sql/values.h"

namespace orvent::sql {

/// Where the rows of a predicate stand.
struct Table {
    std::string name;                  ///< without quotes
    std::vector<std::string> columns;  ///< the same; at least one, and no two alike
    std::vector<Family> families;      ///< of the columns that the predicate has
    bool distinct = false;             ///< no row stands twice
};

/// What the query of a rule asks of all that is around it.
struct RuleSurroundings {
    const Values& values;
    const std::vector<Table>& tables;  ///< by predicate
    const canvas::Canvas& form;
    const entities::CatalogueTables& catalogue;
    bool keepDuplicates = false;  ///< as many rows as there are ways to derive them
};

/// A rule as a query.
struct RuleQuery {
    std::string sql;
    bool distinct = false;         ///< no row stands twice
    std::string unfolded{};        ///< the rows that fall together where equal, here or before an aggregate; or empty
    std::string folded{};          ///< the same after they have, before an aggregate; or empty
    std::vector<Family> families;  ///< of the head's values before they went into their columns
};

/// The query that gives the rows of a rule. `alone` tells that no other rule derives into the same table, so that equal
/// rows must fall together here.
RuleQuery ruleQuery(const RuleSurroundings& around, const program::ProgramRule& rule, bool alone);

}  // namespace orvent::sql
