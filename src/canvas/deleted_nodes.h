#pragma once

#include <cstdint>
#include <string>

#include "entities/key_grammar.h"
#include "entities/keyed_collection.h"

namespace orvent::canvas {

/// A row that the next save has to delete.
struct DeletedNode {
    entities::NodeKindCode NodeKind = entities::KindFree;
    std::int16_t NodeID = 0;  ///< repository identifier
};

/// The rows of a scenario that were deleted on its canvas, in order of deletion.
class DeletedNodesCollection : public entities::KeyedCollection<DeletedNode> {
  public:
    DeletedNode& Add(std::int16_t NodeID, entities::NodeKindCode NodeKind, const std::string& sKey = {}) {
        return append(std::make_unique<DeletedNode>(DeletedNode{NodeKind, NodeID}), sKey);
    }

    /// How many there are now, for `cutBack`.
    int mark() const { return Count(); }
    /// Takes back what was noted since the mark.
    void cutBack(int mark) {
        while (Count() > mark) {
            Remove(Count());
        }
    }
};

}  // namespace orvent::canvas
