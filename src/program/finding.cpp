#include "program/finding.h"

#include <algorithm>

namespace orvent::program {

namespace {

using enum FindingKind;

constexpr std::array<FindingWords, kFindingKinds> kFindingWords = {{
    {syntax, true, "The statement is no text of rules."},
    {spelling, true, "Two things have one spelling, or a name cannot be spelt."},
    {stale, true, "The statement does not fit the members of its activity by name, order or number."},
    {pairing, false, "The statement gives an output another input than its own link does."},
    {columns, true, "A predicate is used with another number of columns than it has."},
    {undefined, true, "Nothing defines a predicate."},
    {unbound, true, "Nothing gives a variable its value."},
    {unknownOperator, true, "The operators are =, !=, <>, <, >, <= and >=."},
    {unknownFunction, false, "A function is called that only the data source may know."},
    {constantType, false, "A constant is no value of the type of its column."},
    {neverHolds, false, "No row can ever fulfil the conditions of a rule."},
    {recursion, false, "What a rule derives is needed for itself."},
    {negatedCycle, true, "What a rule derives depends on its own absence, or on an aggregate over itself."},
}};

static_assert(std::all_of(kFindingWords.begin(), kFindingWords.end(),
                          [](const FindingWords& row) {
                              return &row - kFindingWords.data() == static_cast<std::ptrdiff_t>(row.kind);
                          }),
              "a kind is not in its own row");

}  // namespace

const std::array<FindingWords, kFindingKinds>& findingWords() {
    return kFindingWords;
}

bool breaksCircle(const rules::Rule& rule, const rules::Literal& literal) {
    return literal.kind == rules::LiteralKind::negated ||
           std::any_of(rule.head.arguments.begin(), rule.head.arguments.end(),
                       [](const rules::Term& term) { return term.kind == rules::TermKind::aggregate; });
}

std::string circleWords(const std::string& way, bool breaks) {
    return (breaks ? "A \"not\" or an aggregate stands in the circle " : "The rules run in the circle ") + way + ".";
}

}  // namespace orvent::program
