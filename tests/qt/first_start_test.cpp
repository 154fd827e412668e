#include "app/first_start.h"

#include <sys/mount.h>

#include <fstream>

#include "app/command_line.h"
#include "odbc/database.h"
#include "qt/platform/settings_file.h"
#include "repository/source_schema.h"
#include "testkit/scripted_ports.h"
#include "testkit/temporary_folder.h"
#include "window_test.h"

namespace orvent::qt {

namespace fs = std::filesystem;

/// What the program does before the login, in a folder of its own.
class FirstStartTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void wordsAreAnsweredWithoutADisplay() {
        const auto answer = [](const char* word) {
            std::string text = word;
            char* words[] = {text.data()};
            return app::answerTo(words);
        };
        QVERIFY(answer("--version")->starts_with("ORVENT II "));
        QVERIFY(answer("--help")->find("--version") != std::string::npos);
        QVERIFY(!answer("-platform"));
    }

    void makesEverythingOnce() {
        const testkit::TemporaryFolder folder;
        const app::Places places = app::Places::in(folder.path() / "home");
        start(places);
        for (const char* file :
             {"ORVENTII.sql", "ORVENTII.chm", "LDLS", "Logs", "repository.db", "bookshop.db", "Mapflow.conf"}) {
            QVERIFY2(fs::exists(places.data / file), file);
            const bool isText = fs::path(file).stem() == "ORVENTII";
            const auto others = fs::perms::group_all | fs::perms::others_all;
            QVERIFY2(isText || (fs::status(places.data / file).permissions() & others) == fs::perms::none, file);
        }
        QtSettingsStore store(QString::fromStdString(places.settings.string()));
        QCOMPARE(store.value("DB", "ReposConnString", ""), std::string("ORVENT Embedded"));
        QVERIFY(!store.value("DB", "User", "").empty());
        QVERIFY(hasTypes(places));
        QCOMPARE(fs::status(places.data).permissions(), fs::perms::owner_all);
        lookIntoTheBookshop(places);
        const auto written = fs::last_write_time(places.data / "ORVENTII.sql");
        start(places);
        QCOMPARE(fs::last_write_time(places.data / "ORVENTII.sql"), written);
    }

    void settingsThatCannotBeReadAreKeptBeside() {
        const testkit::TemporaryFolder folder;
        const app::Places places = app::Places::in(folder.path() / "home");
        start(places);
        std::ofstream(places.settings, std::ios::binary) << std::string("\0\xFF[no]\nline without a value", 28);
        const auto kept = places.settings.string() + ".unreadable";
        messages_.expect(
            "The settings cannot be read. The program begins with new ones; the old file was kept as\n" + kept, {},
            platform::Icon::warning);
        start(places);
        QCOMPARE(fs::file_size(kept), std::uintmax_t{28});
        QCOMPARE(QtSettingsStore(QString::fromStdString(places.settings.string())).value("DB", "ReposConnString", ""),
                 std::string("ORVENT Embedded"));
        start(places);  // and says nothing more
    }

    void offersToMakeAMissingRepositoryAnew() {
        const testkit::TemporaryFolder folder;
        const app::Places places = app::Places::in(folder.path());
        start(places);
        for (const platform::Answer answer : {platform::Answer::cancel, platform::Answer::ok}) {
            fs::remove(places.repository());
            messages_.expect("The embedded repository was not found:\n" + places.repository().string() +
                                 "\nWould you like a new, empty one to be made there?",
                             "Embedded Repository", platform::Icon::question, platform::Buttons::okCancel, answer);
            start(places);
            QCOMPARE(fs::exists(places.repository()), answer == platform::Answer::ok);
        }
        QVERIFY(hasTypes(places));
    }

