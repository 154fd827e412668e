#pragma once

#include <string>

namespace orvent::repository {

/// Who works on which repository. The members bear the names of their keys in section "DB" of the settings.
struct LoginValues {
    std::string ReposConnString;  ///< name of the repository's data source
    std::string ReposLogin;       ///< database user of the repository
    std::string ReposPasw;        ///< its password in clear; scrambled only in the store
    std::string User;             ///< the user whose scenarios are seen
};

/// The settings of the run that the repository's dialogs read and change.
struct RepositorySettings {
    LoginValues login;
    std::string SQLPath;    ///< path of the script that creates a repository
    bool onlyRead = false;  ///< the repository was open last for reading only
};

}  // namespace orvent::repository
