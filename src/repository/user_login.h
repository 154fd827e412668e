#pragma once

#include <functional>
#include <string>

#include "repository/services.h"

namespace orvent::repository {

/// `UserLogin`: names the repository and takes the user name, which is a filter on scenarios and nothing else.
class UserLogin {
  public:
    explicit UserLogin(Services& services) : services_(services) {}

    std::string txtRepos;  ///< data source of the repository
    std::string txtUser;
    bool loggedIn = false;

    /// Runs `ReposForm` until it closes.
    std::function<void()> runReposForm;

    void open();
    void ChangeRepos();

    /// Shows the data source that `ReposForm` has stored.
    void reposChosen();

    /// True when the user is logged in and the dialog closes.
    bool Login();

  private:
    bool refuse(const std::string& reason);

    Services& services_;
};

}  // namespace orvent::repository
