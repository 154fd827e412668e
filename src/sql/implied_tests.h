#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "program/checked_program.h"

namespace orvent::sql {

enum class ImpliedKind { notNull, unique, references, compares };

/// What must be true of all rows of a predicate if the rows come by its rules.
struct ImpliedTest {
    ImpliedKind kind;
    std::vector<std::size_t> columns;  ///< several only of `unique`; there rows with a NULL do not count
    int predicate = -1;                ///< of `references`: where each value stands,
    std::size_t column = 0;            ///< and in which column
    std::string op{};                  ///< of `compares`: how the column compares with a value
    rules::Term value{};
};

/// Tells what the rules of a program promise: columns that a rule tests or compares with a value, values that it finds
/// in a record set, groups of an aggregate, and keys of which a helper holds those that several rows have.
class ImpliedTests {
  public:
    explicit ImpliedTests(const program::Program& program);

    /// Of the predicate at that place, in the order of its rule. None where several rules derive it.
    std::vector<ImpliedTest> of(std::size_t predicate) const;

  private:
    const rules::Rule* onlyRule(std::size_t predicate) const;
    std::vector<std::size_t> uniqueIn(std::size_t predicate, std::set<std::size_t> met) const;
    std::vector<std::size_t> repeatedKeys(const rules::Atom& helper, const rules::Atom& rows) const;

    const program::Program& program_;
    std::vector<std::vector<const rules::Rule*>> rules_;  ///< by predicate
};

}  // namespace orvent::sql
