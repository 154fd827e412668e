#include "statements/ldl_guide.h"

#include "repository/catalogue.h"
#include "statements/activity_builder.h"
#include "testkit/embedded_repository.h"
#include "wizard_fixture.h"

namespace orvent::statements {
namespace {

using Mood = LDLGuide::Mood;

class LDLGuideTest : public WizardTest {
  protected:
    /// What the guide says about a template that was just opened.
    std::string advice(const std::string& text) {
        std::string all;
        run(text, [&](LDLForm& open) {
            for (const Advice& each : LDLGuide(open).advice()) {
                all += each.words + (each.variable.empty() ? "" : " -> " + each.variable) + "\n";
            }
            open.cmdCancel();
        });
        return all;
    }
    void inputs(int count) {
        for (int i = activity->Act_Inputs.count() + 1; i <= count; ++i) {
            const std::string name = "C" + std::to_string(i);
            activity->Act_Inputs->Add(name, 0, entities::TagNone, name).ParentKeyName = "Act";
            activity->Act_Inputs->Item(name)->ProvidedFrom->Add("SRC", entities::LinkRecordSet, "SRC." + name);
        }
    }
};

constexpr const char* kPassOn =
    "a_out(A_OUT_1)<-a_in1(A_IN1_1),@X,A_OUT_1=A_IN1_1[1<i<arityOf(a_out)+1]{,A_OUT_$i$=A_IN1_$i$}.";
constexpr const char* kCarryOn = "a_out_v(A_IN1_1,V)<-a_in1(A_IN1_1),@X. a_out(A_OUT_1)<-a_out_v(A_OUT_1,@X).";

TEST_F(LDLGuideTest, SaysWhatDoesNotFit) {
    const auto outputs = [this](std::initializer_list<const char*> names) {
        activity->Act_Outputs->Clear();
        for (const char* name : names) {
            activity->Act_Outputs->Add(name, 0, entities::TagNone, name).ParentKeyName = "Act";
        }
    };
    for (const char* text : {kPassOn, kCarryOn}) {
        outputs({"ID", "AGE"});
        EXPECT_EQ(advice(text), "");
        outputs({"OTHER", "NAMES"});
        EXPECT_EQ(advice(text), "") << "new names are no other order";
        outputs({"AGE", "ID"});
        EXPECT_EQ(advice(text),
                  "The outputs stand in another order than the inputs: output AGE takes its value from input ID.\n");
        outputs({"ID", "AGE", "SUM"});
        EXPECT_EQ(advice(text),
                  "There are 3 outputs, but a_in1 has only 2 of the inputs that they take their values from.\n");
        outputs({});
        EXPECT_EQ(advice(text),
                  "The activity has no output that was defined by hand, and the template asks for its outputs. Those "
                  "that the wizard makes do not count.\n");
    }
    EXPECT_EQ(advice("@X"), "") << "a template that asks for no output";
    outputs({"SUM", "AGE", "ID"});
    EXPECT_EQ(advice("a_out(A_OUT_1)<-a_in1(A_IN1_1),A_OUT_1=@KEPT[1][1<i<3]{,A_OUT_$i$=@KEPT[$i$]}."), "")
        << "the designer says what goes where";
    EXPECT_EQ(advice("@F @FIELD @FIELDS"),
              "@F is the head of @FIELD: where @F is replaced first, @FIELD is cut. -> FIELD\n"
              "@F is the head of @FIELDS: where @F is replaced first, @FIELDS is cut. -> FIELDS\n"
              "@FIELD is the head of @FIELDS: where @FIELD is replaced first, @FIELDS is cut. -> FIELDS\n");
    activity->Act_Name = "Data";
    EXPECT_EQ(
        advice("a_in1(@X)"),
        "The activity's name ends in \"a\": its end is taken for the beginning of a further name. Give it another "
        "name.\n");
}

TEST_F(LDLGuideTest, OffersWholeNumbersFromTenOn) {
    inputs(9);
    EXPECT_EQ(advice("a_in1(A_IN1_1),@X"), "");
    inputs(12);
    EXPECT_EQ(advice("a_in1(A_IN1_1),@X"),
              "A_IN1_10 to A_IN1_12 are cut: each is read as A_IN1_1 and further digits. \"Whole Numbers\" reads them "
              "whole.\n");
    run("a_in1(A_IN1_12,@X)", [&](LDLForm& open) {
        EXPECT_TRUE(LDLGuide(open).offersWholeNumbers());
        defineCurrent(open, VarParameter, "", {"const x"});
        open.cmdGenerateLDL();
        EXPECT_EQ(open.txtTemplate, "act_in1(Act_IN1_ID2,X)");
        EXPECT_EQ(LDLGuide(open).advice().size(), 1U) << "said after generating, too";
        open.setWholeNumbers(true);
        open.cmdGenerateLDL();
        EXPECT_EQ(open.txtTemplate, "act_in1(Act_IN1_C12,X)");
        EXPECT_EQ(LDLGuide(open).advice().size(), 0U);
        EXPECT_TRUE(LDLGuide(open).offersWholeNumbers()) << "or it could not be taken back";
        open.cmdCancel();
    });
    EXPECT_TRUE(services.whole);
}

TEST_F(LDLGuideTest, TellsHowManyLinksGo) {
    activity->Act_Outputs->Add("GENERATED", 0, entities::TagWizard, "GENERATED").ParentKeyName = "Act";
    graph.recordSet("OUT", {"A", "B"});
    graph.feed("Act.OUT.OUT", "OUT.A");
    EXPECT_EQ(advice("@X"), "") << "an output by hand stays";
    graph.feed("Act.OUT.GENERATED", "OUT.B");
    EXPECT_EQ(advice("@X"), "Creating the activity replaces generated outputs that others read: 1 link goes.\n");
}

TEST_F(LDLGuideTest, IsGreenOnlyWhenNothingIsMissing) {
    run("@A @B(@C)", [&](LDLForm& open) {
        const LDLGuide guide(open);
        defineCurrent(open, VarParameter, "", {"const x"});
        EXPECT_EQ(guide.mood(), Mood::underWay) << "the others are not defined";
        open.cmdNext();
        defineCurrent(open, VarFunction, "Mult", {});
        open.cmdNext();
        open.cmdGenerateLDL();
        EXPECT_EQ(guide.mood(), Mood::missing);
        EXPECT_EQ(LDLGuide(open).hint(), "The statement is not complete. @C has not been declared.");
        EXPECT_EQ(guide.faults(), (std::vector<Advice>{{"@C has not been declared.", "C"}}));
        ports.messages.expect("Activity Created", "", platform::Icon::information);
        open.cmdCreateAct();
        EXPECT_EQ(guide.mood(), Mood::missing);
        EXPECT_EQ(LDLGuide(open).hint(),
                  "The activity is created, but its statement is not complete. @C has not been declared.");
        defineCurrent(open, VarParameter, "", {"const y"});
        open.cmdGenerateLDL();
        EXPECT_EQ(guide.mood(), Mood::complete);
        open.cmdCancel();
    });
    run("@A[1] @A[2]", [&](LDLForm& open) {
        const LDLGuide guide(open);
        defineCurrent(open, VarParameterArray, "", {"const x"});
        open.cmdGenerateLDL();
        EXPECT_EQ(guide.faults(), (std::vector<Advice>{{"@A was not replaced.", "A"}, {"\"A\" has no element 2", ""}}));
        open.cmdCancel();
    });
    run("@P", [&](LDLForm& open) {
        defineCurrent(open, VarParameter, "", {"in -1 -1"});
        open.cmdGenerateLDL();
        ports.messages.expect("Activity Created", "", platform::Icon::information);
        open.cmdCreateAct();
        EXPECT_EQ(LDLGuide(open).mood(), Mood::missing) << "built in part only";
        open.cmdCancel();
    });
}

TEST_F(LDLGuideTest, ExplainsTypeVariablesAndSources) {
    services.name = "Selection";
    services.description = "Passes rows where FIELD compares. OPERATOR is a constant. FIELDS is another.";
    run("@FIELD @FIELDS @NONE", [&](LDLForm& open) {
        const LDLGuide guide(open);
        EXPECT_EQ(guide.typeText(), "Selection: " + services.description);
        EXPECT_EQ(guide.meaningOf(*open.Variables.Item("FIELD")), "Passes rows where FIELD compares.");
        EXPECT_EQ(guide.meaningOf(*open.Variables.Item("NONE")), "");
        EXPECT_EQ(guide.sourceCaption(0), "a_in1 (SRC)");
        open.cmdCancel();
    });
}

TEST_F(LDLGuideTest, KnowsEveryStarterTemplate) {
    testkit::TestRepository repository;
    repository::Services stored = repository.services();
    testkit::StoredCatalogue types(stored);
    const std::map<std::string, std::string> roles = {
        {"Sample Derivation", "Arg12 4, Fun12 6, Output12 8, Param12 1, Value12 7, "},
        {"Sample Combination", "Arg22 4, Fun22 6, Kept 2, Output22 8, SourceCount 1, Value22 7, "},
        {"Sample Transfer", "Output31 8, Stamp 1, "},
        {"Selection", "FIELD 1, OPERATOR 1, VALUE 1, "},
        {"Foreign Key Check", "REFCOLUMN 2, REFTABLE 5, "},
        {"Surrogate Key Assignment", "LOOKUPTABLE 5, PRODKEY 1, SKEY 8, SKVALUE 1, SOURCEID 1, "},
        {"Aggregation", "AGGRNAME 6, GROUPATTR 2, MEASURE 3, TOTAL 8, "},
        {"Attribute Function", "ARGUMENT 4, FUNCNAME 6, FUNCVALUE 7, NEWFIELD 8, "},
        {"Loader Append", "TARGET 5, "},
    };
    for (std::size_t at = 0; at < types.tables.activityTypes.rows(); ++at) {
        const entities::ActivityTypeProperties type = types.GetActivityType(static_cast<std::int16_t>(at));
        SCOPED_TRACE(type.ActType_Name);
        LDLVariableCollection variables;
        scanTemplate(type.ActType_LDL, variables);
        for (const LDLVariable& variable : variables) {
            EXPECT_NE(sentencesAbout(type.ActType_Description, variable.VariableName), "")
                << variable.VariableName << " is not explained";
        }
        std::string found;
        for (const auto& [name, role] : rolesIn(type.ActType_LDL, variables, type)) {
            found += name + " " + std::to_string(role.kind) + ", ";
        }
        if (const auto expected = roles.find(type.ActType_Name); expected != roles.end()) {
            EXPECT_EQ(found, expected->second);
        }
    }
}

}  // namespace
}  // namespace orvent::statements
