#include "statements/ldl_form.h"

#include <utility>

#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"
#include "platform/fault.h"
#include "platform/text.h"
#include "statements/activity_builder.h"
#include "statements/ldl_generator.h"

namespace orvent::statements {

void LDLForm::reset() {
    open_ = false;
    form_ = nullptr;
    dialog_ = nullptr;
    round_ = nullptr;
    mirrorOrder_.reset();
    type_ = {};
    forgetStatement();
    Activity = nullptr;
    CurrentVariable = nullptr;
    Sources.Clear();
    OutputsView.Clear();
    Variables.Clear();
    OriginalTemplate.clear();
    ActivityCreated = false;
    FromDialog = false;
    Visible = {};
    Enabled = {};
    txtTemplate.clear();
    lblVariable.clear();
    marks.clear();
    clearPanel();
}

void LDLForm::forgetStatement() {
    generated_ = false;
    generatorFaults_.clear();
    trouble_.clear();
}

void LDLForm::LDLCreate(canvas::DrawForm& form, entities::ActivityProperties& activity, ActivityDialog* dialog,
                        WizardRound* round) {
    if (open_) {
        return;
    }
    if (activity.Act_Type == -1) {
        messages_.tell("Please set the activity's type!!");
        return;
    }
    const auto type = static_cast<std::size_t>(activity.Act_Type);
    if (activity.Act_Type < 0 || type >= catalogue_.activityTypeLdl.size()) {
        throw platform::Fault("The activity's type is not in the catalogue.");
    }
    reset();
    try {
        type_ = services_.activityType(activity.Act_Type);
    } catch (const platform::Fault& fault) {
        messages_.tell(fault.description(), {}, platform::Icon::critical);
        return;
    }
    form_ = &form;
    dialog_ = dialog;
    round_ = round;
    Activity = &activity;
    FromDialog = dialog != nullptr;
    txtTemplate = std::string(platform::trimmed(catalogue_.activityTypeLdl[type]));
    openedText_ = txtTemplate;
    enableCaller(false);
    mirrorOrder_.emplace(form, activity, inDialog());
    links::UnSynchronizeActivity(form, activity, false, inDialog());
    Sources = sourcesOf(activity);
    OutputsView = outputsByHand(activity);
    open_ = true;
    try {
        if (txtTemplate.find('@') != std::string::npos) {
            cmdParseLDL();
        }
        dialogs_.show(*this);
    } catch (...) {
        close();
        throw;
    }
    close();
}

bool LDLForm::mayDismiss() {
    bool defined = kind != VarUndefined;
    for (const LDLVariable& each : Variables) {
        defined = defined || each.Defined;
    }
    const bool edited = (OriginalTemplate.empty() ? txtTemplate : OriginalTemplate) != openedText_;
    if (!defined && !edited && !ActivityCreated) {
        return true;
    }
    using namespace platform;
    return messages_.show("What was defined since this window opened will be lost.", "Generate From LDL", Icon::warning,
                          Buttons::discardGoOn) == Answer::ok;
}

void LDLForm::close() {
    enableCaller(true);
    links::SynchronizeActivity(*form_, *Activity, inDialog());
    mirrorOrder_->restore(*form_, *Activity, inDialog());
    reset();
}

void LDLForm::enableCaller(bool enabled) {
    if (dialog_) {
        dialog_->setEnabled(enabled);
    } else {
        form_->setEnabled(enabled);
    }
}

void LDLForm::ScanTemplateVariables(const std::string& text) {
    try {
        scanTemplate(text, Variables);
    } catch (const platform::Fault& fault) {
        messages_.tell(fault.description());
    }
}

void LDLForm::cmdParseLDL() {
    if (!isEnabled(LDLButton::cmdParseLDL)) {
        return;
    }
    CurrentVariable = nullptr;
    Variables.Clear();
    if (OriginalTemplate.empty()) {
        OriginalTemplate = txtTemplate;
    } else {
        txtTemplate = OriginalTemplate;
    }
    forgetStatement();
    Enabled = {};
    Enabled.txtTemplate = false;
    ScanTemplateVariables(txtTemplate);
    Visible.frameVar = Visible.frameValue = true;
    if (Variables.Count() == 0) {
        layOutWithoutVariables();
        return;
    }
    clearPanel();
    fillLists();
    CurrentVariable = Variables.Item(1);
    Enabled.cmdNext = Variables.Count() > 1;
    Enabled.cmdGenerateLDL = Variables.Count() == 1;
    ShowCurrentVariable();
}

void LDLForm::ShowCurrentVariable() {
    showVariable();
    marks = marksIn(txtTemplate);
}

std::vector<LDLMark> LDLForm::marksIn(const std::string& text) const {
    return CurrentVariable ? occurrencesOf(lblVariable, text) : std::vector<LDLMark>();
}

std::vector<LDLMark> LDLForm::templateMarks() const {
    return marksIn(OriginalTemplate);
}

void LDLForm::layOutWithoutVariables() {
    Visible.frameVar = Visible.frameValue = Visible.frameArrity = Visible.steps = false;
    Enabled.cmdOK = Enabled.cmdGenerateLDL = Enabled.cmdCreateAct = true;
    marks.clear();
}

void LDLForm::cmdNext() {
    if (!isEnabled(LDLButton::cmdNext)) {
        return;
    }
    storePanel();
    const int count = Variables.Count();
    if (CurrentVariable->Index < count) {
        CurrentVariable = Variables.Item(CurrentVariable->Index + 1);
        if (CurrentVariable->Index == count) {
            Enabled.cmdNext = false;
            // The last one does not count: it may be generated before it is defined.
            Enabled.cmdGenerateLDL = Variables.allDefinedBeforeLast();
        }
        if (CurrentVariable->Index == 2) {
            Enabled.cmdPrev = true;
        }
    }
    ShowCurrentVariable();
}

void LDLForm::enableSteps() {
    const int count = Variables.Count();
    Enabled.cmdPrev = CurrentVariable->Index > 1;
    Enabled.cmdNext = CurrentVariable->Index < count;
    if (!Enabled.cmdNext) {
        Enabled.cmdGenerateLDL = Variables.allDefinedBeforeLast();
    }
}

void LDLForm::goTo(const std::string& variable) {
    LDLVariable* target = Variables.Item(variable);
    if (!CurrentVariable || !target || target == CurrentVariable) {
        return;
    }
    storePanel();
    CurrentVariable = target;
    enableSteps();
    ShowCurrentVariable();
}

void LDLForm::cmdEditTemplate() {
    if (!open_ || Enabled.txtTemplate) {
        return;
    }
    CurrentVariable = nullptr;
    Variables.Clear();
    clearPanel();
    txtTemplate = std::exchange(OriginalTemplate, {});
    Enabled = {};
    Visible = {};
    marks.clear();
    forgetStatement();
}

void LDLForm::cmdPrev() {
    if (!isEnabled(LDLButton::cmdPrev)) {
        return;
    }
    storePanel();
    if (CurrentVariable->Index > 1) {
        CurrentVariable = Variables.Item(CurrentVariable->Index - 1);
        if (CurrentVariable->Index == 1) {
            Enabled.cmdPrev = false;
        }
        if (CurrentVariable->Index == Variables.Count() - 1) {
            Enabled.cmdNext = true;
        }
    }
    ShowCurrentVariable();
}

void LDLForm::cmdGenerateLDL() {
    if (!isEnabled(LDLButton::cmdGenerateLDL)) {
        return;
    }
    if (Variables.Count() > 0) {
        storePanel();
    }
    LDLGenerator generator(Variables, Sources, OutputsView, *Activity, *form_);
    generator.WholeNumbers = WholeNumbers();
    LDLGenerator::Statement statement = generator.GenerateLDL(OriginalTemplate);
    txtTemplate = std::move(statement.text);
    generatorFaults_ = std::move(statement.faults);
    generated_ = true;
    Enabled.cmdCreateAct = true;
    marks = marksIn(txtTemplate);
}

void LDLForm::cmdCreateAct() {
    if (!isEnabled(LDLButton::cmdCreateAct)) {
        return;
    }
    ActivityCreated = true;
    // What is built stays, also after a fault, and must be saved.
    Activity->Changed = true;
    trouble_.clear();
    bool told = false;
    try {
        ActivityBuilder(*form_, *Activity, inDialog(), Variables, Sources, catalogue_, messages_)
            .CreateActivityFromVariables();
    } catch (const BuildFault& fault) {
        trouble_ = fault.description();
    } catch (const platform::Fault& fault) {
        trouble_ = fault.description();
        messages_.tell(fault.description());
        told = true;
    }
    if (dialog_) {
        dialog_->activityBuilt();
    }
    if (told) {
        return;
    }
    messages_.tell("Activity Created", {}, platform::Icon::information);
    Enabled.cmdOK = true;
}

void LDLForm::cmdOK() {
    if (!isEnabled(LDLButton::cmdOK)) {
        return;
    }
    if (!ActivityCreated &&
        messages_.show("The Activity's Generation Has Not Been Completed.\r\n"
                       "Are You Sure You Want To Close This Window?",
                       {}, platform::Icon::warning, platform::Buttons::okCancel) != platform::Answer::ok) {
        return;
    }
    Activity->Changed = Activity->Changed || Activity->Act_LDL != txtTemplate;
    Activity->Act_LDL = txtTemplate;
    Activity->statementDoubt.clear();
    former_.keep(OriginalTemplate, field());
    if (dialog_) {
        dialog_->setStatement(txtTemplate);
    }
    open_ = false;
}

void LDLForm::cmdLeaveRest() {
    if (round_) {
        round_->left = true;
        cmdCancel();
    }
}

}  // namespace orvent::statements
