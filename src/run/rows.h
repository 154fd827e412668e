#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "canvas/numbers.h"
#include "entities/node_facts.h"
#include "program/checked_program.h"

namespace orvent::run {

using entities::Field;
using entities::FieldRow;

/// So many rows of a node are shown at most.
inline constexpr std::size_t kShownRows = 1000;

/// The first rows of a predicate.
struct Page {
    std::vector<std::string> columns;
    std::vector<bool> numbers;  ///< which columns hold such
    std::vector<FieldRow> rows;
};

/// What is known of the rows of a predicate.
struct Outcome {
    enum class State : std::uint8_t {
        waiting,  ///< nobody has asked yet, or it was cancelled
        there,
        none,    ///< there can be none: `words` tell why
        failed,  ///< the database has refused `statement` with these `words`
    };
    State state = State::waiting;
    long long count = 0;  ///< of the rows that are there
    std::string words{};
    std::string statement{};
    long long fallen = 0;  ///< rows that fell together with equal ones, before an aggregate here or further on
};

/// Which predicates of a program are the rows of a node.
struct NodeRows {
    std::optional<std::size_t> out;
    std::vector<std::size_t> in;  ///< what comes in, one for each source
};
std::map<canvas::NodeNumber, NodeRows> nodeRows(const program::Program& program);

/// Of what comes into an activity the predicate that it comes from; any other predicate itself.
std::size_t sourceOf(const program::Program& program, std::size_t predicate);

/// What hinders the rows of a node, in the words of its first finding that stops them; empty when none does.
std::string hindrance(const program::Program& program, canvas::NodeNumber node);

/// How many rows came in and went out, with the arrow between the numbers; a node without incoming rows has one number.
/// Empty while neither is known.
std::string countWords(const NodeRows& rows, const std::vector<Outcome>& outcomes, const std::string& arrow);

}  // namespace orvent::run
