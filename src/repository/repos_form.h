#pragma once

#include <string>
#include <vector>

#include "repository/data_source_list.h"
#include "repository/services.h"

namespace orvent::repository {

/// `ReposForm`: chooses the repository's data source, tests it, and creates missing tables on request.
class ReposForm {
  public:
    explicit ReposForm(Services& services) : services_(services) {}

    std::vector<std::string> DSNNames;
    int DSNIndex = 0;  ///< position in `DSNNames`, from 0
    std::string txtUserName;
    std::string txtPassword;
    bool Tested = false;  ///< what the controls hold has passed the test
    std::string status;   ///< what failed last, for as long as the controls hold it

    /// Fills the controls from the login values. When the data sources cannot be listed, `status` says so, and the
    /// stored one can still be chosen.
    void open();

    void selectDSN(int index);
    void changeUserName(const std::string& text);
    void changePassword(const std::string& text);

    void TestConn();

    /// True when the choice was stored and the dialog closes.
    bool cmdOK();

    /// Opens what the controls name and checks its tables. `Silent` spares only the words about success or failure:
    /// missing tables are asked about in any case. No fault escapes.
    bool test(bool Silent);

    static std::vector<std::string> GetDSNsAndDrivers(platform::DataSources& dataSources) {
        return repository::GetDSNsAndDrivers(dataSources);
    }

  private:
    std::string source() const;
    void listSources();
    void touched();

    Services& services_;
    bool listed_ = false;  ///< the data sources could be listed
};

}  // namespace orvent::repository
