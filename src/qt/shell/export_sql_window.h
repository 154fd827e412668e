#pragma once

#include "qt/forms/form_window.h"
#include "shell/plain_forms.h"

namespace orvent::qt {

/// The window of `ExportSqlForm`.
class ExportSqlWindow : public FormWindow {
    Q_OBJECT

  public:
    explicit ExportSqlWindow(shell::ExportSqlForm& question, QWidget* parent = nullptr);
};

}  // namespace orvent::qt
