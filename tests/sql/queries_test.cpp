// What single rules mean in each database, where no statement of a starter type says it.

#include <gtest/gtest.h>

#include "engine.h"
#include "platform/text.h"
#include "testkit/graph_builder.h"

namespace orvent::sql {
namespace {

class Queries : public testkit::GraphTest {
  protected:
    Queries() {
        for (const char* type : {"VARCHAR2", "NUMBER", "DATE"}) {
            catalogue.dataTypes.add(type);
        }
        catalogue.functionTypes.add("MULTIPLY");
        catalogue.functionTypes.add("named");
        catalogue.functionTypes.add("greater");
        catalogue.functionTypes.add("folded");
        graph.recordSet("S", {"K", "V", "D"});
        activity = &graph.activity("Q", {"K", "V", "D"}, {"A", "B"});
        for (const std::string column : {"K", "V", "D"}) {
            graph.feed("S." + column, "Q.IN." + column);
        }
        type("V", 1);
        type("D", 2);
    }
    void type(const std::string& column, std::int16_t type) {
        graph.attribute("S." + column).Attribute_Type = graph.attribute("Q.IN." + column).Attribute_Type = type;
    }

    /// The rows of Q, which are the same in each database.
    std::string rowsOf(const std::string& statement, bool secondIsNumber, const CompileOptions& options = {}) {
        activity->Act_LDL = statement;
        activity->Act_Outputs->Item("B")->Attribute_Type = secondIsNumber ? 1 : 0;
        const program::Program program = program::checkedProgram(form, catalogue);
        for (const program::Finding& finding : program.findings) {
            EXPECT_FALSE(program::wordsOf(finding.kind).stops) << finding.words;
        }
        std::string first;
        for (Engine& engine : engines()) {
            const FactTables held(engine.dialect());
            CompileOptions its = options;
            if (folds) {
                its.functions = OwnFunctions({{"folded", "{1} COLLATE " + otherCollation(engine.dialect().name)}});
            }
            const Compiled queries = compiled(program, form, catalogue, engine.dialect(), held, its);
            engine.fill(0, kFacts, {false, true, false});
            std::string all;
            for (std::size_t at = 0; at < program.predicates.size(); ++at) {
                if (program.predicates[at].name == "Q_out") {
                    const std::string sql = wholeQuery(queries, engine.dialect(), at);
                    SCOPED_TRACE(sql);
                    EXPECT_NO_THROW(for (const std::string& row
                                         : engine.rows(sql, queries.tables[at].families)) all += "(" + row + ")");
                }
            }
            engine.drop(0);
            EXPECT_TRUE(&engine == &engines().front() || all == first) << engine.dialect().title << " " << all << "\n"
                                                                       << first << "\n"
                                                                       << statement;
            first = all;
        }
        return first;
    }

