#pragma once

#include "editors/connect_by_name.h"
#include "qt/forms/form_window.h"

namespace orvent::qt {

/// The window of `ConnectByName`.
class ConnectWindow : public FormWindow {
    Q_OBJECT

  public:
    ConnectWindow(editors::ConnectByName& logic, QWidget* parent);
};

}  // namespace orvent::qt
