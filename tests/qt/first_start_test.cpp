#include "app/first_start.h"

#include <fstream>

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
        own.sample = odbc::SampleSource{.file = places.sample()};
        return own;
    }

    void start(const app::Places& places) {
        odbc::OdbcDatabase database(sources(places));
        QtSettingsStore store(QString::fromStdString(places.settings.string()));
        app::FirstStart(places, database, store, messages_).run();
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
