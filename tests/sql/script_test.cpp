// What a script leaves in the tables of its targets.

#include <gtest/gtest.h>

#include "script_fixture.h"

namespace orvent::sql {
namespace {

using Scripts = ScriptTest;

TEST_F(Scripts, LoadTheTargetsAsTheyMean) {
    for (const bool bags : {false, true}) {
        options.keepDuplicates = bags;
        for (Engine& engine : engines()) {
            std::vector<std::string> statements;
            for (const ScriptPart& part : scriptParts(form, catalogue, engine.dialect(), options)) {
                statements.push_back(part.statement);
            }
            run(engine, statements);
        }
    }
}

TEST_F(Scripts, TellWhatIsNotThere) {
    form.nodeNamed("S")->recordSet()->DB2Key->Remove("V");
    graph.recordSet("Y", {"A"});
    graph.feed("S.K", "Y.A");
    form.nodeNamed("Y")->recordSet()->RecordSet_SQL = "SELECT 1 AS A;\n";
    const std::string text = scriptText(scriptParts(form, catalogue, *dialectNamed("ansi"), {}));
    EXPECT_NE(text.find("-- Not here: Record set S: S, as some of its columns have no source.\n"), std::string::npos)
        << text;
    EXPECT_NE(text.find("-- Not here: Activity Diff: Diff_out, as there is no "), std::string::npos) << text;
    form.nodeNamed("S")->recordSet()->RecordSet_SQL = " SELECT k AS K, v AS V FROM \"new\" -- all\n ; ";
    const std::string whole = scriptText(scriptParts(form, catalogue, *dialectNamed("ansi"), {}));
    EXPECT_EQ(whole.find("Not here"), std::string::npos) << whole;
    EXPECT_NE(whole.find("FROM (SELECT k AS K, v AS V FROM \"new\" -- all\n) s;\n"), std::string::npos) << whole;
}

}  // namespace
}  // namespace orvent::sql
