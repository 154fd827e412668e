#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "program/finding.h"
#include "program/spellings.h"
#include "program/types.h"
#include "rules/syntax.h"

namespace orvent::program {

/// What a function takes.
enum class CallKind : std::uint8_t {
    value,  ///< its last argument is its value
    test,   ///< it holds or not
};

/// What the check of one rule asks of the statement around it, and whom it tells.
class RuleScene {
  public:
    virtual ~RuleScene() = default;
    /// The data type of a predicate's column, -1 when nothing tells.
    virtual std::int16_t columnType(int predicate, std::size_t column) const = 0;
    virtual void tell(FindingKind kind, const rules::Place& place, std::string words) = 0;
};

CallKind callKind(std::string_view function);
/// Whether the name is one of the functions that every source has under some name, ignoring case.
bool isCommonFunction(std::string_view function);
/// Why a call with so many arguments, its value among them, is none of a common function; empty where it is one, and
/// for any other function.
std::string whyNotCalled(std::string_view function, std::size_t arguments);
bool isAggregate(std::string_view function);

/// Looks at one rule whose names are settled: what binds its variables, what its constants are, whether it can hold.
/// Its values fall into classes, which equalities make one.
class RuleCheck {
  public:
    RuleCheck(rules::Rule& rule, const Spellings& spellings, const Types& types, RuleScene& scene);

    void run();

    /// The class of a variable, -1 for any other term.
    int classOf(const rules::Term& term) const;
    int classes() const { return static_cast<int>(parents_.size()); }
    /// The data type of a term, -1 when nothing tells.
    std::int16_t typeOf(const rules::Term& term) const;

  private:
    struct Limits;

    int slotOf(const rules::Term& term) const;
    int root(int slot) const;
    void join(int one, int other);
    void number(const rules::Term& term);
    void settleTypes();
    void learnType(const rules::Term& term, std::int16_t type);
    bool isBound(const rules::Term& term) const;
    void bind();
    bool bindBy(const rules::Literal& literal);
    void requireBound(const rules::Term& term, const char* where);
    void checkBound();
    void checkConstant(rules::Term& term, std::int16_t type);
    void checkConstants();
    void checkHolds();
    bool holds(const rules::Literal& literal, std::unordered_map<int, Limits>& limits) const;

    rules::Rule& rule_;
    const Spellings& spellings_;
    const Types& types_;
    RuleScene& scene_;
    std::unordered_map<std::string_view, int> others_;  ///< variables that are no members
    mutable std::vector<int> parents_;
    std::vector<std::int16_t> typesOf_;  ///< by class
    std::vector<char> bound_;            ///< by class
    std::vector<int> told_;
};

}  // namespace orvent::program
