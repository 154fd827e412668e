#pragma once

#include "qt/dialogs/dialog_base.h"

namespace orvent::qt {

/// The list of keys, made from the commands' own table.
class ShortcutsForm : public DialogBase {
    Q_OBJECT

  public:
    explicit ShortcutsForm(QWidget* parent = nullptr);
};

}  // namespace orvent::qt
