#pragma once

#include <string>

#include "canvas/canvas_form.h"

namespace orvent::editors {

/// Whether another node of the scenario has the name, of which the zoom view `form` need not show anything. In a design
/// window, which knows its names itself, none has.
bool isTakenBeyond(canvas::CanvasForm& form, const canvas::LabelsD& node, const std::string& name);

}  // namespace orvent::editors
