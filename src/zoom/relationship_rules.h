#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

// What a drawn edge of the zoom view means. An edge alone means nothing: it stands for a pair of links, or for a member
// of an activity. Every refusal removes the edge, and no link is written before all conditions and the data types hold.
// All edges are named by their `Index`.

/// Writes what the edge stands for, by the kinds of its two ends. The edge may be replaced by its reverse, and is
/// removed with a message when it is refused.
void CreateRelationship(ZoomView& view, canvas::EdgeNumber& edge);

/// Takes back what the edge stands for. The edge itself stays.
void RemoveRelationship(ZoomView& view, canvas::EdgeNumber edge);

/// Whether two nodes (attributes or parameters) have one data type. A target whose type its source defines takes it
/// over. False: the edge went, with a message.
bool CheckDataTypes(ZoomView& view, const canvas::LabelsD& from, canvas::LabelsD& to, canvas::EdgeNumber edge);

/// Whether an edge of that kind from one node to the other would stand.
bool mayRelate(const ZoomView& view, canvas::EdgeTypeCode kind, const canvas::LabelsD& from, const canvas::LabelsD& to);

}  // namespace orvent::zoom
