#pragma once

#include <string>
#include <string_view>

#include "canvas/labels.h"

namespace orvent::canvas {

/// What is told of a node while the pointer rests on it.
struct NodeTip {
    std::string name;  ///< its own tip where it has one, otherwise the text of its box
    std::string kind;  ///< its kind, its type and whether it is ready: "Activity, Join, not ready"
    /// How many members its entity has: "inputs: 2, outputs: 3, parameters: 1", or "attributes: 4"; empty for an entity
    /// without members.
    std::string counts;
    std::string lack;         ///< `lackOf`
    std::string beyond = {};  ///< what it is joined with that its canvas does not show
};

/// What an activity that is shown as ready has not yet: "no type", "no source" or "no type and no source"; empty for
/// every other node. Its inputs have no source while nothing feeds any of them.
std::string lackOf(const LabelsD& node);

/// `type` is the catalogue's name of the node's type, empty for none.
NodeTip tipOf(const LabelsD& node, std::string_view type);

}  // namespace orvent::canvas
