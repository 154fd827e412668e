#pragma once

#include <string>
#include <vector>

#include "qt/dialogs/dialog_base.h"

class QComboBox;
class QLineEdit;

namespace orvent::qt {

/// What the dialogs share that name a data source, its user and the password.
class SourceDialog : public DialogBase {
    Q_OBJECT

  protected:
    SourceDialog(const QString& title, const QString& hint, const std::vector<std::string>& sources, int index,
                 QWidget* parent);

    QComboBox* DSNNames;
    QLineEdit* txtUserName;
    QLineEdit* txtPassword;
};

}  // namespace orvent::qt
