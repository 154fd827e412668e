#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "canvas/draw_form.h"
#include "statements/ldl_form.h"
#include "testkit/graph_builder.h"

namespace orvent::statements {

/// The wizard's window, played by a function.
class WizardScript : public forms::Dialogs {
  public:
    WizardScript() {
        add<LDLForm>([this](LDLForm& form) { play(form); });
    }

    std::function<void(LDLForm&)> play;
};

/// No more of the program than a test sets.
class FakeWizardServices : public WizardServices {
  public:
    entities::ActivityTypeProperties activityType(std::int16_t) override {
        if (!fault.empty()) {
            throw platform::Fault(fault);
        }
        entities::ActivityTypeProperties type;
        type.ActType_Name = name;
        type.ActType_Description = description;
        return type;
    }
    bool WholeNumbers() const override { return whole; }
    void setWholeNumbers(bool on) override { whole = on; }

    std::string name, description;
    std::string fault;  ///< the type cannot be read whole
    bool whole = false;
};

inline int positionOf(LDLList list, const std::string& name) {
    list.select(name);
    return list.ListIndex;
}

/// What the designer answers for one element or one scalar: "in <source> <attribute>" and "rs <record set> <attribute>"
/// by position, "const <text>".
inline void chooseValueOf(LDLForm& form, const std::string& answer) {
    std::istringstream words(answer);
    std::string kind, first;
    int position = 0;
    words >> kind >> first >> position;
    if (kind == "in") {
        form.chooseValue(RegInput);
        form.selectInput(std::stoi(first));
        form.selectInputAttribute(position);
    } else if (kind == "rs") {
        form.chooseValue(RegRecordSetField);
        form.selectRS(positionOf(form.listRS, first));
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
        form.selectRS(positionOf(form.listRS, name));
    } else if (kind == VarOutput) {
        form.selectLDLvar(positionOf(form.listLDLvars, name));
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

/// An activity Act that reads ID and AGE from record set SRC and writes the hand-made output OUT.
class WizardTest : public testkit::GraphTest {
  protected:
    WizardTest() {
        for (const char* name : {"NUMBER", "VARCHAR2"}) {
            catalogue.dataTypes.add(name);
        }
        catalogue.functionTypes.add("OTHER");
        catalogue.functionTypes.add("[EMPTY]");
        graph.recordSet("SRC", {"ID", "AGE"});
        graph.recordSet("LOOKUP", {"KEY"}).RecordSet_Outputs->Item(1)->Attribute_Type = 1;
        activity = &graph.activity("Act", {"ID", "AGE"}, {"OUT"});
        graph.feed("SRC.ID", "Act.IN.ID");
        graph.feed("SRC.AGE", "Act.IN.AGE");
    }

    /// Runs the wizard on a template, played by `play`.
    void run(const std::string& text, std::function<void(LDLForm&)> play, ActivityDialog* dialog = nullptr) {
        catalogue.activityTypeLdl = {text};
        window.play = std::move(play);
        wizard.LDLCreate(form, *activity, dialog);
        EXPECT_FALSE(wizard.isOpen());
        EXPECT_EQ(wizard.Activity, nullptr);
        EXPECT_EQ(wizard.Sources.Count() + wizard.OutputsView.Count() + wizard.Variables.Count(), 0);
        EXPECT_TRUE(form.Enabled());
    }

    entities::ActivityProperties* activity = nullptr;
    entities::CatalogueTables catalogue;
    FakeWizardServices services;
    WizardScript window;
    LDLForm wizard{ports.messages, catalogue, services, window};
};

}  // namespace orvent::statements
