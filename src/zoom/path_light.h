#pragma once

#include <cstdint>
#include <vector>

#include "zoom/zoom_form.h"

namespace orvent::zoom {

/// What is lit of a view, by `Index`. The rest is dimmed. Nothing of it is stored or selected.
struct Light {
    std::vector<std::int32_t> nodes;  ///< ascending
    std::vector<std::int32_t> edges;  ///< ascending

    bool holdsNode(std::int32_t index) const;
    bool holdsEdge(std::int32_t index) const;
    bool isEmpty() const { return nodes.empty(); }
};

/// The whole path of values through an attribute, a parameter or a constant: everything that flows into it or governs
/// it, and everything that it flows into or governs, along visible edges and through functions. Owners of lit members
/// are lit too. Empty for another node.
Light pathThrough(const ZoomForm& form, std::int32_t node);

/// While an edge is drawn: its source and the nodes at which it may end.
Light allowedEnds(const ZoomForm& form, const Relationships& relationships, canvas::EdgeTypeCode kind,
                  std::int32_t source);

}  // namespace orvent::zoom
