// The rows at the nodes as the dock shows them, without a window.

#include <gtest/gtest.h>

#include <semaphore>

#include "testkit/test_frame.h"

using namespace orvent;
using shell::Command;

namespace {

class RowsForm : public ::testing::Test {
  protected:
    RowsForm() {
        repository.messages.anyway = [](const std::string&) { return platform::Answer::ok; };
        stage.frame.start();
        std::string name = "Try";
        stage.frame.NewScenario(name);
        canvas::DrawForm& form = stage.active();
        auto& types = stage.frame.catalogue().tables.dataTypes;
        const auto number = static_cast<std::int16_t>(types.indexOf("NUMBER").value());
        const auto text = static_cast<std::int16_t>(types.indexOf("VARCHAR2").value());
        auto& source = *form.Labels.Add({0, 0, 1050, 450}, "S", canvas::NodeTypeRecordSet, "S").recordSet();
        auto& activity = *form.Labels.Add({2000, 0, 1050, 450}, "A", canvas::NodeTypeActivity, "A").activity();
        for (const auto& [column, type] : {std::pair{"K", text}, std::pair{"V", number}}) {
            source.RecordSet_Outputs->Add(column, type, column).ParentKeyName = "S";
            auto& input = activity.Act_Inputs->Add(column, type, entities::TagNone, column);
            input.ParentKeyName = "A";
            input.ProvidedFrom->Add("S", entities::LinkRecordSet, std::string("S.") + column);
            activity.Act_Outputs->Add(column, type, entities::TagNone, column).ParentKeyName = "A";
        }
        activity.Act_LDL = "a_out(X,Y)<-a_in1(X,Y),Y>1.";
        form.facts[form.nodeNamed("S")->Index()].facts = {{"K", "V"},
                                                          {{"b", "10"}, {"a", "9"}, {"", "2"}, {std::nullopt, "1"}}};
        stage.frame.frontChanged();
        rows.show(true);
        run();
    }

    void run() {
        while (stage.frame.idle()) {
        }
        rows.cmdRefresh_Click();
        while (stage.frame.idle()) {
        }
    }
    /// The scenario, whose rows come from a data source now.
    canvas::DrawForm& bound(const std::string& alias = "ORVENT EMBEDDED") {
        canvas::DrawForm& form = stage.active();
        form.facts.clear();
        entities::RecordSetProperties& source = *form.nodeNamed("S")->recordSet();
        source.DB2Key->Clear();
        for (const char* column : {"K", "V"}) {
            source.addDbKey(column, alias + ".T." + column);
        }
        source.RecordSet_SQL = "SELECT 'seven' AS K, 7 AS V";
        return form;
    }
    void select(const char* node) {
        stage.active().ClearCrop();
        stage.active().SelectedLabels.Add(stage.active().nodeNamed(node)->Index());
        rows.follow();
    }
    std::string shown(std::size_t table) {
        std::string all;
        for (std::size_t at = 0; at < rows.tables().at(table).count(); ++at) {
            for (const entities::Field& field : rows.tables()[table].row(at)) {
                all += field.value_or("NULL") + ",";
            }
            all.back() = ' ';
        }
        return all;
    }

