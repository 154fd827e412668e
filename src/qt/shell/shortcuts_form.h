#pragma once

#include "qt/forms/form_window.h"

namespace orvent::qt {

/// The list of keys, made from the commands' own table.
class ShortcutsForm : public FormWindow {
    Q_OBJECT

  public:
    explicit ShortcutsForm(QWidget* parent = nullptr);
};

}  // namespace orvent::qt
