#pragma once

#include <string_view>

#include "canvas/canvas_form.h"

namespace orvent::canvas {

/// Whether an action of the Edit menu arranges nodes or selects them, which needs nothing but the canvas.
bool isArrangement(EditAction action);

/// What the step of such an action is called.
std::string_view wordsOf(EditAction action);

/// Does it with the selected nodes, all at once. Gives the reason when nothing can be done, else nothing.
std::string_view arrange(CanvasForm& form, EditAction action);

}  // namespace orvent::canvas
