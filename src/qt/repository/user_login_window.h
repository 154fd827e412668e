#pragma once

#include "qt/forms/form_window.h"
#include "repository/user_login.h"

class QLineEdit;

namespace orvent::qt {

/// The window of `UserLogin`, the first one that a user meets.
class UserLoginWindow : public FormWindow {
    Q_OBJECT

  public:
    explicit UserLoginWindow(repository::UserLogin& logic, QWidget* parent = nullptr);

  private:
    void showState();

    repository::UserLogin& logic_;
    QLineEdit* txtRepos_;
    QLineEdit* txtUser_;
    QPushButton* changeRepos_;
    QPushButton* login_;
};

}  // namespace orvent::qt
