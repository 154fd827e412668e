#include <cstdlib>
#include <set>
#include <sstream>

#include "platform/text.h"
#include "program/clingo_text.h"
#include "testkit/graph_builder.h"
#include "testkit/temporary_folder.h"

namespace orvent::program {
namespace {

class ClingoTest : public testkit::GraphTest {
  protected:
    ClingoTest() {
        catalogue.dataTypes.add("VARCHAR2");
        catalogue.dataTypes.add("NUMBER");
    }

    /// The rows of one predicate that clingo derives, sorted.
    std::string rowsOf(const std::string& predicate, const std::string& facts) {
        const Program program = checkedProgram(form, catalogue);
        EXPECT_TRUE(program.findings.empty()) << program.findings[0].words;
        const std::string file = (folder.path() / "program").string();
        const std::string text = clingoText(program, catalogue, form.facts);
        platform::writeFile(file, text + facts);
        std::system(("clingo --warn=none --verbose=0 '" + file + "' > '" + file + ".out' 2>&1").c_str());
        const std::string said = platform::readFile(file + ".out");
        std::istringstream atoms(said.substr(0, said.find('\n')));
        std::set<std::string> rows;
        for (std::string atom; atoms >> atom;) {
            if (atom.starts_with(predicate + "(")) {
                rows.insert(atom.substr(predicate.size()));
            }
        }
        std::string result;
        for (const std::string& row : rows) {
            result += row;
        }
        return result.empty() ? said + text : result;
    }

    entities::CatalogueTables catalogue;
    testkit::TemporaryFolder folder;
};

TEST_F(ClingoTest, DerivesTheRowsThatTheProgramMeans) {
    graph.recordSet("my S", {"K", "V"});
    entities::ActivityProperties& activity = graph.activity("2nd", {"K", "V"}, {"K", "V"});
    graph.feed("my S.K", "2nd.IN.K");
    graph.feed("my S.V", "2nd.IN.V");
    activity.Act_Inputs->Item("V")->Attribute_Type = 1;
    const char* facts = "my_S(a,1). my_S(a,2). my_S(b,2). my_S(c,null). my_S(null,5). my_S(null,6). my_S(a,null).\n";
    const std::pair<const char*, const char*> cases[] = {
        {"2nd_out(X,Y)<-2nd_in1(X,Y).", "(a,1)(a,2)(a,null)(b,2)(c,null)(null,5)(null,6)"},
        {"2nd_out(X,Y)<-2nd_in1(X,Y),Y>1.", "(a,2)(b,2)(null,5)(null,6)"},
        {"2nd_out(X,Y)<-2nd_in1(X,Y),Y!=2.", "(a,1)(null,5)(null,6)"},
        {"2nd_out(X,Z)<-2nd_in1(X,Y),Z=W,W=Y.", "(a,1)(a,2)(a,null)(b,2)(c,null)(null,5)(null,6)"},
        {"2nd_out(X,Y)<-2nd_in1(X,Y),2nd_in1(X,2).", "(a,1)(a,2)(a,null)(b,2)"},
        {"2nd_out(X,Y)<-2nd_in1(X,Y),2nd_in1(Z,2),X=Z.", "(a,1)(a,2)(a,null)(b,2)"},
        {"2nd_out(X,Y)<-2nd_in1(X,Y),not 2nd_out_b(X). 2nd_out_b(X)<-2nd_in1(X,2). 2nd_out_b(X)<-2nd_in1(X,5).",
         "(c,null)(null,5)(null,6)"},
        {"2nd_out(X,Y)<-2nd_in1(X,Y),not isNull(Y),isNull(X).", "(null,5)(null,6)"},
        {"2nd_out(X,sum<Y>)<-2nd_in1(X,Y).", "(a,3)(b,2)(c,null)(null,11)"},
        {"2nd_out(X,count<Y>)<-2nd_in1(X,Y).", "(a,2)(b,1)(c,0)(null,2)"},
        {"2nd_out(max<Y>,min<Y*2>)<-2nd_in1(X,Y),not isNull(Y).", "(6,2)"},
        {"2nd_out(X,avg<S>)<-2nd_in1(X,S),S!=1.", "(a,2)(b,2)(null,5)"},
        {"2nd_out('it\"s\\',Y)<-2nd_in1(X,Y),Y=-5+10.", "(\"it\\\"s\\\\\",5)"},
    };
    for (const auto& [statement, rows] : cases) {
        activity.Act_LDL = statement;
        EXPECT_EQ(rowsOf("p2nd_out", facts), rows) << statement;
    }
}

TEST_F(ClingoTest, JoinsTheNodesOfAScenario) {
    graph.recordSet("S", {"K", "V"});
    graph.recordSet("T", {"K", "V", "W"});
    graph.activity("A", {"K", "V"}, {"K", "V"}).Act_LDL = "a_out(X,Y)<-a_in1(X,Y),not t(X,_,_).";
    graph.activity("B", {"K", "V"}, {"K"}).Act_LDL = "b_out(X)<-b_in1(X,X).";
    graph.feed("S.K", "A.IN.K");
    graph.feed("S.V", "A.IN.V");
    graph.feed("S.V", "B.IN.K");
    graph.feed("S.V", "B.IN.V");
    graph.feed("A.OUT.K", "T.K");
    graph.feed("A.OUT.V", "T.W");
    graph.feed("B.OUT.K", "T.V");
    EXPECT_EQ(rowsOf("t", "s(1,x). s(2,y). s(3,null). t_before(1,1,1).\n"),
              "(2,null,y)(3,null,null)(null,x,null)(null,y,null)");
}

TEST_F(ClingoTest, RowsThatAreGivenByHandAreFacts) {
    graph.recordSet("my S", {"K", "V", "N"});
    graph.attribute("my S.V").Attribute_Type = 1;
    entities::ActivityProperties& activity = graph.activity("2nd", {"K", "V", "N"}, {"K", "V", "N"});
    for (const std::string column : {"K", "V", "N"}) {
        graph.feed("my S." + column, "2nd.IN." + column);
    }
    activity.Act_LDL = "2nd_out(X,Y,Z)<-2nd_in1(X,Y,Z).";
    form.facts[form.nodeNamed("my S")->Index()].facts = {
        {"V", "K"}, {{"7", "a\\\"b"}, {std::nullopt, "7"}, {"0.5", std::nullopt}, {"-1", ""}}};
    EXPECT_EQ(rowsOf("p2nd_out", ""), "(\"\",-1,null)(\"7\",null,null)(\"a\\\\\\\"b\",7,null)(null,\"0.5\",null)");
}

}  // namespace
}  // namespace orvent::program
