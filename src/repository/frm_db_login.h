#pragma once

#include <string>
#include <vector>

#include "repository/services.h"

namespace orvent::repository {

/// A source database that was opened once, and how.
struct SourceDatabase {
    std::string name;
    std::string user;
    std::string password;
};

/// `frmDBLogin`: chooses a source database whose tables are to be browsed.
class frmDBLogin {
  public:
    explicit frmDBLogin(Services& services) : services_(services) {}

    std::vector<std::string> DSNNames;
    int DSNIndex = 0;  ///< position in `DSNNames`, from 0
    std::string txtUserName;
    std::string txtPassword;

    SourceDatabase chosen;  ///< the last one that could be opened; for this run only, never stored

    /// Fills `DSNNames` and selects nothing.
    void open();

    /// True when the data source could be opened and the dialog closes.
    bool cmdOK();

  private:
    Services& services_;
};

}  // namespace orvent::repository
