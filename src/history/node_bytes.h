#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "canvas/canvas_state.h"
#include "history/bad_bytes.h"
#include "history/text_pool.h"

namespace orvent::history {

/// A node with all that it stands for, in few bytes. Two nodes are alike exactly when their bytes are; the identifiers
/// of rows are part of it, marks of what a save has to write are not, nor what belongs to an open view.
using NodeBytes = std::shared_ptr<const std::string>;

/// Runs with the name of each node to which a link of a node leads.
using LinkedNames = std::function<void(const std::string&)>;

/// `entity` stands for what the state has as its own.
NodeBytes bytesOf(const canvas::NodeState& node, const canvas::NodeProperties& entity, TextPool& texts);

/// The node of some bytes; its entity is a new one, all of whose rows are to be written by the next save. Throws
/// `BadBytes`.
canvas::NodeState nodeOf(std::string_view bytes, const TextPool& texts);

/// Whether the bytes of two nodes differ in nothing but readiness, if at all.
bool sameButReady(std::string_view one, std::string_view other);

/// The part of a node's bytes that stands for its entity: what is left when the box, the names and the edges go.
std::string_view entityPart(std::string_view bytes);

/// Tells to which nodes an entity links.
void eachLinkedName(const canvas::NodeProperties& entity, const LinkedNames& told);

}  // namespace orvent::history
