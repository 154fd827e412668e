#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "canvas/canvas.h"

namespace orvent::canvas {

/// What was told of a node's readiness. A box of which nothing was told has the colour of a new one.
enum class Readiness : std::uint8_t { untold, notReady, ready };

/// All that a node is, but for what only the screen shows. Restoring gives it back under the same `Index`.
struct NodeState {
    NodeNumber index{};
    NodeTypeCode kind{};
    Box box;
    std::string keyName, caption;
    bool holdsKeyName = false, holdsCaption = false;  ///< whether the canvas' names lead from it to the node
    Readiness readiness = Readiness::untold;
    std::vector<EdgeNumber> starting, ending;  ///< edges, in the order of the node's lists
    NodeProperties entity = std::int16_t{0};
};

/// All that a finished edge is, but for what only the screen shows.
struct EdgeState {
    NodeNumber from{}, to{};  ///< `Index` of the ends; 0 while the edge does not exist
    std::int16_t fromPoint = 0, toPoint = 0;
    EdgeTypeCode kind{};
    AngleCode angle{};
    Point middle;
    bool middlePlaced = false;
    std::int32_t color = 0;

    bool exists() const { return from != NodeNumber{} && to != NodeNumber{}; }
    bool operator==(const EdgeState&) const = default;
};

/// What is to come of some nodes and edges of a canvas, whose lists name all edges that are meant to be at them.
struct CanvasChange {
    struct Edge {
        EdgeNumber index;
        EdgeState state;
    };
    std::vector<NodeNumber> goingNodes;
    std::vector<NodeState> nodes;  ///< that come, or are changed; in order of `index`
    std::vector<Edge> edges;       ///< that come, are changed, or go; likewise
};

/// All of a node but its entity.
NodeState stateOf(const Canvas& canvas, const LabelsD& node);
/// The state of an edge, one that does not exist for nothing and for an edge without a target.
EdgeState stateOf(const LinesD* edge);

/// Carries the change out: nodes and edges that come have the `Index`, and the place among the others, that they had
/// when their state was taken. Names may be exchanged among the nodes. Told as many changes.
void restore(Canvas& canvas, CanvasChange change);

}  // namespace orvent::canvas
