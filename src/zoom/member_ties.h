#pragma once

#include <cstdint>
#include <string>

#include "canvas/canvas.h"

namespace orvent::zoom {

class ZoomForm;

// What a drawn part-of edge means: a member of an activity, or a function of it.

/// Whether an attribute, parameter or function has no owner, or one that is gone.
bool isFree(const canvas::Canvas& form, const std::string& owner);

/// Makes the node at one end of a new edge a member of the activity at the other. The edge may be replaced by its
/// reverse, and is removed with a message when it is refused.
void makeMember(ZoomForm& form, std::int32_t& edge, canvas::LabelsD& from, canvas::LabelsD& to);

/// Takes a member out of its activity: its node stays, free and without links.
void freeMember(ZoomForm& form, entities::ActivityProperties& owner, canvas::LabelsD& node);

/// Ties a free function to an activity; with `DrawEdge` by a part-of edge too, unless one joins them already.
void AttachFunction(ZoomForm& form, canvas::LabelsD& function, canvas::LabelsD& activity, bool DrawEdge);

/// Makes a function a new one for the repository, with all its inputs and outputs.
void forgetRows(entities::FunctionProperties& function);

/// Unties a function from its activity: it has no owner, no links, and is a new one for the repository. Nothing happens
/// without an activity.
void DetachFunction(ZoomForm& form, canvas::LabelsD& function, canvas::LabelsD* activity);

}  // namespace orvent::zoom
