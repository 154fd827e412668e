#pragma once

#include "canvas/canvas_host.h"
#include "shell/desk.h"
#include "statements/activity_wizard.h"

namespace orvent::shell {

/// Who opens and closes the windows with a canvas.
class WindowKeeper {
  public:
    virtual ~WindowKeeper() = default;

    /// Opens the zoom view of an activity of a scenario. A second zoom asks, and closes the first one before.
    virtual void ZoomActivity(int Slot, std::int32_t NodeIndex) = 0;

    /// The close request of a window: asks, and drops it. False when it stays, and always while it takes no input.
    virtual bool close(canvas::CanvasForm& form) = 0;
};

/// What the canvases ask to be shown. This version has no dialogs of nodes: nothing is shown for them.
class CanvasDialogs : public canvas::CanvasWindows {
  public:
    CanvasDialogs(Desk& desk, statements::ActivityWizard& wizard, WindowKeeper& windows)
        : desk_(desk), wizard_(wizard), windows_(windows) {}

    void openProperties(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void openZoom(canvas::CanvasForm& form, canvas::LabelsD& activity) override {
        windows_.ZoomActivity(form.scenario().slot(), activity.Index());
    }
    void openTemplateWizard(canvas::CanvasForm& form, canvas::LabelsD& activity) override {
        wizard_.LDLCreate(form.scenario(), *activity.activity());
    }
    void close(canvas::CanvasForm& form) override { windows_.close(form); }
    void reveal(canvas::CanvasForm& form, const canvas::LabelsD& node) override { desk_.reveal(form, node); }
    void showMenu(canvas::CanvasForm& form, const canvas::ContextMenu& menu, canvas::Point at) override {
        desk_.showMenu(form, menu, at);
    }

  private:
    Desk& desk_;
    statements::ActivityWizard& wizard_;
    WindowKeeper& windows_;
};

}  // namespace orvent::shell
