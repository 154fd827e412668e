#pragma once

#include "forms/dialog_port.h"
#include "shell/palettes.h"

namespace orvent::shell {

/// A list beside the windows that tells of the scenario in front; the minimap stands in each window.
enum class Dock { history, problems, find, outline, types, minimap, rows };

/// What the frame's logic asks of its own window.
class FrameHost {
  public:
    virtual ~FrameHost() = default;

    /// The windows of the dialogs that open over it.
    virtual const forms::Dialogs& dialogs() const = 0;

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
    /// The lists beside the windows.
    virtual void showDock(Dock dock, bool shown) = 0;
    virtual bool dockShown(Dock dock) const = 0;
    /// The keyboard goes to one that is shown.
    virtual void enterDock(Dock dock) = 0;
    /// The problems of the scenario in front are others than before.
    virtual void problemsChanged() = 0;
    /// Asks for the ordinary unload of the frame, with its closing questions.
    virtual void unloadFrame() = 0;
    /// Ends the program at once, without questions.
    virtual void endProgram() = 0;
};

}  // namespace orvent::shell
