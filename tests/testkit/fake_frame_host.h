#pragma once

#include <functional>
#include <map>
#include <vector>

#include "editors/connect_by_name.h"
#include "editors/item_prop.h"
#include "editors/record_set_prop.h"
#include "editors/selection_prop.h"
#include "editors/take_over.h"
#include "exchange/open_scenario.h"
#include "repository/user_login.h"
#include "repository/view_scenarios.h"
#include "shell/earlier_form.h"
#include "shell/facts_form.h"
#include "shell/frame_host.h"
#include "shell/plain_forms.h"
#include "shell/recovery_form.h"
#include "statements/ldl_form.h"

namespace orvent::testkit {

/// A frame without a screen: runs modal windows by what the test puts in.
class FakeFrameHost : public shell::FrameHost {
  public:
    FakeFrameHost() {
        dialogs_.add<repository::UserLogin>([this](auto& login) { atLogin(login); });
        dialogs_.add<repository::ViewScenarios>([this](auto& dialog) { atScenarios(dialog); });
        dialogs_.add<statements::LDLForm>([this](auto& wizard) {
            if (atWizard) {
                atWizard(wizard);
            }
        });
        dialogs_.add<editors::RecordSetProp>([this](auto& dialog) { atRecordSet(dialog); });
        dialogs_.add<editors::ConnectByName>([this](auto& dialog) { atConnect(dialog); });
        dialogs_.add<editors::SelectionProp>([this](auto& dialog) { atSelection(dialog); });
        dialogs_.add<editors::TakeOverForm>([this](auto& dialog) { atTakeOver(dialog); });
        dialogs_.add<editors::ItemProp>([this](auto& dialog) { atItem(dialog); });
        dialogs_.addWindow<editors::SetActProp>([this](auto dialog) { atActivity(*dialog); });
        dialogs_.add<exchange::MissingTypesForm>([this](auto& question) { atMissingTypes(question); });
        dialogs_.add<shell::RecoveryForm>([this](auto& left) { atRecovery(left); });
        dialogs_.add<shell::ExportSqlForm>([this](auto& question) { atExportSql(question); });
        dialogs_.add<shell::EarlierForm>([this](auto& states) { atEarlier(states); });
        dialogs_.add<shell::FactsForm>([this](auto& facts) { atFacts(facts); });
        dialogs_.add<shell::UnfinishedForm>([](auto&) {});
        dialogs_.add<shell::EdgeChangesForm>([this](auto& list) { atEdgeChanges(list); });
    }

    std::function<void(repository::UserLogin&)> atLogin;
    std::function<void(repository::ViewScenarios&)> atScenarios;
    std::function<void(statements::LDLForm&)> atWizard;  ///< without it the wizard is closed at once
    std::function<void(editors::RecordSetProp&)> atRecordSet;
    std::function<void(editors::ConnectByName&)> atConnect;
    std::function<void(editors::SelectionProp&)> atSelection;
    std::function<void(editors::TakeOverForm&)> atTakeOver;
    std::function<void(editors::ItemProp&)> atItem;
    std::function<void(editors::SetActProp&)> atActivity;
    std::function<void(shell::EdgeChangesForm&)> atEdgeChanges;
    std::function<void(exchange::MissingTypesForm&)> atMissingTypes;
    std::function<void(shell::RecoveryForm&)> atRecovery;
    std::function<void(shell::EarlierForm&)> atEarlier;
    std::function<void(shell::FactsForm&)> atFacts;
    std::function<void(shell::ExportSqlForm&)> atExportSql;
    std::function<void()> atCommands;
    bool placed = false;
    int maximized = 0;
    bool ended = false;
    std::map<shell::Dock, bool> docks;
    int problemChanges = 0;

    const forms::Dialogs& dialogs() const override { return dialogs_; }
    void placePalette(shell::Palette) override {}
    void placeFrame(int, int, int, int) override { placed = true; }
    void maximizeFrame() override { ++maximized; }
    void enableFrame(bool) override {}
    void commandsChanged() override {
        if (atCommands) {
            atCommands();
        }
    }
    void showDock(shell::Dock dock, bool shown) override { docks[dock] = shown; }
    bool dockShown(shell::Dock dock) const override { return docks.contains(dock) && docks.at(dock); }
    std::vector<shell::Dock> entered;
    void enterDock(shell::Dock dock) override { entered.push_back(dock); }
    void problemsChanged() override { ++problemChanges; }
    void unloadFrame() override {}
    void endProgram() override { ended = true; }

  private:
    forms::Dialogs dialogs_;
};

}  // namespace orvent::testkit
