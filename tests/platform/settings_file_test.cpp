// The settings file; tests/qt holds it against files that the toolkit writes.

#include "platform/settings_file.h"

#include <thread>

#include "platform/fault.h"
#include "platform/settings_text.h"
#include "platform/text.h"
#include "testkit/file_text.h"
#include "testkit/temporary_folder.h"

namespace orvent::platform {
namespace {

namespace fs = std::filesystem;

TEST(SettingsFile, IsPrivateAndKeepsItsLinkAndWhatElseItHolds) {
    const testkit::TemporaryFolder folder;
    const fs::path file = folder.path() / "deep" / "er" / "settings.conf";
    SettingsFile store(file);
    EXPECT_FALSE(store.exists());
    EXPECT_EQ(store.value("DB", "User", "none"), "none");
    store.setValue("DB", "User", "anna; b\xC3\xA9");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(testkit::fileText(file), "[DB]\nUser=\"anna; b\xC3\xA9\"\n");

    fs::create_symlink(file, folder.path() / "link");
    SettingsFile linked(folder.path() / "link");
    linked.setValue("General", "a/b", "");
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
    EXPECT_EQ(testkit::fileText(file), "[DB]\nUser=\"anna; b\xC3\xA9\"\n\n[%General]\na\\b=\n");
    EXPECT_EQ(store.value("General", "a/b", "none"), "") << "what another one wrote is read";
}

TEST(SettingsFile, LeavesAnotherFileAlone) {
    const testkit::TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.conf";
    const std::string_view rubbish[] = {
        "[DB]\nUser=\xED\xA0\x80", "User=anna\n", "[DB]\nno value\n", "[DB\nUser=a\n",
        "[DB]\nUser=a\x01\n",      "[a][b]\nc=d", "[DB]\n=a",
    };
    for (const std::string_view text : rubbish) {
        writeFile(file.string(), text);
        EXPECT_FALSE(holdsSettings(file)) << text;
        EXPECT_THROW(SettingsFile(file).setValue("DB", "User", "x"), Fault) << text;
        EXPECT_EQ(testkit::fileText(file), text);
    }
    for (const std::string_view text :
         {"", "\xEF\xBB\xBF; note\r\n[DB]\r\n# note\r\n User = a\tb \r\n", "[a b]\nk%20x=\n"}) {
        EXPECT_TRUE(SettingsText(text).isSound()) << text;
    }
}

TEST(SettingsFile, KeepsWhatSeveralWriteAtOnce) {
    const testkit::TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.conf";
    constexpr int kEach = 20;
    const auto write = [&](const std::string& section) {
        for (int key = 0; key < kEach; ++key) {
            SettingsFile(file).setValue(section, std::to_string(key), section);
        }
    };
    std::thread other(write, "A");
    write("B");
    other.join();
    SettingsFile store(file);
    for (int key = 0; key < kEach; ++key) {
        EXPECT_EQ(store.value("A", std::to_string(key), "") + store.value("B", std::to_string(key), ""), "AB") << key;
    }
}

}  // namespace
}  // namespace orvent::platform
