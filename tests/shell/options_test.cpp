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

    store.values = {{{"General", "SelColor"}, "9999999999"}, {{"General", "TransDepth"}, "3"}};
    EXPECT_NE(LoadOptions(options, store, kFolder).find("SelColor"), std::string::npos);
    EXPECT_EQ(options.canvas.SelColor, 0xFF8000);
    EXPECT_EQ(options.TransDepth, 3);
    EXPECT_EQ(options.LogPath, "/data");
    store.values.clear();
    EXPECT_EQ(LoadOptions(options, store, kFolder), "");
}

TEST(Options, ANumberOfAnotherKindIsAFaultAndNeverCutOrBent) {
    struct Row {
        const char* key;
        const char* text;
        bool good;
    };
    const Row rows[] = {
        {"ActH", "", false},          {"ActH", "1e300", false},          {"ActH", "-1e39", false},
        {"ActH", "nan", false},       {"ActH", "450.25", true},          {"TransDepth", "10.7", false},
        {"TransDepth", "", false},    {"TransDepth", "32768", false},    {"TransDepth", "-32768", true},
        {"SampleRows", "0.5", false}, {"SampleRows", "2500", true},      {"SelColor", "", false},
        {"SelColor", "255.5", false}, {"SelColor", "2147483648", false}, {"SelColor", "2147483647", true},
        {"SelColor", "-1", true},     {"SelColor", "16777216", true},
    };
    for (const Row& row : rows) {
        testkit::MemorySettings store;
        const std::string key = row.key;
        store.values = {{{key == "ActH" ? "Draw" : "General", key}, row.text}};
        OptionsData options;
        options.TransDepth = 3;
        const std::string fault = LoadOptions(options, store, kFolder);
        EXPECT_EQ(fault.find(key) == std::string::npos, row.good) << key << " " << row.text;
        const double read = key == "ActH"         ? static_cast<double>(options.canvas.ActH)
                            : key == "SampleRows" ? static_cast<double>(options.SampleRows)
                            : key == "SelColor"   ? static_cast<double>(options.canvas.SelColor)
                                                  : static_cast<double>(options.TransDepth);
        const double standard = key == "ActH" ? 450 : key == "SampleRows" ? 1000 : key == "SelColor" ? 16744448 : 10;
        EXPECT_EQ(read, row.good ? std::stod(row.text) : standard) << key << " " << row.text;
    }
}

}  // namespace
}  // namespace orvent::shell
