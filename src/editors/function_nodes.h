#pragma once

#include "canvas/canvas_form.h"

namespace orvent::editors {

// Nodes of functions on the canvas over which the dialog of an activity is open.

/// The node that shows a function of that key, or nothing.
canvas::LabelsD* functionNode(canvas::Canvas& form, const std::string& key);

/// The activity that has the function of a node, also while the two are apart; nothing for a free one.
const canvas::LabelsD* ownerOfFunction(const canvas::Canvas& form, const canvas::LabelsD& node);

/// The node shows a function of the activity's new record from now on.
void bindFunctionNode(canvas::CanvasForm& form, canvas::LabelsD& node, canvas::LabelsD& activity,
                      const std::shared_ptr<entities::FunctionProperties>& function);

/// The activity has the function no more, whose row is to be deleted already: it is free, without links, and a new one
/// for the repository.
void freeFunctionNode(canvas::CanvasForm& form, canvas::LabelsD& node, canvas::LabelsD& activity);

}  // namespace orvent::editors
