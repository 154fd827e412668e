#pragma once

#include <functional>
#include <vector>

#include "shell/frame_host.h"

namespace orvent::testkit {

/// A frame without a screen: runs modal windows by what the test puts in.
class FakeFrameHost : public shell::FrameHost {
  public:
    std::function<void(repository::UserLogin&)> atLogin;
    std::function<void(repository::ViewScenarios&)> atScenarios;
    std::function<bool()> atUnload;
    std::function<void(statements::LDLForm&)> atWizard;  ///< without it the wizard is closed at once
    std::function<void(shell::OptionsForm&)> atOptions;
    std::vector<statements::UnfinishedStatement> unfinished;  ///< as they were shown
    std::string goTo;                                         ///< the one to go to
    std::vector<shell::Palette> palettesPlaced;
    int aboutShown = 0;
    bool placed = false;
    int maximized = 0;
    bool ended = false;

    void runOptions(shell::OptionsForm& dialog) override { atOptions(dialog); }
    void runShortcuts() override {}
    void runLDLForm(statements::LDLForm& wizard) override {
        if (atWizard) {
            atWizard(wizard);
        }
    }
    std::string runUnfinished(const std::vector<statements::UnfinishedStatement>& statements) override {
        unfinished = statements;
        return goTo;
    }
    void placePalette(shell::Palette palette) override { palettesPlaced.push_back(palette); }
    void runUserLogin(repository::UserLogin& login) override { atLogin(login); }
    void runViewScenarios(repository::ViewScenarios& dialog) override { atScenarios(dialog); }
    void runAbout() override { ++aboutShown; }
    void placeFrame(int, int, int, int) override { placed = true; }
    void maximizeFrame() override { ++maximized; }
    void enableFrame(bool) override {}
    void commandsChanged() override {}
    void unloadFrame() override {
        if (atUnload) {
            atUnload();
        }
    }
    void endProgram() override { ended = true; }
};

}  // namespace orvent::testkit
