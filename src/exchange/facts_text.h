#pragma once

#include <map>
#include <string>
#include <string_view>

#include "entities/node_facts.h"
#include "exchange/member_text.h"
#include "exchange/value_reader.h"

namespace orvent::exchange {

/// The members of a node that `writeFacts` writes.
inline constexpr std::uint64_t kFactKeys = keySet({Key::facts, Key::expected});

/// Writes what a node is tried on and what is expected of it, as members of the object that is open. Nothing for a node
/// that has neither.
void writeFacts(JsonText& out, const entities::NodeFacts& facts);
/// Reads the same back. Throws a `BadDocument`.
entities::NodeFacts readFacts(const ValueReader& in, JsonTree::Place node);

/// What is kept of a scenario.
struct KeptScenario {
    bool keepDuplicates = false;
    std::map<std::string, entities::NodeFacts> nodes{};  ///< by their names

    bool isEmpty() const { return !keepDuplicates && nodes.empty(); }
};

/// All of it as a text of its own.
std::string factsDocument(const KeptScenario& kept);
/// Throws a `BadDocument` for any other text.
KeptScenario readFactsDocument(std::string_view text);

}  // namespace orvent::exchange
