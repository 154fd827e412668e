#pragma once

#include "editors/in_out_prop.h"
#include "qt/forms/form_window.h"

namespace orvent::qt {

/// The window of `InOutProp`.
class InOutWindow : public FormWindow {
    Q_OBJECT

  public:
    explicit InOutWindow(editors::InOutProp& logic, QWidget* parent = nullptr);
};

}  // namespace orvent::qt
