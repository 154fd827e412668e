#include "statements/activity_builder.h"

#include "platform/codes.h"
#include "wizard_fixture.h"

namespace orvent::statements {
namespace {

using platform::Icon;

using ActivityBuilderTest = WizardTest;

/// Takes the answers for the variables in order, to the last one, and generates and creates.
void build(LDLForm& open, const std::vector<std::pair<LDLVariableType, std::vector<std::string>>>& answers) {
    open.cmdParseLDL();
    for (const auto& [kind, values] : answers) {
        defineCurrent(open, kind, values.empty() ? "" : values[0], values);
        open.cmdNext();
    }
    open.cmdGenerateLDL();
    open.cmdCreateAct();
}

std::string built(const entities::ActivityProperties& activity) {
    std::string text;
    const auto line = [&text](const std::string& name, entities::NodeKindCode kind, entities::TagCode tag, int type,
                              const auto& links) {
        text += name + " " + std::to_string(platform::numberOf(kind)) + "/" + std::to_string(platform::numberOf(tag)) +
                "/" + std::to_string(type);
        for (const entities::RegulatorProperties& link : links) {
            text += " <- " + link.Regulator_name + " " + std::to_string(platform::numberOf(link.Regulator_type)) + " " +
                    link.Regulator_Key();
        }
        text += "\n";
    };
    for (const auto& function : activity.Act_Functions) {
        text += "function " + function.Function_Key + " " +
                std::to_string(platform::numberOf(function.Function_Source)) + "/" +
                std::to_string(function.Function_Type) + " of " + function.ParentKeyName() + "\n";
        for (const auto* side : {&function.Function_Inputs, &function.Function_Outputs}) {
            for (const auto& p : *side) {
                line(p.ParentFunctionActivity + "|" + p.ParentKeyName + "|" + p.Key, p.NodeKind, p.Tag,
                     p.Parameter_Type, p.RegulatedFrom);
            }
        }
    }
    for (const auto& p : activity.Act_Parameters) {
        line(p.ParentKeyName + "|" + p.Key, p.NodeKind, p.Tag, p.Parameter_Type, p.RegulatedFrom);
    }
    for (const auto& o : activity.Act_Outputs) {
        line(o.ParentKeyName + "|" + o.Key, o.NodeKind, o.Tag, o.Attribute_Type, o.RegulatedFrom);
    }
    return text;
}

TEST_F(ActivityBuilderTest, BuildsTheActivity) {
    activity->Act_Inputs->Item("AGE")->Attribute_Type = 1;
    activity->Act_Outputs->Item("OUT")->SubNode_ID = 11;
    activity->Act_Parameters->Add("Old", 0, entities::TagNone, "Old").SubNode_ID = 12;
    entities::FunctionProperties old;
    old.Function_Key = old.Function_Name = "OldFun";
    old.FunctionID = 13;
    activity->Act_Functions->AddFunctionProps(old, "", 0);
    const std::string expected =
        "function Mult 5/1 of Act\n"
        "Act|Mult|1 6/13/1 <- Act 13 .IN.AGE\n"
        "Act|Mult|2 6/14/0 <- 7 14 7\n"
        "Act|Mult|Fld 6/12/1 <- LOOKUP 12 LOOKUP.KEY\n"
        "Act|Mult|Res 5/0/0\n"
        "Act|In 3/4/0 <- Act 4 .IN.ID\n"
        "Act|Arr_1 3/1/1 <- LOOKUP 1 LOOKUP.KEY\n"
        "Act|Arr_2 3/6/0 <- k 6 k\n"
        "Act|OUT 2/15/0 <- Act 10 .PARAM.In\n"
        "Act|Sum 2/15/0 <- Mult 11 Mult.OUT.Res\n"
        "Act|Free 2/15/0\n";
    const auto play = [&](LDLForm& open) {
        ports.messages.expect("Activity Created", "", Icon::information);
        build(open, {{VarFunction, {"Mult"}},
                     {VarFunctionParameterArray, {"in 0 1", "const 7"}},
                     {VarFunctionParameter, {"rs LOOKUP 0"}},
                     {VarFunctionOutput, {}},
                     {VarParameter, {"in 0 0"}},
                     {VarParameterArray, {"rs LOOKUP 0", "const k"}},
                     {VarOutput, {"In"}},
                     {VarOutput, {"Res"}},
                     {VarOutput, {""}}});
        EXPECT_TRUE(open.isEnabled(LDLButton::cmdOK));
        open.cmdOK();
    };
    const std::string text = "@Fun @Args[1] @Fld @Res @In @Arr[1] @OUT @Sum @Free";
    run(text, play);
    EXPECT_EQ(built(*activity), expected);
    EXPECT_TRUE(activity->Changed);
    std::string deleted;
    for (const canvas::DeletedNode& node : *form.DeletedNodes) {
        deleted += std::to_string(platform::numberOf(node.NodeKind)) + ":" + std::to_string(node.NodeID) + " ";
    }
    EXPECT_EQ(deleted, "7:13 3:12 2:11 ") << "the hand-made output of the same name makes room";
    EXPECT_EQ(graph.attribute("Act.IN.AGE").RegulatorFor.count(), 1) << "synchronised again";

    run(text, play);
    EXPECT_EQ(built(*activity), expected) << "a second time changes nothing";
}

TEST_F(ActivityBuilderTest, ACatalogueWithoutTheEmptyTypeGivesTheFirst) {
    catalogue.functionTypes.clear();
    catalogue.functionTypes.add("OTHER");
    run("@Fun @P", [&](LDLForm& open) {
        ports.messages.expect("Activity Created", "", Icon::information);
        build(open, {{VarFunction, {"Mult"}}, {VarParameter, {"const p"}}});
        open.cmdCancel();
    });
    EXPECT_EQ(built(*activity), "function Mult 5/0 of Act\nAct|P 3/6/0 <- p 6 p\nAct|OUT 2/0/0\n");
}

TEST_F(ActivityBuilderTest, BuildingThatCannotBeCompletedKeepsWhatItHas) {
    const std::pair<const char*, Icon> created{"Activity Created", Icon::information};
    const struct {
        const char* text;
        std::vector<std::pair<LDLVariableType, std::vector<std::string>>> answers;
        std::vector<std::pair<const char*, Icon>> messages;
        const char* parameters;
        bool ok;
    } cases[] = {
        {"@P @R @S",
         {{VarFunctionParameter, {"const x"}}, {VarFunctionOutput, {}}, {VarParameter, {"const s"}}},
         {{"You Have To Define A Function In Order To Use Function Parameters!", Icon::warning},
          {"You Have To Define A Function In Order To Use A Function Output!", Icon::warning},
          created},
         "S ",
         true},
        {"@P @R", {{VarParameter, {"const x"}}, {VarParameter, {"in -1 -1"}}}, {created}, "P ", true},
        {"@A[1] @A_1",
         {{VarParameterArray, {"const x"}}, {VarParameter, {"const y"}}},
         {{"The parameter \"A_1\" is there already: two variables of the template make it. Give one of them another "
           "name "
           "in the template.",
           Icon::none}},
         "A_1 ",
         false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        run(c.text, [&](LDLForm& open) {
            for (const auto& [words, icon] : c.messages) {
                ports.messages.expect(words, "", icon);
            }
            build(open, c.answers);
            EXPECT_EQ(open.isEnabled(LDLButton::cmdOK), c.ok);
            open.cmdCancel();
        });
        std::string parameters;
        for (const auto& parameter : activity->Act_Parameters) {
            parameters += parameter.Key + " ";
        }
        EXPECT_EQ(parameters, c.parameters);
        EXPECT_TRUE(std::exchange(activity->Changed, false));
    }
}

}  // namespace
}  // namespace orvent::statements
