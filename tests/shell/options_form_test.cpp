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
    OptionsData options;
    OptionsForm form{options, Ports{repository.hooked, repository.dataSources, repository.messages, repository.input,
                                    repository.files, colours, repository.store, repository.progress, help, folder}};
};

TEST_F(OptionsWindow, EveryFieldGoesToItsKeyInTwips) {
    struct Row {
        const char *section, *key, *pixels;
    };
    constexpr Row rows[] = {
        {"Zoom", "BigHeight", "30"}, {"Zoom", "Height", "15"}, {"Zoom", "Width", "70"}, {"Zoom", "BigDist", "230"},
        {"Zoom", "WDist", "70"},     {"Zoom", "HDist", "10"},  {"Draw", "ActH", "30"},  {"Draw", "ActW", "70"},
        {"Draw", "RecH", "30"},      {"Draw", "RecW", "70"},   {"Draw", "ComH", "50"},  {"Draw", "ComW", "100"},
        {"Draw", "LogH", "30"},      {"Draw", "LogW", "70"},
    };
    form.open();
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(form.Text[i], rows[i].pixels) << rows[i].key;
        form.Text[i] = std::to_string(100 + i);
    }
    form.lblColor = 255;
    form.txtSQL = "/x.sql";
    form.butAplly();
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(repository.store.values.at({rows[i].section, rows[i].key}), std::to_string(1500 + 15 * i));
    }
    EXPECT_EQ(repository.store.values.at({"General", "SelColor"}), "255");
    EXPECT_EQ(repository.store.values.at({"General", "SQLPath"}), "/x.sql");
    EXPECT_EQ(options.canvas.LogW, 1695);
    EXPECT_EQ(options.canvas.SelColor, 255);
    EXPECT_EQ(options.repository.SQLPath, "/x.sql");
}

TEST_F(OptionsWindow, ABadNumberStopsBeforeAnythingIsStored) {
    form.open();
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
    repository.messages.expect("All Options Restored To Default Values", "Restored Options",
                               platform::Icon::information);
    form.butDefault();
    EXPECT_EQ(form.Text[7], "70");
    EXPECT_EQ(options.canvas.ActW, 1050);
    EXPECT_EQ(repository.store.values.at({"Draw", "ActW"}), "3000");
}

TEST_F(OptionsWindow, ColourAndFileKeepTheirValuesOnCancel) {
    form.open();
    form.chooseColour();
    EXPECT_EQ(form.lblColor, 16744448);
    colours.answer = 1;
    form.chooseColour();
    EXPECT_EQ(form.lblColor, 1);
    repository.files.expect("SQL Files (*.sql)|*.sql", "");
    form.SqlOpen();
    EXPECT_EQ(form.txtSQL, "/data/ORVENTII.sql");
    repository.files.expect("SQL Files (*.sql)|*.sql", "/other.sql");
    form.SqlOpen();
    EXPECT_EQ(form.txtSQL, "/other.sql");
}

}  // namespace
}  // namespace orvent::shell
