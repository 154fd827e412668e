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

/// Tells which statements are not whole or do not fit and what is not fed, brings the node that is chosen into view,
/// confirms its statement, or makes that anew.
class UnfinishedStatements : public statements::StatementReport {
  public:
    UnfinishedStatements(FrameHost& host, Desk& desk, statements::ActivityWizard& wizard)
        : host_(host), desk_(desk), wizard_(wizard) {}

    void showUnfinished(canvas::DrawForm& form,
                        const std::vector<statements::UnfinishedStatement>& statements) override {
        for (auto left = statements; !left.empty(); left = statements::unfinishedStatements(form)) {
            UnfinishedForm unfinished{left, {}};
            host_.dialogs().show(unfinished);
            canvas::LabelsD* node = form.nodeNamed(unfinished.goTo);
            if (!node) {
                return;
            }
            if (unfinished.confirm && node->activity()) {
                node->activity()->statementDoubt.clear();
                continue;
            }
            if (!unfinished.generate || !node->activity()) {
                desk_.reveal(form, *node);
                return;
            }
            wizard_.LDLCreate(form, *node->activity());
        }
    }

  private:
    FrameHost& host_;
    Desk& desk_;
    statements::ActivityWizard& wizard_;
};

}  // namespace orvent::shell
