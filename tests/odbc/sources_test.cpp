#include "odbc/sources.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>

#include "databases.h"
#include "odbc/connection.h"
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
    EXPECT_THROW(database.open("(None)", "", ""), platform::DatabaseError);
    for (const char* const name : {"My PostgreSQL Unicode", "My MariaDB Unicode"}) {
        const auto connection = database.open(name, testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword);
        run(*connection, "CREATE TABLE DataTypes (Datatype_name VARCHAR2(10))");
        run(*connection, "INSERT INTO DataTypes VALUES (?)", {"\xC3\xA9\xF0\x9F\x98\x80"});
        EXPECT_EQ(column(*connection, "SELECT datatype_name FROM datatypes"), "\xC3\xA9\xF0\x9F\x98\x80|");
    }
}

TEST(ConnectionStrings, EncloseWhatWouldEndThem) {
    EXPECT_EQ(managerString({"Big", "Oracle"}, "scott", "a;b}c"), "DSN=Big;UID=scott;PWD={a;b}}c}");
    EXPECT_EQ(managerString({"Big", "Oracle"}, "a@b", "x"), "DSN=Big;UID={a@b};PWD={x}");
    EXPECT_EQ(managerString({"Shop", "libmaodbc.so"}, "", "x"), "DSN=Shop;CHARSET=utf8mb4");
    EXPECT_EQ(namedString({"", "DRIVER={MariaDB Unicode};SERVER=s;"}, "u", "p"),
              "DRIVER={MariaDB Unicode};SERVER=s;CHARSET=utf8mb4;UID=u;PWD={p}");
    EXPECT_EQ(namedString({"", "DRIVER={x};uid=own"}, "u", "p"), "DRIVER={x};uid=own");
    EXPECT_EQ(attribute("A={b;c};D=e", "d"), "e");
    EXPECT_EQ(attribute("A={b;c};D=e", "a"), "b;c");
    EXPECT_EQ(attribute("A", "a"), "");
}

TEST(OdbcDatabase, LogsInWithOddNamesAndPasswords) {
    for (const Kind kind : {Kind::postgres, Kind::mariaDb}) {
        const bool isPostgres = kind == Kind::postgres;
        std::string base = server(kind).createDatabase("logins");
        const std::string owner =
            namedString({"", base}, testkit::DatabaseServer::kUser, testkit::DatabaseServer::kPassword);
        if (!isPostgres) {
            base.erase(base.find(";Database=logins"), 16);  // the new users may not see it
        }
        OdbcDatabase database({.named = {{"test", base}}});
        const Environment environment;
        Session session(environment, owner, testkit::DatabaseServer::kUser, "");
        const std::pair<std::string, std::string> logins[] = {{"a@b,c=d?e!f*(g)[h]", "50%41+1"},
                                                              {"br{ac}es", isPostgres ? " both ends " : "b{o}th +"},
                                                              {isPostgres ? "50% +1" : "50% +1;", "a;b}c{d"},
                                                              {"o'neil \"x\"", "{x}"}};
        for (const auto& [name, password] : logins) {
            SCOPED_TRACE(nameOf(kind) + " " + name);
            const std::string quote = isPostgres ? "\"" : "'";
            const std::string quoted = quote + std::regex_replace(name, std::regex(quote), quote + quote) + quote;
            session.run(isPostgres ? "CREATE ROLE " + quoted + " LOGIN PASSWORD '" + password + "'"
                                   : "CREATE USER " + quoted + "@'%' IDENTIFIED BY '" + password + "'");
            EXPECT_NO_THROW(database.open("test", name, password));
            EXPECT_THROW(database.open("test", name, "wrong"), platform::DatabaseError);
        }
    }
    EXPECT_THROW(namedString({"", "DRIVER={MariaDB Unicode}"}, "a", "x "), platform::DatabaseError);
    EXPECT_THROW(namedString({"", "DRIVER={PostgreSQL Unicode}"}, "a;b", "x"), platform::DatabaseError);
}

TEST(SampleSource, AppearsWholeIsListedAndOnlyRead) {
    const testkit::TemporaryFolder folder;
    const auto file = folder.path() / "shop.db";
    const OwnSources own{.embedded = EmbeddedRepository{}, .sample = SampleSource{.file = file}};
    EXPECT_EQ(OdbcDataSources(own).list().at(0).name, "ORVENT Embedded");
    EXPECT_NE(OdbcDataSources(own).list().size() > 1 ? OdbcDataSources(own).list()[1].name : "", "ORVENT Bookshop");
    EXPECT_THROW(createSample(file, "CREATE TABLE a (b INTEGER);\nBROKEN;\n"), platform::DatabaseError);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));

    createSample(file, "CREATE TABLE a (b INTEGER);\nINSERT INTO a VALUES (7);\n");
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0600));
    const platform::DataSource listed = OdbcDataSources(own).list().at(1);
    EXPECT_EQ(listed.name, "ORVENT Bookshop");
    EXPECT_TRUE(listed.sourceOnly);
    OdbcDatabase database(own);
    const auto connection = database.open("ORVENT Bookshop", "", "");
    EXPECT_THROW(run(*connection, "DROP TABLE a"), platform::DatabaseError);
    EXPECT_EQ(column(*connection, "SELECT b FROM a"), "7|");
    EXPECT_EQ(column(*connection, "SELECT table_name FROM all_tables WHERE owner=?", {""}), "a|");
}

}  // namespace

}  // namespace orvent::odbc
