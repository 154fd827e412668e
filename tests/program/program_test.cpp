#include "program/checked_program.h"
#include "rules/printer.h"
#include "testkit/graph_builder.h"

namespace orvent::program {
namespace {

/// A scenario whose statements are written by hand, with a column of each type where one is named so.
class ProgramTest : public testkit::GraphTest {
  protected:
    ProgramTest() {
        for (const char* type : {"VARCHAR2", "NUMBER", "DATE", entities::kDefinedBySource}) {
            catalogue.dataTypes.add(type);
        }
        catalogue.functionTypes.add("MULTIPLY");
    }

    /// A record set S(ID,NAME,PRICE) that feeds an activity of the same inputs and outputs.
    entities::ActivityProperties& flow(const std::string& name, const std::string& statement) {
        if (!form.nodeNamed("S")) {
            graph.recordSet("S", {"ID", "NAME", "PRICE"}).RecordSet_Outputs->Item("PRICE")->Attribute_Type = 1;
        }
        entities::ActivityProperties& activity = graph.activity(name, {"ID", "NAME", "PRICE"}, {"ID", "NAME", "PRICE"});
        for (const std::string column : {"ID", "NAME", "PRICE"}) {
            graph.feed("S." + column, name + ".IN." + column);
            activity.Act_Inputs->Item(column)->Attribute_Type = 3;
        }
        activity.Act_LDL = statement;
        return activity;
    }

    Program check() const { return checkedProgram(form, catalogue); }

    static std::string rulesOf(const Program& program) {
        std::string result;
        for (const ProgramRule& rule : program.rules) {
            result += rules::print(rule.rule) + "\n";
        }
        return result;
    }
    static std::string findingsOf(const Program& program) {
        std::string result;
        for (const Finding& finding : program.findings) {
            result += std::to_string(static_cast<int>(finding.kind)) + "/" + std::to_string(finding.rule) + "/" +
                      std::to_string(finding.place.column) + " " + finding.words + "\n";
        }
        return result;
    }

