#pragma once

#include "editors/selection_prop.h"
#include "qt/forms/form_window.h"

namespace orvent::qt {

/// The window of `SelectionProp`.
class SelectionWindow : public FormWindow {
    Q_OBJECT

  public:
    SelectionWindow(editors::SelectionProp& logic, QWidget* parent);
};

}  // namespace orvent::qt
