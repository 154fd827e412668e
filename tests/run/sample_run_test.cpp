// Scenarios on samples: what is read, what is made anew, and what becomes of the rest where something fails.

#include <gtest/gtest.h>

#include "run/expectations.h"
#include "run_fixture.h"
#include "testkit/servers.h"

namespace orvent::run {
namespace {

TEST_F(RunTest, ANullIsNoEmptyTextAndTheRestIsToldApartByTheWholeRow) {
    graph.recordSet("S", {"K", "V"});
    type("S.V", 1);
    give("S", {{"a", "7"}, {"a", "7.0"}, {"''", "12345678901"}, {"", "-0.5"}, {"", "''"}, {"'q\"", "1"}});
    step("Q", "S.", {"K", "V"}, "q_out(X,Y)<-q_in1(X,Y).");
    go(*sample);
    EXPECT_EQ(rowsOf(*sample, "Q"), "('','12345678901')(''q\"','1')('a','7')(NULL,'-0.5')(NULL,NULL)");
    EXPECT_EQ(counts(*sample, "Q"), "5->5");
    EXPECT_EQ(counts(*sample, "S"), "5");
    go(*sample, RunOptions{.keepDuplicates = true});
    EXPECT_EQ(counts(*sample, "Q"), "6->6");
}

TEST_F(RunTest, EqualRowsThatFallTogetherBeforeAnAggregateAreCounted) {
    graph.recordSet("S", {"K", "V", "N"});
    type("S.V", 1);
    give("S", {{"a", "7", "x"}, {"a", "7", "x"}, {"a", "7", "y"}, {"", "1", "z"}});
    step("P", "S.", {"K", "V"}, "p_out(X,Y)<-p_in1(X,Y).");
    step("Q", "P.OUT.", {"K", "V"}, "q_out(X,sum<Y>)<-q_in1(X,Y).");
    // What nothing sums up is not counted, and the name of a column that no value is taken of makes no difference.
    step("R", "S.", {"K", "V"}, "r_out(X,Y)<-r_in1(X,Y).");
    step("T", "S.", {"K", "V", "N"}, "t_out(max<X>,count<Y>,Z)<-t_in1(X,Y,_),Z='all'.");
    go(*sample);
    EXPECT_EQ(sample->fallenWords(), "Equal rows fell together before an aggregate: 1 in S, 1 in P, 1 in T.");
    EXPECT_EQ(rowsOf(*sample, "Q"), "('a','7')(NULL,'1')");
    go(*sample, RunOptions{.keepDuplicates = true});
    EXPECT_EQ(sample->fallenWords(), "");
    EXPECT_EQ(rowsOf(*sample, "Q"), "('a','21')(NULL,'1')");
}

TEST_F(RunTest, OnlyWhatHasChangedAndWhatFollowsItIsMadeAnew) {
    graph.recordSet("S", {"V"});
    graph.recordSet("T", {"V"});
    type("S.V", 1);
    type("T.V", 1);
    give("S", {{"1"}, {"2"}, {"3"}});
    give("T", {{"1"}});
    step("A", "S.", {"V"}, "a_out(X)<-a_in1(X),X>1.");
    step("B", "A.OUT.", {"V"}, "b_out(X)<-b_in1(X),X<3.");
    step("C", "T.", {"V"}, "c_out(X)<-c_in1(X).");
    go(*sample);
    EXPECT_EQ(rowsOf(*sample, "B"), "('2')");
    const auto madeBy = [&](auto change) {
        const std::size_t before = sample->made();
        change();
        go(*sample);
        return sample->made() - before;
    };
    EXPECT_EQ(madeBy([] {}), 0U);
    EXPECT_EQ(madeBy([&] { form.nodeNamed("B")->activity()->Act_LDL = "b_out(X)<-b_in1(X),X<4."; }), 1U);
    EXPECT_EQ(rowsOf(*sample, "B"), "('2')('3')");
    EXPECT_EQ(madeBy([&] { give("T", {{"5"}}); }), 4U) << "its rows, T, what comes into C, and C";
    EXPECT_EQ(rowsOf(*sample, "C"), "('5')");
    EXPECT_EQ(madeBy([&] { form.nodeNamed("A")->activity()->Act_LDL = "a_out(X)<-a_in1(X),Y>1."; }), 0U);
    EXPECT_EQ(rowsOf(*sample, "C"), "('5')");
    EXPECT_NE(rowsOf(*sample, "A").find("none: "), std::string::npos) << "a finding hinders it";
    EXPECT_NE(rowsOf(*sample, "B").find("there are no rows of A"), std::string::npos) << rowsOf(*sample, "B");
}

TEST_F(RunTest, WhatIsCancelledGoesOnWhereItWas) {
    send("shop", {"CREATE TABLE T (V INTEGER)",
                  "INSERT INTO T WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<900) SELECT i "
                  "FROM n"});
    graph.recordSet("T", {"V"});
    type("T.V", 1);
    fromTable("T", "T");
    step("A", "T.", {"V"}, "a_out(X)<-a_in1(X),X>100.");
    std::size_t steps = 0;
    for (sample->begin(form, catalogue, {}); sample->step(); ++steps) {
    }
    EXPECT_GT(steps, 4U) << "a source is read in several steps";
    EXPECT_EQ(counts(*sample, "A"), "900->800");
    for (std::size_t stop = 0; stop <= steps; ++stop) {
        connect();
        sample->begin(form, catalogue, {});
        for (std::size_t at = 0; at < stop; ++at) {
            sample->step();
        }
        go(*sample);
        EXPECT_EQ(counts(*sample, "A"), "900->800") << stop;
    }
    send("shop", {"DELETE FROM T WHERE V > 200"});
    go(*sample);
    EXPECT_EQ(counts(*sample, "A"), "900->800") << "what was read is kept";
    go(*sample, RunOptions{.anew = true});
    EXPECT_EQ(counts(*sample, "A"), "200->100");
    go(*sample, RunOptions{.sampleRows = 150});
    EXPECT_EQ(counts(*sample, "A"), "150->50");
}

TEST_F(RunTest, WhatFailsIsToldAtItsNodeAndTheOthersRun) {
    const struct {
        const char* what;
        const char* prepare;
        const char* told;
    } cases[] = {
        {"a table that is not there", "SELECT 1", "no such table"},
        {"a column that is gone", "CREATE TABLE BAD (OTHER TEXT)", "no such column"},
        {"a view that fails", "CREATE VIEW BAD AS SELECT * FROM nowhere", "nowhere"},
    };
    graph.recordSet("GOOD", {"V"});
    graph.recordSet("BAD", {"V"});
    give("GOOD", {{"x"}});
    fromTable("BAD", "BAD");
    step("A", "GOOD.", {"V"}, "a_out(X)<-a_in1(X).");
    step("B", "BAD.", {"V"}, "b_out(X)<-b_in1(X).");
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        send("shop", {"DROP TABLE IF EXISTS BAD", row.prepare});
        go(*sample);
        EXPECT_EQ(rowsOf(*sample, "A"), "('x')");
        EXPECT_NE(rowsOf(*sample, "BAD").find(row.told), std::string::npos) << rowsOf(*sample, "BAD");
        const Outcome& its = sample->outcomes()[*sample->nodes().at(form.nodeNamed("BAD")->Index()).out];
        EXPECT_EQ(its.state, Outcome::State::failed);
        EXPECT_NE(its.statement.find("BAD"), std::string::npos) << its.statement;
        EXPECT_EQ(rowsOf(*sample, "B"), "none: there are no rows of BAD");
    }
    send("shop", {"DROP VIEW BAD", "CREATE TABLE BAD (V TEXT)", "INSERT INTO BAD VALUES ('y')"});
    go(*sample);
    EXPECT_EQ(rowsOf(*sample, "B"), "('y')") << "once it is there the next run reads it";
}

TEST_F(RunTest, TypesAndNamesOfASourceComeAsTheyCan) {
    send("shop",
         {"CREATE TABLE \"Or\"\"der\" (\"select\" TEXT, AMOUNT NUMERIC, AT TEXT, BYTES BLOB)",
          "INSERT INTO \"Or\"\"der\" VALUES ('é''\"', 12345678901234567890.25, '2024-02-29 00:00:00', X'00FF'), "
          "('', 900719925474099, '2024-02-29 10:05:00.000', NULL)"});
    graph.recordSet("O", {"select", "AMOUNT", "AT", "BYTES"});
    type("O.AMOUNT", 1);
    type("O.AT", 2);
    type("O.BYTES", 3);
    fromTable("O", "Or\"der");
    go(*sample);
    EXPECT_EQ(
        rowsOf(*sample, "O"),
        "('','900719925474099','2024-02-29 10:05:00',NULL)('é'\"','1.23456789012346e+19','2024-02-29','X'00FF'')");
}

TEST_F(RunTest, AServerIsAskedForOneLoginAndRefusesWhatItsUserMayNot) {
    testkit::PostgresServer server;
    sources.named.push_back({"server", server.createDatabase("rows")});
    connect();
    const Login owner{testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword};
    send("server",
         {"CREATE TABLE \"T\" (\"V\" NUMERIC(38,3), \"D\" DATE, \"B\" BYTEA)",
          "INSERT INTO \"T\" VALUES (12345678901234567890123456789012345.678, '2024-02-29', '\\x00ff')",
          "CREATE TABLE \"SECRET\" (\"V\" TEXT)", "CREATE ROLE reader LOGIN PASSWORD 'r'",
          "GRANT SELECT ON \"T\" TO reader"},
         owner);
    graph.recordSet("T", {"V", "D", "B"});
    graph.recordSet("SECRET", {"V"});
    type("T.V", 1);
    type("T.D", 2);
    type("T.B", 3);
    fromTable("T", "T", "SERVER");
    fromTable("SECRET", "SECRET", "SERVER");

    go(*sample);
    EXPECT_EQ(rowsOf(*sample, "T"), "none: Nobody has logged in at server.");
    logins.login = Login{"reader", "wrong"};
    go(*sample);
    EXPECT_EQ(rowsOf(*sample, "T").substr(0, 5), "none:");
    logins.asked.clear();
    logins.login = Login{"reader", "r"};
    go(*sample);
    EXPECT_EQ(rowsOf(*sample, "T"), "('1.23456789012346e+34','2024-02-29','00ff')");
    EXPECT_EQ(sample->outcomes()[0].words, "numbers with more than the 15 digits that a sample keeps: 1");
    EXPECT_NE(rowsOf(*sample, "SECRET").find("permission denied"), std::string::npos) << rowsOf(*sample, "SECRET");
    go(*sample, RunOptions{.anew = true});
    EXPECT_EQ(logins.asked, "server ") << "once";

    // A session that reads refuses to write, whoever has logged in.
    logins.login = owner;
    connect();
    connections->ask("SERVER");
    OpenSource& source = connections->open("SERVER");
    EXPECT_THROW(source.connection->prepareAsIs("DELETE FROM \"T\"")->execute(), platform::DatabaseError);

    server.stop();
    go(*sample, RunOptions{.anew = true});
    EXPECT_EQ(rowsOf(*sample, "T").substr(0, 5), "none:");
    server.start();
    go(*sample, RunOptions{.anew = true});
    EXPECT_EQ(rowsOf(*sample, "T").substr(0, 5), "('1.2");
}

TEST_F(RunTest, AtTheSourceTheRowsAreThoseOfASample) {
    send("shop",
         {"CREATE TABLE T (K TEXT, V INTEGER)", "INSERT INTO T VALUES ('a', 1), ('a', 1), ('b', NULL), ('select', 3)"});
    graph.recordSet("T", {"K", "V"});
    type("T.V", 1);
    fromTable("T", "T");
    step("A", "T.", {"K", "V"}, "a_out(X,Y)<-a_in1(X,Y),Y<3.");
    step("B", "A.OUT.", {"K", "V"}, "b_out(X,Y)<-b_in1(X,Y),X=a.");
    SourceRun source(*connections);
    go(source);
    go(*sample);
    for (const char* node : {"T", "A", "B"}) {
        EXPECT_EQ(rowsOf(source, node), rowsOf(*sample, node));
        EXPECT_EQ(counts(source, node), counts(*sample, node));
    }
    EXPECT_EQ(rowsOf(source, "B"), "('a','1')");
    graph.recordSet("OTHER", {"V"});
    EXPECT_THROW(go(source), platform::Fault);
    fromTable("OTHER", "T", "ELSEWHERE");
    EXPECT_THROW(go(source), platform::Fault);
}

TEST_F(RunTest, ATargetTellsHowManyRowsItHolds) {
    send("shop", {"CREATE TABLE T (V TEXT)", "INSERT INTO T VALUES ('t'), ('t'), (NULL)"});
    graph.recordSet("S", {"V"});
    give("S", {{"x"}});
    step("A", "S.", {"V"}, "a_out(X)<-a_in1(X).");
    for (const char* target : {"FILE", "HAND", "NONE", "GONE", "SERVER"}) {
        graph.recordSet(target, {"V"});
        graph.feed("A.OUT.V", std::string(target) + ".V");
    }
    fromTable("FILE", "T");
    fromTable("GONE", "nowhere");
    fromTable("SERVER", "T", "ELSEWHERE");
    give("HAND", {{"a"}, {"b"}});
    go(*sample);
    const auto held = [this](const char* node) {
        return sample->heldBefore(*sample->nodes().at(form.nodeNamed(node)->Index()).out);
    };
    EXPECT_EQ(rowsOf(*sample, "FILE"), "('x')") << "what comes in";
    EXPECT_EQ(held("FILE"), 3);
    EXPECT_EQ(held("HAND"), 2);
    EXPECT_EQ(held("NONE"), std::nullopt);
    EXPECT_EQ(held("S"), std::nullopt) << "nobody feeds it";
    EXPECT_EQ(held("SERVER"), std::nullopt) << "nobody is asked for this";
    EXPECT_THROW(held("GONE"), platform::Fault);
    EXPECT_EQ(logins.asked, "");
}

TEST_F(RunTest, AStatementThatNeverEndsIsBrokenIntoAndTheRestIsUsable) {
    testkit::PostgresServer postgres;
    testkit::MariaDbServer maria;
    sources.named.push_back({"postgres", postgres.createDatabase("sample")});
    sources.named.push_back({"maria", maria.createDatabase("sample")});
    logins.login = Login{testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword};
    connect();
    send("shop", {"CREATE TABLE T (V TEXT)", "INSERT INTO T VALUES ('t')"});
    const struct {
        const char* alias;
        const char* sql;
    } cases[] = {
        {"SHOP", "WITH RECURSIVE n(V) AS (SELECT 1 UNION ALL SELECT V+1 FROM n) SELECT V FROM n WHERE V < 5 OR V < 0"},
        {"POSTGRES", "SELECT '1' AS V FROM pg_sleep(600)"},
        {"MARIA", "SELECT SLEEP(600) AS V"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.alias);
        form.clear();
        form.facts.clear();
        entities::RecordSetProperties& good = graph.recordSet("GOOD", {"V"});
        entities::RecordSetProperties& its = graph.recordSet("LONG", {"V"});
        for (entities::RecordSetProperties* each : {&good, &its}) {
            each->addDbKey("V", std::string(row.alias) + ".T.V");
        }
        good.RecordSet_SQL = "SELECT 'x' AS V";
        its.RecordSet_SQL = row.sql;
        step("A", "GOOD.", {"V"}, "a_out(X)<-a_in1(X).");
        step("B", "LONG.", {"V"}, "b_out(X)<-b_in1(X).");
        SourceRun source(*connections);
        for (run::Run* each : {static_cast<run::Run*>(sample.get()), static_cast<run::Run*>(&source)}) {
            its.RecordSet_SQL = row.sql;
            EXPECT_LT(goAndBreakOff(*each), 5);
            EXPECT_EQ(rowsOf(*each, "LONG"), "none: ") << "nothing is known of it";
            each->resume();
            EXPECT_EQ(rowsOf(*each, "GOOD"), "('x')");
            its.RecordSet_SQL = good.RecordSet_SQL;
            go(*each);
            EXPECT_EQ(rowsOf(*each, "B"), "('x')");
        }
    }

    // In the sample itself a product of ten thousand rows with themselves.
    give("GOOD", {{"x"}});
    entities::Facts& facts = *form.facts.begin()->second.facts;
    for (int row = 0; row < 10000; ++row) {
        facts.rows.push_back({std::to_string(row)});
    }
    form.nodeNamed("A")->activity()->Act_LDL = "a_out(X)<-a_in1(X),a_in1(Y),add(X,Y,Z),Z<0.";
    EXPECT_LT(goAndBreakOff(*sample), 5);
    EXPECT_EQ(rowsOf(*sample, "A"), "none: ");
    form.nodeNamed("A")->activity()->Act_LDL = "a_out(X)<-a_in1(X),X=x.";
    go(*sample);
    EXPECT_EQ(rowsOf(*sample, "A"), "('x')");
}

TEST_F(RunTest, WhatIsExpectedIsHeldAgainstTheRows) {
    using Kind = entities::Expectation::Kind;
    graph.recordSet("S", {"K", "V"});
    type("S.V", 1);
    give("S", {{"a", "7"}, {"b", "10"}, {"''", ""}});
    const struct {
        entities::Expectation expectation;
        bool met;
        const char* words;
        std::size_t rows;
    } cases[] = {
        {{Kind::atLeast, 3, {}, {}, {}}, true, "At least 3 rows", 0},
        {{Kind::atLeast, 4, {}, {}, {}}, false, "At least 4 rows", 0},
        {{Kind::atMost, 2, {}, {}, {}}, false, "At most 2 rows", 0},
        {{Kind::exactly, 3, {}, {}, {}}, true, "Exactly 3 rows", 0},
        {{Kind::none, 0, "V", ">", "9"}, false, "No row where V > 9", 1},
        {{Kind::none, 0, "v", ">", "10"}, true, "No row where v > 10", 0},
        {{Kind::none, 0, "V", "=", {}}, false, "No row where V = NULL", 1},
        {{Kind::none, 0, "V", "!=", {}}, false, "No row where V != NULL", 2},
        {{Kind::none, 0, "K", "=", ""}, false, "No row where K = \"\"", 1},
        {{Kind::none, 0, "K", "<", "a"}, false, "No row where K < a", 1},
        {{Kind::none, 0, "W", "=", "a"}, false, "No row where W = a", 0},
    };
    auto& expected = form.facts[form.nodeNamed("S")->Index()].expectations;
    for (const auto& row : cases) {
        expected.push_back(row.expectation);
    }
    go(*sample);
    const std::vector<Verdict> all = verdicts(*sample, expectedOf(form));
    ASSERT_EQ(all.size(), std::size(cases));
    for (std::size_t at = 0; at < all.size(); ++at) {
        SCOPED_TRACE(cases[at].words);
        EXPECT_EQ(wordsOf(all[at].expectation), cases[at].words);
        EXPECT_EQ(expectationFrom(cases[at].words), all[at].expectation);
        EXPECT_EQ(all[at].met, cases[at].met) << all[at].words;
        EXPECT_EQ(all[at].rows.rows.size(), cases[at].rows);
    }
    for (const char* line :
         {"", "At least rows", "At least 3", "At most -1 rows", "No row where V", "No row where > 1"}) {
        EXPECT_THROW(expectationFrom(line), platform::Fault) << line;
    }
    EXPECT_EQ(expectationFrom(" no row WHERE a <= b >= c "),
              (entities::Expectation{Kind::none, 0, "a", "<=", "b >= c"}));
}

}  // namespace
}  // namespace orvent::run
