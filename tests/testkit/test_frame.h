#pragma once

#include <filesystem>
#include <string>

#include "platform/scramble.h"
#include "platform/text.h"
#include "shell/mdi_form.h"
#include "testkit/embedded_repository.h"
#include "testkit/fake_desk.h"
#include "testkit/fake_frame_host.h"
#include "testkit/questions.h"

namespace orvent::testkit {

class NoColours : public platform::ColourDialog {
  public:
    std::optional<std::int32_t> choose(std::int32_t) override { return std::nullopt; }
};

class NoHelp : public platform::HelpViewer {
  public:
    void open(const std::string& path) override { throw platform::Fault(path + ": no viewer"); }
};

/// The frame's logic over a real repository, with scripted questions and no windows.
class TestFrame {
  public:
    explicit TestFrame(TestRepository& repository, const std::string& user = "anna")
        : repository_(repository),
          folder_(repository.folder.path()),
          frame({repository.hooked, repository.dataSources, repository.messages, repository.input, repository.files,
                 colours_, repository.store, repository.progress, help_, folder_, saveDialog, clipboard, states},
                host, desk) {
        const repository::LoginValues& login = repository.settings.login;
        repository.store.setValue("DB", "ReposConnString", login.ReposConnString);
        repository.store.setValue("DB", "ReposLogin", login.ReposLogin);
        repository.store.setValue("DB", "ReposPasw", platform::ScramblePassword(login.ReposPasw));
        repository.store.setValue("General", "SQLPath", std::string(ORVENT_SOURCE_DIR) + "/sql/ORVENTII.sql");
        std::filesystem::create_directories(repository.folder.path() / "LDLS");
        host.atLogin = [user](repository::UserLogin& dialog) {
            dialog.txtUser = user;
            dialog.Login();
        };
    }

    canvas::DrawForm& active() { return desk.active()->scenario(); }

    /// Saves the active scenario under a name for the first time.
    void saveAs(const std::string& name) { choose(name, shell::Command::saveScenarioAs); }
    void saved() { repository_.messages.expect("Saved"); }
    /// Loads the scenario of that name into a new window.
    void load(const std::string& name) { choose(name, shell::Command::loadScenario); }
    /// Deletes the stored scenario of that name.
    void remove(const std::string& name) {
        repository_.messages.expect("ARE YOU SURE YOU WANT TO DELETE SCENARIO " + platform::upperCase(name) + " ?",
                                    "Deleting Scenario", platform::Icon::question, platform::Buttons::destroyYesNo,
                                    platform::Answer::yes);
        choose(name, shell::Command::deleteScenario);
    }

    void close() {
        expectClose(repository_.messages, active().Caption());
        frame.close(*desk.active());
    }

  private:
    void choose(const std::string& name, shell::Command command) {
        host.atScenarios = [name](repository::ViewScenarios& dialog) {
            dialog.changeName(name);
            dialog.OKButton();
        };
        frame.run(command);
    }

    TestRepository& repository_;
    platform::ProgramFolder folder_;
    NoColours colours_;
    NoHelp help_;

  public:
    ChosenFile saveDialog;
    OwnClipboard clipboard;
    platform::StateFolder states{repository_.file().parent_path() / "states", 500};  // small parts
    FakeFrameHost host;
    FakeDesk desk;
    shell::MDIForm1 frame;
};

}  // namespace orvent::testkit
