#include <string>

#include "platform/text.h"
#include "statements/ldl_form.h"

namespace orvent::statements {

void LDLForm::storeValue(LDLVariable& holder) const {
    switch (value) {
        case RegInput:
            holder.RegulatorName = std::to_string(listInputs.ListIndex);
            holder.RegulatedFrom = listInputAttributes.position();
            break;
        case RegRecordSetField:
            holder.RegulatorName = listRS.Text();
            holder.RegulatedFrom = listRSattributes.position();
            break;
        case RegConstant:
            holder.RegulatorName = txtConst;
            holder.RegulatedFrom = listDataTypes.position();
            break;
        default:
            return;
    }
    holder.RegulatorType = value;
}

void LDLForm::StoreCurrentVariable() {
    LDLVariable& variable = *CurrentVariable;
    variable.Defined = kind != VarUndefined;
    if (!variable.Defined) {
        return;
    }
    variable.VariableType = kind;
    switch (kind) {
        case VarParameter:
        case VarFunctionParameter:
            storeValue(variable);
            break;
        case VarFunction:
            variable.RegulatorName = txtFunctionName;
            break;
        case VarRecordSet:
            variable.RegulatorName = listRS.Text();
            break;
        case VarFunctionOutput:
            variable.RegulatedFrom = listDataTypes.position();
            break;
        case VarOutput:
            variable.RegulatorName = listLDLvars.Text();
            variable.RegulatedFrom = listLDLSubVars.position();
            break;
        default:
            break;  // the values of an array are on its elements
    }
}

void LDLForm::StoreCurrentElement() {
    LDLVariable* element = CurrentVariable->SubVariables ? CurrentVariable->SubVariables->Item(ArrayPosition) : nullptr;
    if (!element) {
        return;
    }
    element->Defined = true;
    if (kind == VarOutputArray && listLDLvars.ListIndex >= 0) {
        element->RegulatorType = RegOutputVariable;
        element->RegulatorName = listLDLvars.Text();
        element->RegulatedFrom = listLDLSubVars.position();
    } else {
        storeValue(*element);
    }
}

void LDLForm::storePanel() {
    if (Visible.frameArrity) {
        StoreCurrentElement();
    }
    StoreCurrentVariable();
}

void LDLForm::showValue(const LDLVariable& holder) {
    value = holder.RegulatorType;
    switch (holder.RegulatorType) {
        case RegInput:
            selectInput(static_cast<int>(platform::parseInteger(holder.RegulatorName).value_or(-1)));
            listInputAttributes.choose(holder.RegulatedFrom);
            break;
        case RegRecordSetField:
            listRS.select(holder.RegulatorName);
            selectRS(listRS.ListIndex);
            listRSattributes.choose(holder.RegulatedFrom);
            break;
        case RegConstant:
            txtConst = holder.RegulatorName;
            listDataTypes.chooseHeld(holder.RegulatedFrom);
            break;
        case RegOutputVariable:
            value = RegUndefined;
            showRegulator(holder);
            break;
        case RegUndefined:
            break;
    }
}

void LDLForm::showRegulator(const LDLVariable& holder) {
    listLDLvars.select(holder.RegulatorName);
    selectLDLvar(listLDLvars.ListIndex);
    listLDLSubVars.choose(holder.RegulatedFrom);
}

void LDLForm::ShowCurrentVariable() {
    const LDLVariable& variable = *CurrentVariable;
    resetPanel();
    lblVariable = variable.VariableName;
    marks = occurrences(txtTemplate, lblVariable);
    Visible.arrayOptions = variable.SubVariables != nullptr;
    Visible.scalarOptions = !Visible.arrayOptions;
    frameValueCaption = Visible.arrayOptions ? "Value Of  " : "Value";
    showPanel(VarUndefined);
    if (!variable.Defined) {
        return;
    }
    chooseKind(variable.VariableType);
    switch (variable.VariableType) {
        case VarParameter:
        case VarFunctionParameter:
            showValue(variable);
            break;
        case VarFunction:
            txtFunctionName = variable.RegulatorName;
            break;
        case VarRecordSet:
            listRS.select(variable.RegulatorName);
            selectRS(listRS.ListIndex);
            break;
        case VarFunctionOutput:
            listDataTypes.chooseHeld(variable.RegulatedFrom);
            break;
        case VarOutput:
            showRegulator(variable);
            break;
        default:
            showArray();
    }
}

void LDLForm::showArray() {
    UpDownArity = static_cast<std::int16_t>(CurrentVariable->SubVariables->Count());
    for (int element = 1; element <= UpDownArity; ++element) {
        listArrity.items.push_back(std::to_string(element));
    }
}

void LDLForm::UpDownArity_Up() {
    if (!Visible.frameArrity || UpDownArity == INT16_MAX) {
        return;
    }
    const std::string name = std::to_string(++UpDownArity);
    CurrentVariable->SubVariables->Add(name);
    listArrity.items.push_back(name);
}

void LDLForm::UpDownArity_Down() {
    if (!Visible.frameArrity || UpDownArity == 0) {
        return;
    }
    CurrentVariable->SubVariables->Remove(UpDownArity--);
    if (!listArrity.items.empty()) {
        listArrity.items.pop_back();
    }
    if (ArrayPosition > UpDownArity) {
        selectArrity(-1);
    }
}

void LDLForm::selectArrity(int at) {
    if (!Visible.frameArrity) {
        return;
    }
    StoreCurrentElement();
    clearValues();
    listArrity.choose(at);
    ArrayPosition = static_cast<std::int16_t>(listArrity.ListIndex + 1);
    frameValueCaption = "Value Of  ";
    if (const LDLVariable* element = CurrentVariable->SubVariables->Item(ArrayPosition)) {
        frameValueCaption += CurrentVariable->VariableName + elementName(ArrayPosition);
        if (element->Defined) {
            showValue(*element);
        }
    }
}

}  // namespace orvent::statements
