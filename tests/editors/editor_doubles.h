#pragma once

#include "../repository/repository_fixture.h"
#include "editors/set_act_prop.h"

namespace orvent::editors {

struct NoWizard : statements::ActivityWizard {
    void LDLCreate(canvas::DrawForm&, entities::ActivityProperties&, statements::ActivityDialog*,
                   statements::WizardRound*) override {}
};
struct NoZoom : NodePreparation {
    void prepare(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void refresh(canvas::CanvasForm&, canvas::LabelsD&) override {}
};

/// What the dialogs of record sets and activities need over a scenario.
class EntityDialogTest : public testkit::RepositoryTest {
  protected:
    EditorServices needs(statements::ActivityWizard* otherWizard = nullptr, platform::SaveDialog* chooser = nullptr) {
        return {services, catalogue, otherWizard ? *otherWizard : wizard, folder, chooser ? *chooser : saveDialog,
                nodes,    dialogs};
    }

    std::unique_ptr<canvas::DrawForm> form = newForm("Demo");
    NoWizard wizard;
    NoZoom nodes;
    testkit::ChosenFile saveDialog;
    forms::Dialogs dialogs;
    platform::ProgramFolder folder{"/data"};
};

}  // namespace orvent::editors
