#include "shell/statement_checks.h"

#include "testkit/graph_builder.h"

namespace orvent::shell {
namespace {

class StatementChecksTest : public testkit::GraphTest {
  protected:
    std::string told(const char* node) {
        std::string result;
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
        {"!! \"X\" Has Not Been Declared!!", ""},
        {"", ""},
        {"sel_out(Sel_OUT_ID,Sel_OUT_ID)<-t(Sel_OUT_ID).", ""},
        {"sel_out(X,X)<-t(X).",
         "outdated Rule 1, line 1, column 1: sel_out has 2 columns here, and 1 member in the scenario.; reads T; "},
    };
    for (const auto& [statement, words] : cases) {
        activity.Act_LDL = statement;
        EXPECT_EQ(told("Sel"), words) << statement;
    }
    graph.recordSet("t");
    EXPECT_EQ(told("T"), "spelling T and t have one spelling in statements.; ");
}

}  // namespace
}  // namespace orvent::shell
