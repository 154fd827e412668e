#pragma once

#include <string>
#include <vector>

#include "qt/forms/form_window.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace orvent::qt {

/// What the dialogs share that name a data source, its user and the password.
class SourceDialog : public FormWindow {
    Q_OBJECT

  protected:
    SourceDialog(const QString& title, const QString& hint, const std::vector<std::string>& sources, int index,
                 QWidget* parent);

    QComboBox* DSNNames;
    QLineEdit* txtUserName;
    QLineEdit* txtPassword;

    /// A line above the buttons that tells what failed; empty it takes its room all the same.
    void showStatus(const std::string& status);

  private:
    QLabel* status_;
};

}  // namespace orvent::qt
