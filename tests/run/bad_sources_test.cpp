// Sources that go away, refuse, or hold what a sample cannot.

#include <gtest/gtest.h>

#include "platform/text.h"
#include "run_fixture.h"
#include "testkit/model_text.h"
#include "testkit/servers.h"

namespace orvent::run {
namespace {

/// A database passed through, whose sources go away at one of the things that are asked of them.
class LeavingDatabase : public platform::Database {
  public:
    explicit LeavingDatabase(platform::Database& real) : real_(real) {}

    int left = 0;  ///< so many things are answered before; 0 and fewer for all
    void ask() {
        if (left > 0 && --left == 0) {
            throw platform::DatabaseError("The server has gone away", "08S01", 0, false);
        }
    }

    std::unique_ptr<platform::Connection> open(const std::string& source, const std::string& user,
                                               const std::string& password) override {
        ask();
        return std::make_unique<Leaving>(*this, real_.open(source, user, password));
    }
    std::unique_ptr<platform::Connection> openScratch() override { return real_.openScratch(); }

  private:
    struct Asked : platform::Statement {
        Asked(LeavingDatabase& database, std::unique_ptr<platform::Statement> statement)
            : owner(database), real(std::move(statement)) {}

        void bind(int parameter, std::string_view text) override { real->bind(parameter, text); }
        void bind(int parameter, long long number) override { real->bind(parameter, number); }
        void bind(int parameter, float number) override { real->bind(parameter, number); }
        void execute() override { (owner.ask(), real->execute()); }
        bool fetch() override { return (owner.ask(), real->fetch()); }
        long long changedRows() override { return real->changedRows(); }
        bool isNull(int column) override { return real->isNull(column); }
        std::string text(int column) override { return real->text(column); }
        long long number(int column) override { return real->number(column); }
        float realNumber(int column) override { return real->realNumber(column); }

        LeavingDatabase& owner;
        std::unique_ptr<platform::Statement> real;
    };
    struct Leaving : platform::Connection {
        Leaving(LeavingDatabase& database, std::unique_ptr<platform::Connection> connection)
            : owner(database), real(std::move(connection)) {}

        std::unique_ptr<platform::Statement> prepare(std::string_view sql) override { return prepareAsIs(sql); }
        std::unique_ptr<platform::Statement> prepareAsIs(std::string_view sql) override {
            owner.ask();
            return std::make_unique<Asked>(owner, real->prepareAsIs(sql));
        }
        std::string databaseName() const override { return real->databaseName(); }

        LeavingDatabase& owner;
        std::unique_ptr<platform::Connection> real;
    };

