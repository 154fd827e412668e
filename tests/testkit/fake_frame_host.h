#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "shell/frame_host.h"

namespace orvent::testkit {

/// Windows without a screen: remembers what is open, and runs modal windows by what the test puts in.
class FakeFrameHost : public shell::FrameHost {
  public:
    std::vector<canvas::DrawForm*> windows;  ///< the last one is active
    std::function<void(repository::UserLogin&)> atLogin;
    std::function<void(repository::ViewScenarios&)> atScenarios;
    std::function<bool()> atUnload;
    std::function<void(statements::LDLForm&)> atWizard;  ///< without it the wizard is closed at once
    std::function<void(shell::OptionsForm&)> atOptions;
    std::vector<shell::ViewChange> viewChanges;
    std::vector<bool> prints;        ///< each with its `preview`
    std::vector<std::string> menus;  ///< names of the context menus shown
    std::vector<shell::Palette> palettesPlaced;
    int aboutShown = 0;
    bool placed = false;
    bool ended = false;

    void showScenario(canvas::DrawForm& form) override { windows.push_back(&form); }
    void dropScenario(canvas::DrawForm& form) override { std::erase(windows, &form); }
    canvas::DrawForm* activeScenario() override { return windows.empty() ? nullptr : windows.back(); }
    void changeView(shell::ViewChange change) override { viewChanges.push_back(change); }
    void showMenu(const canvas::ContextMenu& menu, canvas::Point) override { menus.emplace_back(menu.name); }
    void print(canvas::Canvas&, bool preview) override { prints.push_back(preview); }
    void runOptions(shell::OptionsForm& dialog) override { atOptions(dialog); }
    void runShortcuts() override {}
    void runLDLForm(statements::LDLForm& wizard) override {
        if (atWizard) {
            atWizard(wizard);
        }
    }
    void placePalette(shell::Palette palette) override { palettesPlaced.push_back(palette); }
    void runUserLogin(repository::UserLogin& login) override { atLogin(login); }
    void runViewScenarios(repository::ViewScenarios& dialog) override { atScenarios(dialog); }
    void runAbout() override { ++aboutShown; }
    void placeFrame(int, int, int, int) override { placed = true; }
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
