// The dialogs of the repository over its real logic: what they show, what keys and buttons do, and when they close.

#include "qt/repository/db_login_window.h"
#include "qt/repository/repos_form_window.h"
#include "qt/repository/user_login_window.h"
#include "qt/shell/about_form.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

using platform::Answer;

/// The scenario dialog while it is open.
struct Scenarios {
    explicit Scenarios(QDialog& window)
        : dialog(window),
          list(*control<QListWidget>(window, "ScenarioView")),
          name(*control<QLineEdit>(window, "txtScenarioName")),
          ok(*control<QPushButton>(window, "OKButton")) {}

    QPoint middleOf(int row) const { return list.visualItemRect(list.item(row)).center(); }
    void clickRow(int row) const { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, middleOf(row)); }

    QDialog& dialog;
    QListWidget& list;
    QLineEdit& name;
    QPushButton& ok;
};

/// A started program with the stored scenarios "Alpha" and "Beta & Co".
struct Stored : StartedProgram {
    Stored() {
        for (const char* name : {"Alpha", "Beta & Co"}) {
            canvas::DrawForm* form = open(name);
            saveAs(name);
            answerClose(name, Answer::ok);
            logic.close(*form);
        }
    }
    void play(const char* item, const std::function<void(const Scenarios&)>& act) {
        dialogs.at(QStringLiteral("ViewScenarios"), [act](QDialog& window) { act(Scenarios(window)); });
        choose(item);
    }
};

}  // namespace

class DialogsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void loginStaysUntilItSucceeds() {
        WindowProgram program;
        const QString source = QString::fromStdString(program.source());
        repository::UserLogin logic(program.logic.services());
        logic.runReposForm = [&program] {
            repository::ReposForm form(program.logic.services());
            form.open();
            program.frame.dialogs().show(form);
        };
        program.messages.expect("UNABLE TO LOGIN!\nNO REPOSITORY SELECTED!!", "Unable To Login",
                                platform::Icon::warning);
        program.dialogs.at(QStringLiteral("UserLogin"), [&](QDialog& window) {
            const auto* repos = control<QLineEdit>(window, "txtRepos");
            auto* user = control<QLineEdit>(window, "txtUser");
            QVERIFY(repos->isReadOnly() && repos->text().isEmpty());
            QVERIFY(user->hasFocus());
            click(window, "Login");
            QVERIFY(window.isVisible());

            typeInto(window, "txtUser", QStringLiteral("Zoë"));
            program.dialogs.at(QStringLiteral("ReposForm"), [&](QDialog& form) {
                control<QComboBox>(form, "DSNNames")->setCurrentText(source);
                click(form, "cmdOK");
            });
            click(window, "ChangeRepos");
            QCOMPARE(repos->text(), source);
            QCOMPARE(user->text(), QStringLiteral("Zoë"));
            QTest::keyClick(user, Qt::Key_Return);
            QVERIFY(!window.isVisible());
        });
        program.frame.dialogs().show(logic);
        QVERIFY(logic.loggedIn);
        QCOMPARE(program.repository.store.value("DB", "User", ""), std::string("Zoë"));
    }

    void cancelAndEscapeLogNobodyIn() {
        WindowProgram program;
        for (const bool escape : {false, true}) {
            program.dialogs.at(QStringLiteral("UserLogin"), [escape](QDialog& window) {
                typeInto(window, "txtUser", QStringLiteral("anna"));
                escape ? QTest::keyClick(&window, Qt::Key_Escape) : click(window, "cmdCancel");
            });
            QVERIFY(!program.logic.start());
        }
    }

    void aChangedConnectionIsTestedAgain() {
        WindowProgram program;
        repository::ReposForm logic(program.logic.services());
        logic.open();
        program.messages.expect("Connection Suceeded", "Testing Connection", platform::Icon::information);
        program.dialogs.at(QStringLiteral("ReposForm"), [&](QDialog& window) {
            auto* sources = control<QComboBox>(window, "DSNNames");
            QCOMPARE(sources->itemText(0), QStringLiteral("(None)"));
            QCOMPARE(control<QLineEdit>(window, "txtPassword")->echoMode(), QLineEdit::Password);
            sources->setCurrentText(QString::fromStdString(program.source()));
            click(window, "TestConn");
            QVERIFY(logic.Tested && window.isVisible());
            typeInto(window, "txtUserName", QStringLiteral("u"));
            QVERIFY(!logic.Tested);
            typeInto(window, "txtPassword", QStringLiteral("geheim"));
            QCOMPARE(logic.txtPassword, std::string("geheim"));
            sources->setCurrentIndex(0);
            QTest::keyClick(sources, Qt::Key_Return);  // the test fails: the dialog stays and says why
            QVERIFY(window.isVisible());
            QVERIFY(!control<QLabel>(window, "status")->text().isEmpty());
            QTRY_COMPARE(control<QScrollArea>(window, "body")->verticalScrollBar()->maximum(), 0);
            click(window, "cmdCancel");
        });
        ReposFormWindow(logic).exec();
        QCOMPARE(program.logic.options().repository.login.ReposConnString, std::string());
    }

    void aSourceDatabaseIsChosen() {
        WindowProgram program;
        repository::frmDBLogin logic(program.logic.services());
        logic.open();
        program.dialogs.at(QStringLiteral("frmDBLogin"), [&](QDialog& window) {
            control<QComboBox>(window, "DSNNames")->setCurrentText(QString::fromStdString(program.source()));
            typeInto(window, "txtUserName", QStringLiteral("reader"));
            click(window, "cmdOK");
        });
        DBLoginWindow(logic).exec();
        QCOMPARE(logic.chosen.name, program.source());
        QCOMPARE(logic.chosen.user, std::string("reader"));
    }

    void eachModeHasItsWordsAndGreysItsButton() {
        StartedProgram program;
        program.open("One");
        struct Row {
            const char *item, *title, *button, *name;
        };
        for (const Row& row : {Row{"SaveScenarioAsM", "Save Scenario As", "SAVE", "One"},
                               {"LoadScenarioM", "Load Scenario", "LOAD", ""},
                               {"DeleteScenarioM", "Delete Scenario", "DELETE", ""}}) {
            program.dialogs.at(QStringLiteral("ViewScenarios"), [&row](QDialog& window) {
                const Scenarios shown(window);
                QCOMPARE(window.windowTitle(), QLatin1String(row.title));
                QCOMPARE(shown.ok.text(), QLatin1Char('&') + QLatin1String(row.button));
                QCOMPARE(shown.name.text(), QLatin1String(row.name));
                QCOMPARE(shown.ok.isEnabled(), !shown.name.text().isEmpty());
                click(window, "CancelButton");
            });
            program.choose(row.item);
        }
    }

    void keysAndMouseChooseAndLoad() {
        Stored program;
        program.play("LoadScenarioM", [](const Scenarios& shown) {
            QVERIFY(shown.list.hasFocus());
            QTest::keyClick(&shown.list, Qt::Key_Down);
            QCOMPARE(shown.name.text(), QStringLiteral("Alpha"));
            QTest::keyClick(&shown.list, Qt::Key_Return);
        });
        QCOMPARE(program.logic.activeScenario()->Caption(), std::string("Alpha"));
        program.play("LoadScenarioM", [](const Scenarios& shown) {
            QCOMPARE(shown.list.item(1)->text(), QStringLiteral("Beta & Co"));
            typeInto(shown.dialog, "txtScenarioName", QStringLiteral("Alpha"));
            QCOMPARE(shown.list.currentRow(), 0);
            QVERIFY(shown.ok.isEnabled());
            shown.clickRow(1);
            typeInto(shown.dialog, "txtScenarioName", QStringLiteral("x"));
            QCOMPARE(shown.list.currentRow(), -1);
            QVERIFY(!shown.ok.isEnabled());
            QCOMPARE(control<QLabel>(shown.dialog, "lblHint")->text(), QStringLiteral("No such scenario"));
            shown.clickRow(1);  // the same row again puts its name back
            QCOMPARE(shown.name.text(), QStringLiteral("Beta & Co"));

            const auto* menu = control<QMenu>(shown.dialog, "ScenarioViewM");
            Q_EMIT shown.list.customContextMenuRequested({20, shown.list.viewport()->height() - 5});
            QVERIFY2(!menu->isVisible(), "no row, no menu");
            Q_EMIT shown.list.customContextMenuRequested(shown.middleOf(0));
            QVERIFY(menu->isVisible());
            QCOMPARE(shown.name.text(), QStringLiteral("Alpha"));
            QApplication::activePopupWidget()->close();
            QTest::mouseDClick(shown.list.viewport(), Qt::LeftButton, {}, shown.middleOf(1));
            QVERIFY(!shown.dialog.isVisible());
        });
        QCOMPARE(program.logic.activeScenario()->Caption(), std::string("Beta & Co"));
    }

    void renameAndDelete() {
        Stored program;
        program.messages.expect("ARE YOU SURE YOU WANT TO DELETE SCENARIO BETA & CO ?", "Deleting Scenario",
                                platform::Icon::question, platform::Buttons::destroyYesNo, Answer::yes);
        program.play("LoadScenarioM", [](const Scenarios& shown) {
            shown.clickRow(0);
            QTest::keyClick(&shown.list, Qt::Key_F2);
            auto* editor = shown.list.viewport()->findChild<QLineEdit*>();
            QVERIFY(editor);
            QTest::keyClicks(editor, QStringLiteral("Gamma"));
            QTest::keyClick(editor, Qt::Key_Delete);  // belongs to the editor
            QTest::keyClick(editor, Qt::Key_Return);
            QTRY_VERIFY(!shown.list.viewport()->findChild<QLineEdit*>());
            QCoreApplication::sendPostedEvents();  // the renaming follows the end of the editing
            QVERIFY2(shown.dialog.isVisible(), "Enter ends the editing and nothing else");

            shown.clickRow(1);
            QTest::keyClick(&shown.list, Qt::Key_Delete);
            QCOMPARE(shown.list.count(), 1);
            QCOMPARE(shown.list.item(0)->text(), QStringLiteral("Gamma"));
            QVERIFY(!shown.ok.isEnabled());
            click(shown.dialog, "CancelButton");
        });
    }

    void aboutTellsTheVersion() {
        AboutForm about;
        const QList<QLabel*> labels = about.findChildren<QLabel*>();
        QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->text() == QLatin1String("Version " ORVENT_VERSION);
        }));
        about.show();
        click(about, "cmdOK");
        QVERIFY(!about.isVisible());
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::DialogsTest)
#include "dialogs_test.moc"
