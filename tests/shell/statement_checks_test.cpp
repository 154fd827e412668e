#include "shell/statement_checks.h"

#include <algorithm>
#include <random>
#include <set>

#include "analysis/scenario_problems.h"
#include "program/checked_program.h"
#include "testkit/graph_builder.h"

namespace orvent::shell {
namespace {

class StatementChecksTest : public testkit::GraphTest {
  protected:
    std::string told(const char* node) {
        std::string result;
        if (const auto* activity = form.nodeNamed(node)->activity()) {
            const auto fault = checks.faultOf(*activity);
            result = fault ? std::string(analysis::wordsOf(fault->kind).word) : "";
        }
        const analysis::StatementCheck::ProgramLook look = checks.programOf(form, *form.nodeNamed(node));
        for (const analysis::StatementCheck::Fault& fault : look.faults) {
            result += std::string(analysis::wordsOf(fault.kind).word) + " " + fault.words + "; ";
        }
        for (const std::string& read : look.reads) {
            result += "reads " + read + "; ";
        }
        return result;
    }

    entities::CatalogueTables tables;
    StatementChecks checks{tables};
};

TEST_F(StatementChecksTest, TellWhatTheProgramFindsButOnce) {
    entities::ActivityProperties& activity = graph.activity("Sel", {}, {"ID"});
    graph.recordSet("T", {"ID"});
    const std::pair<const char*, const char*> cases[] = {
        {"sel_out(X)<-t(X).", "reads T; "},
        {"sel_out(X)<-\r\nt(X),gone(X),X LIKE 3.",
         "undefined Rule 1, line 2, column 6: Nothing defines gone.; "
         "operator Rule 1, line 2, column 14: \"LIKE\" is no operator.; reads T; "},
        {"sel_out(X", "syntax Line 1, column 10: \")\" is missing here.; "},
        {"!! \"X\" Has Not Been Declared!!", "statement"},
        {"", "statement"},
        {"sel_out(Sel_OUT_ID,Sel_OUT_ID)<-t(Sel_OUT_ID).", "outdated"},
        {"sel_out(X,X)<-t(X).",
         "outdated Rule 1, line 1, column 1: sel_out has 2 columns here, and 1 member in the scenario.; reads T; "},
    };
    for (const auto& [statement, words] : cases) {
        activity.Act_LDL = statement;
        EXPECT_EQ(told("Sel"), words) << statement;
    }
    activity.statementDoubt = "It is a copy.";
    EXPECT_EQ(told("Sel"), "doubtful");
    activity.statementDoubt.clear();
    activity.Act_LDL = "sel_out(X)<-gone(X).";
    analysis::ScenarioProblems problems(form, {tables, checks});
    const auto count = [&](analysis::ProblemKind kind) {
        problems.settle();
        return std::ranges::count_if(problems.rows(), [kind](const auto* row) { return row->kind == kind; });
    };
    EXPECT_EQ(count(analysis::ProblemKind::undefined), 1);
    for (const char* name : {"t", "Gone"}) {
        graph.recordSet(name, {"ID"});
        canvas::Touched touched;
        touched.node(form.NamesColl.Item(name));
        problems.touch(touched);
        problems.settle();
    }
    EXPECT_EQ(count(analysis::ProblemKind::undefined), 0) << "it is there now";
    EXPECT_EQ(count(analysis::ProblemKind::spelling), 2) << "at the one that was there before, too";
    EXPECT_EQ(told("T"), "spelling T and t have one spelling in statements.; ");
}

TEST_F(StatementChecksTest, ADeniedCircleIsToldWhereItIsDeniedAndWithItsWay) {
    const char* const names[] = {"A", "B", "C"};
    for (const char* name : names) {
        graph.activity(name, {"X"}, {"X"}).Act_LDL =
            std::string(1, static_cast<char>(*name + 32)) + "_out(X)<-" + static_cast<char>(*name + 32) + "_in1(X).";
    }
    for (const auto& [from, to] : {std::pair("A", "B"), {"B", "C"}, {"C", "A"}}) {
        graph.feed(std::string(from) + ".OUT.X", std::string(to) + ".IN.X");
    }
    analysis::ScenarioProblems problems(form, {tables, checks});
    const auto denied = [&] {
        problems.touchAll();
        problems.settle();
        std::string rows;
        for (const analysis::Problem* row : problems.rows()) {
            if (row->kind == analysis::ProblemKind::negatedCycle) {
                rows += form.Labels.byIndex(row->node)->Caption() + ": " + row->words + " ";
            }
        }
        return rows;
    };
    const std::string atB = "B: A \"not\" or an aggregate stands in the circle B, C, A, B. ";
    const std::pair<const char*, std::string> cases[] = {
        {"b_out(X)<-b_in1(X).", ""},
        {"b_out(sum<X>)<-b_in1(X).", atB},
        {"b_out(X)<-b_out_h(X). b_out_h(X)<-b_in1(X),not b_out_g(X). b_out_g(X)<-b_in1(X).", atB},
        {"b_out(X)<-b_in1(X). b_out_h(1)<-b_out_h(_),not b_in1(_).", ""},  // no output is derived of it
        {"b_out(X)<-b_in1(X). b_out(X)<-not b_in1(X).", ""},               // gives no value: the rule is none
        {"b_out(X)<-X=1,not a_out(_).", atB},
    };
    for (const auto& [statement, rows] : cases) {
        form.nodeNamed("B")->activity()->Act_LDL = statement;
        EXPECT_EQ(denied(), rows) << statement;
    }
}

/// The program as a whole finds by its predicates what the list knows by nodes alone.
TEST_F(StatementChecksTest, DeniedCirclesAreThoseOfTheWholeProgramWhateverChanges) {
    constexpr int kActivities = 7;
    const auto name = [](int at) { return std::string(1, static_cast<char>('A' + at)); };
    for (int at = 0; at < kActivities; ++at) {
        graph.activity(name(at).c_str(), {"X", "Y"}, {"X"});
    }
    graph.recordSet("R", {"X"});
    form.touched.emplace();
    analysis::ScenarioProblems problems(form, {tables, checks});
    std::mt19937 random(24);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    int denied = 0;
    for (int step = 0; step < 250; ++step) {
        const std::string own = name(below(kActivities));
        const std::string small(1, static_cast<char>(own[0] + 32)), other = name(below(kActivities));
        entities::AttributeProperties& input = graph.attribute(own + (below(2) == 0 ? ".IN.X" : ".IN.Y"));
        input.ProvidedFrom->Clear();
        if (const int from = below(kActivities + 1); from < kActivities) {
            graph.feed(name(from) + ".OUT.X", own + ".IN." + input.Key);
        } else {
            graph.feed("R.X", own + ".IN." + input.Key);
        }
        const std::string bodies[] = {"_in1(X,Y).",          "_in1(X),not %_in2(X).", "_in2(X),%_in1(X).",
                                      "_out_h(X),not r(X).", "_in1(X),not ?_out(X).", "_in2(X),not %_out_h(X)."};
        std::string text = "%_out(" + std::string(below(4) == 0 ? "max<X>" : "X") + ")<-%" + bodies[below(6)] +
                           " %_out_h(X)<-%" + bodies[below(3)];
        for (std::size_t at = 0; (at = text.find_first_of("%?")) != std::string::npos;) {
            text[at] = text[at] == '%' ? small[0] : static_cast<char>(other[0] + 32);
        }
        form.nodeNamed(own)->activity()->Act_LDL = text;
        canvas::Touched touched;
        touched.node(form.nodeNamed(own)->Index());
        problems.touch(touched);
        problems.settle();
        std::set<canvas::NodeNumber> told, found;
        for (const analysis::Problem* row : problems.rows()) {
            if (row->kind == analysis::ProblemKind::negatedCycle && row->words.starts_with("A \"not\"")) {
                told.insert(row->node);
            }
        }
        for (const program::Finding& finding : program::checkedProgram(form, tables).findings) {
            if (finding.kind == program::FindingKind::negatedCycle && finding.rule == 0) {
                found.insert(finding.node);
            }
        }
        ASSERT_EQ(told, found) << "step " << step << ": " << text;
        denied += static_cast<int>(found.size());
    }
    EXPECT_GT(denied, 60);
}

}  // namespace
}  // namespace orvent::shell
