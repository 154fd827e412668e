#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "entities/name_tables.h"
#include "entities/type_records.h"
#include "forms/dialog_port.h"
#include "links/mirror_order.h"
#include "platform/dialogs.h"
#include "statements/activity_wizard.h"
#include "statements/former_answers.h"
#include "statements/ldl_variable_panel.h"

namespace orvent::statements {

/// What the wizard asks of the program beyond the scenario.
class WizardServices {
  public:
    virtual ~WizardServices() = default;
    /// The whole type of an activity; throws when it cannot be read whole.
    virtual entities::ActivityTypeProperties activityType(std::int16_t index) = 0;
    /// The stored choice to read the numbers of tokens whole.
    virtual bool WholeNumbers() const = 0;
    virtual void setWholeNumbers(bool on) = 0;
};

/// The wizard that turns the LDL template of an activity's type into the activity: it finds the template's variables,
/// leads through them, generates the statement and builds the activity from the variables. What each variable stands
/// for is asked on its panels.
///
/// The window writes what the user types or selects by the handlers of the panels and those below, and after each of
/// them shows the whole state again. All handlers are safe at any time while `isOpen()`.
class LDLForm : public ActivityWizard, public LDLVariablePanel {
  public:
    LDLForm(platform::MessageBox& messages, const entities::CatalogueTables& catalogue, WizardServices& services,
            const forms::Dialogs& dialogs)
        : LDLVariablePanel(catalogue.dataTypes),
          messages_(messages),
          catalogue_(catalogue),
          services_(services),
          dialogs_(dialogs) {}

    /// Takes the activity out of the attribute-level graph, runs the window and puts the activity back. A template with
    /// variables is parsed at once. An activity without a type is told, and nothing opens.
    void LDLCreate(canvas::DrawForm& form, entities::ActivityProperties& activity, ActivityDialog* dialog = nullptr,
                   WizardRound* round = nullptr) override;

    bool isOpen() const { return open_; }

    // The state of the run; empty while the window is closed.
    entities::ActivityProperties* Activity = nullptr;
    entities::Act_OutputsCollection OutputsView;  ///< the outputs that were not generated; the activity's own objects
    std::string OriginalTemplate;                 ///< as it was at the first parse; empty before
    bool ActivityCreated = false;
    bool FromDialog = false;

    LDLEnabled Enabled;
    std::string txtTemplate;     ///< the template, later the statement; the window writes edits through
    std::vector<LDLMark> marks;  ///< occurrences of the current variable in `txtTemplate`

    // The events.
    void cmdParseLDL();
    void cmdGenerateLDL();
    void cmdCreateAct();
    void cmdNext();
    void cmdPrev();
    void cmdOK();
    void cmdCancel() { open_ = false; }
    /// Whether the window may go without a press on its buttons: asks when something was defined since it opened.
    bool mayDismiss();
    /// Gives the template back to be edited; all definitions are lost, as at a new parse.
    void cmdEditTemplate();
    /// Stores what is on screen and shows that variable; an unknown name does nothing.
    void goTo(const std::string& variable);
    void setWholeNumbers(bool on) { services_.setWholeNumbers(on); }
    /// Closes like `cmdCancel`, and opens no further activity of the round.
    void cmdLeaveRest();

    bool WholeNumbers() const { return services_.WholeNumbers(); }
    const entities::ActivityTypeProperties& type() const { return type_; }
    const entities::NameTable& functionTypes() const { return catalogue_.functionTypes; }
    /// Which of the activities without a statement this is; null when only this one is opened.
    const WizardRound* round() const { return round_; }
    bool isEnabled(LDLButton button) const { return open_ && Enabled.*enabledOf(button); }
    /// Whether `txtTemplate` is a statement that was generated; and by what faults its passes ended.
    bool hasStatement() const { return generated_; }
    const std::vector<std::string>& generatorFaults() const { return generatorFaults_; }
    /// Why the activity was built in part only; empty when it was not.
    const std::string& trouble() const { return trouble_; }
    /// Where the current variable stands in the template.
    std::vector<LDLMark> templateMarks() const;

    // Proposals, which are shown and taken only when they are asked for.

    /// What the current variable stood for when an activity was made by the same template in this run, in words; empty
    /// while it has a kind, and when nothing is known.
    std::string formerWords() const;
    void takeFormer();
    /// With what the constant at hand is compared, and the data type of that, in words; empty when it has a type.
    std::string comparedWords() const;
    void takeComparedType();

    /// Adds the template's variables to `Variables`. A fault is told, and ends the scan with what was found.
    void ScanTemplateVariables(const std::string& text);
    void ShowCurrentVariable();

  private:
    void close();
    void enableCaller(bool enabled);
    entities::ActivityProperties* inDialog() const { return FromDialog ? Activity : nullptr; }
    void layOutWithoutVariables();
    void forgetStatement();
    void reset();
    void enableSteps();
    std::vector<LDLMark> marksIn(const std::string& text) const;
    AnswerField field() const { return {Variables, Sources, *form_}; }
    const LDLVariable* compared() const;
    std::optional<std::int16_t> comparedType() const;

    platform::MessageBox& messages_;
    const entities::CatalogueTables& catalogue_;
    WizardServices& services_;
    const forms::Dialogs& dialogs_;
    ActivityDialog* dialog_ = nullptr;
    WizardRound* round_ = nullptr;
    std::optional<links::MirrorOrder> mirrorOrder_;
    std::string trouble_;  ///< why the activity was built in part only
    entities::ActivityTypeProperties type_;
    std::vector<std::string> generatorFaults_;
    std::string openedText_;  ///< the template as the window got it
    FormerAnswers former_;    ///< of the whole run of the program
    bool generated_ = false;
    bool open_ = false;
};

}  // namespace orvent::statements
