#include <unistd.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "databases.h"
#include "odbc/connection.h"
#include "odbc/connection_strings.h"

namespace orvent::odbc {

namespace {

using platform::DatabaseError;

template <class Step>
std::string wordsOf(Step step) {
    try {
        step();
    } catch (const DatabaseError& fault) {
        EXPECT_FALSE(fault.integrityViolation());
        return fault.description();
    }
    return "no fault";
}

void expectWords(const std::string& words, const std::string& part, const std::filesystem::path& file) {
    EXPECT_NE(words.find(part), std::string::npos) << words;
    EXPECT_NE(words.find(file.string()), std::string::npos) << words;
}

class EmbeddedFile : public ::testing::Test {
  protected:
    std::string opening(const std::filesystem::path& path) {
        return wordsOf(
            [&] { OdbcDatabase({.embedded = EmbeddedRepository{.file = path}}).open("ORVENT Embedded", "", ""); });
    }

    testkit::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "re po\xC3\xA9.db";
};

TEST_F(EmbeddedFile, ThatCannotBeUsedIsToldWithItsPath) {
    expectWords(opening(file_), "does not exist", file_);
    EXPECT_FALSE(std::filesystem::exists(file_));
    expectWords(opening(folder_.path()), "is a folder", folder_.path());
    std::ofstream(file_) << std::string(5000, 'x');
    expectWords(opening(file_), "not a database", file_);
    const auto nowhere = folder_.path() / "no" / "r.db";
    expectWords(wordsOf([&] { createEmbedded(nowhere); }), "", nowhere);
}

TEST_F(EmbeddedFile, IsMadeOnceAndKept) {
    createEmbedded(file_);
    OdbcDatabase database({.embedded = EmbeddedRepository{.file = file_}});
    run(*database.open("ORVENT Embedded", "", ""), "CREATE TABLE kept (a CLOB)");
    createEmbedded(file_);
    EXPECT_EQ(column(*database.open("ORVENT Embedded", "", ""), "SELECT table_name FROM user_tables"), "kept|");
}

TEST_F(EmbeddedFile, ThatCannotBeWrittenOpensForReading) {
    namespace fs = std::filesystem;
    const fs::path folder = folder_.path() / "a%20?#";
    fs::create_directory(folder);
    file_ = folder / "r.db";
    createEmbedded(file_);
    OdbcDatabase database({.embedded = EmbeddedRepository{.file = file_}});
    const auto open = [&] { return database.open("ORVENT Embedded", "", ""); };
    run(*open(), "CREATE TABLE kept (a CLOB)");
    fs::permissions(folder_.path(), fs::perms::all);
    for (const auto& [ofFolder, ofFile] : {std::pair{0777, 0444}, {0555, 0666}, {0555, 0444}}) {
        fs::permissions(folder, fs::perms(ofFolder));
        fs::permissions(file_, fs::perms(ofFile));
        const bool root = geteuid() == 0 && seteuid(65534) == 0;  // nothing is read-only for root
        const auto connection = open();
        const std::string tables = column(*connection, "SELECT table_name FROM user_tables");
        const std::string refused = wordsOf([&] { run(*connection, "INSERT INTO kept VALUES ('x')"); });
        ASSERT_TRUE(!root || seteuid(0) == 0);
        EXPECT_TRUE(connection->readOnly());
        EXPECT_EQ(tables, "kept|");
        expectWords(refused, "readonly", file_);
    }
    fs::permissions(folder, fs::perms(0700));
    fs::permissions(file_, fs::perms(0600));
    EXPECT_FALSE(open()->readOnly());
}

TEST_F(EmbeddedFile, LockedForLongFailsAndForAWhileIsWaitedFor) {
    createEmbedded(file_);
    OdbcDatabase database({.embedded = EmbeddedRepository{.file = file_}});
    const auto connection = database.open("ORVENT Embedded", "", "");
    run(*connection, "CREATE TABLE DataTypes (Datatype_name VARCHAR2(100))");
    const Environment environment;
    Session other(environment, embeddedString(file_, false), "", "");
    other.run("BEGIN EXCLUSIVE");
    expectWords(wordsOf([&] { run(*connection, "INSERT INTO DataTypes VALUES ('x')"); }), "locked", file_);
    EXPECT_EQ(column(*connection, "SELECT Datatype_name FROM DataTypes"), "");
    const std::jthread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        other.run("COMMIT");
    });
    run(*connection, "INSERT INTO DataTypes VALUES ('x')");
}

}  // namespace

}  // namespace orvent::odbc
