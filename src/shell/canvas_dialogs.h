#pragma once

#include "canvas/canvas_host.h"
#include "shell/desk.h"
#include "statements/activity_wizard.h"

namespace orvent::shell {

/// What the canvases ask to be shown. This version has no dialogs of nodes and no zoom view: nothing is shown for them.
class CanvasDialogs : public canvas::CanvasWindows {
  public:
    CanvasDialogs(Desk& desk, statements::ActivityWizard& wizard) : desk_(desk), wizard_(wizard) {}

    void openProperties(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void openZoom(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void openTemplateWizard(canvas::CanvasForm& form, canvas::LabelsD& activity) override {
        wizard_.LDLCreate(form.scenario(), *activity.activity());
    }
    void close(canvas::CanvasForm&) override {}  // no canvas of this version asks for it
    void showMenu(canvas::CanvasForm& form, const canvas::ContextMenu& menu, canvas::Point at) override {
        desk_.showMenu(form, menu, at);
    }

  private:
    Desk& desk_;
    statements::ActivityWizard& wizard_;
};

}  // namespace orvent::shell
