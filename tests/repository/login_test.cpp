#include <fstream>
#include <sstream>

#include "platform/scramble.h"
#include "repository/frm_db_login.h"
#include "repository/repos_form.h"
#include "repository/user_login.h"
#include "repository_fixture.h"

namespace orvent::testkit {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using repository::ReposForm;

namespace {

const char* const kOwnTables = "SELECT table_name FROM user_tables";

Rows allTables() {
    Rows rows;
    std::istringstream names(
        "SCENARIOS LINES relationships ScenarioNodes Comments Activities ActivityFunctions FunctionSubNodes "
        "ActivitySubNodes RecordSets RecordSetOutputs OTHER ActivityTypes ActivityTypesFunctions ActivityTypesParams "
        "FunctionTypes FunctionTypesParams DATATYPES");
    for (std::string name; names >> name;) {
        rows.push_back({name});
    }
    return rows;
}

}  // namespace

class LoginTest : public RepositoryTest {
  protected:
    LoginTest() {
        sources.sources = {{"OTHER", "SQLite3"}, {"REPO", "Oracle 19"}, {"NEW", "My Oracle dialect"}};
        form.open();
    }

    void expectMissing(Answer answer) {
        messages.expect(
            "SOME OF THE NECESSERY TABLES WERE NOT FOUND!!\nWOULD YOU LIKE THEM TO BE CREATED?\n(Creating the "
            "repository will cause the loosing of any existing data.\nChoosing Cancel will disable this connection)",
            "TABLES MISSING", Icon::question, Buttons::destroyOkCancel, answer);
    }
    std::string scriptFile(const std::string& text) {
        const std::string path = ::testing::TempDir() + ::testing::UnitTest::GetInstance()->current_test_info()->name();
        std::ofstream(path) << text;
        return path;
    }

