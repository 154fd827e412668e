// What a variable still lacks.

#include <string>

#include "statements/ldl_variable_panel.h"

namespace orvent::statements {

namespace {

/// Whether the element, or the parameter, has all that its kind asks for.
bool hasValue(const LDLVariable& element) {
    const bool chosen = element.RegulatorType != RegUndefined && element.RegulatorName != "-1";
    return element.Defined && chosen && (element.RegulatedFrom >= 0 || element.RegulatorType == RegOutputVariable);
}

}  // namespace

std::string LDLVariablePanel::missingInArray() const {
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

std::string LDLVariablePanel::missingOnPanel() const {
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

bool LDLVariablePanel::isElementComplete(const LDLVariable& element) const {
    if (element.Index != ArrayPosition) {
        return hasValue(element);
    }
    return (kind == VarOutputArray ? missingRegulator() : missingValue()).empty();
}

bool LDLVariablePanel::isComplete(const LDLVariable& variable) const {
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

}  // namespace orvent::statements
