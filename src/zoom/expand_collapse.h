#pragma once

#include <cstdint>

#include "zoom/zoom_view.h"

namespace orvent::zoom {

// To expand a node of the zoom view is to show each member of its entity as a node of its own, tied to it by a part-of
// edge and synchronised, so that its links become edges. To collapse it collapses those nodes back. A node shows the
// very object that stands in the collection.
//
// All take the `Index` of a node. A node of another kind, or one that is in the wanted state already, is left alone.
// A data type that the catalogue does not have throws a `Fault` before anything has changed.

void ExpandActivity(ZoomView& view, canvas::NodeNumber node);
void ExpandInputs(ZoomView& view, canvas::NodeNumber node);
void ExpandOutputs(ZoomView& view, canvas::NodeNumber node);
void ExpandParameters(ZoomView& view, canvas::NodeNumber node);
void ExpandFunctions(ZoomView& view, canvas::NodeNumber node);
void ExpandFunction(ZoomView& view, canvas::NodeNumber node);
void ExpandRecordSet(ZoomView& view, canvas::NodeNumber node);

// Members come back into their collection in the reverse of the order of their part-of edges.
void CollapseActivity(ZoomView& view, canvas::NodeNumber node);
void CollapseInputs(ZoomView& view, canvas::NodeNumber node);
void CollapseOutputs(ZoomView& view, canvas::NodeNumber node);
void CollapseParameters(ZoomView& view, canvas::NodeNumber node);
/// A function that was drawn by itself keeps its node, without owner.
void CollapseFunctions(ZoomView& view, canvas::NodeNumber node);
void CollapseFunction(ZoomView& view, canvas::NodeNumber node);
void CollapseRecordSet(ZoomView& view, canvas::NodeNumber node);

/// Expands a node of the design window's kinds to what its place in the view shows: outputs on the left, inputs on the
/// right, everything in the middle, a record set's attributes. Its `Expanded` is true afterwards.
void ExpandByPlace(ZoomView& view, canvas::LabelsD& node);

/// Collapses an activity, a record set or a function.
void CollapseWhole(ZoomView& view, canvas::LabelsD& node);

}  // namespace orvent::zoom
