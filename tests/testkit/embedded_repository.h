#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "odbc/database.h"
#include "platform/database.h"
#include "repository/catalogue.h"
#include "repository/repository_check.h"
#include "repository/services.h"
#include "testkit/file_text.h"
#include "testkit/hooked_database.h"
#include "testkit/scripted_ports.h"
#include "testkit/temporary_folder.h"

namespace orvent::testkit {

/// A repository with the starter catalogue on a data source, and all that the repository's logic needs, with strict
/// scripted questions. Without a source of its own it is the embedded one, in a folder that goes with it.
class TestRepository {
  public:
    explicit TestRepository(const odbc::NamedSource& server = {}, const std::string& user = {},
                            const std::string& password = {})
        : own_(sources(server)), database(own_), dataSources(own_) {
        settings.login = {server.name.empty() ? own_.embedded->name : server.name, user, password, "anna"};
        if (server.name.empty()) {
            odbc::createEmbedded(file());
        }
        createTables();
    }

    /// The embedded repository of that folder, which is made when it is not there.
    explicit TestRepository(const std::filesystem::path& place)
        : place_(place), own_(sources({})), database(own_), dataSources(own_) {
        settings.login = {own_.embedded->name, "", "", "anna"};
        if (!std::filesystem::exists(file())) {
            odbc::createEmbedded(file());
            createTables();
        }
    }

    std::filesystem::path file() const { return (place_.empty() ? folder.path() : place_) / "repository.db"; }

    void createTables() {
        const auto connection =
            database.open(settings.login.ReposConnString, settings.login.ReposLogin, settings.login.ReposPasw);
        repository::runScript(*connection, fileText(std::string(ORVENT_SOURCE_DIR) + "/sql/ORVENTII.sql"));
    }

    repository::Services services() { return {hooked, dataSources, messages, input, files, store, progress, settings}; }

    TemporaryFolder folder;

  private:
    odbc::OwnSources sources(const odbc::NamedSource& server) const {
        odbc::OwnSources own;
        own.embedded = odbc::EmbeddedRepository{.file = file()};
        if (!server.name.empty()) {
            own.named = {server};
        }
        return own;
    }

    std::filesystem::path place_;
    odbc::OwnSources own_;

  public:
    odbc::OdbcDatabase database;
    HookedDatabase hooked{database};  ///< what the logic works on
    odbc::OdbcDataSources dataSources;
    ScriptedMessageBox messages;
    ScriptedInputBox input;
    ScriptedFileDialog files;
    MemorySettings store;
    QuietProgress progress;
    repository::RepositorySettings settings;
};

/// How many rows stand in these tables together.
inline long long rowsIn(repository::Services& services, std::initializer_list<const char*> tables) {
    repository::StatementCache open = repository::openRepository(services);
    long long rows = 0;
    for (const char* table : tables) {
        platform::Statement& count = open.run(std::string("SELECT COUNT(*) FROM ") + table);
        rows += count.fetch() ? count.number(1) : -1;
    }
    return rows;
}

/// The types that a repository holds.
struct StoredCatalogue : repository::Catalogue {
    explicit StoredCatalogue(repository::Services& services)
        : Catalogue(services, [] { ADD_FAILURE() << "the catalogue could not be read"; }) {
        load();
    }
    void load() {
        LoadDataTypes();
        LoadFunctionTypes();
        LoadActivityTypes();
    }
};

}  // namespace orvent::testkit
