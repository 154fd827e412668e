// What a program does before its own work, in a folder of its own.

#include "app/first_start.h"

#include <sys/mount.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <set>

#include "odbc/database.h"
#include "platform/fault.h"
#include "platform/settings_file.h"
#include "repository/source_schema.h"
#include "testkit/file_text.h"
#include "testkit/scripted_ports.h"
#include "testkit/temporary_folder.h"

namespace orvent::app {
namespace {

namespace fs = std::filesystem;

/// Variables of the environment, set (nothing: unset) while it lives.
class Variables {
  public:
    explicit Variables(const std::map<std::string, const char*>& values) {
        for (const auto& [name, value] : values) {
            const char* old = std::getenv(name.c_str());
            old_[name] = old ? std::optional<std::string>(old) : std::nullopt;
            give(name, value);
        }
    }
    ~Variables() {
        for (const auto& [name, value] : old_) {
            give(name, value ? value->c_str() : nullptr);
        }
    }
    Variables(const Variables&) = delete;
    Variables& operator=(const Variables&) = delete;

  private:
    static void give(const std::string& name, const char* value) {
        value ? setenv(name.c_str(), value, 1) : unsetenv(name.c_str());
    }
    std::map<std::string, std::optional<std::string>> old_;
};

/// Activity types of the starter catalogue; the script ends with the last of them.
constexpr int kStarterTypes = 18;

class FirstStartTest : public testing::Test {
  protected:
    static void startWith(const Places& places, platform::MessageBox& box) {
        odbc::OdbcDatabase database(places.sources());
        platform::SettingsFile store(places.settings);
        FirstStart(places, database, store, box).run();
    }

    void start(const Places& places) {
        startWith(places, messages_);
        messages_.verify();
    }

    static std::string stored(const Places& places, const char* key) {
        return platform::SettingsFile(places.settings).value("DB", key, "");
    }

    static void lookIntoTheBookshop(const Places& places) {
        odbc::OdbcDatabase database(places.sources());
        repository::SchemaReader reader(database, {"ORVENT Bookshop", "", ""});
        reader.readTables();
        std::size_t widest = 0;
        std::set<std::string> types;
        while (const repository::SourceTable* table = reader.next()) {
            widest = std::max(widest, table->columns.size());
            for (const repository::SourceColumn& column : table->columns) {
                types.insert(column.dataType);
            }
        }
        EXPECT_EQ(reader.total(), 12U);
        EXPECT_EQ(widest, 60U);
        // A first load asks nothing: the starter catalogue knows all of them.
        const auto connection = database.open("ORVENT Embedded", "", "");
        const auto known = connection->prepare("SELECT Datatype_name FROM DataTypes");
        known->execute();
        EXPECT_GT(types.size(), 8U);
        while (known->fetch()) {
            types.erase(known->text(1));
        }
        EXPECT_EQ(types, std::set<std::string>());
    }

    static int countOfTypes(const Places& places) {
        odbc::OdbcDatabase database(places.sources());
        const auto connection = database.open("ORVENT Embedded", "", "");
        const auto statement = connection->prepare("SELECT ActivityType_name FROM ActivityTypes");
        statement->execute();
        int count = 0;
        while (statement->fetch()) {
            ++count;
        }
        return count;
    }

