#include <algorithm>
#include <string>

#include "statements/ldl_form.h"

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

bool canRegulate(const LDLVariable& variable) {
    return variable.Defined && (variable.VariableType == VarParameterArray || variable.VariableType == VarParameter ||
                                variable.VariableType == VarFunctionOutput);
}

}  // namespace

void LDLList::select(const std::string& text) {
    const auto found = std::find(items.begin(), items.end(), text);
    ListIndex = found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

void LDLList::choose(int at) {
    ListIndex = at >= 0 && at < static_cast<int>(items.size()) ? at : -1;
}

void LDLList::chooseHeld(std::int16_t held) {
    const auto found = std::find(indices.begin(), indices.end(), held);
    choose(indices.empty() ? held : found == indices.end() ? -1 : static_cast<int>(found - indices.begin()));
}

void LDLForm::fillLists() {
    clearPanel();
    for (int source = 1; source <= Sources.Count(); ++source) {
        listInputs.items.push_back("a_in" + std::to_string(source));
    }
    const entities::NameTable& types = catalogue_.dataTypes;
    listDataTypes.indices = types.listed();
    for (const std::int16_t type : listDataTypes.indices) {
        listDataTypes.items.push_back(types.name(type));
    }
    for (int node = 1; node <= form_->Labels.Count(); ++node) {
        const canvas::LabelsD& label = *form_->Labels.at(node);
        if (label.NodeType() == canvas::NodeTypeRecordSet) {
            listRS.items.push_back(label.Caption());
        }
    }
}

void LDLForm::clearPanel() {
    for (LDLList* list : {&listArrity, &listInputs, &listInputAttributes, &listRS, &listRSattributes, &listDataTypes,
                          &listLDLvars, &listLDLSubVars}) {
        list->clear();
    }
    resetPanel();
}

void LDLForm::resetPanel() {
    kind = VarUndefined;
    ArrayPosition = 0;
    UpDownArity = 0;
    listArrity.clear();
    listLDLvars.clear();
    frameValueCaption = "Value";
    txtFunctionName.clear();
    marks.clear();
    clearValues();
}

void LDLForm::clearValues() {
    value = RegUndefined;
    txtConst.clear();
    for (LDLList* list : {&listInputs, &listRS, &listDataTypes, &listLDLvars}) {
        list->ListIndex = -1;
    }
    listInputAttributes.clear();
    listRSattributes.clear();
    listLDLSubVars.clear();
}

void LDLForm::showPanel(LDLVariableType option) {
    const Panel& panel = *std::find_if(std::begin(kPanels), std::end(kPanels),
                                       [option](const Panel& row) { return row.kind == option; });
    Visible.frameArrity = panel.arity;
    Visible.valueOptions = Visible.listInputs = Visible.listRSattributes = Visible.txtConst = panel.values;
    Visible.listRS = panel.values || panel.recordSets;
    Visible.listDataTypes = panel.values || panel.dataTypes;
    Visible.txtFunctionName = panel.functionName;
    Visible.listLDLvars = Visible.listLDLSubVars = panel.regulators;
}

void LDLForm::chooseKind(LDLVariableType option) {
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

void LDLForm::fillRegulators() {
    listLDLvars.clear();
    listLDLSubVars.clear();
    for (const LDLVariable& variable : Variables) {
        if (canRegulate(variable)) {
            listLDLvars.items.push_back(variable.VariableName);
        }
    }
}

void LDLForm::selectInput(int at) {
    if (!valuesEnabled()) {
        return;
    }
    listInputs.choose(at);
    listInputAttributes.clear();
    if (const LDLSource* source = Sources.Source(listInputs.ListIndex + 1)) {
        int number = 0;
        for (const entities::AttributeProperties& input : *source) {
            listInputAttributes.items.push_back(std::to_string(++number) + "(" + input.Attribute_Name + ")");
        }
    }
}

void LDLForm::selectRS(int at) {
    if (!valuesEnabled()) {
        return;
    }
    listRS.choose(at);
    listRSattributes.clear();
    const canvas::LabelsD* node = form_ ? form_->nodeNamed(listRS.Text()) : nullptr;
    if (const entities::RecordSetProperties* recordSet = node ? node->recordSet() : nullptr) {
        for (const entities::AttributeProperties& attribute : recordSet->RecordSet_Outputs) {
            listRSattributes.items.push_back(attribute.Attribute_Name);
        }
    }
}

void LDLForm::selectLDLvar(int at) {
    if (!valuesEnabled()) {
        return;
    }
    listLDLvars.choose(at);
    listLDLSubVars.clear();
    const LDLVariable* regulator = listLDLvars.ListIndex < 0 ? nullptr : Variables.Item(listLDLvars.Text());
    Visible.listLDLSubVars = regulator && regulator->SubVariables;
    if (Visible.listLDLSubVars) {
        for (int element = 1; element <= regulator->SubVariables->Count(); ++element) {
            listLDLSubVars.items.push_back(elementName(element));
        }
    }
}

void LDLForm::chooseValueIn(LDLList& list, int at) {
    if (valuesEnabled()) {
        list.choose(at);
    }
}

void LDLForm::selectInputAttribute(int at) {
    chooseValueIn(listInputAttributes, at);
}

void LDLForm::selectRSattribute(int at) {
    chooseValueIn(listRSattributes, at);
}

void LDLForm::selectDataType(int at) {
    chooseValueIn(listDataTypes, at);
}

void LDLForm::selectLDLSubVar(int at) {
    chooseValueIn(listLDLSubVars, at);
}

void LDLForm::chooseValue(LDLRegulatorType option) {
    if (valuesEnabled()) {
        value = option;
    }
}

std::vector<LDLMark> LDLForm::templateMarks() const {
    return CurrentVariable ? occurrences(OriginalTemplate, lblVariable) : std::vector<LDLMark>();
}

std::vector<LDLMark> LDLForm::occurrences(const std::string& text, const std::string& name) {
    const std::string sought = "@" + name;
    std::vector<LDLMark> result;
    std::size_t at = text.find(sought);
    while (at != std::string::npos) {
        std::size_t end = at + sought.size();
        if (end < text.size() && isNameCharacter(text[end])) {
            at = text.find(sought, at + 1);
            continue;
        }
        if (end < text.size() && text[end] == '[') {
            const std::size_t close = text.find(']', end);
            end = close == std::string::npos ? end : close + 1;
        }
        result.push_back({at, end - at});
        at = text.find(sought, end);
    }
    return result;
}

}  // namespace orvent::statements
