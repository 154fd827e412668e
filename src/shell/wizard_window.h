#pragma once

#include "platform/settings_store.h"
#include "repository/catalogue.h"
#include "shell/desk.h"
#include "shell/frame_host.h"
#include "shell/options_data.h"
#include "shell/plain_forms.h"
#include "statements/ldl_form.h"
#include "statements/ldl_scenario.h"

namespace orvent::shell {

/// The wizard's window among those of the frame.
class WizardWindow : public statements::LDLFormWindow {
  public:
    explicit WizardWindow(FrameHost& host) : host_(host) {}

    void run(statements::LDLForm& form) override { host_.dialogs().show(form); }

  private:
    FrameHost& host_;
};

/// What the wizard asks of the values of the run and of the catalogue.
class WizardAnswers : public statements::WizardServices {
  public:
    WizardAnswers(OptionsData& options, platform::SettingsStore& store, repository::Catalogue& catalogue)
        : options_(options), store_(store), catalogue_(catalogue) {}

    entities::ActivityTypeProperties activityType(std::int16_t index) override {
        return catalogue_.wholeActivityType(index);
    }
    bool WholeNumbers() const override { return options_.WholeNumbers; }
    void setWholeNumbers(bool on) override {
        options_.WholeNumbers = on;
        store_.setValue("General", "WholeNumbers", on ? "-1" : "0");
    }

  private:
    OptionsData& options_;
    platform::SettingsStore& store_;
    repository::Catalogue& catalogue_;
};

/// Tells which statements are not whole, and brings the activity that is chosen into view.
class UnfinishedStatements : public statements::StatementReport {
  public:
    UnfinishedStatements(FrameHost& host, Desk& desk) : host_(host), desk_(desk) {}

    void showUnfinished(canvas::DrawForm& form,
                        const std::vector<statements::UnfinishedStatement>& statements) override {
        UnfinishedForm unfinished{statements, {}};
        host_.dialogs().show(unfinished);
        if (const canvas::LabelsD* node = form.nodeNamed(unfinished.goTo)) {
            desk_.reveal(form, *node);
        }
    }

  private:
    FrameHost& host_;
    Desk& desk_;
};

}  // namespace orvent::shell
