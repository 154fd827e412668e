#include "app/first_start.h"

#include <sys/mount.h>
#include <unistd.h>

#include <fstream>

#include "app/command_line.h"
#include "app/program.h"
#include "dialog_script.h"
#include "odbc/database.h"
#include "qt/platform/settings_file.h"
#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "repository/source_schema.h"
#include "shell/mdi_form.h"
#include "testkit/file_text.h"
#include "testkit/scripted_ports.h"
#include "testkit/temporary_folder.h"

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
        QCOMPARE(*answer("--version"), std::string("ORVENT II " ORVENT_VERSION "\n"));
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
            QVERIFY_THROWS_EXCEPTION(
                platform::Fault,
                QtSettingsStore(QString::fromStdString(places.settings.string())).setValue("a", "b", "c"));
            messages_.expect(
                "The settings cannot be read. The program begins with new ones; the old file was kept as\n" + kept, {},
                platform::Icon::warning);
            start(places);
            QCOMPARE(testkit::fileText(kept), rubbish);
            QCOMPARE(stored(places, "ReposConnString"), std::string("ORVENT Embedded"));
            start(places);  // and says nothing more
            kept = places.settings.string() + ".unreadable" + std::to_string(++number);
        }
        const std::string sound = testkit::fileText(places.settings.string());
        std::ofstream(places.settings, std::ios::trunc) << "\xEF\xBB\xBF; a note\r\n" + sound;
        start(places);
        QCOMPARE(stored(places, "ReposConnString"), std::string("ORVENT Embedded"));
    }

    void goesOnWithSettingsThatCannotBeWritten() {
        const testkit::TemporaryFolder folder;
        const Theme theme{ThemeMode::light};
        app::Program program({folder.path() / "home", "/dev/null/Mapflow.conf"}, theme);
        DialogScript dialogs;
        dialogs.at({}, [](QDialog& box) {
            QVERIFY(static_cast<QMessageBox&>(box).text().contains(QStringLiteral("lasts until the program ends")));
            box.accept();
        });
        logIn(dialogs);
        QVERIFY(program.start());
        QCOMPARE(program.frame().options().repository.login.User, std::string("anna"));
    }

    void opensForReadingWhatCannotBeWritten() {
        const testkit::TemporaryFolder folder;
        const app::Places places = app::Places::in(folder.path() / "home");
        start(places);
        fs::permissions(folder.path(), fs::perms::all);
        fs::permissions(places.repository(), fs::perms(0444));
        fs::permissions(places.settings, fs::perms(0444));
        fs::permissions(places.data, fs::perms(0555));
        const bool root = geteuid() == 0 && seteuid(65534) == 0;  // nothing is read-only for root
        const Theme theme{ThemeMode::light};
        app::Program program(places, theme);
        DialogScript dialogs;
        logIn(dialogs);
        const auto told = [&dialogs](const char* words) {
            dialogs.at({}, [words](QDialog& box) {
                const QString text = static_cast<QMessageBox&>(box).text();
                QVERIFY2(text.contains(QLatin1String(words)), qPrintable(text));
                box.accept();
            });
        };
        told("lasts until the program ends");
        const bool started = program.start();
        QVERIFY(program.window().windowTitle().contains(QStringLiteral("read-only")));
        std::string name = "Draft";
        program.frame().NewScenario(name);
        told("can only be read");
        program.frame().run(shell::Command::saveScenario);
        dialogs.settle();
        QVERIFY(!root || seteuid(0) == 0);
        QVERIFY(started && fs::file_size(places.repository().string()) > 0);
        fs::permissions(places.data, fs::perms::owner_all);
    }

    void needsAHome() {
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
            const auto give = [](const char* name, const char* value) {
                value ? qputenv(name, value) : qunsetenv(name);
            };
            const QByteArray home = qgetenv("HOME");
            give("HOME", row.home);
            give("XDG_DATA_HOME", row.data);
            give("XDG_CONFIG_HOME", row.config);
            std::string settings;
            try {
                settings = app::Places::ofUser().settings.string();
            } catch (const platform::Fault& fault) {
                QVERIFY(fault.description().find("HOME") != std::string::npos);
            }
            qputenv("HOME", home);
            QCOMPARE(settings, std::string(row.settings ? row.settings : ""));
        }
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

    static std::string stored(const app::Places& places, const char* key) {
        return QtSettingsStore(QString::fromStdString(places.settings.string())).value("DB", key, "");
    }

    static void logIn(DialogScript& dialogs) {
        dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) {
            window.findChild<QLineEdit*>(QStringLiteral("txtUser"))->setText(QStringLiteral("anna"));
            window.findChild<QPushButton*>(QStringLiteral("Login"))->click();
        });
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
        std::set<std::string> types;
        while (const repository::SourceTable* table = reader.next()) {
            widest = std::max(widest, table->columns.size());
            for (const repository::SourceColumn& column : table->columns) {
                types.insert(column.dataType);
            }
        }
        QCOMPARE(reader.total(), std::size_t{12});
        QCOMPARE(widest, std::size_t{60});
        // A first load asks nothing: the starter catalogue knows all of them.
        const auto connection = database.open("ORVENT Embedded", "", "");
        const auto known = connection->prepare("SELECT Datatype_name FROM DataTypes");
        known->execute();
        QVERIFY(types.size() > 8);
        while (known->fetch()) {
            types.erase(known->text(1));
        }
        QCOMPARE(QString::fromStdString(types.empty() ? "" : *types.begin()), QString());
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
