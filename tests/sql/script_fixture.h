#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine.h"
#include "sql/script.h"
#include "testkit/graph_builder.h"

namespace orvent::sql {

/// A scenario whose targets hold rows before it runs.
class ScriptTest : public testkit::GraphTest {
  protected:
    static constexpr const char* kTables[] = {"new", "old", "W", "X", "P", "Z", "U", "V"};

    ScriptTest() {
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
        // P takes what the table of T holds, by a record set of its own.
        table("O", "old", {"K", "V"});
        table("P", "", {"K", "V"});
        activity("Zip", "zip_out(X,Y)<-zip_in1(X,Y).", "O", "P");
        options.overwrites = [](const entities::ActivityProperties& activity) { return activity.Act_Name == "Both"; };
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

    /// The tables that the scenario reads and loads.
    static void prepare(Engine& engine) {
        const auto quoted = [&](const char* name) { return engine.dialect().quoted(name); };
        const std::string text = " VARCHAR(20), " + quoted("V") + " NUMERIC(9,2))";
        for (const char* name : kTables) {
            engine.run("DROP TABLE IF EXISTS " + quoted(name) +
                       (engine.dialect().name == "postgresql" ? " CASCADE" : ""));
        }
        for (const char* name : {"new", "old"}) {
            engine.run("CREATE TABLE " + quoted(name) + " (" + quoted("the key") + text);
        }
        for (const char* name : {"W", "P", "Z", "U", "V"}) {
            engine.run("CREATE TABLE " + quoted(name) + " (" + quoted("K") + text);
        }
        engine.run("CREATE TABLE " + quoted("X") + " (" + quoted("K") + " VARCHAR(20))");
        engine.run("INSERT INTO " + quoted("new") + " VALUES ('a', 1), ('b', 2), ('b', 2), (NULL, 3)");
        engine.run("INSERT INTO " + quoted("old") + " VALUES ('a', 9), ('a', 9)");
        engine.run("INSERT INTO " + quoted("W") + " VALUES ('gone', 0)");
        engine.run("INSERT INTO " + quoted("X") + " VALUES ('b'), ('kept')");
    }

    /// Runs the statements twice and looks at the tables.
    void run(Engine& engine, const std::vector<std::string>& statements) {
        SCOPED_TRACE(engine.dialect().title);
        const auto quoted = [&](const char* name) { return engine.dialect().quoted(name); };
        prepare(engine);
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
                for (const std::string& statement : statements) {
                    last = statement;
                    if (!last.empty() && !last.starts_with("SET NAMES")) {  // the driver does that itself
                        engine.run(last);
                    }
                }
            } catch (const platform::DatabaseError& fault) {
                ADD_FAILURE() << fault.what() << "\n" << last;
            }
            const bool first = round == std::string("first");
            const std::string b = options.keepDuplicates ? "('b',2)('b',2)" : "('b',2)";
            // Where a row of S has no key, nothing tells that T holds it; but the same row is added once.
            const std::string held = "('a',9)('a',9)" + b + "(NULL,3)";
            EXPECT_EQ(rows("old", pair), held);
            EXPECT_EQ(rows("W", pair), first ? b + "(NULL,3)" : "(NULL,3)");
            EXPECT_EQ(rows("X", {Family::text}), "('b')('kept')(NULL)");
            const std::string a = options.keepDuplicates ? "('a',9)('a',9)" : "('a',9)";
            EXPECT_EQ(rows("P", pair), first ? a : a + b + "(NULL,3)") << "as it was before";
        }
    }

    entities::CatalogueTables catalogue;
    ScriptOptions options;
};

}  // namespace orvent::sql