    entities::CatalogueTables catalogue;
};

constexpr const char* kPass = "<-sel_in1(Sel_IN1_ID,Sel_IN1_NAME,Sel_IN1_PRICE),";
constexpr const char* kHead = "sel_out(Sel_IN1_ID,Sel_IN1_NAME,Sel_IN1_PRICE)";

TEST_F(ProgramTest, EveryCheckNamesItsRuleAndPlace) {
    struct Case {
        const char* tail;  ///< behind head and source
        FindingKind kind;
        const char* words;  ///< empty for none
    };
    const std::vector<Case> cases = {
        {"Sel_IN1_PRICE > 10.", {}, ""},
        {"multiply(Sel_IN1_PRICE,2,X),X<=3,not isNull(X),s(_,_,Y),Y=X+1.", {}, ""},
        {"Sel_IN1_PRICE >", FindingKind::syntax, "The text ends within a rule."},
        {"sel_in1(Sel_IN1_NAME,_,_).", FindingKind::stale,
         "Sel_IN1_NAME stands at place 1 of sel_in1, but has place 2."},
        {"sel_in1(_,_).", FindingKind::stale, "sel_in1 has 2 columns here, and 3 members in the scenario."},
        // What comes of a column that is not there comes from no input.
        {"sel_in1(_,_,_,Sel_IN1_ID).", FindingKind::stale,
         "sel_in1 has 4 columns here, and 3 members in the scenario."},
        {"sel_in2(_,Sel_IN1_ID).", FindingKind::stale, "There is no source sel_in2."},
        {"s(_,_).", FindingKind::columns, "S has 2 columns here, and 3 members in the scenario."},
        {"t(_,_).", FindingKind::undefined, "Nothing defines t."},
        {"X>3.", FindingKind::unbound, "Nothing gives X its value in a comparison."},
        {"not s(X,_,_).", FindingKind::unbound, "Nothing gives X its value behind \"not\"."},
        {"multiply(X,2,Y),X=Y.", FindingKind::unbound, "Nothing gives X its value in a call."},
        {"multiply(Sel_IN1_ID,_,3).", FindingKind::unbound, "\"_\" has no value in a call."},
        {"multiply(Sel_IN1_ID,2).", FindingKind::unknownFunction,
         "multiply takes 2 values and gives one, and here it has 2 in all."},
        {"Round(Sel_IN1_ID,2,3,X).", FindingKind::unknownFunction,
         "Round takes 1 or 2 values and gives one, and here it has 4 in all."},
        {"round(Sel_IN1_ID,X),round(X,2,Y).", {}, ""},
        {"not isNull(Sel_IN1_ID,3).", FindingKind::unknownFunction, "isNull takes 1 value, and here it has 2 in all."},
        {"Sel_IN1_ID LIKE 'a'.", FindingKind::unknownOperator, "\"LIKE\" is no operator."},
        {"Sel_IN1_PRICE=pen.", FindingKind::constantType, "The constant \"pen\" is compared with a number."},
        {"s(_,_,pen).", FindingKind::constantType, "The constant \"pen\" is compared with a number."},
        {"Sel_IN1_NAME=pen.", {}, ""},
        {"1=2.", FindingKind::neverHolds, "The rule can never hold, because of 1 = 2."},
        {"Sel_IN1_PRICE>3,X=Sel_IN1_PRICE,2>X.", FindingKind::neverHolds, "The rule can never hold, because of 2 > X."},
        {"Sel_IN1_PRICE>9,Sel_IN1_PRICE<10.", {}, ""},
        {"Sel_IN1_NAME>'9',Sel_IN1_NAME<'10'.", FindingKind::neverHolds,
         "The rule can never hold, because of Sel_IN1_NAME < '10'."},
        // A limit that it must not reach.
        {"Sel_IN1_ID>=3,Sel_IN1_ID<3.", FindingKind::neverHolds, "The rule can never hold, because of Sel_IN1_ID < 3."},
        {"Sel_IN1_ID>3,Sel_IN1_ID<=3.", FindingKind::neverHolds,
         "The rule can never hold, because of Sel_IN1_ID <= 3."},
        {"Sel_IN1_ID=3,Sel_IN1_ID!=3.", FindingKind::neverHolds,
         "The rule can never hold, because of Sel_IN1_ID != 3."},
        {"Sel_IN1_ID>=3,Sel_IN1_ID<=3,Sel_IN1_ID<>4.", {}, ""},
        {"sel_out(_,_,_).", FindingKind::recursion, "The rules run in the circle sel_out, sel_out."},
        {"not sel_out(_,_,4).", FindingKind::negatedCycle,
         "A \"not\" or an aggregate stands in the circle sel_out, sel_out."},
        {"X=1. sel_out_x(sum<X>)<-sel_out_y(X). sel_out_y(X)<-sel_out_x(X).", FindingKind::negatedCycle,
         "A \"not\" or an aggregate stands in the circle sel_out_x, sel_out_y, sel_out_x."},
        {"X=1. sel_out_x(X)<-s(X,_,_). sel_out(X,X,X)<-sel_out_x(X,X).", FindingKind::columns,
         "sel_out_x has 2 columns here, and 1 where it stands first."},
        {"X=1. sel_in1(X,X,X)<-s(X,_,_).", FindingKind::stale,
         "sel_in1 is not derived here: a statement gives rows to its own outputs."},
    };
    entities::ActivityProperties& activity = flow("Sel", "");
    for (const Case& one : cases) {
        activity.Act_LDL = std::string(kHead) + kPass + one.tail;
        const std::vector<Finding> findings = check().findings;
        const bool none = *one.words == '\0';
        ASSERT_EQ(findings.size(), none ? 0u : 1u) << one.tail << findingsOf(check());
        if (!none) {
            EXPECT_EQ(findings[0].words, one.words) << one.tail;
            EXPECT_EQ(findings[0].kind, one.kind) << one.tail;
            EXPECT_EQ(findings[0].node, form.nodeNamed("Sel")->Index());
        }
    }
    activity.Act_LDL = std::string("sel_out(X,Y,Z)<-s(X,Y,Z).\r\n") + kHead + kPass + "W<3.";
    const Finding second = check().findings.at(0);
    EXPECT_EQ(std::tuple(second.rule, second.place.line, second.place.column), std::tuple(2, 2, 96));
}

TEST_F(ProgramTest, ConstantsBesideDatesAreDates) {
    entities::ActivityProperties& activity = flow("Sel", "");
    graph.attribute("S.PRICE").Attribute_Type = catalogue.dataTypes.indexOf("DATE").value();
    const char* const none = " is compared with a date, and is none such as 2024-02-29.";
    const struct {
        const char* tail;
        std::string words;
    } cases[] = {
        {"Sel_IN1_PRICE='2024-02-29'.", ""},
        {"Sel_IN1_PRICE>'2024-02-29T18:00:00.25'.", ""},
        {"Sel_IN1_PRICE='2023-02-29'.", std::string("The constant \"2023-02-29\"") + none},
        {"Sel_IN1_PRICE<'29.02.2024'.", std::string("The constant \"29.02.2024\"") + none},
        {"Sel_IN1_PRICE<'2024-02-29 24:00:00'.", std::string("The constant \"2024-02-29 24:00:00\"") + none},
        {"Sel_IN1_PRICE<'2024-02-29 18:00:00.'.", std::string("The constant \"2024-02-29 18:00:00.\"") + none},
        {"Sel_IN1_PRICE>'2024-02-29',Sel_IN1_PRICE<'2024-02-29T00:00:00'.",
         "The rule can never hold, because of Sel_IN1_PRICE < '2024-02-29T00:00:00'."},
    };
    for (const auto& [tail, words] : cases) {
        activity.Act_LDL = std::string(kHead) + kPass + tail;
        const std::vector<Finding> findings = check().findings;
        EXPECT_EQ(findings.empty() ? "" : findings[0].words, words) << tail;
    }
}

TEST_F(ProgramTest, OutputsFollowTheirOwnLinks) {
    entities::ActivityProperties& activity = flow("Sel", "");
    graph.pass("Sel", "NAME", "NAME");
    const std::string pairs = "Sel_OUT_ID=Sel_IN1_ID,Sel_OUT_PRICE=Sel_IN1_PRICE";
    for (const bool right : {true, false}) {
        activity.Act_LDL = std::string("sel_out_x(Sel_OUT_ID,Sel_OUT_NAME,Sel_OUT_PRICE)") + kPass + pairs +
                           ",Sel_OUT_NAME=" + (right ? "Sel_IN1_NAME" : "Sel_IN1_ID") +
                           ". sel_out(Sel_OUT_ID,Sel_OUT_NAME,Sel_OUT_PRICE)<-sel_out_x(Sel_OUT_ID,Sel_OUT_NAME,"
                           "Sel_OUT_PRICE).";
        EXPECT_EQ(findingsOf(check()),
                  right ? "" : "3/0/1 Output NAME is linked with input NAME, but the statement gives it ID.\n");
    }
}

TEST_F(ProgramTest, SpellingsAreThoseOfTheGenerator) {
    entities::ActivityProperties& activity = flow("Data", "");
    activity.Act_LDL =
        "data_out(Datdata_out_ID,Data_OUT_NAME,Data_OUT_PRICE)<-data_in1(Datdata_in1_ID,Datdata_in1_NAME,X),"
        "Datdata_out_ID=Datdata_in1_ID,Data_OUT_NAME=NEW YORK, (EAST),X > 5,Data_OUT_PRICE=A_OUT,s(_,_,S_PRICE).";
    const auto regulate = [&](const char* name, entities::LinkType type, const std::string& key) {
        activity.Act_Parameters->Add(name, 0, entities::TagNone, name)
            .RegulatedFrom->Add(type == entities::LinkConstant ? key : "S", type, key);
    };
    regulate("P1", entities::LinkConstant, "New York, (East)");
    regulate("P2", entities::LinkRecordSet, "S.PRICE");
    regulate("P3", entities::LinkConstant, "a_out");
    const Program program = check();
    EXPECT_EQ(findingsOf(program), "");
    EXPECT_EQ(
        rulesOf(program),
        "Data_in1(Data_in1_ID,Data_in1_NAME,Data_in1_PRICE) <- S(Data_in1_ID,Data_in1_NAME,Data_in1_PRICE).\n"
        "Data_out(Data_OUT_ID,Data_OUT_NAME,Data_OUT_PRICE) <- Data_in1(Data_IN1_ID,Data_IN1_NAME,X), Data_OUT_ID = "
        "Data_IN1_ID, Data_OUT_NAME = 'New York, (East)', X > 5, Data_OUT_PRICE = 'a_out', S(_,_,S_PRICE).\n");

    graph.recordSet("data");
    regulate("P4", entities::LinkConstant, "NEW YORK, (EAST)");
    EXPECT_EQ(findingsOf(check()),
              "1/0/1 Data and data have one spelling in statements.\n"
              "1/1/144 \"NEW YORK, (EAST)\" is the spelling of two things.\n"
              "1/0/1 data and Data have one spelling in statements.\n");
}

TEST_F(ProgramTest, RecordSetsMeanWhatTheyHeldBeforeInsideACircle) {
    flow("Load", "load_out(X,Y,Z)<-t(X,Y,Z). load_out(X,Y,Z)<-load_in1(X,Y,Z),not t(X,_,_).");
    flow("Other", "other_out(X,Y,Z)<-other_in1(X,Y,Z).");
    flow("Reader", "");
    graph.recordSet("T", {"ID", "NAME", "COST"});
    for (const std::string from : {"Load", "Other"}) {
        graph.feed(from + ".OUT.ID", "T.ID");
        graph.feed(from + ".OUT.PRICE", "T.COST");
    }
    graph.feed("Load.OUT.NAME", "T.NAME");
    graph.activity("Last", {"A", "B"}, {"A"}).Act_LDL = "last_out(Last_IN1_A)<-last_in1(Last_IN1_A,Last_IN1_B).";
    graph.feed("T.COST", "Last.IN.A");
    graph.feed("T.COST", "Last.IN.B");
    const Program program = check();
    EXPECT_EQ(findingsOf(program), "");
    EXPECT_EQ(
        rulesOf(program),
        "Load_in1(Load_in1_ID,Load_in1_NAME,Load_in1_PRICE) <- S(Load_in1_ID,Load_in1_NAME,Load_in1_PRICE).\n"
        "Load_out(X,Y,Z) <- T_before(X,Y,Z).\n"
        "Load_out(X,Y,Z) <- Load_in1(X,Y,Z), not T_before(X,_,_).\n"
        "Other_in1(Other_in1_ID,Other_in1_NAME,Other_in1_PRICE) <- S(Other_in1_ID,Other_in1_NAME,Other_in1_PRICE).\n"
        "Other_out(X,Y,Z) <- Other_in1(X,Y,Z).\n"
        "Reader_in1(Reader_in1_ID,Reader_in1_NAME,Reader_in1_PRICE) <- "
        "S(Reader_in1_ID,Reader_in1_NAME,Reader_in1_PRICE).\n"
        "T(T_ID,T_NAME,T_COST) <- Load_out(T_ID,T_NAME,T_COST).\n"
        "T(T_ID,_,T_COST) <- Other_out(T_ID,_,T_COST).\n"
        "Last_in1(Last_in1_A,Last_in1_B) <- T(_,_,Last_in1_A), Last_in1_B = Last_in1_A.\n"
        "Last_out(Last_IN1_A) <- Last_in1(Last_IN1_A,Last_IN1_B).\n");
    std::string broken;
    for (const Predicate& predicate : program.predicates) {
        broken += predicate.broken ? predicate.name + " " : "";
    }
    EXPECT_EQ(broken, "Reader_out ");
}

TEST_F(ProgramTest, CirclesOfActivitiesAreTold) {
    graph.activity("A", {"X"}, {"X"}).Act_LDL = "a_out(A_IN1_X)<-a_in1(A_IN1_X).";
    graph.activity("B", {"X"}, {"X"}).Act_LDL =
        "b_out(B_IN1_X)<-b_in1(B_IN1_X),not b_out_no(B_IN1_X). b_out_no(1)<-b_in1(_).";
    graph.feed("A.OUT.X", "B.IN.X");
    graph.feed("B.OUT.X", "A.IN.X");
    const std::string circles = "12/0/1 A \"not\" or an aggregate stands in the circle B, A, B.\n";
    EXPECT_EQ(findingsOf(check()), circles);
    form.nodeNamed("A")->activity()->Act_LDL = "a_out(X)<-b_out(X).";
    EXPECT_EQ(findingsOf(check()), circles) << "read by its name, without a link";
    graph.activity("C", {"X"}, {"X"}).Act_LDL = "c_out(C_IN1_X)<-c_in1(C_IN1_X).";
    graph.feed("C.OUT.X", "C.IN.X");
    EXPECT_EQ(findingsOf(check()), circles + "11/0/1 The rules run in the circle C, C.\n");
}

}  // namespace
}  // namespace orvent::program
