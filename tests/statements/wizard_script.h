#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "statements/ldl_form.h"

namespace orvent::statements {

/// The wizard's window, played by a function.
class WizardScript : public LDLFormWindow {
  public:
    std::function<void(LDLForm&)> play;

    void run(LDLForm& form) override { play(form); }
};

/// What the designer answers for one element or one scalar: "in <source> <attribute>" and "rs <record set> <attribute>"
/// by position, "const <text>".
inline void chooseValueOf(LDLForm& form, const std::string& answer) {
    std::istringstream words(answer);
    std::string kind;
    std::string first;
    int position = 0;
    words >> kind >> first >> position;
    if (kind == "in") {
        form.chooseValue(RegInput);
        form.selectInput(std::stoi(first));
        form.selectInputAttribute(position);
    } else if (kind == "rs") {
        form.chooseValue(RegRecordSetField);
        LDLList names = form.listRS;
        names.select(first);
        form.selectRS(names.ListIndex);
        form.selectRSattribute(position);
    } else {
        form.chooseValue(RegConstant);
        form.txtConst = first;
        form.selectDataType(0);
    }
}

/// Gives the variable on screen its kind, and each of its elements - or itself - a value; `name` is what a record set,
/// a function or an output is given.
inline void defineCurrent(LDLForm& form, LDLVariableType kind, const std::string& name,
                          const std::vector<std::string>& values) {
    form.chooseKind(kind);
    if (kind == VarFunction) {
        form.txtFunctionName = name;
    } else if (kind == VarFunctionOutput) {
        form.selectDataType(0);
    } else if (kind == VarRecordSet) {
        LDLList names = form.listRS;
        names.select(name);
        form.selectRS(names.ListIndex);
    } else if (kind == VarOutput) {
        LDLList names = form.listLDLvars;
        names.select(name);
        form.selectLDLvar(names.ListIndex);
    } else if (form.Visible.frameArrity) {
        for (std::size_t element = 0; element < values.size(); ++element) {
            form.UpDownArity_Up();
            form.selectArrity(static_cast<int>(element));
            chooseValueOf(form, values[element]);
        }
    } else {
        chooseValueOf(form, values.at(0));
    }
}

}  // namespace orvent::statements
