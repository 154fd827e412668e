#pragma once

#include "qt/dialogs/dialog_base.h"
#include "repository/user_login.h"

class QLineEdit;

namespace orvent::qt {

/// The window of `UserLogin`, the first one that a user meets.
class UserLoginWindow : public DialogBase {
    Q_OBJECT

  public:
    /// `services` serve the window of `ReposForm`, which opens over this one.
    UserLoginWindow(repository::UserLogin& logic, repository::Services& services, QWidget* parent = nullptr);
    ~UserLoginWindow() override;

  private:
    void showState();
    void runReposForm(repository::Services& services);

    repository::UserLogin& logic_;
    QLineEdit* txtRepos;
    QLineEdit* txtUser;
    QPushButton* ChangeRepos;
    QPushButton* Login;
};

}  // namespace orvent::qt
