#pragma once

#include "canvas/canvas_host.h"
#include "shell/frame_host.h"
#include "statements/activity_wizard.h"

namespace orvent::shell {

/// What the canvases of the design windows ask to be shown. Menus pop up in the window in front. This version has no
/// dialogs of nodes and no zoom view: nothing is shown for them.
class CanvasDialogs : public canvas::CanvasWindows {
  public:
    CanvasDialogs(FrameHost& host, statements::ActivityWizard& wizard) : host_(host), wizard_(wizard) {}

    void openProperties(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void openZoom(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void openTemplateWizard(canvas::CanvasForm& form, canvas::LabelsD& activity) override {
        wizard_.LDLCreate(form.scenario(), *activity.activity());
        host_.commandsChanged();
    }
    void showMenu(canvas::CanvasForm&, const canvas::ContextMenu& menu, canvas::Point at) override {
        host_.showMenu(menu, at);
    }

  private:
    FrameHost& host_;
    statements::ActivityWizard& wizard_;
};

}  // namespace orvent::shell
