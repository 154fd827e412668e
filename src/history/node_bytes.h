#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "canvas/canvas_state.h"
#include "history/bad_bytes.h"
#include "history/text_pool.h"

namespace orvent::history {

/// A node in few bytes: in the head its readiness, its box, its names and its edges, behind that what it stands for.
/// Two nodes are alike exactly when their bytes are; the identifiers of rows are part of it, marks of what a save has
/// to write are not, nor what belongs to an open view.
struct NodeBytes {
    std::shared_ptr<const std::string> head, entity;  ///< both, or none for a node that does not exist

    explicit operator bool() const { return head != nullptr; }
    /// Whether both are one copy.
    bool operator==(const NodeBytes&) const = default;
};

/// Runs with the name of each node to which a link of a node leads.
using LinkedNames = std::function<void(const std::string&)>;

// The bytes of both parts, appended to a text.
void writeHead(std::string& out, const canvas::NodeState& node, TextPool& texts);
void writeEntity(std::string& out, const canvas::NodeProperties& entity, TextPool& texts);

/// A node without what it stands for. Throws `BadBytes`.
canvas::NodeState headOf(std::string_view head, const TextPool& texts);
/// What a node stands for: a new entity, all of whose rows are to be written by the next save. Throws `BadBytes`.
canvas::NodeProperties entityOf(std::string_view entity, canvas::NodeNumber node, const TextPool& texts);
canvas::NodeState nodeOf(const NodeBytes& bytes, const TextPool& texts);

/// Whether two heads differ in nothing but readiness, if at all.
bool sameButReady(std::string_view one, std::string_view other);

/// Tells to which nodes an entity links.
void eachLinkedName(const canvas::NodeProperties& entity, const LinkedNames& told);

}  // namespace orvent::history
