#pragma once

#include "platform/dialogs.h"

namespace orvent::canvas {

/// Tells that another node has the name.
void tellTakenName(platform::MessageBox& messages);

}  // namespace orvent::canvas
