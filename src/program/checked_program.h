#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "program/activity_program.h"
#include "program/finding.h"
#include "program/statement_cache.h"
#include "rules/syntax.h"

namespace orvent::program {

enum class PredicateKind : std::uint8_t {
    given,      ///< a record set that nobody feeds
    before,     ///< what a record set held before; given, too
    recordSet,  ///< a record set that is fed
    input,      ///< of an activity, from one source
    output,     ///< of an activity
    helper,     ///< what a statement derives beside its outputs
};

struct Predicate {
    PredicateKind kind = PredicateKind::given;
    std::string name;  ///< one for each predicate of the program
    canvas::NodeNumber node{};
    std::vector<Column> columns;
    bool broken = false;  ///< a finding takes the meaning of one of its rules, or of what it hangs on

    bool isGiven() const { return kind == PredicateKind::given || kind == PredicateKind::before; }
};

/// A rule of the program. The tag of an atom is the place of its predicate, -1 for a call; that of a constant its data
/// type, and that of a variable, where it is not -1, the same wherever that stands; "_" in a head is NULL. An equality
/// that gives a variable its value holds for NULL; any other comparison, a variable that stands twice, and an atom
/// behind "not" match no NULL.
struct ProgramRule {
    rules::Rule rule;
    canvas::NodeNumber node{};
    bool ties = false;  ///< it leads from one node to the next, and is in no statement
};

/// All statements of a scenario and the rules that tie them, with one spelling for each predicate.
///
/// A record set means what it held before wherever a way leads back to it from its reader. It has one rule for each
/// node that feeds it. An output that feeds two inputs of one activity gives its value to both.
struct Program {
    std::vector<Predicate> predicates;
    std::vector<ProgramRule> rules;  ///< none that a finding takes the meaning of
    std::vector<Finding> findings;
};

/// `cache` keeps statements from one time to the next; the program is the same without one.
Program checkedProgram(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                       StatementCache* cache = nullptr);

}  // namespace orvent::program
