#include "repository/repos_form.h"

#include <algorithm>

#include "platform/scramble.h"
#include "repository/repository_check.h"

namespace orvent::repository {

using platform::Icon;

void ReposForm::open() {
    const LoginValues& login = services_.settings.login;
    status.clear();
    listSources();
    const auto stored = std::find(DSNNames.begin(), DSNNames.end(), login.ReposConnString);
    DSNIndex = stored == DSNNames.end() ? 0 : static_cast<int>(stored - DSNNames.begin());
    txtUserName = login.ReposLogin;
    txtPassword = login.ReposPasw;
    Tested = true;
}

void ReposForm::listSources() {
    listed_ = false;
    try {
        DSNNames = GetDSNsAndDrivers(services_.dataSources);
        listed_ = true;
    } catch (const platform::Fault& fault) {
        DSNNames = {kNoDataSource};
        const std::string& stored = services_.settings.login.ReposConnString;
        if (!stored.empty()) {
            DSNNames.push_back(stored);
        }
        status = "The data sources cannot be listed: " + fault.description();
    }
}

void ReposForm::touched() {
    Tested = false;
    status.clear();
}

std::string ReposForm::source() const {
    const auto index = static_cast<std::size_t>(DSNIndex);
    return index < DSNNames.size() ? DSNNames[index] : kNoDataSource;
}

void ReposForm::selectDSN(int index) {
    if (index != DSNIndex && index >= 0 && index < static_cast<int>(DSNNames.size())) {
        DSNIndex = index;
        touched();
    }
}

void ReposForm::changeUserName(const std::string& text) {
    if (text != txtUserName) {
        txtUserName = text;
        touched();
    }
}

void ReposForm::changePassword(const std::string& text) {
    if (text != txtPassword) {
        txtPassword = text;
        touched();
    }
}

void ReposForm::TestConn() {
    Tested = test(false);
}

bool ReposForm::test(bool Silent) {
    status.clear();
    try {
        const std::string source = this->source();
        if (source == kNoDataSource) {
            throw platform::Fault("No data source is selected.");
        }
        // Before the check, which would offer to run the creation script over it.
        if (listed_ && isSourceOnly(services_.dataSources, source)) {
            throw platform::Fault(source + " is a source of data and cannot be a repository.");
        }
        const std::unique_ptr<platform::Connection> connection =
            services_.database.open(source, txtUserName, txtPassword);
        if (!checkRepository(services_, *connection)) {
            status = "Tables of the repository are missing.";
            return false;
        }
        if (!Silent) {
            services_.messages.tell("Connection Suceeded", "Testing Connection", Icon::information);
        }
        return true;
    } catch (const platform::Fault& fault) {
        status = fault.description();
        if (!Silent) {
            showFault(services_, fault);
        }
        return false;
    }
}

bool ReposForm::cmdOK() {
    if (!Tested) {
        Tested = test(true);
    }
    if (!Tested) {
        return false;
    }
    LoginValues& login = services_.settings.login;
    login.ReposConnString = source();
    login.ReposLogin = txtUserName;
    login.ReposPasw = txtPassword;
    services_.store.setValue("DB", "ReposConnString", login.ReposConnString);
    services_.store.setValue("DB", "ReposLogin", login.ReposLogin);
    services_.store.setValue("DB", "ReposPasw", platform::ScramblePassword(login.ReposPasw));
    return true;
}

}  // namespace orvent::repository
