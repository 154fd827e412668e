#include "odbc/sources.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "databases.h"
#include "odbc/connection_strings.h"
#include "testkit/temporary_folder.h"

namespace orvent::odbc {

namespace {

/// Lets the ODBC manager read this list of the user's data sources.
class UserSources {
  public:
    explicit UserSources(std::string_view text) {
        const std::string file = (folder_.path() / "odbc.ini").string();
        std::ofstream(file) << text;
        setenv("ODBCINI", file.c_str(), 1);
    }
    ~UserSources() { unsetenv("ODBCINI"); }
    UserSources(const UserSources&) = delete;
    UserSources& operator=(const UserSources&) = delete;

  private:
    testkit::TemporaryFolder folder_;
};

TEST(OdbcDataSources, NameTheDialectThatTheyAreTranslatedFrom) {
    const UserSources user(
        "[Warehouse]\nDriver=PostgreSQL Unicode\n[Shop]\nDriver=MariaDB Unicode\n[Big]\nDriver=Oracle 19 ODBC driver\n"
        "[Notes]\nDriver=SQLite3\n[Hidden]\nDriver=SQLite3\n");
    OdbcDataSources sources(
        {.embedded = EmbeddedRepository{},
         .named = {{"Hidden", "Driver={PostgreSQL Unicode};Server=x"}, {"Real", "DRIVER=Oracle 19;DBQ=x"}}});
    std::string all;
    for (const platform::DataSource& source : sources.list()) {
        all += source.name + ": " + source.driver + "\n";
    }
    EXPECT_EQ(all,
              "ORVENT Embedded: Embedded SQLite (Oracle dialect translator)\n"
              "Hidden: PostgreSQL Unicode (Oracle dialect translator)\n"
              "Real: Oracle 19\n"
              "Warehouse: PostgreSQL Unicode (Oracle dialect translator)\n"
              "Shop: MariaDB Unicode (Oracle dialect translator)\n"
              "Big: Oracle 19 ODBC driver\n"
              "Notes: SQLite3\n");
}

TEST(OdbcDatabase, OpensADataSourceOfTheUser) {
    const std::string postgres = server(Kind::postgres).createDatabase("own");
    const std::string mariaDb = server(Kind::mariaDb).createDatabase("own");
    std::string list;
    for (const std::string& source : {postgres, mariaDb}) {
        const std::string driver = attribute(source, "DRIVER");
        list += "[My " + driver + "]\nDriver=" + driver +
                "\nServer=127.0.0.1\nServername=127.0.0.1\nPort=" + attribute(source, "Port") + "\nDatabase=own\n";
    }
    const UserSources user(list);
    OdbcDatabase database({});
    for (const char* const name : {"My PostgreSQL Unicode", "My MariaDB Unicode"}) {
        const auto connection = database.open(name, testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword);
        run(*connection, "CREATE TABLE DataTypes (Datatype_name VARCHAR2(10))");
        run(*connection, "INSERT INTO DataTypes VALUES (?)", {"\xC3\xA9\xF0\x9F\x98\x80"});
        EXPECT_EQ(column(*connection, "SELECT datatype_name FROM datatypes"), "\xC3\xA9\xF0\x9F\x98\x80|");
    }
}

TEST(ConnectionStrings, EncloseWhatWouldEndThem) {
    EXPECT_EQ(managerString({"Big", "Oracle"}, "scott", "a;b}c"), "DSN=Big;UID=scott;PWD={a;b}}c}");
    EXPECT_EQ(managerString({"Shop", "libmaodbc.so"}, "", "x"), "DSN=Shop;CHARSET=utf8mb4");
    EXPECT_EQ(namedString({"", "DRIVER={MariaDB Unicode};SERVER=s;"}, "u", "p"),
              "DRIVER={MariaDB Unicode};SERVER=s;CHARSET=utf8mb4;UID=u;PWD=p");
    EXPECT_EQ(namedString({"", "DRIVER={x};uid=own"}, "u", "p"), "DRIVER={x};uid=own");
    EXPECT_EQ(attribute("A={b;c};D=e", "d"), "e");
    EXPECT_EQ(attribute("A={b;c};D=e", "a"), "b;c");
    EXPECT_EQ(attribute("A", "a"), "");
}

}  // namespace

}  // namespace orvent::odbc
