#pragma once

#include <string>

#include "canvas/context_menus.h"
#include "canvas/draw_form.h"
#include "repository/user_login.h"
#include "repository/view_scenarios.h"
#include "shell/options_form.h"
#include "shell/palettes.h"
#include "statements/ldl_form.h"

namespace orvent::shell {

/// How the window in front shows its picture; the model stays as it is.
enum class ViewChange { larger, smaller, actualSize, fit };

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

    // Of the active child window.
    virtual void changeView(ViewChange change) = 0;
    /// Pops a context menu up at a place of its picture.
    virtual void showMenu(const canvas::ContextMenu& menu, canvas::Point at) = 0;
    /// Lets the user choose a printer and prints the whole picture on one page; with `preview` shows the page first. A
    /// cancelled dialog or a failing printer is not told.
    virtual void print(canvas::Canvas& canvas, bool preview) = 0;

    // Modal windows.
    virtual void runUserLogin(repository::UserLogin& login) = 0;
    virtual void runViewScenarios(repository::ViewScenarios& dialog) = 0;
    virtual void runOptions(OptionsForm& dialog) = 0;
    virtual void runShortcuts() = 0;
    virtual void runLDLForm(statements::LDLForm& wizard) = 0;
    virtual void runAbout() = 0;

    /// Places the frame: normal geometry in twips, then maximized.
    virtual void placeFrame(int left, int top, int width, int height) = 0;
    /// Puts a floating palette at the pointer.
    virtual void placePalette(Palette palette) = 0;
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