    platform::Database& real_;
};

class BadSources : public RunTest {
  protected:
    /// What is told at a node, of a run that has ended.
    Outcome outcomeOf(run::Run& run, const std::string& node) {
        return run.outcomes()[*run.nodes().at(form.nodeNamed(node)->Index()).out];
    }
};

TEST_F(BadSources, OneThatGoesAwayAtAnyMomentIsToldAtItsNodeAndComesBack) {
    send("shop", {"CREATE TABLE T (V INTEGER)",
                  "INSERT INTO T WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<250) SELECT i "
                  "FROM n"});
    graph.recordSet("T", {"V"});
    type("T.V", 1);
    fromTable("T", "T");
    step("A", "T.", {"V"}, "a_out(X)<-a_in1(X),X>100.");
    graph.recordSet("GOOD", {"V"});
    give("GOOD", {{"x"}});
    step("B", "GOOD.", {"V"}, "b_out(X)<-b_in1(X).");
    const std::string drawn = testkit::modelText(form);
    LeavingDatabase leaving(*database);
    SourceConnections through(leaving, *list, logins);
    SampleRun run(leaving, through);
    int at = 1;
    for (bool failed = true; failed; ++at) {
        SCOPED_TRACE(at);
        leaving.left = at;
        go(run, RunOptions{.anew = true});
        failed = leaving.left == 0;
        leaving.left = 0;
        ASSERT_EQ(rowsOf(run, "B"), "('x')");
        ASSERT_EQ(testkit::modelText(form), drawn);
        if (failed) {
            const Outcome its = outcomeOf(run, "T");
            ASSERT_EQ(its.state, Outcome::State::failed);
            ASSERT_EQ(its.words, "The server has gone away");
            ASSERT_EQ(rowsOf(run, "A"), "none: there are no rows of T");
            go(run);
        }
        ASSERT_EQ(counts(run, "A"), "250->150");
    }
    EXPECT_GT(at, 250) << "each row is a moment";

    // At the source each node is asked for by itself.
    form.facts.clear();
    fromTable("GOOD", "T");
    type("GOOD.V", 1);
    SourceRun source(through);
    for (int moment = 1; moment < 12; ++moment) {
        SCOPED_TRACE(moment);
        leaving.left = moment;
        try {
            go(source);
            const Outcome its = outcomeOf(source, "A");
            ASSERT_TRUE(its.state == Outcome::State::there || its.words == "The server has gone away") << its.words;
        } catch (const platform::DatabaseError& fault) {
            ASSERT_EQ(fault.description(), "The server has gone away");
        }
        leaving.left = 0;
        go(source);
        ASSERT_EQ(counts(source, "A"), "250->150");
    }
}

/// A server with what a source may hold, and how it says that.
struct Server {
    const char* alias;
    std::vector<const char*> statements;
    const char* refused;  ///< in its words about a table without rights
    const char* gone;     ///< and about a column that is gone
    const char* rows;
};

TEST_F(BadSources, ServersGiveWhatTheyHoldAndTellWhatTheyRefuse) {
    testkit::PostgresServer postgres;
    testkit::MariaDbServer maria;
    sources.named.push_back({"postgres", postgres.createDatabase("sample")});
    sources.named.push_back({"maria", maria.createDatabase("sample")});
    connect();
    const Login owner{testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword};
    const Server servers[] = {
        {"POSTGRES",
         {"CREATE TABLE \"Or\"\"der\" (\"select\" TEXT, \"A\" NUMERIC(38,3), \"AT\" TIMESTAMP, \"D\" DATE, \"B\" "
          "BYTEA)",
          "INSERT INTO \"Or\"\"der\" VALUES ('é''\"', 12345678901234567890123456789012345.678, '2024-02-29 10:05:00', "
          "'2024-02-29', '\\x4142'), (NULL, -0.5, NULL, NULL, NULL), ('', 900719925474099, '1999-12-31 00:00:00', "
          "'1999-12-31', '\\x')",
          "CREATE TABLE \"SECRET\" (\"V\" TEXT)", "CREATE TABLE \"OLD\" (\"OTHER\" TEXT)",
          "CREATE ROLE reader LOGIN PASSWORD 'r'", "GRANT SELECT ON \"Or\"\"der\", \"OLD\" TO reader"},
         "permission denied",
         "does not exist",
         "('','900719925474099','1999-12-31','1999-12-31','')"
         "('é'\"','1.23456789012346e+34','2024-02-29 10:05:00','2024-02-29','4142')(NULL,'-0.5',NULL,NULL,NULL)"},
        {"MARIA",
         {"CREATE TABLE `Or\"der` (`select` TEXT, `A` DECIMAL(38,3), `AT` DATETIME, `D` DATE, `B` BLOB)",
          "INSERT INTO `Or\"der` VALUES ('é''\"', 12345678901234567890123456789012345.678, '2024-02-29 10:05:00', "
          "'2024-02-29', X'4142'), (NULL, -0.5, NULL, NULL, NULL), ('', 900719925474099, '1999-12-31 00:00:00', "
          "'1999-12-31', '')",
          "CREATE TABLE `SECRET` (`V` TEXT)", "CREATE TABLE `OLD` (`OTHER` TEXT)",
          "CREATE USER reader@'%' IDENTIFIED BY 'r'", "GRANT SELECT ON `Or\"der` TO reader@'%'",
          "GRANT SELECT ON `OLD` TO reader@'%'"},
         "denied",
         "Unknown column",
         "('','900719925474099','1999-12-31','1999-12-31','')"
         "('é'\"','1.23456789012346e+34','2024-02-29 10:05:00','2024-02-29','AB')(NULL,'-0.5',NULL,NULL,NULL)"},
    };
    for (const Server& server : servers) {
        SCOPED_TRACE(server.alias);
        logins.login = owner;
        for (const char* statement : server.statements) {
            send(platform::lowerCase(server.alias), {statement}, owner);
        }
        logins.login = Login{"reader", "r"};
        form.clear();
        graph.recordSet("O", {"select", "A", "AT", "D", "B"});
        type("O.A", 1);
        type("O.AT", 2);
        type("O.D", 2);
        type("O.B", 3);
        fromTable("O", "Or\"der", server.alias);
        for (const char* table : {"SECRET", "OLD"}) {
            graph.recordSet(table, {"V"});
            fromTable(table, table, server.alias);
        }
        step("A", "O.", {"select", "A"}, "a_out(X,Y)<-a_in1(X,Y).");
        const std::string drawn = testkit::modelText(form);
        SourceRun source(*connections);
        for (run::Run* each : {static_cast<run::Run*>(sample.get()), static_cast<run::Run*>(&source)}) {
            SCOPED_TRACE(each == &source ? "at the source" : "a sample");
            go(*each);
            EXPECT_EQ(counts(*each, "A"), "3->3");
            EXPECT_NE(outcomeOf(*each, "SECRET").words.find(server.refused), std::string::npos)
                << outcomeOf(*each, "SECRET").words;
            EXPECT_NE(outcomeOf(*each, "OLD").words.find(server.gone), std::string::npos)
                << outcomeOf(*each, "OLD").words;
            EXPECT_EQ(testkit::modelText(form), drawn);
        }
        EXPECT_EQ(rowsOf(*sample, "O"), server.rows);
    }
}

}  // namespace
}  // namespace orvent::run
