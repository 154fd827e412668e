#pragma once

#include <string>

#include "canvas/draw_form.h"
#include "repository/user_login.h"
#include "repository/view_scenarios.h"

namespace orvent::shell {

/// What the frame's logic asks of the windows on screen.
class FrameHost {
  public:
    virtual ~FrameHost() = default;

    /// Makes the window of a scenario, shows it and makes it the active child.
    virtual void showScenario(canvas::DrawForm& form) = 0;
    /// Takes the window away. The scenario is gone after the call.
    virtual void dropScenario(canvas::DrawForm& form) = 0;
    /// The scenario of the active child window, or nothing.
    virtual canvas::DrawForm* activeScenario() = 0;

    // Modal windows.
    virtual void runUserLogin(repository::UserLogin& login) = 0;
    virtual void runViewScenarios(repository::ViewScenarios& dialog) = 0;
    virtual void runAbout() = 0;

    /// Places the frame: normal geometry in twips, then maximized.
    virtual void placeFrame(int left, int top, int width, int height) = 0;
    /// False: the frame takes no input until it is enabled again.
    virtual void enableFrame(bool enabled) = 0;
    /// Commands may have become enabled or disabled.
    virtual void commandsChanged() = 0;
    /// Asks for the ordinary unload of the frame, with its closing questions.
    virtual void unloadFrame() = 0;
    /// Ends the program at once, without questions.
    virtual void endProgram() = 0;
};

}  // namespace orvent::shell
