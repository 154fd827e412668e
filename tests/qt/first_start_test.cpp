#include "app/first_start.h"

#include <unistd.h>

#include "app/command_line.h"
#include "app/program.h"
#include "dialog_script.h"
#include "odbc/database.h"
#include "platform/settings_file.h"
#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "testkit/scripted_ports.h"
#include "testkit/temporary_folder.h"

namespace orvent::qt {

namespace fs = std::filesystem;

/// The program with a place for its files that it cannot use as it likes. What else the first start does, tests/app
/// tells.
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

    void goesOnWithSettingsThatCannotBeWritten() {
        const testkit::TemporaryFolder folder;
        const Theme theme{ThemeMode::light};
        app::Program program({folder.path() / "home", "/dev/null/Mapflow.conf", folder.path() / "states"}, theme);
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

  private:
    static void logIn(DialogScript& dialogs) {
        dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) {
            window.findChild<QLineEdit*>(QStringLiteral("txtUser"))->setText(QStringLiteral("anna"));
            window.findChild<QPushButton*>(QStringLiteral("Login"))->click();
        });
    }

    static void start(const app::Places& places) {
        testkit::ScriptedMessageBox messages{failQt};
        odbc::OdbcDatabase database(places.sources());
        platform::SettingsFile store(places.settings);
        app::FirstStart(places, database, store, messages).run();
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::FirstStartTest)
#include "first_start_test.moc"
