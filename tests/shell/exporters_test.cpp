// What a scenario can be written down as, and how the frame does it.

#include "shell/exporters.h"

#include <gtest/gtest.h>

#include "platform/fault.h"
#include "testkit/graph_builder.h"
#include "testkit/test_frame.h"

namespace orvent::shell {
namespace {

class Exporters : public ::testing::Test {
  protected:
    Exporters() {
        frame.frame.start();
        std::string name = "Sales";
        frame.frame.NewScenario(name);
    }
    canvas::DrawForm& form() { return *frame.frame.scenario(0); }

    testkit::TestRepository repository;
    testkit::TestFrame frame{repository};
};

TEST_F(Exporters, EachHasANameOfItsOwnAndWritesAnEmptyScenario) {
    const std::map<std::string_view, std::string> empty = {
        {"ldl", "\r\n"},
        {"export-text", "0;0\r\n"},
        {"program", ""},
        {"sql", "-- The scenario Sales for ANSI SQL.\n"},
        {"metrics",
         "ENTITY NAME,Local_IN,Local_OUT,Local_DEGREE,Trans_IN,Trans_OUT,Trans_DEGREE,Total_IN,Total_OUT,"
         "Total_DEGREE\nSum,0,0,0,0,0,0,0,0,0\nAverage,-----,-----,-----,-----,-----,-----,-----,-----,-----\n"},
    };
    ASSERT_EQ(exporters().size(), empty.size() + 1);
    EXPECT_EQ(
        exporterNamed(kDbtExporter).files(form(), {frame.frame.catalogue().tables, repository.progress, 3}).size(), 5U);
    for (const auto& [name, text] : empty) {
        EXPECT_EQ(exporterNamed(name).text(form(), {frame.frame.catalogue().tables, repository.progress, 3}), text)
            << name;
    }
    EXPECT_THROW(exporterNamed("poem"), platform::Fault);
}

TEST_F(Exporters, TheLdlProgramWithoutQuestionsIsThatOfTheCommand) {
    testkit::GraphBuilder graph{form()};
    graph.recordSet("R", {"ID"});
    graph.activity("A", {"ID"}, {"ID"}).Act_LDL = "a(1).";
    graph.feed("R.ID", "A.IN.ID");
    const std::string text =
        exporterNamed(kLdlExporter).text(form(), {frame.frame.catalogue().tables, repository.progress, 3});
    const std::string file = (repository.folder.path() / "LDLS" / "Sales.ldl").string();
    repository.messages.expect("File \"" + file + "\" Was Created.");
    frame.frame.run(Command::createLdl);
    EXPECT_EQ(testkit::fileText(file), text);
    EXPECT_EQ(text.substr(0, 9), "a(1).\r\n\r\n");
}

TEST_F(Exporters, SqlIsForTheDatabaseThatIsNamed) {
    testkit::GraphBuilder graph{form()};
    graph.recordSet("R", {"ID"}).addDbKey("ID", "DB.R.ID");
    graph.recordSet("T", {"ID"});
    entities::ActivityProperties& activity = graph.activity("A", {"ID"}, {"ID"});
    activity.Act_LDL = "a_out(A_IN1_ID)<-a_in1(A_IN1_ID).";
    graph.feed("R.ID", "A.IN.ID");
    graph.feed("A.OUT.ID", "T.ID");
    const std::string file = (repository.folder.path() / "Sales.sql").string();
    std::vector<ExportSqlForm> told;
    const auto choose = [&](const char* dialect, bool duplicates, bool chosen) {
        frame.host.atExportSql = [&, dialect, duplicates, chosen](ExportSqlForm& question) {
            const auto dialects = sql::dialects();
            told.push_back(question);
            question.dialect =
                static_cast<std::size_t>(std::ranges::find(dialects, dialect, &sql::Dialect::name) - dialects.begin());
            question.keepDuplicates = duplicates;
            question.chosen = chosen;
        };
    };
    for (const char* type : {"Loader Overwrite", "Selection"}) {
        activity.Act_Type = frame.frame.catalogue().ActivityTypeIndex(type);
        repository.messages.expect(file + " Created");
        choose("mariadb", true, true);
        frame.frame.run(Command::exportSql);
        const std::string text = testkit::fileText(file);
        EXPECT_EQ(text.find("-- The scenario Sales for MariaDB.\n"), 0U) << text;
        EXPECT_EQ(text.find("DISTINCT"), std::string::npos) << text;
        EXPECT_EQ(text.find("DELETE FROM `T`;") != std::string::npos, type == std::string("Loader Overwrite")) << text;
    }
    choose("oracle", false, false);
    frame.frame.run(Command::exportSql);

    // A project keeps what others put beside it, and loses what it has no longer.
    const std::string folder = (repository.folder.path() / "Sales_dbt").string();
    choose("ansi", false, true);
    repository.messages.expect(folder + " Created");
    frame.frame.run(Command::exportDbt);
    platform::writeFile(folder + "/models/mine.sql", "SELECT 1");
    EXPECT_NE(testkit::fileText(folder + "/models/a.sql").find("{{ source('db', 'R') }}"), std::string::npos);
    platform::writeFile(repository.folder.path() / "outside", "x");
    platform::writeFile(folder + "/orvent-files.txt", testkit::fileText(folder + "/orvent-files.txt") + "../outside\n");
    activity.Act_LDL = "";
    repository.messages.expect(folder + " Created");
    frame.frame.run(Command::exportDbt);
    EXPECT_EQ(testkit::fileText(folder + "/models/a.sql"), "(no file)");
    EXPECT_NE(testkit::fileText(folder + "/dbt_project.yml").find("# Not here: A, as "), std::string::npos);
    EXPECT_EQ(testkit::fileText(folder + "/models/mine.sql"), "SELECT 1");
    EXPECT_EQ(testkit::fileText(repository.folder.path() / "outside"), "x");

    ASSERT_EQ(told.size(), 5U);
    EXPECT_EQ(sql::dialects()[told[0].dialect].name, "postgresql");
    EXPECT_FALSE(told[0].keepDuplicates);
    EXPECT_EQ(sql::dialects()[told[2].dialect].name, "mariadb") << "as it was chosen last";
    EXPECT_TRUE(told[2].keepDuplicates);
    EXPECT_EQ(sql::dialects()[told[3].dialect].name, "mariadb") << "nothing was chosen";
    EXPECT_EQ(sql::dialects()[told[4].dialect].name, "ansi");
    EXPECT_FALSE(told[4].keepDuplicates);
}

TEST_F(Exporters, TheMenuWritesIntoTheDataFolderOrNothing) {
    const std::string file = (repository.folder.path() / "Sales.txt").string();
    repository.messages.expect(file + " Created");
    frame.frame.run(Command::exportText);
    EXPECT_EQ(testkit::fileText(file), "0;0\r\n");
    for (const char* name : {"../Sales2", "none/Sales2"}) {
        form().setCaption(name);
        EXPECT_THROW(frame.frame.run(Command::exportText), platform::Fault);
    }
    EXPECT_EQ(testkit::fileText(repository.folder.path() / ".." / "Sales2.txt"), "(no file)");
    form().setCaption("Sales");
    testkit::GraphBuilder{form()}.activity("Odd").Act_Type = 999;
    EXPECT_THROW(frame.frame.run(Command::exportText), platform::Fault);
    EXPECT_EQ(testkit::fileText(file), "0;0\r\n") << "the old one stays";
}

TEST_F(Exporters, ScenariosThatComeAndGoAreAnnounced) {
    struct Diary : ScenarioListener {
        std::string text;
        void scenarioOpened(canvas::DrawForm& form) override { text += "+" + form.Caption(); }
        void scenarioClosed(canvas::DrawForm& form) override {
            text += "-" + form.Caption() + std::to_string(form.Labels.Count());
        }
    } diary;
    ScenarioSubscription subscription = frame.frame.listen(diary);
    frame.frame.run(Command::loadTestGraph);
    const int nodes = frame.active().Labels.Count();
    frame.frame.discardScenario(frame.active().slot());
    EXPECT_EQ(diary.text, "+Sample-Sample" + std::to_string(nodes));
    subscription.end();
    frame.frame.discardScenario(0);
    EXPECT_EQ(diary.text, "+Sample-Sample" + std::to_string(nodes));
}

}  // namespace
}  // namespace orvent::shell
