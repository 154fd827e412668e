#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "canvas/numbers.h"
#include "rules/syntax.h"

namespace orvent::program {

/// What may be wrong with a rule of the program.
enum class FindingKind : std::uint8_t {
    syntax,
    spelling,
    stale,
    pairing,
    columns,
    undefined,
    unbound,
    unknownOperator,
    unknownFunction,
    constantType,
    neverHolds,
    recursion,
    negatedCycle,
};
inline constexpr std::size_t kFindingKinds = static_cast<std::size_t>(FindingKind::negatedCycle) + 1;

/// What is settled for a kind of finding.
struct FindingWords {
    FindingKind kind;
    bool stops;       ///< the rule has no meaning, so nothing can be derived by it
    const char* why;  ///< a sentence
};

const std::array<FindingWords, kFindingKinds>& findingWords();
inline const FindingWords& wordsOf(FindingKind kind) {
    return findingWords()[static_cast<std::size_t>(kind)];
}

/// One thing that is wrong with a rule, and where.
struct Finding {
    FindingKind kind;
    canvas::NodeNumber node;  ///< whose statement it is
    int rule;                 ///< of the statement, from 1; 0 when it is about the whole
    rules::Place place;       ///< in the statement
    std::string words;

    bool operator==(const Finding& other) const {
        return kind == other.kind && node == other.node && rule == other.rule && words == other.words;
    }
};

/// Whether a condition of a rule must be settled before the rule derives anything: it is negated, or the head sums up.
bool breaksCircle(const rules::Rule& rule, const rules::Literal& literal);

/// What is told of a circle along that way.
std::string circleWords(const std::string& way, bool breaks);

}  // namespace orvent::program
