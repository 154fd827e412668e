#include "repository/frm_db_login.h"

#include "repository/data_source_list.h"

namespace orvent::repository {

void frmDBLogin::open() {
    DSNNames = GetDSNsAndDrivers(services_.dataSources);
    DSNIndex = 0;
    txtPassword.clear();
}

bool frmDBLogin::cmdOK() {
    // The first entry stands for no choice.
    if (DSNIndex <= 0 || DSNIndex >= static_cast<int>(DSNNames.size())) {
        services_.messages.tell("Please Give The Connection String For The DB", "DB Login");
        return false;
    }
    const std::string& name = DSNNames[static_cast<std::size_t>(DSNIndex)];
    try {
        services_.database.open(name, txtUserName, txtPassword);
    } catch (const platform::Fault& fault) {
        showFault(services_, fault);
        return false;
    }
    chosen = {name, txtUserName, txtPassword};
    return true;
}

}  // namespace orvent::repository
