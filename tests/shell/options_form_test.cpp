#include "shell/options_form.h"

#include <gtest/gtest.h>

#include "testkit/test_frame.h"

namespace orvent::shell {
namespace {

class OneColour : public platform::ColourDialog {
  public:
    std::optional<std::int32_t> answer;
    std::optional<std::int32_t> choose(std::int32_t) override { return answer; }
};

class OptionsWindow : public ::testing::Test {
  protected:
    OptionsWindow() { LoadOptions(options, repository.store, folder); }

    testkit::TestRepository repository;
    platform::ProgramFolder folder{"/data"};
    OneColour colours;
    testkit::NoHelp help;
    testkit::ChosenFile saveDialog;
    testkit::OwnClipboard clipboard;
    platform::StateFolder states{repository.folder.path() / "states"};
    OptionsData options;
    OptionsForm form{options, Ports{repository.hooked, repository.dataSources, repository.messages, repository.input,
                                    repository.files, colours, repository.store, repository.progress, help, folder,
                                    saveDialog, clipboard, states}};
};

TEST_F(OptionsWindow, WhatIsAppliedInPixelsIsStoredInTwipsAndComesBack) {
    form.open();
    const auto stored = repository.store.values.size();
    for (std::size_t i = 0; i < form.Text.size(); ++i) {
        form.Text[i] = std::to_string(100 + i);
    }
    form.lblColor = 255;
    form.txtSQL = "/x.sql";
    form.Problems.reset(static_cast<std::size_t>(analysis::ProblemKind::unread));
    form.ShortNames = true;
    form.SampleRows = "25000";
    form.Functions = {{" RegionOf ", "region(x => {1})"}, {" ", ""}};
    const auto texts = form.Text;
    form.butAplly();
    EXPECT_EQ(options.canvas.LogW, 1695);
    EXPECT_EQ(options.repository.SQLPath, "/x.sql");
    EXPECT_EQ(repository.store.values.at({"Draw", "ActW"}), "1605");
    EXPECT_EQ(repository.store.values.size(), stored + texts.size() + 5 + analysis::kProblemKinds)
        << "each field has a key of its own";

    options = {};
    EXPECT_EQ(LoadOptions(options, repository.store, folder), "");
    form.open();
    EXPECT_EQ(form.Text, texts);
    EXPECT_EQ(form.lblColor, 255);
    EXPECT_EQ(form.txtSQL, "/x.sql");
    EXPECT_TRUE(form.ShortNames);
    EXPECT_EQ(options.SampleRows, 25000);
    ASSERT_EQ(form.Functions.size(), 1U);
    EXPECT_EQ(form.Functions[0].name, "RegionOf");
    EXPECT_EQ(form.Functions[0].expression, "region(x => {1})");
    EXPECT_EQ(form.Problems.count(), analysis::kProblemKinds - 1);
    EXPECT_FALSE(options.problems.test(static_cast<std::size_t>(analysis::ProblemKind::unread)));
}

TEST_F(OptionsWindow, ABadFieldStopsBeforeAnythingIsStored) {
    form.open();
    for (const std::vector<sql::OwnFunction>& bad :
         {std::vector<sql::OwnFunction>{{"f", ""}}, {{"", "x"}}, {{"f", "a\nb"}}, {{"f", "1"}, {"F", "2"}}}) {
        form.Functions = bad;
        EXPECT_THROW(form.butAplly(), platform::Fault) << bad[0].name;
    }
    form.Functions.clear();
    for (const char* bad : {"", "0", "-1", "1.5", "4294967297", "many"}) {
        form.SampleRows = bad;
        EXPECT_THROW(form.butAplly(), platform::Fault) << bad;
    }
    form.SampleRows = "1";
    form.Text[0] = "99";
    form.Text[13] = "wide";
    const auto stored = repository.store.values;
    EXPECT_THROW(form.butAplly(), platform::Fault);
    EXPECT_EQ(repository.store.values, stored);
    EXPECT_EQ(options.canvas.BigHeight, 450);
}

TEST_F(OptionsWindow, DefaultsCountAtOnceAndAreStoredOnlyByApply) {
    repository.store.setValue("Draw", "ActW", "3000");
    LoadOptions(options, repository.store, folder);
    form.open();
    EXPECT_EQ(form.Text[7], "200");
    options.ShortNames = true;
    repository.messages.expect("All Options Restored To Default Values", "Restored Options",
                               platform::Icon::information);
    bool shown = false;
    form.show = [&] {
        shown = true;
        EXPECT_EQ(form.Text[7], "70");
        EXPECT_TRUE(repository.messages.isAwaited()) << "shown before they are told";
    };
    form.butDefault();
    EXPECT_TRUE(shown);
    EXPECT_EQ(options.canvas.ActW, 1050);
    EXPECT_FALSE(options.ShortNames);
    EXPECT_EQ(repository.store.values.at({"Draw", "ActW"}), "3000");
}

TEST_F(OptionsWindow, ColourAndFileKeepTheirValuesOnCancel) {
    form.open();
    form.chooseColour();
    EXPECT_EQ(form.lblColor, 16744448);
    colours.answer = 1;
    form.chooseColour();
    EXPECT_EQ(form.lblColor, 1);
    for (const auto& [answer, kept] : {std::pair{"", "/data/ORVENTII.sql"}, {"/other.sql", "/other.sql"}}) {
        repository.files.expect("SQL Files (*.sql)|*.sql", answer);
        form.SqlOpen();
        EXPECT_EQ(form.txtSQL, kept);
    }
}

}  // namespace
}  // namespace orvent::shell
