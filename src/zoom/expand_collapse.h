#pragma once

#include <cstdint>

#include "zoom/zoom_form.h"

namespace orvent::zoom {

// To expand a node of the zoom view is to show each member of its entity as a node of its own, tied to it by a part-of
// edge and synchronised, so that its links become edges. To collapse it folds those nodes back. A node shows the very
// object that stands in the collection.
//
// All take the `Index` of a node. A node of another kind, or one that is in the wanted state already, is left alone.
// A data type that the catalogue does not have throws a `Fault` before anything has changed.

void ExpandActivity(ZoomForm& form, std::int32_t node);
void ExpandInputs(ZoomForm& form, std::int32_t node);
void ExpandOutputs(ZoomForm& form, std::int32_t node);
void ExpandParameters(ZoomForm& form, std::int32_t node);
void ExpandFunctions(ZoomForm& form, std::int32_t node);
void ExpandFunction(ZoomForm& form, std::int32_t node);
void ExpandRecordSet(ZoomForm& form, std::int32_t node);

// Members come back into their collection in the reverse of the order of their part-of edges.
void CollapseActivity(ZoomForm& form, std::int32_t node);
void CollapseInputs(ZoomForm& form, std::int32_t node);
void CollapseOutputs(ZoomForm& form, std::int32_t node);
void CollapseParameters(ZoomForm& form, std::int32_t node);
/// A function that was drawn by itself keeps its node, without owner.
void CollapseFunctions(ZoomForm& form, std::int32_t node);
void CollapseFunction(ZoomForm& form, std::int32_t node);
void CollapseRecordSet(ZoomForm& form, std::int32_t node);

/// Expands a node of the design window's kinds to what its place in the view shows: outputs on the left, inputs on the
/// right, everything in the middle, a record set's attributes. Its `Expanded` is true afterwards.
void ExpandByPlace(ZoomForm& form, canvas::LabelsD& node);

/// Collapses an activity, a record set or a function.
void CollapseWhole(ZoomForm& form, canvas::LabelsD& node);

}  // namespace orvent::zoom