    bool folds = false;  ///< there is a function whose texts are equal, or in order, in another way
    const std::vector<FactRow> kFacts = {
        {{false, "a"}, {false, "7"}, {false, "2024-02-29 10:05:00"}},
        {{false, "a"}, {false, "-2"}, {true, ""}},
        {{false, "Ab c"}, {true, ""}, {false, "2023-12-31 00:00:00"}},
        {{true, ""}, {false, "7"}, {true, ""}},
        {{true, ""}, {false, "7"}, {true, ""}},
    };
    entities::CatalogueTables catalogue;
    entities::ActivityProperties* activity;
};

TEST_F(Queries, EveryDatabaseMeansTheSame) {
    struct Case {
        const char* statement;
        bool number;  ///< the second output is one
        const char* rows;
    };
    const std::string in = "q_in1(X,Y,D)";
    const Case cases[] = {
        {"q_out(X,Z)<-@,Z=Y/2.", true, "('Ab c',NULL)('a',-1)('a',3.5)(NULL,3.5)"},
        {"q_out(X,Z)<-@,Z=-Y - -2*(Y+1).", true, "('Ab c',NULL)('a',0)('a',9)(NULL,9)"},
        {"q_out(X,Z)<-@,divide(Y,0,Z).", true, "('Ab c',NULL)('a',NULL)(NULL,NULL)"},
        {"q_out(X,Y)<-@,Y/4>1.5,not isNull(X).", true, "('a',7)"},
        {"q_out(X,Y)<-@,not multiply(Y,2,14).", true, "('Ab c',NULL)('a',-2)"},
        {"q_out(X,Y)<-@,isNull(X),isNotNull(Y).", true, "(NULL,7)"},
        {"q_out(X,Y)<-@,q_in1(X,Z,_),Z<Y.", true, "('a',7)"},
        {"q_out(X,Y)<-@,q_in1(_,Y-9,_).", true, "('a',7)(NULL,7)"},
        {"q_out(X,Y)<-@,not q_in1(_,Y-9,_).", true, "('Ab c',NULL)('a',-2)"},
        {"q_out(1,2)<-q_in1(_,_,_).", true, "('1',2)"},
        {"q_out(X,'10')<-@,X='a'.", false, "('a','10')"},
        {"q_out(X,Y)<-@,X='a'.", false, "('a','-2')('a','7')"},
        {"q_out(X,Y)<-@,Y=7. q_out(b,8)<-q_in1(a,7,_).", true, "('a',7)('b',8)(NULL,7)"},
        {"q_out(X,sum<Y>)<-@,q_in1(_,_,_).", true, "('Ab c',NULL)('a',5)(NULL,7)"},
        {"q_out(max<X>,avg<Y>)<-@.", true, "('a',4)"},
        {"q_out(min<X>,count<Y>)<-@,X='nobody'.", true, ""},
        {"q_out(Z,W)<-@,upper(X,Z),concat(X,'\\''x',W).", false, "('A','a\\'x')('AB C','Ab c\\'x')(NULL,NULL)"},
        {"q_out(Z,W)<-@,substring(X,0,2,Z),length(X,W).", true, "('Ab',4)('a',1)(NULL,NULL)"},
        {"q_out(Z,W)<-@,trim(X,T),replace(T,' ','_',Z),nvl(Y,0,W).", true, "('Ab_c',0)('a',-2)('a',7)(NULL,7)"},
        {"q_out(X,W)<-@,subtract(Y,0.5,A),floor(A,B),ceiling(A,C),abs(B,E),add(E,C,F),multiply(F,10,W).", true,
         "('Ab c',NULL)('a',10)('a',130)(NULL,130)"},
        {"q_out(X,W)<-@,divide(Y,3,A),round(A,1,W).", true, "('Ab c',NULL)('a',-0.7)('a',2.3)(NULL,2.3)"},
        {"q_out(X,W)<-@,date_to_text(D,'DD/MM/YYYY HH24:MI',W),isNotNull(D).", false,
         "('Ab c','31/12/2023 00:00')('a','29/02/2024 10:05')"},
        {"q_out(X,W)<-@,to_date('03.02.2024','DD.MM.YYYY',E),date_to_text(E,'YYYYMMDD',W),D<'2024-01-01'.", false,
         "('Ab c','20240203')"},
        {"q_out(X,W)<-@,to_number('2.50',W),D>='2024-02-29 10:05:00'.", true, "('a',2.5)"},
    };
    for (const Case& one : cases) {
        std::string statement = one.statement;
        statement.replace(statement.find("<-") + 2, statement.find('@') == std::string::npos ? 0 : 1,
                          statement.find('@') == std::string::npos ? "" : in);
        EXPECT_EQ(rowsOf(statement, one.number), one.rows) << statement;
    }
    CompileOptions bags;
    bags.keepDuplicates = true;
    EXPECT_EQ(rowsOf("q_out(X,sum<Y>)<-" + in + ",isNull(X).", true, bags), "(NULL,14)");
    EXPECT_EQ(rowsOf("q_out(X,Y)<-" + in + ",Y=7. q_out(X,Y)<-" + in + ",X='a',Y=7.", true, bags),
              "('a',7)('a',7)(NULL,7)(NULL,7)");
}

TEST_F(Queries, CallWhatTheDesignerSays) {
    CompileOptions options;
    options.functions = OwnFunctions({{"Greater", "CASE WHEN {1} > {2} THEN {1} ELSE {2} END"},
                                      {"named", "COALESCE({1}, 'Z')"},
                                      {"ABS", "{1} - 1"}});
    const std::string in = "<-q_in1(X,Y,D),";
    EXPECT_EQ(rowsOf("q_out(Z,W)" + in + "named(X,Z),greater(Y,0,W),Z<'a'.", true, options), "('Ab c',0)('Z',7)");
    EXPECT_EQ(rowsOf("q_out(X,W)" + in + "abs(Y,W),not abs(Y,6),X='a'.", true, options), "('a',-3)");
}

TEST_F(Queries, CompareByCodePointsWhatFunctionsGive) {
    folds = true;
    const std::string in = "<-q_in1(X,Y,D),";
    EXPECT_EQ(rowsOf("q_out(Z,1)" + in + "folded(X,Z),Z<'B'.", true), "('Ab c',1)");
    EXPECT_EQ(rowsOf("q_out(Z,1)" + in + "folded(X,Z),upper(X,U),Z=U.", true), "");
    EXPECT_EQ(rowsOf("q_out(Z,1)" + in + "folded(X,Z). q_out(Z,1)" + in + "upper(X,U),folded(U,Z).", true),
              "('A',1)('AB C',1)('Ab c',1)('a',1)(NULL,1)");
    EXPECT_EQ(rowsOf("q_out(Z,1)" + in + "upper(X,U),folded(U,Z),q_in1(Z,_,_).", true), "");
    EXPECT_EQ(rowsOf("q_out(Z,1)" + in + "upper(X,U),folded(U,Z),not q_in1(Z,_,_).", true),
              "('A',1)('AB C',1)(NULL,1)");
    EXPECT_EQ(rowsOf("q_out(1,count<Z>)" + in + "folded(X,Z). q_out(Z,2)" + in + "folded(X,Z),X='a'.", true),
              "('1',3)('a',2)");
}

}  // namespace
}  // namespace orvent::sql
