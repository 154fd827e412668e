#include "app/first_start.h"

#include <fstream>

#include "odbc/database.h"
#include "qt/platform/settings_file.h"
#include "testkit/scripted_ports.h"
#include "testkit/temporary_folder.h"
#include "window_test.h"

namespace orvent::qt {

namespace fs = std::filesystem;

/// What the program does before the login, in a folder of its own.
class FirstStartTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void makesEverythingOnce() {
        const testkit::TemporaryFolder folder;
        const app::Places places = app::Places::in(folder.path() / "home");
        start(places);
        for (const char* file : {"ORVENTII.sql", "ORVENTII.chm", "LDLS", "Logs", "repository.db", "Mapflow.conf"}) {
            QVERIFY2(fs::exists(places.data / file), file);
        }
        QtSettingsStore store(QString::fromStdString(places.settings.string()));
        QCOMPARE(store.value("DB", "ReposConnString", ""), std::string("ORVENT Embedded"));
        QVERIFY(!store.value("DB", "User", "").empty());
        QVERIFY(hasTypes(places));
        const auto written = fs::last_write_time(places.data / "ORVENTII.sql");
        start(places);
        QCOMPARE(fs::last_write_time(places.data / "ORVENTII.sql"), written);
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
    static odbc::OwnSources sources(const app::Places& places) {
        odbc::OwnSources own;
        own.embedded = odbc::EmbeddedRepository{.file = places.repository()};
        return own;
    }

    void start(const app::Places& places) {
        odbc::OdbcDatabase database(sources(places));
        QtSettingsStore store(QString::fromStdString(places.settings.string()));
        app::FirstStart(places, database, store, messages_).run();
        messages_.verify();
    }

    static bool hasTypes(const app::Places& places) {
        odbc::OdbcDatabase database(sources(places));
        const auto connection = database.open("ORVENT Embedded", "", "");
        const auto statement = connection->prepare("SELECT ActivityType_name FROM ActivityTypes");
        statement->execute();
        return statement->fetch();
    }

    testkit::ScriptedMessageBox messages_{failQt};
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::FirstStartTest)
#include "first_start_test.moc"
