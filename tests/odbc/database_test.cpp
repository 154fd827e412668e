#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <set>

#include "databases.h"

namespace orvent::odbc {

namespace {

using platform::Connection;
using platform::DatabaseError;

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

void insertNode(Connection& connection, std::string_view name) {
    const auto insert = connection.prepare("INSERT INTO ScenarioNodes VALUES (Node_ID_seq.NEXTVAL,?,?,?)");
    insert->bind(1, name);
    insert->bind(2, 1.5F);
    insert->bind(3, 2.5F);
    insert->execute();
}

/// Runs the statement with the text bound and gives its fault.
DatabaseError faultOf(Connection& connection, std::string_view sql, std::string_view text) {
    try {
        const auto statement = connection.prepare(sql);
        statement->bind(1, text);
        statement->execute();
    } catch (const DatabaseError& fault) {
        return fault;
    }
    ADD_FAILURE() << sql << " did not fail";
    return {"", "", 0, false};
}

INSTANTIATE_TEST_SUITE_P(Databases, EveryDatabase, ::testing::Values(Kind::sqlite, Kind::postgres, Kind::mariaDb),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_P(EveryDatabase, TextsComeBackAsTheyWent) {
    const auto connection = open();
    run(*connection, "CREATE TABLE Lines (From_Grab_Point NUMBER(5), From_Label VARCHAR2(4000))");
    run(*connection, "CREATE TABLE Comments (Comment_ID NUMBER(5), Comment_Text CLOB)");
    const std::string mixed = "it's 100% \"so\" \\ {d '1'} ? \xC3\xA9\xE2\x82\xAC \xF0\x9F\x98\x80 \n\tend ";
    const std::string texts[] = {mixed,
                                 " ",
                                 repeated("n", 1000),
                                 repeated("\xF0\x9F\x98\x80", 1000),
                                 repeated("n", 4000),
                                 repeated(mixed, 500),
                                 repeated("\xE2\x82\xAC", 1366),  // a buffer of 4096 ends inside a character
                                 repeated("x", 4096),
                                 repeated(mixed, 40000)};
    const auto line = connection->prepare("INSERT INTO Lines Values(?,?)");
    const auto comment = connection->prepare("INSERT INTO Comments VALUES (?,?)");
    // Rows of short and long texts alternate, so that no buffer keeps something of the row before.
    long long row = 0;
    for (const std::string& text : texts) {
        for (const std::string_view bound : {std::string_view(text), std::string_view("short")}) {
            ++row;
            comment->bind(1, row);
            comment->bind(2, bound);
            comment->execute();
            line->bind(1, row);
            line->bind(2, bound.size() > 4000 ? "cut" : bound);
            line->execute();
        }
    }
    const auto comments = connection->prepare("SELECT Comment_ID,Comment_Text FROM Comments");
    const auto lines = connection->prepare("SELECT From_Grab_Point,From_Label FROM Lines");
    for (int round = 0; round < 2; ++round) {
        comments->execute();
        lines->execute();
        for (const std::string& text : texts) {
            for (const std::string_view want : {std::string_view(text), std::string_view("short")}) {
                ASSERT_TRUE(comments->fetch() && lines->fetch());
                EXPECT_TRUE(comments->text(2) == want) << comments->text(1) << " of " << want.size() << " bytes";
                EXPECT_FALSE(comments->isNull(2));
                EXPECT_TRUE(lines->text(2) == (want.size() > 4000 ? "cut" : want));
            }
        }
        EXPECT_FALSE(comments->fetch() || lines->fetch());
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

TEST_P(EveryDatabase, EmptyTextIsNull) {
    const auto connection = open();
    run(*connection, "CREATE TABLE Comments (Comment_ID NUMBER(5), Comment_Text CLOB, User_Name VARCHAR2(20))");
    run(*connection, "INSERT INTO Comments VALUES (1,'','')");
    const auto insert = connection->prepare("INSERT INTO Comments VALUES (?,?,?)");
    insert->bind(1, 2LL);
    insert->bind(2, "x");
    insert->bind(3, "x");
    insert->execute();
    insert->bind(2, "");
    insert->bind(3, "");
    insert->execute();
    const auto select = connection->prepare("SELECT Comment_Text,User_Name FROM Comments");
    select->execute();
    for (const std::string_view want : {"", "x", ""}) {
        ASSERT_TRUE(select->fetch());
        for (const int place : {1, 2}) {
            EXPECT_EQ(select->isNull(place), want.empty());
            EXPECT_EQ(select->text(place), want);
        }
        EXPECT_EQ(want.empty() ? select->number(1) : 0, 0);
    }
    EXPECT_FALSE(select->fetch());
}

TEST_P(EveryDatabase, FloatsComeBackExactly) {
    const auto connection = open();
    createNodes(*connection);
    const float values[] = {0.1F,        1e-30F,  16777217.0F, -0.0F, std::numeric_limits<float>::max(),
                            123456.789F, -33.3F,  1e-45F,      450.F, std::numeric_limits<float>::lowest(),
                            3.14159274F, 1.0F / 3};
    const auto insert = connection->prepare("INSERT INTO ScenarioNodes VALUES (Node_ID_seq.NEXTVAL,?,?,?)");
    int count = 0;
    for (const float value : values) {
        insert->bind(1, std::to_string(++count));
        insert->bind(2, value);
        insert->bind(3, -value);
        insert->execute();
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
    run(*connection, "INSERT INTO Comments VALUES (1,1.5,'x',1,7)");
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
    EXPECT_THROW(select->number(2), DatabaseError);
    EXPECT_THROW(select->number(3), DatabaseError);
    EXPECT_THROW(select->realNumber(3), DatabaseError);
    EXPECT_THROW(select->text(6), DatabaseError);
    EXPECT_FALSE(select->fetch());
    EXPECT_THROW(select->text(1), DatabaseError);
}

TEST_P(EveryDatabase, NamesInKeysAreLongAndExact) {
    const auto connection = open();
    createNodes(*connection);
    createTypes(*connection);
    const std::string name = repeated("\xC3\xA9", 999);
    const auto keyed = connection->prepare("INSERT INTO DataTypes VALUES (?)");
    const std::string key = repeated("k", 700);
    for (const std::string& text :
         {key + "a", key + "b", key + "A", std::string("Int"), std::string("INT"), std::string("INT ")}) {
        keyed->bind(1, text);
        keyed->execute();
    }
    EXPECT_TRUE(faultOf(*connection, "INSERT INTO DataTypes VALUES (?)", key + "A").integrityViolation());
    for (const std::string& text :
         {name + "a", name + "b", name + "A", std::string("x"), std::string("X"), std::string("x ")}) {
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
        int outcome = 1;
        try {
            OdbcDatabase database(sources());
            const auto connection = open(database);
            const auto current = connection->prepare("SELECT Node_ID_seq.CURRVAL FROM dual");
            const auto read = connection->prepare("SELECT Node_Name FROM ScenarioNodes WHERE Node_ID=?");
            outcome = 0;
            for (int i = 0; i < 200; ++i) {
                const std::string name = mark + std::to_string(i);
                insertNode(*connection, name);
                current->execute();
                current->fetch();
                read->bind(1, current->number(1));
                read->execute();
                outcome = read->fetch() && read->text(1) == name ? outcome : 2;
            }
        } catch (const DatabaseError& fault) {
            fprintf(stderr, "%s\n", fault.what());
        }
        _exit(outcome);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const auto connection = open();
    const auto select = connection->prepare("SELECT Node_ID FROM ScenarioNodes");
    select->execute();
    std::set<long long> numbers;
    while (select->fetch()) {
        numbers.insert(select->number(1));
    }
    ASSERT_EQ(numbers.size(), 400U);
    EXPECT_EQ(*numbers.begin(), 1);
    EXPECT_LE(*numbers.rbegin(), 450);  // a statement that MariaDB gave up and that went again has cost a number
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
        EXPECT_EQ(fault.sqlState().size(), 5U) << sql;
        EXPECT_GT(fault.description().size(), 10U) << sql;
    }
    EXPECT_TRUE(faultOf(*connection, "INSERT INTO RecordSetOutputs VALUES (2,?)", "unknown").integrityViolation());
    EXPECT_THROW(run(*connection, "DROP TABLE Scenarios CASCADE CONSTRAINTS"), DatabaseError);
    EXPECT_THROW(run(*connection, " "), DatabaseError);

    // No type is no unknown type.
    const auto insert = connection->prepare("INSERT INTO RecordSetOutputs VALUES (3,?)");
    insert->bind(1, "");
    insert->execute();
    // After all these faults the connection still serves.
    EXPECT_EQ(column(*connection, "SELECT Datatype_name FROM DataTypes"), "used|");
}

TEST_P(EveryDatabase, AnUpdateMovesNoRowAndReachesThoseThatRefer) {
    const auto connection = open();
    createTypes(*connection);
    for (const std::string_view name : {"'c'", "'a'", "'d'", "'b'"}) {
        run(*connection, "INSERT INTO DataTypes VALUES (" + std::string(name) + ")");
        run(*connection, "INSERT INTO RecordSetOutPuts VALUES (5," + std::string(name) + ")");
    }
    const auto update = connection->prepare("UPDATE DataTypes SET DataType_name=? WHERE DataType_name=?");
    update->bind(1, "z");
    update->bind(2, "c");
    update->execute();
    update->bind(2, "no such row");
    update->execute();
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
    EXPECT_EQ(column(*connection, "SELECT table_name FROM user_tables"), "ScenarioNodes|zones|");
    const auto tables = connection->prepare("SELECT table_name FROM all_tables WHERE owner=?");
    const auto columns =
        connection->prepare("SELECT column_name,data_type FROM all_tab_columns WHERE owner=? AND table_name=?");
    tables->bind(1, "ORVENT");
    tables->execute();
    std::string found;
    while (tables->fetch()) {
        found += tables->text(1);
        columns->bind(1, "ORVENT");
        columns->bind(2, tables->text(1) == "zones" ? "ZONES" : "SCENARIONODES");
        columns->execute();
        while (columns->fetch()) {
            found += " " + columns->text(1) + ":" + columns->text(2);
        }
        found += "|";
    }
    EXPECT_EQ(found, "ScenarioNodes node_id:NUMBER node_name:VARCHAR2 left:FLOAT top:FLOAT|zones a:CLOB b:TIMESTAMP|");
    if (GetParam() == Kind::postgres) {
        tables->bind(1, "PUBLIC");
        tables->execute();
        EXPECT_TRUE(tables->fetch());
    }
    tables->bind(1, "NOBODY");
    tables->execute();
    EXPECT_FALSE(tables->fetch());
}

}  // namespace

}  // namespace orvent::odbc
