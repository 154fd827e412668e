#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <set>
#include <thread>
#include <vector>

#include "databases.h"
#include "platform/text.h"

namespace orvent::odbc {

namespace {

using platform::Connection;
using platform::DatabaseError;
using namespace std::string_literals;

std::string repeated(std::string_view text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

void createNodes(Connection& connection) {
    run(connection, "CREATE SEQUENCE Node_ID_seq");
    run(connection,
        "CREATE TABLE ScenarioNodes (Node_ID NUMBER(5), Node_Name VARCHAR2(4000), Left BINARY_FLOAT, Top FLOAT,"
        " CONSTRAINT PK_ScenarioNodes PRIMARY KEY (Node_ID), CONSTRAINT UQ_Nodes UNIQUE (Node_Name))");
}

void createTypes(Connection& connection) {
    run(connection,
        "CREATE TABLE DataTypes (Datatype_name VARCHAR2(1000), CONSTRAINT PK_D PRIMARY KEY (Datatype_name))");
    run(connection,
        "CREATE TABLE RecordSetOutPuts (Output_ID NUMBER(5), Output_Type VARCHAR2(1000), CONSTRAINT FK_O FOREIGN KEY "
        "(Output_Type) REFERENCES DataTypes (Datatype_name))");
}

void insertNode(Connection& connection, std::string_view name, float left = 1.5F, float top = 2.5F) {
    const auto insert = connection.prepare("INSERT INTO ScenarioNodes VALUES (Node_ID_seq.NEXTVAL,?,?,?)");
    insert->bind(1, name);
    insert->bind(2, left);
    insert->bind(3, top);
    insert->execute();
}

/// The fault of the statement with the text bound.
DatabaseError faultOf(Connection& connection, std::string_view sql, std::string_view text) {
    try {
        run(connection, sql, {text});
    } catch (const DatabaseError& fault) {
        return fault;
    }
    ADD_FAILURE() << sql << " did not fail";
    return {"", "", 0, false};
}

INSTANTIATE_TEST_SUITE_P(Databases, EveryDatabase, ::testing::Values(Kind::sqlite, Kind::postgres, Kind::mariaDb),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_P(EveryDatabase, TextsComeBackAsTheyWentAndTheEmptyOneIsNull) {
    const auto connection = open();
    run(*connection, "CREATE TABLE Comments (Comment_ID NUMBER(5), User_Name VARCHAR2(4000), Comment_Text CLOB)");
    const std::string mixed = "it's 100% \"so\" \\ {d '1'} ? \xC3\xA9\xE2\x82\xAC \xF0\x9F\x98\x80 \n\tend ";
    const std::string texts[] = {mixed,
                                 " ",
                                 "",
                                 repeated("n", 1000),
                                 repeated("\xF0\x9F\x98\x80", 1000),
                                 repeated("n", 4000),
                                 repeated(mixed, 500),
                                 repeated("\xE2\x82\xAC", 1366),  // a buffer of 4096 ends inside a character
                                 repeated("x", 4096),
                                 repeated(mixed, 40000),
                                 ""};
    const auto insert = connection->prepare("INSERT INTO Comments VALUES (?,?,?)");
    // Rows of short and long texts alternate, so that no buffer keeps something of the row before.
    std::vector<std::string> rows;
    for (const std::string& text : texts) {
        rows.insert(rows.end(), {text, "short"});
    }
    const auto narrow = [](const std::string& text) { return text.size() > 4000 ? "cut" : text; };
    for (std::size_t row = 0; row < rows.size(); ++row) {
        insert->bind(1, static_cast<long long>(row));
        insert->bind(2, narrow(rows[row]));
        insert->bind(3, rows[row]);
        insert->execute();
    }
    const auto select = connection->prepare("SELECT User_Name,Comment_Text FROM Comments");
    for (int round = 0; round < 2; ++round) {
        select->execute();
        for (const std::string& want : rows) {
            ASSERT_TRUE(select->fetch());
            EXPECT_TRUE(select->text(1) == narrow(want) && select->text(2) == want) << want.size() << " bytes";
            EXPECT_TRUE(select->isNull(1) == want.empty() && select->isNull(2) == want.empty());
        }
        EXPECT_FALSE(select->fetch());
    }
}

TEST_P(EveryDatabase, AWideTextBehindManyNarrowOnesIsReadWhole) {
    constexpr int kRows = 150;  // more than are fetched at once
    const auto textOf = [](int row) {
        return row == 100 ? repeated("a", 1000) : row == 130 ? repeated("b", 20000) : std::to_string(row);
    };
    const auto connection = open();
    run(*connection, "CREATE TABLE Comments (Comment_ID NUMBER(5), Comment_Text CLOB)");
    const auto insert = connection->prepare("INSERT INTO Comments VALUES (?,?)");
    for (int row = 1; row <= kRows; ++row) {
        insert->bind(1, static_cast<long long>(row));
        insert->bind(2, textOf(row));
        insert->execute();
    }
    const auto select = connection->prepare("SELECT Comment_Text,Comment_ID FROM Comments WHERE Comment_ID>?");
    for (const long long first : {1, 120, 99}) {
        select->bind(1, first - 1);
        select->execute();
        for (long long row = first; row <= kRows; ++row) {
            ASSERT_TRUE(select->fetch());
            EXPECT_EQ(select->text(1), textOf(static_cast<int>(row)));
            EXPECT_EQ(select->number(2), row);
        }
        EXPECT_FALSE(select->fetch());
    }
}

TEST_P(EveryDatabase, RowsAreThoseOfOneExecution) {
    const auto connection = open();
    run(*connection, "CREATE TABLE Comments (Comment_ID NUMBER(5), Comment_Text CLOB)");
    const std::string texts[] = {"a", "b", repeated("c", 3000)};
    for (const std::string& text : texts) {
        run(*connection, "INSERT INTO Comments VALUES (1,?)", {text});
    }
    const auto select = connection->prepare("SELECT Comment_Text FROM Comments WHERE Comment_Text LIKE 'c%'");
    select->execute();
    ASSERT_TRUE(select->fetch());
    run(*open(), "UPDATE Comments SET Comment_Text='other'");
    EXPECT_EQ(select->text(1), texts[2]);
    EXPECT_FALSE(select->fetch());
}

TEST_P(EveryDatabase, FloatsComeBackExactly) {
    const auto connection = open();
    createNodes(*connection);
    const float values[] = {0.1F,        1e-30F,  16777217.0F, -0.0F, std::numeric_limits<float>::max(),
                            123456.789F, -33.3F,  1e-45F,      450.F, std::numeric_limits<float>::lowest(),
                            3.14159274F, 1.0F / 3};
    for (const float& value : values) {
        insertNode(*connection, std::to_string(&value - values), value, -value);
    }
    const auto select = connection->prepare("SELECT Left,Top FROM ScenarioNodes");
    select->execute();
    for (const float value : values) {
        ASSERT_TRUE(select->fetch());
        EXPECT_EQ(select->realNumber(1), value);
        EXPECT_EQ(select->realNumber(2), -value);
    }
}

TEST_P(EveryDatabase, NumbersAreReadFromEveryKindOfColumn) {
    const auto connection = open();
    run(*connection, "CREATE TABLE Comments (a NUMBER(18), b FLOAT, c VARCHAR2(30), d NUMBER(9,2), e NUMBER)");
    run(*connection, "INSERT INTO Comments VALUES (-123456789012,12,' 34 ',5.25,7)");
    run(*connection, "INSERT INTO Comments VALUES ('',1.5,'x',1,7)");
    run(*connection, "INSERT INTO Comments VALUES (1,100000000000000000,'1e17',1,7)");
    const auto select = connection->prepare("SELECT a,b,c,d,e FROM Comments");
    select->execute();
    ASSERT_TRUE(select->fetch());
    EXPECT_EQ(select->number(1), -123456789012LL);
    EXPECT_EQ(select->text(1), "-123456789012");
    EXPECT_EQ(select->number(2), 12);
    EXPECT_EQ(select->number(3), 34);
    EXPECT_EQ(select->realNumber(3), 34.0F);
    EXPECT_EQ(select->realNumber(4), 5.25F);
    EXPECT_EQ(select->realNumber(5), 7.0F);
    ASSERT_TRUE(select->fetch());
    EXPECT_EQ(select->number(1), 0);
    EXPECT_THROW(select->number(2), DatabaseError);
    EXPECT_THROW(select->number(3), DatabaseError);
    EXPECT_THROW(select->realNumber(3), DatabaseError);
    EXPECT_THROW(select->text(6), DatabaseError);
    ASSERT_TRUE(select->fetch());
    EXPECT_THROW(select->number(2), DatabaseError) << "not exact any more";
    EXPECT_THROW(select->number(3), DatabaseError);
    EXPECT_FALSE(select->fetch());
    EXPECT_THROW(select->text(1), DatabaseError);
}

/// An embedded database describes a column of an expression by what its first row holds.
TEST_P(EveryDatabase, WhatIsPreparedAsItIsGivesEachValueWhole) {
    const auto connection = open();
    const auto select = connection->prepareAsIs("SELECT 1 UNION ALL SELECT -1.5 UNION ALL SELECT 20000000000");
    select->execute();
    for (const double expected : {1.0, -1.5, 20000000000.0}) {
        ASSERT_TRUE(select->fetch());
        EXPECT_EQ(platform::parseNumber(select->text(1)), expected) << select->text(1);
    }
}

TEST_P(EveryDatabase, NamesInKeysAreLongAndExact) {
    const auto connection = open();
    createNodes(*connection);
    createTypes(*connection);
    const std::string key = repeated("k", 700);
    for (const std::string& text : {key + "a", key + "b", key + "A", "Int"s, "INT"s, "INT "s}) {
        run(*connection, "INSERT INTO DataTypes VALUES (?)", {text});
    }
    EXPECT_TRUE(faultOf(*connection, "INSERT INTO DataTypes VALUES (?)", key + "A").integrityViolation());
    const std::string name = repeated("\xC3\xA9", 999);
    for (const std::string& text : {name + "a", name + "b", name + "A", "x"s, "X"s, "x "s}) {
        insertNode(*connection, text);
    }
    EXPECT_THROW(insertNode(*connection, name + "b"), DatabaseError);
    EXPECT_EQ(column(*connection, "SELECT Node_Name FROM ScenarioNodes WHERE Node_Name='X'"), "X|");
}

TEST_P(EveryDatabase, SequenceNumbersBelongToTheirConnection) {
    const auto one = open();
    const auto other = open();
    createNodes(*one);
    const std::string_view current = "SELECT Node_ID_seq.CURRVAL FROM dual";
    insertNode(*one, "a");
    const auto kept = one->prepare(current);
    const auto number = [](platform::Statement& statement) {
        statement.execute();
        return statement.fetch() ? statement.number(1) : -1;
    };
    EXPECT_EQ(number(*kept), 1);
    insertNode(*other, "b");
    EXPECT_EQ(number(*kept), 1);
    EXPECT_EQ(number(*other->prepare(current)), 2);
    insertNode(*one, "c");
    EXPECT_EQ(number(*kept), 3);
    EXPECT_EQ(column(*one, "SELECT Node_ID FROM ScenarioNodes"), "1|2|3|");
    EXPECT_EQ(column(*one, "SELECT Node_ID_seq.NEXTVAL FROM dual"), "4|");
    run(*one, "CREATE SEQUENCE x_seq START WITH 10 INCREMENT BY 5 NOCACHE");
    EXPECT_EQ(column(*other, "SELECT x_seq.NEXTVAL FROM dual"), "10|");
    EXPECT_EQ(column(*one, "SELECT X_SEQ.nextval FROM DUAL"), "15|");
    EXPECT_THROW(column(*one, "SELECT no_seq.NEXTVAL FROM dual"), DatabaseError);
    run(*one, "DROP SEQUENCE x_seq");
    EXPECT_THROW(column(*one, "SELECT x_seq.NEXTVAL FROM dual"), DatabaseError);
}

TEST_P(EveryDatabase, TwoProcessesDrawNoNumberTwice) {
    createNodes(*open());
    pid_t children[2];
    for (pid_t& child : children) {
        const char* const mark = &child == children ? "a" : "b";
        child = fork();
        if (child != 0) {
            continue;
        }
        int outcome = 0;
        try {
            OdbcDatabase database(sources_);
            const auto connection = open(database);
            for (int i = 0; i < 200; ++i) {
                const std::string name = mark + std::to_string(i);
                insertNode(*connection, name);
                std::string number = column(*connection, "SELECT Node_ID_seq.CURRVAL FROM dual");
                number.pop_back();
                const std::string sql = "SELECT Node_Name FROM ScenarioNodes WHERE Node_ID=" + number;
                outcome = column(*connection, sql) == name + "|" ? outcome : 2;
            }
        } catch (const DatabaseError& fault) {
            fprintf(stderr, "%s\n", fault.what());
            outcome = 1;
        }
        _exit(outcome);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const auto connection = open();
    EXPECT_EQ(column(*connection, "SELECT COUNT(*) FROM ScenarioNodes"), "400|");
    // A statement that MariaDB gave up and that went again has cost a number.
    EXPECT_LE(std::stoi(column(*connection, "SELECT Node_ID_seq.NEXTVAL FROM dual")), 450);
}

TEST_P(EveryDatabase, IntegrityIsToldFromOtherFaults) {
    const auto connection = open();
    createTypes(*connection);
    run(*connection, "INSERT INTO DataTypes VALUES ('used')");
    run(*connection, "INSERT INTO RecordSetOutPuts VALUES (1,'used')");
    const struct {
        std::string_view sql;
        bool integrity;
    } cases[] = {{"DELETE FROM Datatypes WHERE Datatype_name=?", true},
                 {"INSERT INTO DATATYPES VALUES (?)", true},
                 {"INSERT INTO FUNCTIONTYPES VALUES (?)", false},
                 {"SELECT Datatype_nam FROM DataTypes WHERE Datatype_name=?", false},
                 {"SELEC ?", false}};
    for (const auto& [sql, integrity] : cases) {
        const DatabaseError fault = faultOf(*connection, sql, "used");
        EXPECT_EQ(fault.integrityViolation(), integrity) << sql << ": " << fault.what();
        EXPECT_TRUE(fault.sqlState().size() == 5 && fault.description().size() > 10) << sql;
    }
    EXPECT_THROW(run(*connection, " "), DatabaseError);
    EXPECT_THROW(run(*connection, "DROP TABLE Scenarios CASCADE CONSTRAINTS"), DatabaseError);
    // After a DROP, even one that fails, keys are checked again.
    EXPECT_TRUE(faultOf(*connection, "INSERT INTO RecordSetOutputs VALUES (2,?)", "unknown").integrityViolation());
    run(*connection, "INSERT INTO RecordSetOutputs VALUES (3,?)", {""});  // no type is no unknown type
    // After all these faults the connection still serves.
    EXPECT_EQ(column(*connection, "SELECT Datatype_name FROM DataTypes"), "used|");
}

TEST_P(EveryDatabase, AnUpdateMovesNoRowAndReachesThoseThatRefer) {
    const auto connection = open();
    createTypes(*connection);
    for (const std::string_view name : {"c", "a", "d", "b"}) {
        run(*connection, "INSERT INTO DataTypes VALUES (?)", {name});
        run(*connection, "INSERT INTO RecordSetOutPuts VALUES (5,?)", {name});
    }
    const auto update = connection->prepare("UPDATE DataTypes SET DataType_name=? WHERE DataType_name=?");
    update->bind(1, "z");
    for (const auto& [name, found] : {std::pair{"c", 1}, {"no such row", 0}}) {
        update->bind(2, name);
        update->execute();
        EXPECT_EQ(update->changedRows(), found);
    }
    run(*connection, "DELETE FROM RecordSetOutputs WHERE Output_Type='b'");
    run(*connection, "DELETE FROM DataTypes WHERE Datatype_name='b'");
    run(*connection, "INSERT INTO DataTypes VALUES ('0')");
    EXPECT_EQ(column(*connection, "SELECT datatype_name FROM datatypes"), "z|a|d|0|");
    EXPECT_EQ(column(*connection, "SELECT Output_Type FROM RECORDSETOUTPUTS WHERE OUTPUT_ID=5"), "z|a|d|");
    EXPECT_EQ(column(*connection, "SELECT COUNT(*) FROM DataTypes"), "4|");
}

TEST_P(EveryDatabase, OrderIsThatOfInsertionWhateverTheKey) {
    const auto connection = open();
    createNodes(*connection);
    const auto insert = connection->prepare("INSERT INTO ScenarioNodes VALUES (?,?,0,0)");
    std::string want;
    for (long long i = 0; i < 150; ++i) {  // more than a block of rows
        const long long id = i * 77 % 150;
        insert->bind(1, id);
        insert->bind(2, "n" + std::to_string(id));
        insert->execute();
        want += std::to_string(id) + "|";
    }
    EXPECT_EQ(column(*connection, "SELECT Node_ID FROM ScenarioNodes"), want);
    EXPECT_EQ(column(*connection, "SELECT Node_ID,Node_Name,Left FROM ScenarioNodes WHERE Left=0"), want);
}

TEST_P(EveryDatabase, TheCatalogueTellsTablesAndColumns) {
    const auto connection = open();
    createNodes(*connection);
    run(*connection, "CREATE TABLE zones (a CLOB, b DATE)");
    const std::string_view tables = "SELECT table_name FROM all_tables WHERE owner=?";
    EXPECT_EQ(column(*connection, "SELECT table_name FROM user_tables"), "ScenarioNodes|zones|");
    EXPECT_EQ(column(*connection, tables, {"ORVENT"}), "ScenarioNodes|zones|");
    EXPECT_EQ(column(*connection, tables, {"NOBODY"}), "");
    if (GetParam() == Kind::postgres) {
        EXPECT_EQ(column(*connection, tables, {"PUBLIC"}), "ScenarioNodes|zones|");
    }
    const std::string_view names = "SELECT column_name FROM all_tab_columns WHERE owner=? AND table_name=?";
    const std::string_view types = "SELECT data_type FROM all_tab_columns WHERE owner=? AND table_name=?";
    EXPECT_EQ(column(*connection, names, {"ORVENT", "SCENARIONODES"}), "node_id|node_name|left|top|");
    EXPECT_EQ(column(*connection, types, {"ORVENT", "SCENARIONODES"}), "NUMBER|VARCHAR2|FLOAT|FLOAT|");
    EXPECT_EQ(column(*connection, types, {"ORVENT", "ZONES"}), "CLOB|TIMESTAMP|");
}

TEST_P(EveryDatabase, AStatementThatNeverEndsIsBrokenIntoFromAnotherThread) {
    const auto connection = open();
    const std::vector<std::string> endless =
        GetParam() == Kind::postgres  ? std::vector<std::string>{"SELECT pg_sleep(600)"}
        : GetParam() == Kind::mariaDb ? std::vector<std::string>{"SELECT SLEEP(600)"}
                                      : std::vector<std::string>{
                                            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n) "
                                            "SELECT COUNT(*) FROM n",
                                            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n) "
                                            "SELECT i FROM n WHERE i < 9 OR i < 0"};
    connection->cancel();
    for (const std::string& sql : endless) {
        SCOPED_TRACE(sql);
        const auto statement = connection->prepareAsIs(sql);
        const auto from = std::chrono::steady_clock::now();
        std::jthread other([&connection](const std::stop_token& ended) {
            while (!ended.stop_requested()) {
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
                connection->cancel();
            }
        });
        try {
            for (statement->execute(); statement->fetch();) {
            }
        } catch (const DatabaseError& fault) {
            EXPECT_FALSE(fault.description().empty());
        }
        other = {};
        EXPECT_LT(std::chrono::steady_clock::now() - from, std::chrono::seconds(5));
        EXPECT_EQ(column(*connection, "SELECT 'still' FROM dual"), "still|");
    }
}

}  // namespace

}  // namespace orvent::odbc
