#pragma once

#include "platform/database.h"
#include "platform/dialogs.h"
#include "platform/settings_store.h"
#include "repository/login_values.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// What the repository's logic asks of the outside, and the settings it shares with the program.
struct Services {
    platform::Database& database;
    platform::DataSources& dataSources;
    platform::MessageBox& messages;
    platform::InputBox& input;
    platform::FileDialog& files;
    platform::SettingsStore& store;
    platform::Progress& progress;
    RepositorySettings& settings;
};

/// Opens the repository with the three login values. A connection serves one operation and is dropped at its end.
inline StatementCache openRepository(Services& services) {
    const LoginValues& login = services.settings.login;
    StatementCache repository(services.database.open(login.ReposConnString, login.ReposLogin, login.ReposPasw));
    services.settings.onlyRead = repository.readOnly();
    return repository;
}

/// Shows a fault's own words.
inline void showFault(Services& services, const platform::Fault& fault) {
    services.messages.tell(fault.description(), {}, platform::Icon::critical);
}

}  // namespace orvent::repository
