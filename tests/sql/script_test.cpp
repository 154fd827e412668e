// What a script leaves in the tables of its targets.

#include "sql/script.h"

#include <gtest/gtest.h>

#include "engine.h"
#include "testkit/graph_builder.h"

namespace orvent::sql {
namespace {

class Scripts : public testkit::GraphTest {
  protected:
    Scripts() {
        for (const char* type : {"VARCHAR2", "NUMBER"}) {
            catalogue.dataTypes.add(type);
        }
        form.setScenarioName("Sal\"es`");
        table("S", "new", {"K", "V"});
        table("T", "old", {"K", "V"});
        table("W", "", {"K", "V"});
        table("X", "", {"K"});
        // What T lacks goes to T, W takes what comes into T, and X takes what W takes.
        activity("Diff", "diff_out(X,Y)<-diff_in1(X,Y),not diff_out_k(X). diff_out_k(X)<-t(X,_).", "S", "T");
        activity("Both", "both_out(X,Y)<-both_in1(X,Y).", "T", "W");
        graph.feed("W.K", "X.K");
    }
    void table(const std::string& name, const std::string& stored, testkit::GraphBuilder::Names columns) {
        entities::RecordSetProperties& made = graph.recordSet(name, columns);
        for (const std::string column : columns) {
            graph.attribute(name + "." + column).Attribute_Type = column == "V" ? 1 : 0;
            if (!stored.empty()) {
                made.addDbKey(column, "DB." + stored + "." + (column == "K" ? "the key" : column));
            }
        }
    }
    void activity(const std::string& name, const std::string& statement, const std::string& from,
                  const std::string& to) {
        graph.activity(name, {"K", "V"}, {"K", "V"}).Act_LDL = statement;
        for (const std::string column : {"K", "V"}) {
            graph.attribute(name + ".IN." + column).Attribute_Type = column == "V" ? 1 : 0;
            graph.attribute(name + ".OUT." + column).Attribute_Type = column == "V" ? 1 : 0;
            graph.feed(from + "." + column, name + ".IN." + column);
            graph.feed(name + ".OUT." + column, to + "." + column);
        }
    }

    entities::CatalogueTables catalogue;
};

TEST_F(Scripts, LoadTheTargetsAsTheyMean) {
    ScriptOptions options;
    options.overwrites = [](const entities::ActivityProperties& activity) { return activity.Act_Name == "Both"; };
    for (Engine& engine : engines()) {
        SCOPED_TRACE(engine.dialect().title);
        const auto quoted = [&](const char* name) { return engine.dialect().quoted(name); };
        const std::string text = " VARCHAR(20), " + quoted("V") + " NUMERIC(9,2))";
        for (const char* name : {"new", "old"}) {
            engine.run("CREATE TABLE " + quoted(name) + " (" + quoted("the key") + text);
        }
        engine.run("CREATE TABLE " + quoted("W") + " (" + quoted("K") + text);
        engine.run("CREATE TABLE " + quoted("X") + " (" + quoted("K") + " VARCHAR(20))");
        engine.run("INSERT INTO " + quoted("new") + " VALUES ('a', 1), ('b', 2), ('b', 2), (NULL, 3)");
        engine.run("INSERT INTO " + quoted("old") + " VALUES ('a', 9), ('a', 9)");
        engine.run("INSERT INTO " + quoted("W") + " VALUES ('gone', 0)");
        engine.run("INSERT INTO " + quoted("X") + " VALUES ('b'), ('kept')");
        const auto rows = [&](const char* table, const std::vector<Family>& families) {
            std::string all;
            for (const std::string& row : engine.rows("SELECT * FROM " + quoted(table), families)) {
                all += "(" + row + ")";
            }
            return all;
        };
        const std::vector<Family> pair = {Family::text, Family::number};
        for (const char* round : {"first", "second"}) {
            SCOPED_TRACE(round);
            std::string last;
            try {
                for (const ScriptPart& part : scriptParts(form, catalogue, engine.dialect(), options)) {
                    last = part.statement;
                    if (!last.empty() && !last.starts_with("SET NAMES")) {  // the driver does that itself
                        engine.run(last);
                    }
                }
            } catch (const platform::DatabaseError& fault) {
                ADD_FAILURE() << fault.what() << "\n" << last;
            }
            // Where a row of S has no key, nothing tells that T holds it; but the same row is added once.
            EXPECT_EQ(rows("old", pair), "('a',9)('a',9)('b',2)(NULL,3)");
            EXPECT_EQ(rows("W", pair), round == std::string("first") ? "('b',2)(NULL,3)" : "(NULL,3)");
            EXPECT_EQ(rows("X", {Family::text}), "('b')('kept')(NULL)");
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
