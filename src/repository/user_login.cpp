#include "repository/user_login.h"

#include "platform/text.h"

namespace orvent::repository {

void UserLogin::open() {
    loggedIn = false;
    txtUser = services_.settings.login.User;
    reposChosen();
}

void UserLogin::ChangeRepos() {
    if (runReposForm) {
        runReposForm();
        reposChosen();
    }
}

void UserLogin::reposChosen() {
    txtRepos = services_.settings.login.ReposConnString;
}

bool UserLogin::Login() {
    if (txtRepos.empty()) {
        return refuse("NO REPOSITORY SELECTED!!");
    }
    if (platform::trimmed(txtUser).empty()) {
        return refuse("NO USERNAME PROVIDED!!");
    }
    services_.store.setValue("DB", "User", txtUser);
    services_.settings.login.User = txtUser;
    loggedIn = true;
    return true;
}

bool UserLogin::refuse(const std::string& reason) {
    services_.messages.tell("UNABLE TO LOGIN!\n" + reason, "Unable To Login", platform::Icon::warning);
    return false;
}

}  // namespace orvent::repository
