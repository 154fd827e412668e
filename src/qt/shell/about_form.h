#pragma once

#include "qt/dialogs/dialog_base.h"

namespace orvent::qt {

/// `AboutForm`: the program's name, version and licence.
class AboutForm : public DialogBase {
    Q_OBJECT

  public:
    explicit AboutForm(QWidget* parent = nullptr);
};

}  // namespace orvent::qt
