#pragma once

#include <cstdint>
#include <string>

#include "canvas/canvas.h"

namespace orvent::canvas {

class CanvasRules;

/// The links that an edge stands for: how many, and words that tell it.
struct EdgeLinks {
    int count = 0;
    std::string words;
};

/// What a canvas asks of the links that entities have with each other.
class EntityLinks {
  public:
    virtual ~EntityLinks() = default;

    virtual EdgeLinks linksBehind(const Canvas& canvas, const LinesD& edge) const = 0;

    /// Takes the node's entity out of all links: those of others that name it, and its own.
    virtual void unsynchronise(Canvas& canvas, LabelsD& node) = 0;
};

/// Stands for every kind of node.
inline constexpr NodeTypeCode kEveryNodeType{};

/// Deletes the selected nodes with their edges and notes in `DeletedNodes` the rows that the next save has to delete.
/// `OnlyType` is the `NodeType` to delete, `kEveryNodeType` for all. Some nodes cannot be deleted and stay: those that
/// the canvas' rules keep, and everywhere inputs and outputs of a function. The selection is empty afterwards.
void DeleteSelectedNodes(Canvas& canvas, NodeTypeCode OnlyType, EntityLinks& links, CanvasRules& rules);

/// Deletes the selected edges, the last selected one first.
void DeleteSelectedEdges(Canvas& canvas, CanvasRules& rules);

}  // namespace orvent::canvas
