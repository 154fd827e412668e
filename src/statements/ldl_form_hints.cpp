#include <string>

#include "statements/ldl_form.h"
#include "statements/ldl_guide.h"

namespace orvent::statements {

namespace {

std::string referenceTo(const LDLVariable& variable) {
    return "@" + variable.VariableName;
}

/// Whether the element, or the parameter, has all that its kind asks for.
bool hasValue(const LDLVariable& element) {
    const bool chosen = element.RegulatorType != RegUndefined && element.RegulatorName != "-1";
    return element.Defined && chosen && (element.RegulatedFrom >= 0 || element.RegulatorType == RegOutputVariable);
}

}  // namespace

bool LDLForm::isEnabled(LDLButton button) const {
    if (!open_) {
        return false;
    }
    switch (button) {
        case LDLButton::cmdParseLDL:
            return Enabled.cmdParseLDL;
        case LDLButton::cmdGenerateLDL:
            return Enabled.cmdGenerateLDL;
        case LDLButton::cmdCreateAct:
            return Enabled.cmdCreateAct;
        case LDLButton::cmdNext:
            return Enabled.cmdNext;
        case LDLButton::cmdPrev:
            return Enabled.cmdPrev;
        case LDLButton::cmdOK:
            return Enabled.cmdOK;
    }
    return false;
}

std::string LDLForm::whyDisabled(LDLButton button) const {
    if (isEnabled(button)) {
        return {};
    }
    const bool walking = CurrentVariable != nullptr;
    std::string undefined;
    switch (button) {
        case LDLButton::cmdParseLDL:
            return "The window is closed.";
        case LDLButton::cmdGenerateLDL:
            if (!walking) {
                return "Parse the template first.";
            }
            for (const LDLVariable& variable : Variables) {
                if (!variable.Defined && variable.Index < Variables.Count() && &variable != CurrentVariable) {
                    undefined += (undefined.empty() ? "" : ", ") + referenceTo(variable);
                }
            }
            return undefined.empty() ? "Go on to the last variable first." : "Not defined yet: " + undefined + ".";
        case LDLButton::cmdCreateAct:
            return walking ? "Generate the statement first." : "Parse the template first.";
        case LDLButton::cmdNext:
            return walking ? "This is the last variable." : "Parse the template first.";
        case LDLButton::cmdPrev:
            return walking ? "This is the first variable." : "Parse the template first.";
        case LDLButton::cmdOK:
            return "Create the activity first.";
    }
    return {};
}

std::string LDLForm::roundText() const {
    return round_ ? "Activity " + std::to_string(round_->place) + " of " + std::to_string(round_->count) +
                        " without a statement"
                  : std::string();
}

std::string LDLForm::progressText() const {
    if (!CurrentVariable) {
        return Enabled.txtTemplate ? "The template has not been parsed yet." : "The template has no variables.";
    }
    std::string text = "Variable " + std::to_string(CurrentVariable->Index) + " of " +
                       std::to_string(Variables.Count()) + ": " + referenceTo(*CurrentVariable);
    if (CurrentVariable->SubVariables) {
        const int count = CurrentVariable->SubVariables->Count();
        text += count == 0   ? ", an array without elements yet"
                : count == 1 ? ", an array of 1 element"
                             : ", an array of " + std::to_string(count) + " elements";
    }
    return text;
}

std::string LDLForm::missingValue() const {
    switch (value) {
        case RegInput:
            return listInputs.ListIndex < 0            ? "Select the input source."
                   : listInputAttributes.ListIndex < 0 ? "Select the attribute of " + listInputs.Text() + "."
                                                       : "";
        case RegRecordSetField:
            return listRS.ListIndex < 0             ? "Select the record set."
                   : listRSattributes.ListIndex < 0 ? "Select the attribute of " + listRS.Text() + "."
                                                    : "";
        case RegConstant:
            return txtConst.empty()              ? "Type the constant."
                   : listDataTypes.ListIndex < 0 ? "Select the constant's data type."
                                                 : "";
        default:
            return "Choose where the value comes from: an input, a record set's attribute or a constant.";
    }
}

std::string LDLForm::missingRegulator() const {
    if (listLDLvars.items.empty()) {
        return "No parameter or function output has been defined yet that could regulate this. Define one first.";
    }
    if (listLDLvars.ListIndex < 0) {
        return "Select the variable that regulates it.";
    }
    if (Visible.listLDLSubVars && listLDLSubVars.ListIndex < 0) {
        return "Select the element of " + listLDLvars.Text() + " that regulates it.";
    }
    return {};
}

std::string LDLForm::missingInArray() const {
    if (UpDownArity == 0) {
        return "Set the number of elements.";
    }
    if (ArrayPosition > 0) {
        const std::string missing = kind == VarOutputArray ? missingRegulator() : missingValue();
        if (!missing.empty()) {
            return missing;
        }
    }
    for (const LDLVariable& element : *CurrentVariable->SubVariables) {
        if (element.Index != ArrayPosition && !hasValue(element)) {
            return "Select element " + element.VariableName + " in the list and give its value.";
        }
    }
    return {};
}

std::string LDLForm::missingOnPanel() const {
    switch (kind) {
        case VarUndefined:
            return "Choose what " + referenceTo(*CurrentVariable) + " stands for.";
        case VarParameter:
        case VarFunctionParameter:
            return missingValue();
        case VarRecordSet:
            return listRS.ListIndex < 0 ? "Select the record set." : "";
        case VarFunction:
            return txtFunctionName.empty() ? "Type the function's name." : "";
        case VarFunctionOutput:
            return listDataTypes.ListIndex < 0 ? "Select the data type." : "";
        case VarOutput:
            return missingRegulator();
        default:
            return missingInArray();
    }
}

bool LDLForm::isElementComplete(const LDLVariable& element) const {
    if (element.Index != ArrayPosition) {
        return hasValue(element);
    }
    return (kind == VarOutputArray ? missingRegulator() : missingValue()).empty();
}

bool LDLForm::isComplete(const LDLVariable& variable) const {
    if (&variable == CurrentVariable) {
        return missingOnPanel().empty();
    }
    if (!variable.Defined) {
        return false;
    }
    if (variable.SubVariables) {
        bool complete = variable.SubVariables->Count() > 0;
        for (const LDLVariable& element : *variable.SubVariables) {
            complete = complete && hasValue(element);
        }
        return complete;
    }
    switch (variable.VariableType) {
        case VarParameter:
        case VarFunctionParameter:
            return hasValue(variable);
        case VarFunctionOutput:
            return variable.RegulatedFrom >= 0;
        case VarOutput: {
            const LDLVariable* regulator = Variables.Item(variable.RegulatorName);
            return !variable.RegulatorName.empty() &&
                   (variable.RegulatedFrom >= 0 || !regulator || !regulator->SubVariables);
        }
        default:
            return !variable.RegulatorName.empty();
    }
}

LDLButton LDLForm::leadsOn() const {
    if (Enabled.txtTemplate) {
        return LDLButton::cmdParseLDL;
    }
    if (Enabled.cmdOK && ActivityCreated) {
        return LDLButton::cmdOK;
    }
    if (Enabled.cmdCreateAct && (CurrentVariable || txtTemplate != OriginalTemplate)) {
        return LDLButton::cmdCreateAct;
    }
    if (Enabled.cmdGenerateLDL) {
        return LDLButton::cmdGenerateLDL;
    }
    return Enabled.cmdNext ? LDLButton::cmdNext : LDLButton::cmdPrev;
}

std::string LDLForm::hint() const {
    if (Enabled.txtTemplate) {
        return txtTemplate.empty() ? "The activity's type has no template. Write one, then parse it."
                                   : "Parse the template to find its variables.";
    }
    if (!trouble_.empty()) {
        return "The activity was built in part only. " + trouble_;
    }
    const std::vector<Advice> faults = LDLGuide(*this).faults();
    const bool created = Enabled.cmdOK && ActivityCreated;
    if (!faults.empty()) {
        return (created ? "The activity is created, but its statement is not complete. "
                        : "The statement is not complete. ") +
               faults.front().words;
    }
    if (created) {
        return "The activity is created. Keep its statement with OK.";
    }
    if (!CurrentVariable) {
        return "Generate the statement, then create the activity.";
    }
    const std::string missing = missingOnPanel();
    if (!missing.empty()) {
        return missing;
    }
    if (Enabled.cmdCreateAct) {
        return "Check the statement, then create the activity.";
    }
    if (Enabled.cmdGenerateLDL) {
        return "Generate the statement.";
    }
    return Enabled.cmdNext ? "Complete. Go on to the next variable." : whyDisabled(LDLButton::cmdGenerateLDL);
}

}  // namespace orvent::statements
