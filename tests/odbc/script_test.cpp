#include <algorithm>

#include "databases.h"
#include "testkit/file_text.h"

namespace orvent::odbc {

namespace {

/// Runs the creation script, cut as the program cuts it. Gives how many DROPs failed; any other fault is a failure.
int failedDrops(platform::Connection& connection) {
    std::string script = testkit::fileText(ORVENT_SOURCE_DIR "/sql/ORVENTII.sql");
    std::replace(script.begin(), script.end(), '\n', ' ');
    int failed = 0;
    for (std::size_t at = 0, end = 0; (end = script.find(';', at)) != std::string::npos; at = end + 1) {
        const std::string statement = script.substr(at, end - at);
        try {
            run(connection, statement);
        } catch (const platform::DatabaseError& fault) {
            ++failed;
            EXPECT_NE(statement.find("DROP "), std::string::npos) << statement << ": " << fault.what();
        }
    }
    return failed;
}

TEST_P(EveryDatabase, TakesTheCreationScriptTwice) {
    const auto connection = open();
    EXPECT_EQ(failedDrops(*connection), 21);
    const std::string types = column(*connection, "SELECT datatype_name FROM datatypes");
    EXPECT_TRUE(types.starts_with("VARCHAR2|NVARCHAR2|CHAR|")) << types;
    run(*connection, "INSERT INTO Scenarios VALUES ('sample',Scenario_ID_seq.NEXTVAL,'me')");
    run(*connection, "INSERT INTO ScenarioNodes VALUES (1,Node_ID_seq.NEXTVAL,'RS1',5,10.5,20.25,0.1,1.0)");
    run(*connection, "INSERT INTO RecordSets VALUES (1,'')");
    run(*connection, "INSERT INTO RecordSetOutputs VALUES(1,SubNode_ID_seq.NEXTVAL,'KEY','DB.KEY','NUMBER')");

    // Over a repository in use, whatever depends on what.
    EXPECT_EQ(failedDrops(*connection), 0);
    const std::string tables = column(*connection, "SELECT table_name FROM user_tables");
    EXPECT_EQ(std::count(tables.begin(), tables.end(), '|'), 17) << tables;
    EXPECT_EQ(column(*connection, "SELECT Scenario_Name FROM Scenarios"), "");
    EXPECT_EQ(column(*connection, "SELECT Node_ID_seq.NEXTVAL FROM dual"), "1|");
    EXPECT_EQ(column(*connection, "SELECT datatype_name FROM datatypes"), types);
    EXPECT_THROW(run(*connection, "INSERT INTO RecordSetOutputs VALUES('',9,'K','K','unknown')"),
                 platform::DatabaseError)
        << "keys are checked again after the DROPs";
}

}  // namespace

}  // namespace orvent::odbc