    ReposForm form{services};
};

TEST_F(LoginTest, OpensOnTheStoredSourceAmongTheOracleOnes) {
    EXPECT_EQ(form.DSNNames, (std::vector<std::string>{"(None)", "REPO", "NEW"}));
    EXPECT_EQ(form.DSNIndex, 1);
    EXPECT_TRUE(form.Tested);
    settings.login.ReposConnString = "GONE";
    form.open();
    EXPECT_EQ(form.DSNIndex, 0);
}

TEST_F(LoginTest, OKTestsSilentlyAndStores) {
    form.selectDSN(1);
    form.changeUserName("scott");
    EXPECT_TRUE(form.Tested) << "nothing has changed";
    form.selectDSN(2);
    EXPECT_FALSE(form.Tested);
    form.changePassword("lion");
    database.refuseOpen = kBroken;
    EXPECT_FALSE(form.cmdOK());
    EXPECT_EQ(form.status, "line is down") << "no message: the dialog says it";
    EXPECT_TRUE(store.values.empty());
    EXPECT_EQ(settings.login.ReposPasw, "tiger");

    database.refuseOpen.reset();
    database.answer(kOwnTables, allTables());
    EXPECT_TRUE(form.cmdOK());
    EXPECT_EQ(database.opened, (std::vector<std::string>{"NEW/scott/lion"}));
    EXPECT_EQ(store.value("DB", "ReposConnString", ""), "NEW");
    EXPECT_EQ(store.value("DB", "ReposPasw", ""), platform::ScramblePassword("lion"));
    EXPECT_EQ(settings.login.ReposPasw, "lion");
}

TEST_F(LoginTest, WhatFailedIsSaidUntilTheFieldsChange) {
    for (void (*change)(ReposForm&) :
         {+[](ReposForm& f) { f.selectDSN(2); }, +[](ReposForm& f) { f.changeUserName("x"); },
          +[](ReposForm& f) { f.changePassword("x"); }}) {
        form.open();
        form.Tested = false;
        database.answer(kOwnTables, {});
        expectMissing(Answer::cancel);
        EXPECT_FALSE(form.cmdOK());
        EXPECT_NE(form.status, "");
        change(form);
        EXPECT_EQ(form.status, "");
    }
}

TEST_F(LoginTest, AListThatFailsLeavesTheStoredSource) {
    sources.broken = true;
    form.open();
    EXPECT_EQ(form.DSNNames, (std::vector<std::string>{"(None)", "REPO"}));
    EXPECT_NE(form.status.find("no driver manager"), std::string::npos);
    database.answer(kOwnTables, allTables());
    EXPECT_TRUE(form.test(true));
    settings.login.ReposConnString.clear();
    form.open();
    EXPECT_EQ(form.DSNNames, (std::vector<std::string>{"(None)"}));
}

TEST_F(LoginTest, TestTellsItsResultUnlessSilent) {
    database.answer(kOwnTables, allTables());
    messages.expect("Connection Suceeded", "Testing Connection", Icon::information);
    form.TestConn();
    EXPECT_TRUE(form.Tested);
    EXPECT_TRUE(form.test(true));
    database.refuseOpen = kBroken;
    messages.expect("line is down", "", Icon::critical);
    form.TestConn();
    EXPECT_FALSE(form.Tested);
    form.selectDSN(0);
    EXPECT_FALSE(form.test(true));
}

TEST_F(LoginTest, ASourceOfDataIsNeverTakenForARepository) {
    sources.sources.push_back({"SHOP", "SQLite (Oracle dialect translator)", true});
    form.open();
    form.selectDSN(3);
    messages.expect("SHOP is a source of data and cannot be a repository.", "", Icon::critical);
    form.TestConn();
    EXPECT_FALSE(form.cmdOK());
    EXPECT_TRUE(database.opened.empty());
}

TEST_F(LoginTest, ScriptRunsStatementByStatement) {
    settings.SQLPath = scriptFile("DROP TABLE A;CREATE TABLE\nA (X\t~);\xC3\xA9LAST");
    database.fail("DROP", kBroken);
    Rows tables = allTables();
    tables.pop_back();
    database.answer(kOwnTables, tables);
    expectMissing(Answer::cancel);
    EXPECT_FALSE(form.test(true)) << "one missing table is asked about, even silently";
    database.takeLog();
    expectMissing(Answer::ok);
    messages.expect("REPOSITORY CREATED!!", "Repositopry Created", Icon::information);
    EXPECT_TRUE(form.test(true));
    EXPECT_EQ(database.takeLog(),
              (std::vector<std::string>{kOwnTables, "DROP TABLE A", "CREATE TABLE A (X  )", "  LAS"}));
}

TEST_F(LoginTest, MissingScriptIsAskedFor) {
    settings.SQLPath = "/no/such/file.sql";
    const std::string lost = "THE SQL FILE NEEDED FOR THE CREATION OF THE REPOSITORY WAS NOT FOUND!";
    expectMissing(Answer::ok);
    messages.expect(lost, "", Icon::warning);
    files.expect("SQL Files (*.sql)|*.sql", "");
    EXPECT_FALSE(form.test(true));

    const std::string path = scriptFile("X;");
    expectMissing(Answer::ok);
    messages.expect(lost, "", Icon::warning);
    files.expect("SQL Files (*.sql)|*.sql", path);
    messages.expect("REPOSITORY CREATED!!", "Repositopry Created", Icon::information);
    EXPECT_TRUE(form.test(true));
    EXPECT_EQ(settings.SQLPath, path);
    EXPECT_EQ(store.value("General", "SQLPath", ""), path);
}

TEST_F(LoginTest, UserLoginNeedsRepositoryAndName) {
    repository::UserLogin login(services);
    settings.login.ReposConnString.clear();
    login.runReposForm = [this] { settings.login.ReposConnString = "NEW"; };
    login.open();
    messages.expect("UNABLE TO LOGIN!\nNO REPOSITORY SELECTED!!", "Unable To Login", Icon::warning);
    EXPECT_FALSE(login.Login());
    login.ChangeRepos();
    EXPECT_EQ(login.txtRepos, "NEW");
    for (const char* nobody : {"", "  "}) {
        login.txtUser = nobody;
        messages.expect("UNABLE TO LOGIN!\nNO USERNAME PROVIDED!!", "Unable To Login", Icon::warning);
        EXPECT_FALSE(login.Login());
    }
    login.txtUser = "bob";
    EXPECT_TRUE(login.Login());
    EXPECT_TRUE(login.loggedIn);
    EXPECT_EQ(settings.login.User, "bob");
    EXPECT_EQ(store.value("DB", "User", ""), "bob");
}

TEST_F(LoginTest, SourceDatabaseIsKeptOnceItOpened) {
    repository::frmDBLogin login(services);
    login.open();
    messages.expect("Please Give The Connection String For The DB", "DB Login");
    EXPECT_FALSE(login.cmdOK());
    login.DSNIndex = 2;
    login.txtUserName = "sh";
    database.refuseOpen = kBroken;
    messages.expect("line is down", "", Icon::critical);
    EXPECT_FALSE(login.cmdOK());
    EXPECT_EQ(login.chosen.name, "");
    database.refuseOpen.reset();
    EXPECT_TRUE(login.cmdOK());
    EXPECT_EQ(login.chosen.name + "/" + login.chosen.user, "NEW/sh");
}

}  // namespace orvent::testkit