    testkit::TestRepository repository;
    testkit::TestFrame stage{repository};
    shell::RowsForm& rows = stage.frame.lists().rows();
};

TEST_F(RowsForm, FollowWhatIsSelectedAndHowItIsLookedAt) {
    EXPECT_EQ(shown(0), "S,,4, A,4,3, ");
    select("A");
    ASSERT_EQ(rows.tables().size(), 2U);
    EXPECT_EQ(rows.tables()[0].title, "A: 3 rows");
    EXPECT_EQ(rows.tables()[1].title, "In, from S: 4 rows");
    rows.tables()[0].sort(1, false);
    EXPECT_EQ(shown(0), ",2 a,9 b,10 ") << "numbers by their values";
    rows.tables()[1].sort(0, true);
    EXPECT_EQ(shown(1), "b,10 a,9 ,2 NULL,1 ") << "NULL is no empty text";
    rows.txtFilter_Change("B");
    EXPECT_EQ(shown(0) + shown(1), "b,10 b,10 ");
    rows.copy(1, {});
    EXPECT_EQ(stage.clipboard.text("text/plain"), "K\tV\nb\t10\n");
}

TEST_F(RowsForm, AreOldAfterAChangeUntilTheyAreRefreshed) {
    stage.frame.run(Command::countRows);
    const canvas::NodeNotes* notes = stage.desk.notes.at(&stage.active());
    ASSERT_TRUE(notes);
    const canvas::LabelsD& node = *stage.active().nodeNamed("A");
    EXPECT_EQ(notes->note(node), "4 \u2192 3");
    EXPECT_FALSE(rows.isOld());
    stage.active().nodeNamed("A")->activity()->Act_LDL = "a_out(X,Y)<-a_in1(X,Y),Y>9.";
    canvas::Touched touched;
    stage.frame.lists().touch(stage.active(), touched);
    EXPECT_TRUE(rows.isOld());
    EXPECT_EQ(notes->note(node), "4 \u2192 3") << "until then they are what they were";
    run();
    EXPECT_FALSE(rows.isOld());
    EXPECT_EQ(notes->note(node), "4 \u2192 1");
    stage.frame.run(Command::countRows);
    EXPECT_FALSE(stage.desk.notes.at(&stage.active()));
    stage.frame.close(*stage.desk.active());
    EXPECT_FALSE(rows.canRefresh());
}

TEST_F(RowsForm, AreGivenByHandAndHeldAgainstWhatIsExpected) {
    select("S");
    stage.host.atFacts = [this](shell::FactsForm& dialog) {
        EXPECT_EQ(dialog.rows().size(), 4U);
        dialog.cmdRemove_Click({0, 1, 2});
        dialog.cmdAddRow_Click();
        dialog.type(1, 0, "\"\"");
        dialog.type(1, 1, "7");
        stage.clipboard.put("c\t8\n", "text/plain");
        dialog.cmdPaste_Click();
        dialog.txtExpected = "At most 2 rows\n";
        EXPECT_TRUE(dialog.cmdOK_Click());
    };
    rows.cmdFacts_Click();
    EXPECT_TRUE(rows.isOld());
    run();
    EXPECT_EQ(shown(0), "NULL,1 ,7 c,8 ");
    EXPECT_EQ(rows.status(), "1 of 1 expectations are not met.");
    stage.host.atFacts = [](shell::FactsForm& dialog) {
        EXPECT_EQ(dialog.txtExpected, "At most 2 rows\n");
        dialog.txtExpected = "Some rows\n";
        EXPECT_FALSE(dialog.cmdOK_Click());
    };
    rows.cmdFacts_Click();
    EXPECT_FALSE(rows.isOld()) << "nothing was kept";
    rows.optWay_Click(shell::RowsForm::Way::atSource);
    run();
    EXPECT_NE(rows.status().find("S is in no data source"), std::string::npos) << rows.status();
}

TEST_F(RowsForm, CountEqualRowsOnceUnlessTheyAreKept) {
    canvas::DrawForm& form = stage.active();
    form.facts.begin()->second.facts->rows = {{"a", "2"}, {"a", "2"}, {"b", "1"}};
    form.nodeNamed("A")->activity()->Act_LDL = "a_out(X,sum<Y>)<-a_in1(X,Y).";
    rows.touch(form);
    run();
    select("A");
    EXPECT_EQ(shown(0), "a,2 b,1 ");
    EXPECT_EQ(rows.status(), "Equal rows fell together before an aggregate: 1 in S.");
    rows.chkKeepDuplicates_Click(true);
    EXPECT_TRUE(rows.isOld());
    EXPECT_EQ(stage.states.list("facts").size(), 1U) << "it is kept";
    run();
    EXPECT_EQ(shown(0), "a,4 b,1 ");
    EXPECT_EQ(rows.status(), "");
    stage.host.atExportSql = [](shell::ExportSqlForm& question) {
        EXPECT_TRUE(question.keepDuplicates);
        question.chosen = true;
    };
    stage.frame.run(Command::exportSql);
    EXPECT_FALSE(rows.isOld()) << "it was the same there";
    stage.host.atExportSql = [](shell::ExportSqlForm& question) {
        question.keepDuplicates = false;
        question.chosen = true;
    };
    stage.frame.run(Command::exportSql);
    EXPECT_TRUE(rows.isOld());
    EXPECT_FALSE(rows.keepDuplicates());
}

TEST_F(RowsForm, OfASampleGoIntoTheProgramWhenAsked) {
    canvas::DrawForm& form = bound();
    rows.touch(form);
    run();
    EXPECT_EQ(shown(0), "S,,1, A,1,1, ");
    EXPECT_EQ(rows.status(), "");
    std::string asked;
    platform::Answer answer = platform::Answer::yes;
    repository.messages.anyway = [&](const std::string& words) {
        asked += words.starts_with("Would you like") ? words : "";
        return answer;
    };
    const auto written = [&] {
        asked.clear();
        stage.frame.run(Command::exportProgram);
        return testkit::fileText((repository.folder.path() / "Try.lp").string()).find("(\"seven\",7).") !=
               std::string::npos;
    };
    EXPECT_TRUE(written());
    EXPECT_EQ(asked, "Would you like the rows of the sample to be written as facts?");
    answer = platform::Answer::no;
    EXPECT_FALSE(written());
    rows.touch(form);
    answer = platform::Answer::yes;
    EXPECT_FALSE(written()) << "they are old";
    EXPECT_EQ(asked, "");
    form.facts[form.nodeNamed("S")->Index()].facts = {{"K", "V"}, {{"seven", "7"}}};
    EXPECT_TRUE(written());
    EXPECT_EQ(asked, "Would you like the rows that were given by hand to be written as facts?");
}

/// It is opened in the thread of the rows, and answers when the test lets it.
TEST_F(RowsForm, DoNotWaitForASourceThatDoesNotAnswer) {
    canvas::DrawForm& form = bound();
    std::binary_semaphore answers{0};
    bool dead = false;
    int opened = 0;
    const auto open = [&] {
        repository.hooked.atOpen = [&] {
            answers.acquire();
            ++opened;
            if (dead) {
                throw platform::DatabaseError("nobody is there", "08001", 1, false);
            }
        };
        rows.touch(form);
        const auto from = std::chrono::steady_clock::now();
        rows.cmdRefresh_Click();
        EXPECT_TRUE(stage.frame.idle());
        EXPECT_LT(std::chrono::steady_clock::now() - from, std::chrono::seconds(5));
        EXPECT_EQ(rows.status(), "Opening ORVENT EMBEDDED.");
        EXPECT_TRUE(rows.isRunning());
        EXPECT_FALSE(rows.canRefresh());
    };
    const auto answer = [&] {
        answers.release();
        while (stage.frame.idle()) {
        }
        repository.hooked.atOpen = nullptr;
    };
    rows.optWay_Click(shell::RowsForm::Way::atSource);
    open();
    EXPECT_EQ(shown(0), "S,,4, A,4,3, ") << "what was there before";
    answer();
    EXPECT_EQ(shown(0), "S,,1, A,1,1, ");
    EXPECT_EQ(rows.status(), "");

    open();
    rows.cmdCancel_Click();
    rows.cmdCancel_Click();
    EXPECT_EQ(rows.status(), "Cancelled; ORVENT EMBEDDED has not answered yet.");
    EXPECT_FALSE(rows.canRefresh());
    answer();
    EXPECT_EQ(rows.status(), "Old: the scenario has changed since.");
    EXPECT_EQ(shown(0), "S,,1, A,1,1, ");

    open();  // what the scenario became meanwhile is what is run
    form.nodeNamed("A")->activity()->Act_LDL = "a_out(X,Y)<-a_in1(X,Y),Y>8.";
    answer();
    EXPECT_EQ(shown(0), "S,,1, A,1,0, ");

    open();
    bound("OTHER");
    answer();
    EXPECT_EQ(rows.status(), "The record sets are in OTHER now. Refresh opens it.");
    bound();

    dead = true;
    open();
    answer();
    EXPECT_EQ(rows.status(), "nobody is there");
    EXPECT_TRUE(rows.canRefresh());
    dead = false;

    // The scenario goes, and so does what would have been run.
    open();
    stage.frame.close(*stage.desk.active());
    EXPECT_EQ(rows.watched(), nullptr);
    const int before = opened;
    answer();
    EXPECT_EQ(opened, before + 1);
    EXPECT_TRUE(!rows.isRunning() && rows.status() == "No scenario is in front.");
}

TEST_F(RowsForm, BreakIntoAStatementThatNeverEnds) {
    canvas::DrawForm& form = stage.active();
    auto& rowsOfS = form.facts.begin()->second.facts->rows;
    for (int row = 0; row < 20000; ++row) {
        rowsOfS.push_back({"x", std::to_string(row)});
    }
    rows.touch(form);
    run();  // so that S is there before the statement that never ends
    const std::string before = form.nodeNamed("A")->activity()->Act_LDL;
    const auto begin = [&] {
        form.nodeNamed("A")->activity()->Act_LDL = "a_out(X,Y)<-a_in1(X,Y),a_in1(_,Z),add(Y,Z,W),W<0.";
        rows.touch(form);
        rows.cmdRefresh_Click();
        for (int at = 0; at < 20; ++at) {
            const auto from = std::chrono::steady_clock::now();
            EXPECT_TRUE(stage.frame.idle());
            EXPECT_LT(std::chrono::steady_clock::now() - from, std::chrono::seconds(5)) << "the program answers";
        }
        EXPECT_EQ(rows.status(), "Running.");
        EXPECT_FALSE(rows.canRefresh());
    };
    begin();
    select("S");
    const std::string words = rows.tables()[0].words;
    EXPECT_TRUE(words == "Not there yet." || words == "Reading the rows.") << words;
    const auto from = std::chrono::steady_clock::now();
    rows.cmdCancel_Click();
    EXPECT_LT(std::chrono::steady_clock::now() - from, std::chrono::seconds(5));
    EXPECT_EQ(rows.status(), "Cancelled. Refresh goes on.");
    while (stage.frame.idle()) {  // the page may be on its way
    }
    EXPECT_EQ(rows.tables()[0].title, "S: 20004 rows, the first 1000") << "the rest is usable";
    select("A");
    EXPECT_EQ(rows.tables()[0].words, "Refresh shows the rows.");
    form.nodeNamed("A")->activity()->Act_LDL = before;
    rows.touch(form);
    run();
    EXPECT_EQ(rows.tables()[0].title, "A: 20001 rows, the first 1000");

    // Another scenario in front, and closing, break in as well.
    begin();
    std::string other = "Other";
    stage.frame.NewScenario(other);
    stage.frame.frontChanged();
    EXPECT_TRUE(rows.canRefresh());
    stage.frame.close(*stage.desk.active());
    stage.frame.frontChanged();
    ASSERT_EQ(stage.active().ScenarioName(), "Try");
    EXPECT_TRUE(stage.frame.idle()) << "it goes on";
    stage.frame.close(*stage.desk.active());
    EXPECT_FALSE(stage.frame.idle());
}

}  // namespace
