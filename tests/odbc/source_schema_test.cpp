#include "repository/source_schema.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "databases.h"
#include "odbc/connection.h"
#include "odbc/connection_strings.h"

namespace orvent::odbc {

namespace {

using repository::SchemaReader;
using repository::SourceTable;

const repository::SourceDatabase kSource{"test", testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword};

class SourceSchema : public EveryDatabase {
  protected:
    /// Runs a statement of the database's own, with names in double quotes.
    void native(std::string sql) const {
        if (GetParam() != Kind::postgres) {
            std::replace(sql.begin(), sql.end(), '"', '`');
        }
        const std::string login = sources_.embedded
                                      ? embeddedString(sources_.embedded->file, false)
                                      : namedString(sources_.named.front(), kSource.user, kSource.password);
        Session(Environment(), login, kSource.user, "").run(sql);
    }

    OdbcDatabase database() const { return OdbcDatabase(sources_); }
};

/// The tables with their columns and types, as "Books: ID NUMBER, Title VARCHAR2| ".
std::string everything(SchemaReader& reader) {
    reader.readTables();
    std::string all;
    while (const SourceTable* table = reader.next()) {
        all += table->name + ":";
        for (const repository::SourceColumn& column : table->columns) {
            all += " " + column.name + " " + column.dataType + ",";
        }
        all += "| ";
    }
    return all;
}

TEST_P(SourceSchema, IsReadWithNamesInQuotes) {
    native("CREATE TABLE \"books\" (\"b_id\" INTEGER, \"The Title\" VARCHAR(60), \"größe\" DOUBLE PRECISION)");
    native("CREATE TABLE \"It's ü.b\" (\"it's\" CHAR(3), \"#\" DATE)");
    OdbcDatabase opened = database();
    SchemaReader reader(opened, kSource);
    std::string all = everything(reader);
    EXPECT_NE(all.find("books: b_id NUMBER, The Title VARCHAR2, größe FLOAT,| "), std::string::npos) << all;
    EXPECT_NE(all.find("It's ü.b: it's CHAR, # DATE,| "), std::string::npos) << all;
    EXPECT_EQ(reader.total(), 2U);
    EXPECT_EQ(reader.shortfall(), "");
}

class ServerSchema : public SourceSchema {};

TEST_P(ServerSchema, ShowsEachUserOnlyWhatItMayRead) {
    const bool postgres = GetParam() == Kind::postgres;
    for (const char* name : {"seen", "hidden"}) {
        native(std::string("CREATE TABLE ") + name + " (id INTEGER)");
    }
    for (const char* user : {"clerk", "guest"}) {
        native(std::string("CREATE USER ") + user + (postgres ? " PASSWORD 'pw'" : " IDENTIFIED BY 'pw'"));
    }
    native("GRANT SELECT ON seen TO clerk");
    OdbcDatabase opened = database();
    SchemaReader clerk(opened, {"test", "clerk", "pw"});
    EXPECT_EQ(everything(clerk), "seen: id NUMBER,| ");
    EXPECT_EQ(clerk.shortfall(), "");
    if (postgres) {
        SchemaReader guest(opened, {"test", "guest", "pw"});
        EXPECT_EQ(everything(guest), "");
        EXPECT_EQ(guest.shortfall(), "TEST shows no tables of GUEST.");
    } else {
        EXPECT_THROW(SchemaReader(opened, {"test", "guest", "pw"}), platform::DatabaseError);
    }
    EXPECT_THROW(SchemaReader(opened, {"test", "clerk", "wrong"}), platform::DatabaseError);
}

INSTANTIATE_TEST_SUITE_P(Databases, SourceSchema, ::testing::Values(Kind::sqlite, Kind::postgres, Kind::mariaDb),
                         [](const auto& kind) { return nameOf(kind.param); });

INSTANTIATE_TEST_SUITE_P(Servers, ServerSchema, ::testing::Values(Kind::postgres, Kind::mariaDb),
                         [](const auto& kind) { return nameOf(kind.param); });

}  // namespace

}  // namespace orvent::odbc