    void aFullDiskLeavesNoHalfRepository() {
        const testkit::TemporaryFolder disk;
        if (mount("none", disk.path().c_str(), "tmpfs", 0, "size=8m") != 0) {
            QSKIP("only root can mount a small disk");
        }
        int without = 0;
        int whole = 0;
        for (const int room : {60, 120, 180, 240, 300, 400, 500, 700, 4000}) {
            const app::Places places = app::Places::in(disk.path() / std::to_string(room));
            mount("none", disk.path().c_str(), "tmpfs", MS_REMOUNT, ("size=" + std::to_string(room) + "k").c_str());
            int told = 0;
            testkit::ScriptedMessageBox box{failQt};
            box.anyway = [&](const std::string&) { return ++told, platform::Answer::ok; };
            startWith(places, box);
            if (fs::exists(places.repository())) {
                QCOMPARE(countOfTypes(places), kStarterTypes);
                ++whole;
            } else {
                QCOMPARE(told, 1);
                without += fs::exists(places.data / "ORVENTII.chm") ? 1 : 0;
            }
            QVERIFY(!fs::exists(places.repository().string() + ".new"));
            mount("none", disk.path().c_str(), "tmpfs", MS_REMOUNT, "size=8m");
            start(places);
            QCOMPARE(countOfTypes(places), kStarterTypes);
            fs::remove_all(places.data);
        }
        umount(disk.path().c_str());
        QVERIFY2(without > 1, "the disk was never full in the middle of the repository");
        QVERIFY(whole > 0);
    }

    void closesWhatItHasLookedAt() {
        const testkit::TemporaryFolder folder;
        const app::Places places = app::Places::in(folder.path());
        start(places);
        QtSettingsStore store(QString::fromStdString(places.settings.string()));
        odbc::OdbcDatabase database(sources(places));
        app::FirstStart look(places, database, store, messages_);
        look.run();
        QVERIFY2(!fs::exists(places.repository().string() + "-wal"), "a connection is open still");
    }

    void tellsWhatCannotBeUsedAndGoesOn() {
        const testkit::TemporaryFolder folder;
        const app::Places places = app::Places::in(folder.path());
        start(places);
        std::ofstream(places.repository(), std::ios::trunc) << std::string(5000, 'x');
        messages_.expect("*", "", platform::Icon::critical);
        start(places);

        const app::Places nowhere = app::Places::in(places.data / "ORVENTII.sql" / "no folder");
        messages_.expect("*", "", platform::Icon::critical);
        start(nowhere);
    }

  private:
    /// Activity types of the starter catalogue; the script ends with the last of them.
    static constexpr int kStarterTypes = 18;

    static odbc::OwnSources sources(const app::Places& places) {
        odbc::OwnSources own;
        own.embedded = odbc::EmbeddedRepository{.file = places.repository()};
        own.sample = odbc::SampleSource{.file = places.sample()};
        return own;
    }

    static void startWith(const app::Places& places, platform::MessageBox& box) {
        odbc::OdbcDatabase database(sources(places));
        QtSettingsStore store(QString::fromStdString(places.settings.string()));
        app::FirstStart(places, database, store, box).run();
    }

    void start(const app::Places& places) {
        startWith(places, messages_);
        messages_.verify();
    }

    static void lookIntoTheBookshop(const app::Places& places) {
        odbc::OdbcDatabase database(sources(places));
        repository::SchemaReader reader(database, {"ORVENT Bookshop", "", ""});
        reader.readTables();
        std::size_t widest = 0;
        QStringList types;
        while (const repository::SourceTable* table = reader.next()) {
            widest = std::max(widest, table->columns.size());
            for (const repository::SourceColumn& column : table->columns) {
                types << QString::fromStdString(column.dataType);
            }
        }
        types.removeDuplicates();
        types.sort();
        QCOMPARE(reader.total(), std::size_t{12});
        QCOMPARE(widest, std::size_t{60});
        // The catalogue knows all of them but one.
        QCOMPARE(types.join(","), QStringLiteral("BINARY_DOUBLE,BLOB,CHAR,CLOB,DATE,FLOAT,GEOGRAPHY,NUMBER,TIMESTAMP,"
                                                 "VARCHAR2"));
    }

    static bool hasTypes(const app::Places& places) { return countOfTypes(places) == kStarterTypes; }

    static int countOfTypes(const app::Places& places) {
        odbc::OdbcDatabase database(sources(places));
        const auto connection = database.open("ORVENT Embedded", "", "");
        const auto statement = connection->prepare("SELECT ActivityType_name FROM ActivityTypes");
        statement->execute();
        int count = 0;
        while (statement->fetch()) {
            ++count;
        }
        return count;
    }

    testkit::ScriptedMessageBox messages_{failQt};
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::FirstStartTest)
#include "first_start_test.moc"
