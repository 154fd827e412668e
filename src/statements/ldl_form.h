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
#include "statements/ldl_panel.h"
#include "statements/ldl_sources.h"
#include "statements/ldl_variables.h"

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

/// The buttons whose state the wizard explains.
enum class LDLButton { cmdParseLDL, cmdGenerateLDL, cmdCreateAct, cmdNext, cmdPrev, cmdOK };

/// The wizard that turns the LDL template of an activity's type into the activity: it finds the template's variables,
/// asks of each what it stands for, generates the statement and builds the activity from the variables.
///
/// The window writes what the user types or selects by the handlers below, and after each of them shows the whole
/// state again. All handlers are safe at any time while `isOpen()`.
class LDLForm : public ActivityWizard {
  public:
    LDLForm(platform::MessageBox& messages, const entities::CatalogueTables& catalogue, WizardServices& services,
            const forms::Dialogs& dialogs)
        : messages_(messages), catalogue_(catalogue), services_(services), dialogs_(dialogs) {}

    /// Takes the activity out of the attribute-level graph, runs the window and puts the activity back. A template with
    /// variables is parsed at once. An activity without a type is told, and nothing opens.
    void LDLCreate(canvas::DrawForm& form, entities::ActivityProperties& activity, ActivityDialog* dialog = nullptr,
                   WizardRound* round = nullptr) override;

    bool isOpen() const { return open_; }

    // The state of the run; empty while the window is closed.
    entities::ActivityProperties* Activity = nullptr;
    LDLsourceColl Sources;                        ///< what provides the activity's inputs
    entities::Act_OutputsCollection OutputsView;  ///< the outputs that were not generated; the activity's own objects
    LDLVariableCollection Variables;
    LDLVariable* CurrentVariable = nullptr;
    std::int16_t ArrayPosition = 0;  ///< 1-based element on the panel, 0 when none
    std::string OriginalTemplate;    ///< as it was at the first parse; empty before
    bool ActivityCreated = false;
    bool FromDialog = false;

    // The controls. Kinds and values are option groups: one of each is chosen, or none.

    LDLVisible Visible;
    LDLEnabled Enabled;
    std::string txtTemplate;                ///< the template, later the statement; the window writes edits through
    std::vector<LDLMark> marks;             ///< occurrences of the current variable in `txtTemplate`
    std::string lblVariable;                ///< name of the current variable, without "@"
    LDLVariableType kind = VarUndefined;    ///< the chosen one of `kLDLKindOptions`
    LDLRegulatorType value = RegUndefined;  ///< the chosen one of `kLDLValueOptions`
    std::string frameValueCaption = "Value";
    std::int16_t UpDownArity = 0;  ///< number of elements; `txtArity` shows it
    LDLList listArrity, listInputs, listInputAttributes, listRS, listRSattributes, listDataTypes, listLDLvars,
        listLDLSubVars;
    std::string txtConst;         ///< the window writes edits through
    std::string txtFunctionName;  ///< the window writes edits through

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
    void chooseKind(LDLVariableType option);
    void chooseValue(LDLRegulatorType option);
    void UpDownArity_Up();
    void UpDownArity_Down();
    /// Selections by 0-based position; -1 takes the selection away.
    void selectArrity(int position);
    void selectInput(int position);
    void selectInputAttribute(int position);
    void selectRS(int position);
    void selectRSattribute(int position);
    void selectDataType(int position);
    void selectLDLvar(int position);
    void selectLDLSubVar(int position);

    bool WholeNumbers() const { return services_.WholeNumbers(); }
    const entities::ActivityTypeProperties& type() const { return type_; }
    const entities::NameTable& functionTypes() const { return catalogue_.functionTypes; }
    /// Whether `txtTemplate` is a statement that was generated; and by what faults its passes ended.
    bool hasStatement() const { return generated_; }
    const std::vector<std::string>& generatorFaults() const { return generatorFaults_; }
    /// Why the activity was built in part only; empty when it was not.
    const std::string& trouble() const { return trouble_; }
    /// False while the values are those of an array of which no element is chosen.
    bool valuesEnabled() const { return !Visible.frameArrity || ArrayPosition > 0; }
    /// Where the current variable stands in the template.
    std::vector<LDLMark> templateMarks() const;

    // What the window tells its user in plain words.

    /// Which of the activities without a statement this is; empty when only this one is opened.
    std::string roundText() const;
    /// How far the walk is and which variable is meant: "Variable 2 of 5: @KEY, an array with 3 elements".
    std::string progressText() const;
    /// What to do next, or what is still missing on the panel.
    std::string hint() const;
    bool isEnabled(LDLButton button) const;
    /// Why a button is grey; empty while it is not.
    std::string whyDisabled(LDLButton button) const;
    /// The button that leads on; it may still be disabled.
    LDLButton leadsOn() const;
    /// Whether the variable has all that it needs; of the current one the panel is looked at.
    bool isComplete(const LDLVariable& variable) const;
    /// The same of an element of the current variable, which is an array.
    bool isElementComplete(const LDLVariable& element) const;

    /// Adds the template's variables to `Variables`. A fault is told, and ends the scan with what was found.
    void ScanTemplateVariables(const std::string& text);
    void StoreCurrentVariable();
    void ShowCurrentVariable();
    void StoreCurrentElement();

  private:
    void close();
    void enableCaller(bool enabled);
    entities::ActivityProperties* inDialog() const { return FromDialog ? Activity : nullptr; }
    void buildOutputsView();
    void layOutWithoutVariables();
    void fillLists();
    void chooseValueIn(LDLList& list, int at);
    void showPanel(LDLVariableType option);
    void reset();
    void clearPanel();
    void resetPanel();
    void clearValues();
    void showValue(const LDLVariable& holder);
    void showRegulator(const LDLVariable& holder);
    void showArray();
    void fillRegulators();
    void storeValue(LDLVariable& holder) const;
    void storePanel();
    bool allDefinedBeforeLast() const;
    void enableSteps();
    static std::vector<LDLMark> occurrences(const std::string& text, const std::string& name);
    std::string missingValue() const;
    std::string missingOnPanel() const;
    std::string missingInArray() const;
    std::string missingRegulator() const;

    platform::MessageBox& messages_;
    const entities::CatalogueTables& catalogue_;
    WizardServices& services_;
    const forms::Dialogs& dialogs_;
    canvas::DrawForm* form_ = nullptr;  ///< the design window
    ActivityDialog* dialog_ = nullptr;
    WizardRound* round_ = nullptr;
    std::optional<links::MirrorOrder> mirrorOrder_;
    std::string trouble_;  ///< why the activity was built in part only
    entities::ActivityTypeProperties type_;
    std::vector<std::string> generatorFaults_;
    std::string openedText_;  ///< the template as the window got it
    bool generated_ = false;
    bool open_ = false;
};

}  // namespace orvent::statements
