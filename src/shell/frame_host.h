#pragma once

#include <string>
#include <vector>

#include "repository/user_login.h"
#include "repository/view_scenarios.h"
#include "shell/options_form.h"
#include "shell/palettes.h"
#include "statements/ldl_form.h"
#include "statements/ldl_scenario.h"

namespace orvent::shell {

/// What the frame's logic asks of its own window.
class FrameHost {
  public:
    virtual ~FrameHost() = default;

    // Modal windows.
    virtual void runUserLogin(repository::UserLogin& login) = 0;
    virtual void runViewScenarios(repository::ViewScenarios& dialog) = 0;
    virtual void runOptions(OptionsForm& dialog) = 0;
    virtual void runShortcuts() = 0;
    virtual void runLDLForm(statements::LDLForm& wizard) = 0;
    /// Shows which statements are not whole; the name of the activity to go to, or empty.
    virtual std::string runUnfinished(const std::vector<statements::UnfinishedStatement>& statements) = 0;
    virtual void runAbout() = 0;

    /// Places the frame: normal geometry in twips, then maximized.
    virtual void placeFrame(int left, int top, int width, int height) = 0;
    /// Puts a floating palette at the pointer.
    virtual void placePalette(Palette palette) = 0;
    /// Maximizes the frame. In its ordinary state it first moves by 100 twips.
    virtual void maximizeFrame() = 0;
    /// False: the frame takes no input until it is enabled again.
    virtual void enableFrame(bool enabled) = 0;
    /// Commands or tools may have become enabled or disabled, or a palette may have changed its place.
    virtual void commandsChanged() = 0;
    /// Asks for the ordinary unload of the frame, with its closing questions.
    virtual void unloadFrame() = 0;
    /// Ends the program at once, without questions.
    virtual void endProgram() = 0;
};

}  // namespace orvent::shell
