#include "statements/ldl_variable_panel.h"

#include <algorithm>
#include <numeric>
#include <string>

namespace orvent::statements {

namespace {

/// What a kind's option shows of the value panel.
struct Panel {
    LDLVariableType kind;
    bool arity, values, recordSets, functionName, dataTypes, regulators;
};

constexpr Panel kPanels[] = {
    {VarUndefined, false, false, false, false, false, false},
    {VarParameter, false, true, false, false, false, false},
    {VarFunctionParameter, false, true, false, false, false, false},
    {VarParameterArray, true, true, false, false, false, false},
    {VarFunctionParameterArray, true, true, false, false, false, false},
    {VarOutputArray, true, false, false, false, false, true},
    {VarRecordSet, false, false, true, false, false, false},
    {VarFunction, false, false, false, true, false, false},
    {VarFunctionOutput, false, false, false, false, true, false},
    {VarOutput, false, false, false, false, false, true},
};

bool isArrayOption(LDLVariableType kind) {
    return std::any_of(kLDLKindOptions.begin(), kLDLKindOptions.end(),
                       [kind](const LDLKindOption& option) { return option.kind == kind && option.array; });
}

}  // namespace

void LDLVariablePanel::clearPanel() {
    clearLists();
    resetPanel();
}

void LDLVariablePanel::resetPanel() {
    kind = VarUndefined;
    ArrayPosition = 0;
    UpDownArity = 0;
    listArrity.clear();
    listLDLvars.clear();
    frameValueCaption = "Value";
    txtFunctionName.clear();
    clearValues();
}

void LDLVariablePanel::showPanel(LDLVariableType option) {
    const Panel& panel = *std::find_if(std::begin(kPanels), std::end(kPanels),
                                       [option](const Panel& row) { return row.kind == option; });
    Visible.frameArrity = panel.arity;
    Visible.valueOptions = Visible.listInputs = Visible.listRSattributes = Visible.txtConst = panel.values;
    Visible.listRS = panel.values || panel.recordSets;
    Visible.listDataTypes = panel.values || panel.dataTypes;
    Visible.txtFunctionName = panel.functionName;
    Visible.listLDLvars = Visible.listLDLSubVars = panel.regulators;
}

void LDLVariablePanel::chooseKind(LDLVariableType option) {
    if (!CurrentVariable ||
        (option != VarUndefined && isArrayOption(option) != (CurrentVariable->SubVariables != nullptr))) {
        return;
    }
    kind = option;
    showPanel(option);
    if (option == VarOutput || option == VarOutputArray) {
        fillRegulators();
    }
}

void LDLVariablePanel::showVariable() {
    const LDLVariable& variable = *CurrentVariable;
    resetPanel();
    lblVariable = variable.VariableName;
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

void LDLVariablePanel::showArray() {
    UpDownArity = static_cast<std::int16_t>(CurrentVariable->SubVariables->Count());
    for (int element = 1; element <= UpDownArity; ++element) {
        listArrity.items.push_back(std::to_string(element));
    }
}

void LDLVariablePanel::UpDownArity_Up() {
    if (!Visible.frameArrity || UpDownArity == INT16_MAX) {
        return;
    }
    const std::string name = std::to_string(++UpDownArity);
    CurrentVariable->SubVariables->Add(name);
    listArrity.items.push_back(name);
}

void LDLVariablePanel::UpDownArity_Down() {
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

void LDLVariablePanel::selectArrity(int at) {
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

std::vector<std::string> LDLVariablePanel::bunches() const {
    std::vector<std::string> names;
    if (takesInputs()) {
        for (const LDLSource& source : Sources) {
            names.push_back(source.Source);
        }
    } else if (kind == VarOutputArray) {
        for (const std::string& name : listLDLvars.items) {
            if (const LDLVariable* variable = Variables.Item(name); variable && variable->SubVariables) {
                names.push_back(name);
            }
        }
    }
    return names;
}

std::vector<std::string> LDLVariablePanel::bunch(int at) const {
    std::vector<std::string> items;
    const std::vector<std::string> names = bunches();
    if (at < 0 || at >= static_cast<int>(names.size())) {
        return items;
    }
    if (takesInputs()) {
        for (const entities::AttributeProperties& input : *Sources.Source(at + 1)) {
            items.push_back(input.Attribute_Name);
        }
    } else {
        const LDLVariable& variable = *Variables.Item(names[static_cast<std::size_t>(at)]);
        for (int element = 1; element <= variable.SubVariables->Count(); ++element) {
            items.push_back(elementName(element));
        }
    }
    return items;
}

void LDLVariablePanel::dropOpenElements() {
    selectArrity(-1);  // what is shown is stored before
    const LDLVariableCollection& elements = *CurrentVariable->SubVariables;
    while (UpDownArity > 0 && !isElementComplete(*elements.Item(UpDownArity))) {
        UpDownArity_Down();
    }
}

void LDLVariablePanel::takeBunch(int at, const std::vector<int>& places) {
    const int count = static_cast<int>(bunch(at).size());
    if (count == 0) {
        return;
    }
    dropOpenElements();
    for (const int place : places) {
        if (place < 0 || place >= count) {
            continue;
        }
        UpDownArity_Up();
        LDLVariable& element = *CurrentVariable->SubVariables->Item(UpDownArity);
        element.Defined = true;
        element.RegulatorType = takesInputs() ? RegInput : RegOutputVariable;
        element.RegulatorName = takesInputs() ? std::to_string(at) : bunches()[static_cast<std::size_t>(at)];
        element.RegulatedFrom = static_cast<std::int16_t>(place);
    }
}

void LDLVariablePanel::takeWholeBunch(int at) {
    std::vector<int> places(bunch(at).size());
    std::iota(places.begin(), places.end(), 0);
    takeBunch(at, places);
}

void LDLVariablePanel::StoreCurrentVariable() {
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

void LDLVariablePanel::StoreCurrentElement() {
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

void LDLVariablePanel::storePanel() {
    if (Visible.frameArrity) {
        StoreCurrentElement();
    }
    StoreCurrentVariable();
}

}  // namespace orvent::statements
