#pragma once

#include "forms/dialog_port.h"

class QWidget;

namespace orvent::qt {

/// Makes the windows of all dialogs known. They open over the dialog that is in front, or over the frame.
void addDialogWindows(forms::Dialogs& dialogs, QWidget& frame);

}  // namespace orvent::qt
