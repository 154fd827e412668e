#pragma once

#include <cstdint>

#include "zoom/zoom_view.h"

namespace orvent::zoom {

// What a drawn part-of edge means: a member of an activity, or a function of it.

/// Makes the node at one end of a new edge a member of the activity at the other. The edge may be replaced by its
/// reverse, and is removed with a message when it is refused.
void makeMember(ZoomView& view, canvas::EdgeNumber& edge, canvas::LabelsD& from, canvas::LabelsD& to);

/// Takes a member out of its activity: its node stays, free and without links.
void freeMember(ZoomView& view, entities::ActivityProperties& owner, canvas::LabelsD& node);

/// Ties a free function to an activity; with `DrawEdge` by a part-of edge too, unless one joins them already.
void AttachFunction(ZoomView& view, canvas::LabelsD& function, canvas::LabelsD& activity, bool DrawEdge);

/// Makes a function a new one for the repository, with all its inputs and outputs.
void forgetRows(entities::FunctionProperties& function);

/// Unties a function from its activity: it has no owner, no links, and is a new one for the repository. Nothing happens
/// without an activity.
void DetachFunction(ZoomView& view, canvas::LabelsD& function, canvas::LabelsD* activity);

}  // namespace orvent::zoom
