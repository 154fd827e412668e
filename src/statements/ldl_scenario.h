#pragma once

#include <string>

#include "canvas/draw_form.h"
#include "platform/dialogs.h"
#include "platform/program_folder.h"
#include "statements/activity_wizard.h"

namespace orvent::statements {

/// Writes the LDL program of a scenario: the statement of every activity, then the rules that tie them together.
class LDLScenarioWriter {
  public:
    /// Without a `wizard` an activity that has no statement contributes its empty one.
    LDLScenarioWriter(platform::MessageBox& messages, const platform::ProgramFolder& folder,
                      platform::Progress& progress, ActivityWizard* wizard = nullptr)
        : messages_(messages), folder_(folder), progress_(progress), wizard_(wizard) {}

    /// Writes "\LDLS\<caption>.ldl" of the program's folder and tells so. A fault is told, and throws nothing; the
    /// text gathered so far stays with the scenario, and its next attempt goes on behind it.
    void LDLScenario(canvas::DrawForm& form);

  private:
    void gatherStatements(canvas::DrawForm& form);

    platform::MessageBox& messages_;
    const platform::ProgramFolder& folder_;
    platform::Progress& progress_;
    ActivityWizard* wizard_;
};

}  // namespace orvent::statements
