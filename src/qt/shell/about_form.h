#pragma once

#include "qt/forms/form_window.h"

namespace orvent::qt {

/// `AboutForm`: the program's name, version and licence.
class AboutForm : public FormWindow {
    Q_OBJECT

  public:
    explicit AboutForm(QWidget* parent = nullptr);
};

}  // namespace orvent::qt
