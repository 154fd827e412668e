#pragma once

#include "canvas/canvas.h"
#include "platform/dialogs.h"

namespace orvent::links {

/// Makes the provider edges of a design window agree with the links of its entities, after a question: all that are
/// there go, and for each pair of nodes joined by links one is drawn. False when the user cancelled; nothing has
/// changed then. A link to a node that is gone is skipped.
bool CheckConsistency(canvas::Canvas& form, platform::Progress& progress);

}  // namespace orvent::links
