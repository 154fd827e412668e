#include "repository/source_schema.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "testkit/scripted_database.h"

namespace orvent::repository {

namespace {

const char* const kTables = "SELECT table_name FROM all_tables WHERE owner=?";
const char* const kColumns = "SELECT column_name,data_type FROM all_tab_columns WHERE owner=? AND table_name=?";

struct SchemaReading : ::testing::Test {
    testkit::ScriptedDatabase database;

    SchemaReading() {
        database.answer(kTables, {{"Books"}, {"it's \"new\""}, {"Empty"}});
        database.answer(kColumns, {{"ID", "NUMBER"}, {"Title", "VARCHAR2"}, {"ID", "CHAR"}});
        database.answer(kColumns, {{"a.b", "SHAPE"}});
        database.answer(kColumns, {});
    }

    /// The tables so far, as "Books(ID NUMBER)"; a cut one ends with "~".
    static std::string told(const SchemaReader& reader) {
        std::string all;
        for (const auto& table : reader.tables()) {
            all += table->name + "(";
            for (const SourceColumn& column : table->columns) {
                all += column.name + " " + column.dataType + ";";
            }
            all += table->isWhole ? ") " : ")~ ";
        }
        return all;
    }
};

TEST_F(SchemaReading, AsksEachTableByTheOwnersNameInUpperCase) {
    SchemaReader reader(database, {"Shop", "scott", "tiger"});
    reader.readTables();
    while (reader.next() != nullptr) {
    }
    EXPECT_EQ(told(reader), "Books(ID NUMBER;Title VARCHAR2;) it's \"new\"(a.b SHAPE;) Empty() ");
    EXPECT_EQ(database.opened, std::vector<std::string>{"Shop/scott/tiger"});
    const std::string columns = kColumns;
    EXPECT_EQ(database.takeLog(),
              (std::vector<std::string>{std::string(kTables) + " [SCOTT]", columns + " [SCOTT,BOOKS]",
                                        columns + " [SCOTT,IT'S \"NEW\"]", columns + " [SCOTT,EMPTY]"}));
    EXPECT_EQ(database.prepared[kColumns], 1);
    EXPECT_TRUE(reader.isWhole());
    EXPECT_EQ(reader.shortfall(), "");
}

TEST_F(SchemaReading, SaysHowMuchIsMissing) {
    SchemaReader reader(database, {"Shop", "scott", ""});
    EXPECT_EQ(reader.shortfall(), "The tables of SHOP could not be listed.");
    reader.readTables();
    EXPECT_EQ(reader.shortfall(), "Only 0 of 3 tables of SHOP were loaded.");
    reader.next();
    EXPECT_EQ(reader.shortfall(), "Only 1 of 3 tables of SHOP were loaded.");
    EXPECT_FALSE(reader.isWhole());
    database.fail(kColumns, platform::DatabaseError("the line is dead", "08S01", 0, false));
    EXPECT_THROW(reader.next(), platform::Fault);
    EXPECT_EQ(told(reader), "Books(ID NUMBER;Title VARCHAR2;) it's \"new\"()~ ");
    EXPECT_EQ(reader.shortfall(), "Only 1 of 3 tables of SHOP were loaded, and a part of it's \"new\".");
}

TEST_F(SchemaReading, SaysWhenThereIsNoTable) {
    database.answer(kTables, {});
    SchemaReader(database, {"Shop", "scott", ""}).readTables();
    SchemaReader reader(database, {"Shop", "scott", ""});
    reader.readTables();
    EXPECT_EQ(reader.next(), nullptr);
    EXPECT_EQ(reader.shortfall(), "SHOP shows no tables of SCOTT.");
}

}  // namespace

}  // namespace orvent::repository
