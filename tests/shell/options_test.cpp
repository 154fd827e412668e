#include <gtest/gtest.h>

#include "platform/scramble.h"
#include "shell/options_data.h"
#include "testkit/scripted_ports.h"

namespace orvent::shell {
namespace {

const platform::ProgramFolder kFolder("/data");

TEST(Options, EmptyStoreGivesTheDefaults) {
    testkit::MemorySettings store;
    OptionsData options;
    EXPECT_EQ(LoadOptions(options, store, kFolder), "");
    EXPECT_EQ(options.canvas.ActW, 1050);
    EXPECT_EQ(options.canvas.ActH, 450);
    EXPECT_EQ(options.canvas.ComW, 1500);
    EXPECT_EQ(options.canvas.ComH, 750);
    EXPECT_EQ(options.canvas.BigDist, 3450);
    EXPECT_EQ(options.canvas.SelColor, 0xFF8000);
    EXPECT_EQ(options.repository.SQLPath, "/data/ORVENTII.sql");
    EXPECT_EQ(options.HelpFile, "/data/ORVENTII.chm");
    EXPECT_EQ(options.LogPath, "/data");
    EXPECT_EQ(options.TransDepth, 10);
}

TEST(Options, EveryStoredKeyIsReadOnceAndTheDefaultsLeaveTheStore) {
    testkit::MemorySettings store;
    store.values = {{{"DB", "ReposConnString"}, "WAREHOUSE"},
                    {{"DB", "ReposPasw"}, platform::ScramblePassword("pass word-'")},
                    {{"DB", "User"}, "anna"},
                    {{"Draw", "ActH"}, "600.5"},
                    {{"Zoom", "WDist"}, "-1"},
                    {{"General", "SelColor"}, "255"},
                    {{"General", "SQLPath"}, "/elsewhere.sql"},
                    {{"General", "TransDepth"}, "3"}};
    OptionsData options;
    EXPECT_EQ(LoadOptions(options, store, kFolder), "");
    EXPECT_EQ(options.repository.login.ReposConnString, "WAREHOUSE");
    EXPECT_EQ(options.repository.login.ReposPasw, "pass word-'");
    EXPECT_EQ(options.repository.login.User, "anna");
    EXPECT_EQ(options.canvas.ActH, 600.5F);
    EXPECT_EQ(options.canvas.WDist, -1);
    EXPECT_EQ(options.canvas.SelColor, 255);
    EXPECT_EQ(options.TransDepth, 3);

    DefaultOptions(options);
    EXPECT_EQ(options.canvas.ActH, 450);
    EXPECT_EQ(options.canvas.SelColor, 0xFF8000);
    EXPECT_EQ(options.repository.SQLPath, "/data/ORVENTII.sql");
    EXPECT_EQ(options.repository.login.User, "anna");
    EXPECT_EQ(options.TransDepth, 3);
    EXPECT_EQ(store.values.at({"Draw", "ActH"}), "600.5");
}

TEST(Options, NumbersThatAreNoneLeaveTheirDefaultAndAreTold) {
    testkit::MemorySettings store;
    store.values = {{{"Draw", "RecW"}, "1,5"},
                    {{"Draw", "RecH"}, "700"},
                    {{"General", "TransDepth"}, "40000"},
                    {{"General", "SelColor"}, "99999999"}};
    OptionsData options;
    EXPECT_NE(LoadOptions(options, store, kFolder).find("RecW"), std::string::npos);
    EXPECT_EQ(options.canvas.RecW, 1050);
    EXPECT_EQ(options.canvas.RecH, 700);
    EXPECT_EQ(options.TransDepth, 10);
    EXPECT_EQ(options.canvas.SelColor, 0xFF8000);
}

}  // namespace
}  // namespace orvent::shell
