#include "statements/former_answers.h"
#include "statements/ldl_guide.h"
#include "testkit/model_text.h"
#include "wizard_fixture.h"

namespace orvent::statements {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

using LDLFormTest = WizardTest;

class Dialog : public ActivityDialog {
  public:
    void setEnabled(bool enabled) override { log += enabled ? "on " : "off "; }
    void activityBuilt() override { log += "built "; }
    void setStatement(const std::string& text) override { log += "\"" + text + "\" "; }
    std::string log;
};

std::string buttons(const LDLForm& form) {
    std::string enabled;
    for (const auto& [button, name] : {std::pair{LDLButton::cmdPrev, "prev "},
                                       {LDLButton::cmdNext, "next "},
                                       {LDLButton::cmdGenerateLDL, "generate "},
                                       {LDLButton::cmdCreateAct, "create "},
                                       {LDLButton::cmdOK, "ok "}}) {
        enabled += form.isEnabled(button) ? name : "";
        EXPECT_EQ(LDLGuide(form).whyDisabled(button).empty(), form.isEnabled(button)) << name;
    }
    return enabled;
}

TEST_F(LDLFormTest, OpensAndClosesAroundTheGraph) {
    activity->Act_Outputs->Add("GENERATED", 0, entities::TagWizard, "GENERATED").ParentKeyName = "Act";
    activity->Act_Outputs->Add("TYPES", 0, entities::TagTypeOutput, "TYPES").ParentKeyName = "Act";
    const std::string before = testkit::modelText(form);
    Dialog dialog;
    ActivityDialog* const callers[] = {nullptr, &dialog};
    for (ActivityDialog* from : callers) {
        const auto play = [&](LDLForm& open) {
            EXPECT_EQ(form.Enabled(), from != nullptr);
            EXPECT_EQ(open.txtTemplate, "text");
            EXPECT_EQ(open.OutputsView.Count(), 1) << "generated outputs do not count";
            EXPECT_EQ(open.Sources.Count(), 1);
            EXPECT_EQ(graph.attribute("SRC.ID").ProviderFor.count(), from ? 1 : 0)
                << "out of the graph; beyond the copy of a dialog nothing is in reach";
            EXPECT_EQ(buttons(open), "");
            EXPECT_FALSE(open.Visible.frameVar);
            open.cmdGenerateLDL();
            open.cmdOK();
            EXPECT_TRUE(open.isOpen()) << "a grey button does nothing";
            open.cmdCancel();
        };
        run("  text\n", play, from);
        EXPECT_EQ(testkit::modelText(form), before);
    }
    EXPECT_EQ(dialog.log, "off on ");

    activity->Act_Type = -1;
    ports.messages.expect("Please set the activity's type!!");
    run("@X", [](LDLForm&) { FAIL() << "opened without a type"; });
}

TEST_F(LDLFormTest, TemplateWithoutVariablesAsksBeforeItCloses) {
    Dialog dialog;
    const auto play = [&](LDLForm& open) {
        open.txtTemplate = "a_out(A_OUT_1)";
        open.cmdParseLDL();
        EXPECT_EQ(buttons(open), "generate create ok ");
        EXPECT_FALSE(open.Visible.steps || open.Visible.frameVar);
        open.cmdGenerateLDL();
        for (const Answer answer : {Answer::cancel, Answer::ok}) {
            EXPECT_TRUE(open.isOpen());
            ports.messages.expect(
                "The Activity's Generation Has Not Been Completed.\r\nAre You Sure You Want To Close This Window?", "",
                Icon::warning, Buttons::okCancel, answer);
            open.cmdOK();
        }
    };
    activity->statementDoubt = "It is a copy.";
    run("a_out", play, &dialog);
    EXPECT_EQ(activity->Act_LDL, "act_out(Act_OUT_OUT)");
    EXPECT_EQ(activity->statementDoubt, "");
    EXPECT_TRUE(activity->Changed);
    EXPECT_EQ(std::exchange(dialog.log, ""), "off \"act_out(Act_OUT_OUT)\" on ");

    ports.messages.expect("Activity Created", "", Icon::information);
    const auto create = [](LDLForm& open) {
        open.cmdParseLDL();
        open.cmdCreateAct();
        open.cmdOK();
    };
    run("same", create, &dialog);
    EXPECT_EQ(dialog.log, "off built \"same\" on ") << "nothing is asked once the activity is created";
}

TEST_F(LDLFormTest, StepsThroughTheVariables) {
    run("@A @B[1] @A", [&](LDLForm& open) {
        open.cmdParseLDL();
        EXPECT_EQ(buttons(open), "next ");
        EXPECT_EQ(LDLGuide(open).progressText(), "Variable 1 of 2: @A");
        EXPECT_EQ(LDLGuide(open).hint(), "Choose what @A stands for.");
        EXPECT_EQ(open.marks, (std::vector<LDLMark>{{0, 2}, {9, 2}}));
        open.cmdNext();
        EXPECT_EQ(buttons(open), "prev ") << "the first one is not defined";
        EXPECT_EQ(LDLGuide(open).whyDisabled(LDLButton::cmdGenerateLDL), "Not defined yet: @A.");
        EXPECT_EQ(open.marks, (std::vector<LDLMark>{{3, 5}}));
        EXPECT_EQ(open.frameValueCaption, "Value Of  ");
        EXPECT_TRUE(open.Visible.arrayOptions && !open.Visible.scalarOptions);
        open.cmdPrev();
        EXPECT_EQ(buttons(open), "next ");
        open.chooseKind(VarParameter);
        EXPECT_EQ(LDLGuide(open).hint(),
                  "Choose where the value comes from: an input, a record set's attribute or a constant.");
        open.chooseKind(VarParameterArray);
        EXPECT_EQ(open.kind, VarParameter) << "a scalar has no array kind";
        open.cmdNext();
        EXPECT_EQ(buttons(open), "prev generate ") << "the last one need not be defined";
        open.cmdGenerateLDL();
        EXPECT_EQ(open.txtTemplate,
                  "!! \"A\" Has Not Been Declared!! !! \"B\" Has Not Been Declared!![1] "
                  "!! \"A\" Has Not Been Declared!!");
        EXPECT_EQ(buttons(open), "prev generate create ");
        open.cmdParseLDL();
        EXPECT_EQ(buttons(open), "next ");
        EXPECT_EQ(open.txtTemplate, "@A @B[1] @A") << "all is lost, and starts over";
        EXPECT_EQ(open.kind, VarUndefined);
        open.cmdCancel();
    });
    EXPECT_EQ(activity->Act_LDL, "");

    ports.messages.expect("The bracket behind \"@Y\" is not closed.");
    run("@X @Y[", [&](LDLForm& open) {
        EXPECT_EQ(open.Variables.Count(), 2);
        open.cmdCancel();
    });
}

/// What is selected and typed on the panel.
std::string panel(const LDLForm& form) {
    std::string text;
    for (const std::string& part :
         {form.listInputAttributes.Text(), form.listRS.Text(), form.listRSattributes.Text(), form.txtConst,
          form.txtFunctionName, form.listDataTypes.Text(), form.listLDLvars.Text(), form.listLDLSubVars.Text()}) {
        text += (text.empty() || part.empty() ? "" : " ") + part;
    }
    return text;
}

TEST_F(LDLFormTest, PanelKeepsWhatWasChosen) {
    run("@In @Fld @Con @Rs @Fun @Res @Out @Arr[1] @Os[1]", [&](LDLForm& open) {
        open.cmdParseLDL();
        EXPECT_EQ(open.listInputs.items, (std::vector<std::string>{"a_in1"}));
        const std::tuple<LDLVariableType, const char*, std::vector<std::string>> answers[] = {
            {VarParameter, "", {"in 0 1"}},  {VarFunctionParameter, "", {"rs LOOKUP 0"}},
            {VarParameter, "", {"const k"}}, {VarRecordSet, "SRC", {}},
            {VarFunction, "Mult", {}},       {VarFunctionOutput, "", {}},
            {VarOutput, "In", {}},           {VarParameterArray, "", {"in 0 0", "const z"}},
        };
        for (const auto& [kind, name, values] : answers) {
            defineCurrent(open, kind, name, values);
            EXPECT_EQ(LDLGuide(open).hint(), "Complete. Go on to the next variable.");
            EXPECT_EQ(open.Visible.listRS && !open.Visible.valueOptions, kind == VarRecordSet);
            open.cmdNext();
        }
        open.chooseKind(VarOutputArray);
        EXPECT_EQ(open.listLDLvars.items, (std::vector<std::string>{"In", "Con", "Res", "Arr"}))
            << "parameters and the function's output, no function parameter";
        EXPECT_EQ(LDLGuide(open).hint(), "Set the number of elements.");
        open.UpDownArity_Down();
        open.UpDownArity_Up();
        open.selectArrity(0);
        EXPECT_EQ(open.frameValueCaption, "Value Of  Os[1]");
        open.selectLDLvar(0);
        EXPECT_FALSE(open.Visible.listLDLSubVars) << "a scalar has no elements to choose from";
        open.selectLDLvar(3);
        EXPECT_EQ(open.listLDLSubVars.items, (std::vector<std::string>{"[1]", "[2]"}));
        EXPECT_EQ(LDLGuide(open).hint(), "Select the element of Arr that regulates it.");
        open.selectLDLSubVar(1);
        EXPECT_EQ(LDLGuide(open).hint(), "Generate the statement.");

        open.cmdPrev();
        EXPECT_EQ(LDLGuide(open).progressText(), "Variable 8 of 9: @Arr, an array of 2 elements");
        for (const auto& [element, shown] : {std::pair{0, "1(ID)"}, {1, "z NUMBER"}}) {
            open.selectArrity(element);
            EXPECT_EQ(panel(open), shown);
        }
        open.UpDownArity_Up();
        EXPECT_EQ(LDLGuide(open).hint(), "Select element 3 in the list and give its value.");
        open.selectArrity(2);
        open.UpDownArity_Down();
        EXPECT_EQ(open.ArrayPosition, 0);
        for (const char* shown : {"In", "NUMBER", "Mult", "SRC", "k NUMBER", "LOOKUP KEY", "2(AGE)"}) {
            open.cmdPrev();
            EXPECT_EQ(panel(open), shown);
        }
        open.cmdNext();
        open.selectRS(-1);
        open.cmdNext();
        EXPECT_EQ(open.Variables.Item("Fld")->RegulatedFrom, -1) << "an empty choice is stored as -1";
        open.cmdCancel();
    });
}

TEST_F(LDLFormTest, ValuesWaitForAnElement) {
    run("@Arr[1] @Os[1]", [&](LDLForm& open) {
        for (const LDLVariableType kind : {VarParameterArray, VarOutputArray}) {
            open.chooseKind(kind);
            open.UpDownArity_Up();
            EXPECT_FALSE(open.valuesEnabled());
            open.chooseValue(RegInput);
            open.selectInput(0);
            open.selectLDLvar(0);
            open.selectDataType(0);
            EXPECT_EQ(open.value, RegUndefined) << "what no element would take is not entered";
            EXPECT_EQ(open.listDataTypes.ListIndex, -1);
            EXPECT_EQ(open.listInputs.ListIndex, -1);
            EXPECT_EQ(open.listLDLvars.ListIndex, -1);
            open.selectArrity(0);
            EXPECT_TRUE(open.valuesEnabled());
            if (kind == VarParameterArray) {
                chooseValueOf(open, "in 0 1");
            } else {
                open.selectLDLvar(0);
            }
            open.cmdNext();
        }
        EXPECT_EQ(open.Variables.Item("Arr")->SubVariables->Item(1)->RegulatedFrom, 1);
        open.cmdCancel();
    });
}

TEST_F(LDLFormTest, AnArrayTakesManyElementsAtOnce) {
    graph.recordSet("TWO", {"A", "B", "C"});
    for (const char* name : {"A", "B", "C"}) {
        activity->Act_Inputs->Add(name, 0, entities::TagNone, name).ParentKeyName = "Act";
        graph.feed("TWO." + std::string(name), "Act.IN." + std::string(name));
    }
    run("@One @Arr[1] @Os[1]", [&](LDLForm& open) {
        open.cmdParseLDL();
        EXPECT_TRUE(open.bunches().empty()) << "it is no array";
        defineCurrent(open, VarParameter, "", {"in 0 0"});
        open.cmdNext();
        EXPECT_TRUE(open.bunches().empty()) << "it has no kind yet";
        open.chooseKind(VarParameterArray);
        EXPECT_EQ(open.bunches(), (std::vector<std::string>{"SRC", "TWO"}));
        EXPECT_EQ(open.bunch(1), (std::vector<std::string>{"A", "B", "C"}));
        open.UpDownArity_Up();
        open.selectArrity(0);
        chooseValueOf(open, "const k");  // what is shown is stored before
        open.takeBunch(1, {2, 0, 9});
        EXPECT_EQ(open.ArrayPosition, 0);
        open.UpDownArity_Up();
        open.selectArrity(3);  // without a value it gives way
        open.takeWholeBunch(0);
        open.takeWholeBunch(5);
        const auto elements = [&](const char* name) {
            std::string words;
            for (const LDLVariable& element : *open.Variables.Item(name)->SubVariables) {
                words += element.RegulatorName + "/" + std::to_string(element.RegulatedFrom) + " ";
            }
            return words;
        };
        EXPECT_EQ(elements("Arr"), "k/0 1/2 1/0 0/0 0/1 ");
        EXPECT_EQ(open.UpDownArity, 5);
        EXPECT_EQ(LDLGuide(open).hint(), "Complete. Go on to the next variable.");
        open.cmdNext();
        open.chooseKind(VarOutputArray);
        EXPECT_EQ(open.bunches(), (std::vector<std::string>{"Arr"})) << "no scalar";
        open.takeBunch(0, {1, 3});
        EXPECT_EQ(elements("Os"), "Arr/1 Arr/3 ");
        EXPECT_EQ(LDLGuide(open).hint(), "Generate the statement.");
        open.selectArrity(1);
        EXPECT_EQ(open.listLDLSubVars.Text(), "[4]");
        open.cmdCancel();
    });
}

TEST_F(LDLFormTest, AConstantIsOfferedTheTypeOfWhatItIsComparedWith) {
    activity->Act_Inputs->Item("AGE")->Attribute_Type = 1;
    catalogue.dataTypes.add(entities::kDefinedBySource);
    graph.recordSet("ANY", {"X"}).RecordSet_Outputs->Item(1)->Attribute_Type = 2;
    const struct {
        const char* text;
        const char* other;  ///< what @A is; empty: nothing yet
        const char* words;
    } cases[] = {
        {"@A=@B", "in 0 1", "It is compared with SRC.AGE, a VARCHAR2."},
        {"x(@B),@B <> @A", "rs LOOKUP 0", "It is compared with LOOKUP.KEY, a VARCHAR2."},
        {"@A @OP @B", "in 0 0", "It is compared with SRC.ID, a NUMBER."},
        {"@A@OP@B", "in 0 0", ""},
        {"@OP @A @B", "in 0 0", ""},
        {"@B >= @A", "const 7", "It is compared with \"7\" (NUMBER), a NUMBER."},
        {"@A=@B", "rs ANY 0", ""},
        {"@A=@B", "", ""},
        {"@A=@OP,@B", "in 0 0", ""},
        {"@A,@B", "in 0 0", ""},
        {"@B=@B,@A", "in 0 0", ""},
        {"@A=@C,@C=@B,@A<@B", "in 0 1", "It is compared with SRC.AGE, a VARCHAR2."},
    };
    for (const auto& each : cases) {
        run(each.text, [&](LDLForm& open) {
            open.goTo("A");
            if (*each.other) {
                defineCurrent(open, VarParameter, "", {each.other});
            }
            open.goTo("B");
            EXPECT_EQ(open.comparedWords(), "") << "it has no kind yet";
            open.chooseKind(VarParameter);
            EXPECT_EQ(open.comparedWords(), "") << "it is no constant yet";
            open.chooseValue(RegConstant);
            EXPECT_EQ(open.comparedWords(), each.words) << each.text << " " << each.other;
            open.takeComparedType();
            EXPECT_EQ(open.comparedWords(), "") << "it has a type now";
            const std::string taken = open.listDataTypes.ListIndex < 0 ? "" : ", a " + open.listDataTypes.Text() + ".";
            EXPECT_TRUE(std::string(each.words).ends_with(taken) && taken.empty() == (*each.words == 0)) << each.text;
            open.cmdCancel();
        });
    }
    // Elements are compared with those of the same place.
    run("@A[1]=@B[1]", [&](LDLForm& open) {
        open.goTo("A");
        defineCurrent(open, VarParameterArray, "", {"in 0 0", "in 0 1"});
        open.goTo("B");
        open.chooseKind(VarParameterArray);
        for (const char* words :
             {"It is compared with SRC.ID, a NUMBER.", "It is compared with SRC.AGE, a VARCHAR2.", ""}) {
            open.UpDownArity_Up();
            open.selectArrity(open.UpDownArity - 1);
            open.chooseValue(RegConstant);
            EXPECT_EQ(open.comparedWords(), words);
        }
        open.cmdCancel();
    });
}

TEST_F(LDLFormTest, FormerAnswersFitAsFarAsTheirNamesAreThere) {
    const char* const text = "@P @Q @R @G @O @U @K @A[1] @B[1]";
    FormerAnswers answers;
    const auto define = [](LDLForm& open, const char* name, LDLVariableType kind, const char* regulator) {
        LDLVariable& variable = *open.Variables.Item(name);
        variable.Defined = true;
        variable.VariableType = kind;
        variable.RegulatorType = kind == VarParameter ? RegInput : RegUndefined;
        variable.RegulatorName = regulator;
        variable.RegulatedFrom = kind == VarParameter ? 1 : -1;
    };
    const auto takeBoth = [](LDLForm& open, const char* name, std::initializer_list<std::int16_t> places) {
        LDLVariable& array = *open.Variables.Item(name);
        array.Defined = true;
        array.VariableType = VarParameterArray;
        for (const std::int16_t place : places) {
            LDLVariable& element = array.SubVariables->Add(std::to_string(array.SubVariables->Count() + 1));
            element.Defined = true;
            element.RegulatorType = RegInput;
            element.RegulatorName = "0";
            element.RegulatedFrom = place;
        }
    };
    run(text, [&](LDLForm& open) {
        define(open, "P", VarParameter, "0");
        define(open, "R", VarRecordSet, "LOOKUP");
        define(open, "G", VarRecordSet, "GONE");
        define(open, "O", VarOutput, "P");
        define(open, "U", VarOutput, "Q");
        define(open, "K", VarOutput, "R");
        takeBoth(open, "A", {1, 0});
        takeBoth(open, "B", {0, 7});
        answers.keep(text, {open.Variables, open.Sources, form});
        open.cmdCancel();
    });
    activity->Act_Inputs->move(2, 1);  // AGE comes before ID now
    run(text, [&](LDLForm& open) {
        define(open, "P", VarParameter, "0");
        define(open, "R", VarRecordSet, "LOOKUP");
        define(open, "Q", VarParameter, "0");
        open.Variables.Item("Q")->Defined = false;  // its kind was taken back
        std::string all;
        for (const LDLVariable& variable : open.Variables) {
            const auto former = answers.of(text, variable, {open.Variables, open.Sources, form});
            all += variable.VariableName + "=" + (former ? former->RegulatorName : "none");
            all += former ? " " + std::to_string(former->RegulatedFrom) : "";
            for (int at = 1; former && former->SubVariables && at <= former->SubVariables->Count(); ++at) {
                all += "/" + std::to_string(former->SubVariables->Item(at)->RegulatedFrom);
            }
            all += "; ";
        }
        EXPECT_EQ(all, "P=0 0; Q=none; R=LOOKUP -1; G= -1; O=P -1; U= -1; K= -1; A= 0/0/1; B= 0; ");
        open.cmdCancel();
    });
    // Of two that it is compared with, the first counts.
    run("@P=@Q,@R=@Q", [&](LDLForm& open) {
        define(open, "P", VarParameter, "0");
        define(open, "R", VarParameter, "0");
        EXPECT_EQ(comparedWith("@P=@Q,@R=@Q", *open.Variables.Item("Q"), 0, open.Variables), open.Variables.Item("P"));
        open.cmdCancel();
    });
}

TEST_F(LDLFormTest, LeavesTheRestOfARound) {
    WizardRound round{2, 5};
    catalogue.activityTypeLdl = {"@X"};
    window.play = [](LDLForm& open) {
        EXPECT_EQ(LDLGuide(open).roundText(), "Activity 2 of 5 without a statement");
        open.cmdLeaveRest();
    };
    wizard.LDLCreate(form, *activity, nullptr, &round);
    EXPECT_TRUE(round.left);
    run("@X", [](LDLForm& open) {
        EXPECT_EQ(LDLGuide(open).roundText(), "");
        open.cmdLeaveRest();
        EXPECT_TRUE(open.isOpen()) << "there is no rest";
        open.cmdCancel();
    });
}

TEST_F(LDLFormTest, ATypeThatCannotBeReadWholeOpensNothing) {
    services.fault = "line is down";
    const std::string before = testkit::modelText(form);
    ports.messages.expect("line is down", "", platform::Icon::critical);
    run("@X", [](LDLForm&) { ADD_FAILURE() << "a template without its type"; });
    EXPECT_EQ(testkit::modelText(form), before);
}

TEST_F(LDLFormTest, ADataTypeIsTakenByItsIndexAndNotByItsPlace) {
    const std::string left = catalogue.dataTypes.name(1);
    catalogue.dataTypes.reload({left}, true);
    run("@A", [&](LDLForm& open) {
        EXPECT_EQ(open.listDataTypes.items, std::vector<std::string>{left});
        open.chooseKind(VarParameter);
        open.chooseValue(RegConstant);
        open.txtConst = "7";
        open.selectDataType(0);
        open.cmdGenerateLDL();
        EXPECT_EQ(open.Variables.Item("A")->RegulatedFrom, 1);
        open.goTo("A");
        EXPECT_EQ(open.listDataTypes.Text(), left);
        open.cmdCancel();
    });
}

TEST_F(LDLFormTest, ATemplateIsParsedAtOnceAndCanBeEditedAgain) {
    run("@A @B", [](LDLForm& open) {
        EXPECT_EQ(LDLGuide(open).progressText(), "Variable 1 of 2: @A");
        open.chooseKind(VarParameter);
        open.goTo("B");
        EXPECT_EQ(buttons(open), "prev generate ");
        EXPECT_EQ(open.Variables.Item("A")->VariableType, VarParameter) << "what was on screen is kept";
        open.goTo("A");
        EXPECT_EQ(buttons(open), "next generate ");
        open.goTo("Z");
        EXPECT_EQ(open.lblVariable, "A");
        open.cmdGenerateLDL();
        open.cmdEditTemplate();
        EXPECT_EQ(open.txtTemplate, "@A @B");
        EXPECT_TRUE(open.Enabled.txtTemplate);
        EXPECT_FALSE(open.Visible.frameVar);
        EXPECT_EQ(buttons(open), "");
        open.txtTemplate = "@C";
        open.cmdParseLDL();
        EXPECT_EQ(LDLGuide(open).progressText(), "Variable 1 of 1: @C");
        open.cmdCancel();
    });
}

}  // namespace
}  // namespace orvent::statements
