#include "statements/ldl_value_panel.h"

#include <algorithm>
#include <string>

#include "platform/text.h"

namespace orvent::statements {

namespace {

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

void LDLValuePanel::fillLists() {
    for (int source = 1; source <= Sources.Count(); ++source) {
        listInputs.items.push_back("a_in" + std::to_string(source));
    }
    listDataTypes.indices = dataTypes_.listed();
    for (const std::int16_t type : listDataTypes.indices) {
        listDataTypes.items.push_back(dataTypes_.name(type));
    }
    for (int node = 1; node <= form_->Labels.Count(); ++node) {
        const canvas::LabelsD& label = *form_->Labels.at(node);
        if (label.NodeType() == canvas::NodeTypeRecordSet) {
            listRS.items.push_back(label.Caption());
        }
    }
}

void LDLValuePanel::clearLists() {
    for (LDLList* list : {&listInputs, &listInputAttributes, &listRS, &listRSattributes, &listDataTypes, &listLDLvars,
                          &listLDLSubVars}) {
        list->clear();
    }
}

void LDLValuePanel::clearValues() {
    value = RegUndefined;
    txtConst.clear();
    for (LDLList* list : {&listInputs, &listRS, &listDataTypes, &listLDLvars}) {
        list->ListIndex = -1;
    }
    listInputAttributes.clear();
    listRSattributes.clear();
    listLDLSubVars.clear();
}

void LDLValuePanel::fillRegulators() {
    listLDLvars.clear();
    listLDLSubVars.clear();
    for (const LDLVariable& variable : Variables) {
        if (canRegulate(variable)) {
            listLDLvars.items.push_back(variable.VariableName);
        }
    }
}

void LDLValuePanel::chooseValue(LDLRegulatorType option) {
    if (valuesEnabled()) {
        value = option;
    }
}

void LDLValuePanel::chooseValueIn(LDLList& list, int at) {
    if (valuesEnabled()) {
        list.choose(at);
    }
}

void LDLValuePanel::selectInput(int at) {
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

void LDLValuePanel::selectInputAttribute(int at) {
    chooseValueIn(listInputAttributes, at);
}

void LDLValuePanel::selectRS(int at) {
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

void LDLValuePanel::selectRSattribute(int at) {
    chooseValueIn(listRSattributes, at);
}

void LDLValuePanel::selectDataType(int at) {
    chooseValueIn(listDataTypes, at);
}

void LDLValuePanel::selectLDLvar(int at) {
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

void LDLValuePanel::selectLDLSubVar(int at) {
    chooseValueIn(listLDLSubVars, at);
}

void LDLValuePanel::showValue(const LDLVariable& holder) {
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

void LDLValuePanel::showRegulator(const LDLVariable& holder) {
    listLDLvars.select(holder.RegulatorName);
    selectLDLvar(listLDLvars.ListIndex);
    listLDLSubVars.choose(holder.RegulatedFrom);
}

void LDLValuePanel::storeValue(LDLVariable& holder) const {
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

std::string LDLValuePanel::missingValue() const {
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

std::string LDLValuePanel::missingRegulator() const {
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

}  // namespace orvent::statements
