#pragma once

#include <string>

#include "canvas/draw_form.h"

namespace orvent::statements {

/// The activity dialog, as far as the wizard that it opens needs it.
class ActivityDialog {
  public:
    virtual ~ActivityDialog() = default;
    virtual void setEnabled(bool enabled) = 0;
    /// The activity was built anew, in whole or in part: its lists are to be shown again.
    virtual void activityBuilt() = 0;
    /// The statement that the wizard stored, for the text box `txtSQL`.
    virtual void setStatement(const std::string& text) = 0;
};

/// The wizard opened for one activity after the other.
struct WizardRound {
    int place = 0;  ///< which of the activities it is, from 1
    int count = 0;
    bool left = false;  ///< the designer leaves the rest: no further one is to be opened
};

/// Opens the wizard that makes an activity's LDL statement, and waits until it is closed.
class ActivityWizard {
  public:
    virtual ~ActivityWizard() = default;

    /// `form` is the design window of the scenario, also when a dialog or a zoom stands between. `activity` is the
    /// node's own, or with a `dialog` the copy that the dialog works on. `round` is given when several are opened.
    virtual void LDLCreate(canvas::DrawForm& form, entities::ActivityProperties& activity,
                           ActivityDialog* dialog = nullptr, WizardRound* round = nullptr) = 0;
};

}  // namespace orvent::statements
