#pragma once

#include <cstdint>
#include <string>

#include "entities/keyed_collection.h"

namespace orvent::canvas {

/// `NodeKind` codes of a deleted node beyond those of the attribute level (entities/key_grammar.h).
enum DeletedKind : std::int16_t {
    DeletedActivity = 9,
    DeletedRecordSet = 10,
    DeletedComment = 11,
    DeletedLog = 12,
};

/// A row that the next save has to delete.
struct DeletedNode {
    std::int16_t NodeKind = 0;
    std::int16_t NodeID = 0;  ///< repository identifier
};

/// The rows of a scenario that were deleted on its canvas, in order of deletion.
class DeletedNodesCollection : public entities::KeyedCollection<DeletedNode> {
  public:
    DeletedNode& Add(std::int16_t NodeID, std::int16_t NodeKind, const std::string& sKey = {}) {
        return append(std::make_unique<DeletedNode>(DeletedNode{NodeKind, NodeID}), sKey);
    }
};

}  // namespace orvent::canvas
