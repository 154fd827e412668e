#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>

#include "canvas/numbers.h"

namespace orvent::analysis {

/// What may be unfinished or doubtful in a scenario, in the order in which the rows of one node stand.
enum class ProblemKind : std::uint8_t {
    notReady,
    noType,
    goneType,
    statement,
    doubtful,
    outdated,
    unreadable,
    spelling,
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
    noProvider,
    otherType,
    unread,
    noRegulator,
    noInputs,
    noLinks,
    noEdge,
    circle,
    unreachable,
};
inline constexpr std::size_t kProblemKinds = static_cast<std::size_t>(ProblemKind::unreachable) + 1;

/// What is settled for a kind of problem.
struct ProblemWords {
    ProblemKind kind;
    const char* word;   ///< as settings and the command line call it
    const char* title;  ///< of all of them
    const char* why;
    const char* toDo;
};

const std::array<ProblemWords, kProblemKinds>& problemWords();
inline const ProblemWords& wordsOf(ProblemKind kind) {
    return problemWords()[static_cast<std::size_t>(kind)];
}

/// Some of the kinds, by their numbers.
using ProblemKinds = std::bitset<kProblemKinds>;
inline ProblemKinds everyProblem() {
    return ProblemKinds().set();
}

/// One thing that is unfinished or doubtful.
struct Problem {
    ProblemKind kind;
    canvas::NodeNumber node;  ///< `Index` of the node to go to
    std::string member;       ///< name of the member that it is about; empty when it is about the whole node
    std::string words;

    bool operator==(const Problem&) const = default;
};

}  // namespace orvent::analysis
