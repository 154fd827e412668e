#include <algorithm>
#include <fstream>
#include <vector>

#include "databases.h"

namespace orvent::odbc {

namespace {

/// The statements of the creation script, cut as the program cuts them.
std::vector<std::string> statements() {
    std::ifstream script(ORVENT_SOURCE_DIR "/sql/ORVENTII.sql");
    std::vector<std::string> all;
    for (std::string statement; std::getline(script, statement, ';');) {
        std::replace(statement.begin(), statement.end(), '\n', ' ');
        if (statement.find_first_not_of(' ') != std::string::npos) {
            all.push_back(statement);
        }
    }
    return all;
}

/// Runs the whole script; gives the words of each fault that is not a DROP's.
std::string runScript(platform::Connection& connection, int& failedDrops) {
    std::string faults;
    failedDrops = 0;
    for (const std::string& statement : statements()) {
        try {
            run(connection, statement);
        } catch (const platform::DatabaseError& fault) {
            if (statement.find("DROP ") != std::string::npos) {
                ++failedDrops;
            } else {
                faults += statement.substr(0, 80) + ": " + fault.what() + "\n";
            }
        }
    }
    return faults;
}

/// Binds the values (a number where it is one, a text in bars) and executes.
struct Step {
    std::string_view sql;
    std::vector<std::string_view> values;
};

void send(platform::Connection& connection, const Step& step) {
    const auto statement = connection.prepare(step.sql);
    int place = 0;
    for (const std::string_view value : step.values) {
        ++place;
        if (value.starts_with('|')) {
            statement->bind(place, value.substr(1));
        } else if (value.find('.') != std::string_view::npos) {
            statement->bind(place, std::stof(std::string(value)));
        } else {
            statement->bind(place, std::stoll(std::string(value)));
        }
    }
    statement->execute();
}

// One activity with an output, a link and a function, and one record set; on a fresh repository all identifiers are
// known.
const std::vector<Step> kSave = {
    {"INSERT INTO Scenarios VALUES (?,Scenario_ID_seq.NEXTVAL,?)", {"|sample", "|me"}},
    {"INSERT INTO ScenarioNodes VALUES (?,Node_ID_seq.NEXTVAL,?,?,?,?,?,?)",
     {"1", "|A1", "8", "10.5", "20.25", "0.1", "1.0"}},
    {"INSERT INTO Activities VALUES (?,?,?,?,?,?,?)", {"1", "|", "|", "|log", "|SELECT ';'", "1", "|a."}},
    {"INSERT INTO ActivitySubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?,?) ",
     {"1", "|KEY", "2", "|NAME", "|NUMBER", "0"}},
    {"INSERT INTO ActivityFunctions VALUES( ?,Function_ID_seq.NEXTVAL,?,?,?)", {"1", "|F1", "|[EMPTY]", "0"}},
    {"INSERT INTO FunctionSubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?) ", {"1", "|1", "6", "|IN", "|NUMBER"}},
    {"INSERT INTO RelationShips VALUES(?,?,?,?,?,?)", {"1", "1", "2", "|R1.KEY", "|R1", "4"}},
    {"INSERT INTO ScenarioNodes VALUES (?,Node_ID_seq.NEXTVAL,?,?,?,?,?,?)",
     {"1", "|R1", "5", "1.5", "2.5", "3.5", "4.5"}},
    {"INSERT INTO RecordSets VALUES (?,?)", {"2", "|"}},
    {"INSERT INTO RecordSetOutputs VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?) ", {"2", "|KEY", "|DB.KEY", "|NUMBER"}},
    {"INSERT INTO Lines Values(?,?,?,?,?,?,?)", {"1", "|R1", "1", "|A1", "2", "1", "0"}},
    {"UPDATE ScenarioNodes SET Node_Name=?,Left=?,Top=?,Width=?,Height=? WHERE Node_ID=?",
     {"|A2", "11.5", "21.5", "0.2", "2.0", "1"}},
    {"UPDATE Activities SET Activity_Descr=?,Activity_Type=?,Activity_Log=?,Activity_SQL=?,Activity_LDL=?,"
     "Activity_SchemaNo=? WHERE Activity_ID=?",
     {"|d", "|", "|", "|", "|", "2", "1"}},
};

const std::vector<Step> kRemove = {
    {"DELETE FROM RelationShips WHERE Node_ID=?", {"1"}},
    {"DELETE FROM ActivitySubNodes WHERE Activity_ID=?", {"1"}},
    {"DELETE FROM FunctionSubNodes WHERE Function_ID IN (SELECT FUNCTION_ID FROM ActivityFunctions WHERE "
     "Activity_ID=?)",
     {"1"}},
    {"DELETE FROM ActivityFunctions WHERE Activity_ID=?", {"1"}},
    {"DELETE FROM Activities WHERE Activity_ID=?", {"1"}},
    {"DELETE FROM RecordSetOutputs WHERE RecordSet_ID=?", {"2"}},
    {"DELETE FROM RecordSets WHERE RecordSet_ID=?", {"2"}},
    {"DELETE FROM Lines WHERE Scenario_ID=?", {"1"}},
    {"DELETE FROM ScenarioNodes WHERE Scenario_ID=?", {"1"}},
    {"DELETE FROM Scenarios WHERE Scenario_ID=?", {"1"}},
};

TEST_P(EveryDatabase, TakesTheCreationScriptTwice) {
    const auto connection = open();
    int failedDrops = 0;
    ASSERT_EQ(runScript(*connection, failedDrops), "");
    EXPECT_EQ(failedDrops, 21);
    for (const Step& step : kSave) {
        send(*connection, step);
    }
    EXPECT_EQ(column(*connection, "SELECT FUNCTION_ID FROM ActivityFunctions WHERE Activity_ID=1"), "1|");
    const std::string types = column(*connection, "SELECT datatype_name FROM datatypes");
    EXPECT_TRUE(types.starts_with("VARCHAR2|NVARCHAR2|CHAR|")) << types;

    // Over a repository in use, whatever depends on what.
    ASSERT_EQ(runScript(*connection, failedDrops), "");
    EXPECT_EQ(failedDrops, 0);
    const std::string tables = column(*connection, "SELECT table_name FROM user_tables");
    EXPECT_EQ(std::count(tables.begin(), tables.end(), '|'), 17) << tables;
    EXPECT_EQ(column(*connection, "SELECT Scenario_Name FROM Scenarios"), "");
    EXPECT_EQ(column(*connection, "SELECT datatype_name FROM datatypes"), types);
}

TEST_P(EveryDatabase, SavesAndRemovesAScenario) {
    const auto connection = open();
    int failedDrops = 0;
    ASSERT_EQ(runScript(*connection, failedDrops), "");
    for (const Step& step : kSave) {
        ASSERT_NO_THROW(send(*connection, step)) << step.sql;
    }
    const auto nodes = connection->prepare(
        "SELECT Node_ID,Node_Name,Node_Type,Left,Top,Width,Height FROM ScenarioNodes WHERE Scenario_ID=?");
    nodes->bind(1, 1LL);
    nodes->execute();
    ASSERT_TRUE(nodes->fetch());
    EXPECT_EQ(nodes->text(2) + nodes->text(4) + nodes->text(6), "A211.5" + nodes->text(6));
    EXPECT_EQ(nodes->realNumber(6), 0.2F);
    EXPECT_TRUE(nodes->fetch());
    EXPECT_FALSE(nodes->fetch());
    const auto link = connection->prepare(
        "SELECT Relationship_Kind,From_Key,From_Type,From_Name FROM Relationships WHERE Subnode_ID=?");
    link->bind(1, 1LL);
    link->execute();
    ASSERT_TRUE(link->fetch());
    EXPECT_EQ(link->text(2), "R1.KEY");
    EXPECT_EQ(link->number(3), 4);
    for (const Step& step : kRemove) {
        ASSERT_NO_THROW(send(*connection, step)) << step.sql;
    }
    EXPECT_EQ(column(*connection, "SELECT Node_ID FROM ScenarioNodes"), "");
}

}  // namespace

}  // namespace orvent::odbc
