#pragma once

#include "qt/repository/source_dialog.h"
#include "repository/frm_db_login.h"

namespace orvent::qt {

/// The window of `frmDBLogin`.
class DBLoginWindow : public SourceDialog {
    Q_OBJECT

  public:
    explicit DBLoginWindow(repository::frmDBLogin& logic, QWidget* parent = nullptr);
};

}  // namespace orvent::qt
