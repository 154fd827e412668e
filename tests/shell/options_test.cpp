#include <gtest/gtest.h>

#include "platform/scramble.h"
#include "shell/options_data.h"
#include "testkit/scripted_ports.h"

namespace orvent::shell {
namespace {

const platform::ProgramFolder kFolder("/data");

TEST(Options, StoredKeysAreReadAndNumbersThatAreNoneAreToldAndLeaveTheirDefault) {
    testkit::MemorySettings store;
    store.values = {{{"DB", "ReposConnString"}, "WAREHOUSE"},
                    {{"DB", "ReposPasw"}, platform::ScramblePassword("pass word-'")},
                    {{"DB", "User"}, "anna"},
                    {{"Draw", "ActH"}, "600.5"},
                    {{"Draw", "RecW"}, "1,5"},
                    {{"Zoom", "WDist"}, "-1"},
                    {{"General", "SelColor"}, "255"},
                    {{"General", "SQLPath"}, "/elsewhere.sql"},
                    {{"General", "TransDepth"}, "40000"}};
    OptionsData options;
    EXPECT_NE(LoadOptions(options, store, kFolder).find("RecW"), std::string::npos) << "the first one";
    EXPECT_EQ(options.repository.login.ReposConnString, "WAREHOUSE");
    EXPECT_EQ(options.repository.login.ReposPasw, "pass word-'");
    EXPECT_EQ(options.repository.login.User, "anna");
    EXPECT_EQ(options.canvas.ActH, 600.5F);
    EXPECT_EQ(options.canvas.RecW, 1050);
    EXPECT_EQ(options.canvas.WDist, -1);
    EXPECT_EQ(options.canvas.SelColor, 255);
    EXPECT_EQ(options.repository.SQLPath, "/elsewhere.sql");
    EXPECT_EQ(options.TransDepth, 10);

    DefaultOptions(options);
    EXPECT_EQ(options.canvas.ActH, 450);
    EXPECT_EQ(options.canvas.SelColor, 0xFF8000);
    EXPECT_EQ(options.repository.SQLPath, "/data/ORVENTII.sql");
    EXPECT_EQ(options.repository.login.User, "anna");
    EXPECT_EQ(store.values.at({"Draw", "ActH"}), "600.5");

    store.values = {{{"General", "SelColor"}, "99999999"}, {{"General", "TransDepth"}, "3"}};
    EXPECT_NE(LoadOptions(options, store, kFolder).find("SelColor"), std::string::npos);
    EXPECT_EQ(options.canvas.SelColor, 0xFF8000);
    EXPECT_EQ(options.TransDepth, 3);
    EXPECT_EQ(options.LogPath, "/data");
    store.values.clear();
    EXPECT_EQ(LoadOptions(options, store, kFolder), "");
}

}  // namespace
}  // namespace orvent::shell
