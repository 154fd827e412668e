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
    int aboutShown = 0;
    bool placed = false;
    bool ended = false;

    void showScenario(canvas::DrawForm& form) override { windows.push_back(&form); }
    void dropScenario(canvas::DrawForm& form) override { std::erase(windows, &form); }
    canvas::DrawForm* activeScenario() override { return windows.empty() ? nullptr : windows.back(); }
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
