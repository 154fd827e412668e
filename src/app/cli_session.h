#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/cli_ports.h"
#include "app/document_types.h"
#include "app/places.h"
#include "canvas/draw_form.h"
#include "forms/dialog_port.h"
#include "odbc/database.h"
#include "platform/settings_file.h"
#include "repository/catalogue.h"
#include "repository/scenario_load_save.h"
#include "repository/scenario_windows.h"
#include "repository/view_scenarios.h"
#include "shell/document_catalogue.h"
#include "shell/exporters.h"
#include "shell/options_data.h"

namespace orvent::app {

/// Which repository is meant, and whose scenarios. What is not given is that of the settings.
struct RepositoryChoice {
    std::string source;    ///< name of the data source
    std::string user;      ///< of the database
    std::string designer;  ///< whose scenarios are seen
};

/// The logic of the program without windows: the settings, a repository with its catalogue, and one scenario. The
/// settings are only read, but by a first start. The repository is opened when it is needed; without one in the
/// settings the option --make-repository makes the embedded one. All steps throw a `Fault`.
class CliSession : private repository::ScenarioWindows {
  public:
    CliSession(const Places& places, const RepositoryChoice& choice, AnsweredBox& box);
    ~CliSession() override;

    /// The names of the designer's scenarios.
    std::vector<std::string> scenarios();
    /// Loads the designer's scenario of that name, or opens a file: what ends with ".orvent" or holds a slash. A file
    /// needs no repository.
    canvas::DrawForm& open(const std::string& scenario);
    canvas::DrawForm& openFile(const std::string& path);
    /// Stores the scenario of a file as the designer's, under its own name or another one. False when nodes were left
    /// out, which was told.
    bool put(const std::string& path, const std::string& name);

    /// The scenario as a document.
    std::string document();
    /// All types of the repository as a document without nodes.
    std::string typesDocument();
    /// Adds the types of a file that the repository lacks. False when it has some of them with another definition, or
    /// when the file knows no more than a name of one; that is told.
    bool importTypes(const std::string& path);

    shell::ExportServices exportServices() {
        shell::ExportServices services{types().tables(), nobody_, options_.TransDepth};
        services.consumerSemantics = shell::consumerSemanticsOf(types());
        services.functions = options_.functions;
        return services;
    }
    /// The kinds of problems that the settings have told.
    const analysis::ProblemKinds& problems() const { return options_.problems; }
    AnsweredBox& box() { return box_; }
    platform::Database& database() { return database_; }
    platform::DataSources& dataSources() { return dataSources_; }

  private:
    // ScenarioWindows: one window that is none
    int NewScenario(std::string& name) override;
    int slotCount() const override { return 1; }
    canvas::DrawForm* scenario(int slot) override;
    void discardScenario(int slot) override;
    void scenarioGone(std::int16_t, const canvas::DrawForm*) override {}
    void enableFrame(bool) override {}

    void openRepository();
    repository::ViewScenarios listed();
    canvas::DrawForm& load(const std::string& name);
    /// Those that the scenario's indices mean.
    exchange::TypeCatalogue& types();
    canvas::DrawForm& fill(const std::string& path, std::string_view text, exchange::TypeCatalogue& types);

    Places places_;
    RepositoryChoice choice_;
    AnsweredBox& box_;
    NobodyThere nobody_;
    forms::Dialogs dialogs_;
    odbc::OdbcDatabase database_;
    odbc::OdbcDataSources dataSources_;
    platform::SettingsFile store_;
    shell::OptionsData options_;
    repository::Services services_;
    repository::Catalogue catalogue_;
    repository::ScenarioLoadSave loadSave_;
    shell::DocumentCatalogue storedTypes_;
    std::unique_ptr<DocumentTypes> documentTypes_;  ///< of a file that was opened without a repository
    std::unique_ptr<canvas::DrawForm> form_;
};

}  // namespace orvent::app
