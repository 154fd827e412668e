#pragma once

#include "forms/dialog_port.h"

class QWidget;

namespace orvent::qt {

class SizeMemory;

/// Name of a direct child of the frame that keeps a dialog beside which the program goes on.
inline constexpr const char* kOpenDialog = "openDialog";

/// Makes the windows of all dialogs known. They open over the dialog that is in front, or over the frame. The large
/// ones take their sizes from `sizes` and leave them there.
void addDialogWindows(forms::Dialogs& dialogs, QWidget& frame, SizeMemory& sizes);

}  // namespace orvent::qt