    testkit::ScriptedMessageBox messages_;
};

TEST_F(FirstStartTest, MakesEverythingOnce) {
    const testkit::TemporaryFolder folder;
    const Places places = Places::in(folder.path() / "home");
    start(places);
    for (const char* file :
         {"ORVENTII.sql", "ORVENTII.chm", "LDLS", "Logs", "repository.db", "bookshop.db", "Mapflow.conf"}) {
        EXPECT_TRUE(fs::exists(places.data / file)) << file;
        const bool isText = fs::path(file).stem() == "ORVENTII";
        const auto others = fs::perms::group_all | fs::perms::others_all;
        EXPECT_TRUE(isText || (fs::status(places.data / file).permissions() & others) == fs::perms::none) << file;
    }
    platform::SettingsFile store(places.settings);
    EXPECT_EQ(store.value("DB", "ReposConnString", ""), "ORVENT Embedded");
    EXPECT_FALSE(store.value("DB", "User", "").empty());
    EXPECT_EQ(countOfTypes(places), kStarterTypes);
    EXPECT_EQ(fs::status(places.data).permissions(), fs::perms::owner_all);
    lookIntoTheBookshop(places);
    const auto written = fs::last_write_time(places.data / "ORVENTII.sql");
    start(places);
    EXPECT_EQ(fs::last_write_time(places.data / "ORVENTII.sql"), written);
}

TEST_F(FirstStartTest, SettingsThatCannotBeReadAreKeptBeside) {
    const testkit::TemporaryFolder folder;
    const Places places = Places::in(folder.path() / "home");
    start(places);
    std::string random;
    for (int byte = 1; byte < 256; ++byte) {
        random += static_cast<char>(byte);
    }
    std::string kept = places.settings.string() + ".unreadable";
    int number = 1;
    const std::string all[] = {std::string("\0\xFF[no]\nline without a value", 28),
                               "[DB]\nUser=\xFF\xFE",
                               "[DB]\n" + random,
                               "<!DOCTYPE html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">",
                               "{\"DB\": {\"User\": \"a=b\"}}",
                               "{\n  \"User\":\n  \"a=b\"\n}",
                               "USER=anna\nHOME=/home/anna\n",
                               std::string("\xFF\xFE[\0D\0B\0]\0", 10)};
    for (const std::string& rubbish : all) {
        std::ofstream(places.settings, std::ios::binary | std::ios::trunc) << rubbish;
        EXPECT_THROW(platform::SettingsFile(places.settings).setValue("a", "b", "c"), platform::Fault);
        messages_.expect(
            "The settings cannot be read. The program begins with new ones; the old file was kept as\n" + kept, {},
            platform::Icon::warning);
        start(places);
        EXPECT_EQ(testkit::fileText(kept), rubbish);
        EXPECT_EQ(stored(places, "ReposConnString"), "ORVENT Embedded");
        start(places);  // and says nothing more
        kept = places.settings.string() + ".unreadable" + std::to_string(++number);
    }
    const std::string sound = testkit::fileText(places.settings.string());
    std::ofstream(places.settings, std::ios::trunc) << "\xEF\xBB\xBF; a note\r\n" + sound;
    start(places);
    EXPECT_EQ(stored(places, "ReposConnString"), "ORVENT Embedded");
}

TEST_F(FirstStartTest, NeedsAHome) {
    struct Row {
        const char *home, *data, *config;
        const char* settings;  ///< nothing: there is no place for them
    };
    for (const Row& row : {Row{"/h", nullptr, nullptr, "/h/.config/Mapflow.conf"},
                           {"/h", "/d", "c", "/h/.config/Mapflow.conf"},
                           {nullptr, "/d", "/c", "/c/Mapflow.conf"},
                           {nullptr, nullptr, "/c", nullptr},
                           {"", "/d", nullptr, nullptr},
                           {"h", nullptr, nullptr, nullptr}}) {
        const Variables given({{"HOME", row.home}, {"XDG_DATA_HOME", row.data}, {"XDG_CONFIG_HOME", row.config}});
        std::string settings;
        try {
            settings = Places::ofUser().settings.string();
        } catch (const platform::Fault& fault) {
            EXPECT_TRUE(fault.description().find("HOME") != std::string::npos);
        }
        EXPECT_EQ(settings, std::string(row.settings ? row.settings : ""));
    }
}

TEST_F(FirstStartTest, OffersToMakeAMissingRepositoryAnew) {
    const testkit::TemporaryFolder folder;
    const Places places = Places::in(folder.path());
    start(places);
    for (const platform::Answer answer : {platform::Answer::cancel, platform::Answer::ok}) {
        fs::remove(places.repository());
        messages_.expect("The embedded repository was not found:\n" + places.repository().string() +
                             "\nWould you like a new, empty one to be made there?",
                         "Embedded Repository", platform::Icon::question, platform::Buttons::okCancel, answer);
        start(places);
        EXPECT_EQ(fs::exists(places.repository()), answer == platform::Answer::ok);
    }
    EXPECT_EQ(countOfTypes(places), kStarterTypes);
}

TEST_F(FirstStartTest, AFullDiskLeavesNoHalfRepository) {
    const testkit::TemporaryFolder disk;
    if (mount("none", disk.path().c_str(), "tmpfs", 0, "size=8m") != 0) {
        GTEST_SKIP() << "only root can mount a small disk";
    }
    int without = 0;
    int whole = 0;
    for (const int room : {60, 120, 180, 240, 300, 400, 500, 700, 4000}) {
        const Places places = Places::in(disk.path() / std::to_string(room));
        mount("none", disk.path().c_str(), "tmpfs", MS_REMOUNT, ("size=" + std::to_string(room) + "k").c_str());
        int told = 0;
        testkit::ScriptedMessageBox box;
        box.anyway = [&](const std::string&) { return ++told, platform::Answer::ok; };
        startWith(places, box);
        if (fs::exists(places.repository())) {
            EXPECT_EQ(countOfTypes(places), kStarterTypes);
            ++whole;
        } else {
            EXPECT_EQ(told, 1);
            without += fs::exists(places.data / "ORVENTII.chm") ? 1 : 0;
        }
        EXPECT_FALSE(fs::exists(places.repository().string() + ".new"));
        mount("none", disk.path().c_str(), "tmpfs", MS_REMOUNT, "size=8m");
        start(places);
        EXPECT_EQ(countOfTypes(places), kStarterTypes);
        fs::remove_all(places.data);
    }
    umount(disk.path().c_str());
    EXPECT_TRUE(without > 1) << "the disk was never full in the middle of the repository";
    EXPECT_TRUE(whole > 0);
}

TEST_F(FirstStartTest, ClosesWhatItHasLookedAt) {
    const testkit::TemporaryFolder folder;
    const Places places = Places::in(folder.path());
    start(places);
    platform::SettingsFile store(places.settings);
    odbc::OdbcDatabase database(places.sources());
    FirstStart look(places, database, store, messages_);
    look.run();
    EXPECT_FALSE(fs::exists(places.repository().string() + "-wal")) << "a connection is open still";
}

TEST_F(FirstStartTest, TellsWhatCannotBeUsedAndGoesOn) {
    const testkit::TemporaryFolder folder;
    const Places places = Places::in(folder.path());
    start(places);
    std::ofstream(places.repository(), std::ios::trunc) << std::string(5000, 'x');
    messages_.expect("*", "", platform::Icon::critical);
    start(places);

    const Places nowhere = Places::in(places.data / "ORVENTII.sql" / "no folder");
    messages_.expect("*", "", platform::Icon::critical);
    start(nowhere);
}

}  // namespace
}  // namespace orvent::app
