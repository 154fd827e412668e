// The dialogs of the repository over its real logic: what they show, what keys and buttons do, and when they close.

#include <QComboBox>
#include <QListWidget>
#include <QMenu>

#include "qt/repository/db_login_window.h"
#include "qt/repository/repos_form_window.h"
#include "qt/repository/user_login_window.h"
#include "qt/repository/view_scenarios_window.h"
#include "qt/shell/about_form.h"
#include "window_program.h"
#include "window_test.h"

namespace orvent::qt {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

QStringList rows(const QListWidget& list) {
    QStringList names;
    for (int row = 0; row < list.count(); ++row) {
        names << list.item(row)->text();
    }
    return names;
}

QPoint middleOf(QListWidget& list, int row) {
    return list.visualItemRect(list.item(row)).center();
}

/// The scenario dialog over two stored scenarios, while it is open.
struct Scenarios {
    explicit Scenarios(QDialog& window)
        : dialog(window),
          list(*control<QListWidget>(window, "ScenarioView")),
          name(*control<QLineEdit>(window, "txtScenarioName")),
          ok(*control<QPushButton>(window, "OKButton")) {}

    void clickRow(int row) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, middleOf(list, row)); }

    QDialog& dialog;
    QListWidget& list;
    QLineEdit& name;
    QPushButton& ok;
};

}  // namespace

class DialogsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void loginRefusesAnEmptyUserAndTakesEnter() {
        WindowProgram program;
        repository::UserLogin logic(program.logic.services());
        for (const char* reason : {"NO REPOSITORY SELECTED!!", "NO USERNAME PROVIDED!!"}) {
            program.messages.expect(std::string("UNABLE TO LOGIN!\n") + reason, "Unable To Login", Icon::warning);
        }
        program.dialogs.at(QStringLiteral("UserLogin"), [&](QDialog& window) {
            QVERIFY(control<QLineEdit>(window, "txtRepos")->isReadOnly());
            QCOMPARE(control<QLineEdit>(window, "txtRepos")->text(), QString());
            QVERIFY(control<QLineEdit>(window, "txtUser")->hasFocus());
            click(window, "Login");
            QVERIFY(window.isVisible());

            typeInto(window, "txtUser", QStringLiteral("anna"));
            program.dialogs.at(QStringLiteral("ReposForm"), [&](QDialog& repos) {
                control<QComboBox>(repos, "DSNNames")->setCurrentText(QString::fromStdString(program.source()));
                click(repos, "cmdOK");
            });
            click(window, "ChangeRepos");
            QCOMPARE(control<QLineEdit>(window, "txtRepos")->text(), QString::fromStdString(program.source()));
            QCOMPARE(control<QLineEdit>(window, "txtUser")->text(), QStringLiteral("anna"));
            typeInto(window, "txtUser", QString());
            click(window, "Login");
            QVERIFY(window.isVisible());
            typeInto(window, "txtUser", QStringLiteral("Zoë"));
            QTest::keyClick(control<QLineEdit>(window, "txtUser"), Qt::Key_Return);
            QVERIFY(!window.isVisible());
        });
        UserLoginWindow(logic, program.logic.services()).exec();
        QVERIFY(logic.loggedIn);
        QCOMPARE(program.repository.store.value("DB", "User", ""), std::string("Zoë"));
    }

    void escapeLogsNobodyIn() {
        WindowProgram program;
        repository::UserLogin logic(program.logic.services());
        program.dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) {
            typeInto(window, "txtUser", QStringLiteral("anna"));
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        UserLoginWindow(logic, program.logic.services()).exec();
        QVERIFY(!logic.loggedIn);
    }

    void aChangedConnectionIsTestedAgain() {
        WindowProgram program;
        repository::ReposForm logic(program.logic.services());
        logic.open();
        program.messages.expect("Connection Suceeded", "Testing Connection", Icon::information);
        program.dialogs.at(QStringLiteral("ReposForm"), [&](QDialog& window) {
            auto* sources = control<QComboBox>(window, "DSNNames");
            QCOMPARE(sources->itemText(0), QStringLiteral("(None)"));
            QCOMPARE(control<QLineEdit>(window, "txtPassword")->echoMode(), QLineEdit::Password);
            sources->setCurrentText(QString::fromStdString(program.source()));
            QVERIFY(!logic.Tested);
            click(window, "TestConn");
            QVERIFY(logic.Tested);
            QVERIFY(window.isVisible());
            typeInto(window, "txtUserName", QStringLiteral("u"));
            QVERIFY(!logic.Tested);
            typeInto(window, "txtPassword", QStringLiteral("geheim"));
            QCOMPARE(logic.txtPassword, std::string("geheim"));
            sources->setCurrentIndex(0);
            QTest::keyClick(sources, Qt::Key_Return);  // the test fails: the dialog stays
            QVERIFY(window.isVisible());
            click(window, "cmdCancel");
        });
        ReposFormWindow(logic).exec();
        QCOMPARE(program.logic.options().repository.login.ReposConnString, std::string());
    }

    void aSourceDatabaseMustBeChosen() {
        WindowProgram program;
        repository::frmDBLogin logic(program.logic.services());
        logic.open();
        program.messages.expect("Please Give The Connection String For The DB", "DB Login");
        program.dialogs.at(QStringLiteral("frmDBLogin"), [&](QDialog& window) {
            click(window, "cmdOK");
            QVERIFY(window.isVisible());
            control<QComboBox>(window, "DSNNames")->setCurrentText(QString::fromStdString(program.source()));
            typeInto(window, "txtUserName", QStringLiteral("reader"));
            click(window, "cmdOK");
        });
        DBLoginWindow(logic).exec();
        QCOMPARE(logic.chosen.name, program.source());
        QCOMPARE(logic.chosen.user, std::string("reader"));
    }

    void scenarioModes_data() {
        QTest::addColumn<QByteArray>("item");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("name");
        QTest::newRow("save") << QByteArray("SaveScenarioAsM") << "Save Scenario As"
                              << "SAVE"
                              << "One";
        QTest::newRow("load") << QByteArray("LoadScenarioM") << "Load Scenario"
                              << "LOAD"
                              << "";
        QTest::newRow("delete") << QByteArray("DeleteScenarioM") << "Delete Scenario"
                                << "DELETE"
                                << "";
    }

    void scenarioModes() {
        QFETCH(QByteArray, item);
        QFETCH(QString, title);
        QFETCH(QString, button);
        QFETCH(QString, name);
        WindowProgram program;
        program.start();
        program.open("One");
        program.dialogs.at(QStringLiteral("ViewScenarios"), [&](QDialog& window) {
            const Scenarios shown(window);
            QCOMPARE(window.windowTitle(), title);
            QCOMPARE(shown.ok.text(), button);
            QCOMPARE(shown.name.text(), name);
            QCOMPARE(shown.list.count(), 0);
            QCOMPARE(shown.ok.isEnabled(), !name.isEmpty());
            click(window, "CancelButton");
        });
        program.choose(item);
    }

    void clickChoosesAndDoubleClickLoads() {
        WindowProgram program;
        program.start();
        saveTwo(program);
        program.dialogs.at(QStringLiteral("ViewScenarios"), [&](QDialog& window) {
            Scenarios shown(window);
            QCOMPARE(rows(shown.list), QStringList({QStringLiteral("Alpha"), QStringLiteral("Beta & Co")}));
            QVERIFY(!shown.ok.isEnabled());
            typeInto(window, "txtScenarioName", QStringLiteral("Alpha"));
            QVERIFY2(!shown.ok.isEnabled(), "a typed name is no choice");
            shown.clickRow(1);
            QCOMPARE(shown.name.text(), QStringLiteral("Beta & Co"));
            QVERIFY(shown.ok.isEnabled());
            typeInto(window, "txtScenarioName", QStringLiteral("x"));
            shown.clickRow(1);  // the same row again puts its name back
            QCOMPARE(shown.name.text(), QStringLiteral("Beta & Co"));
            QTest::keyClick(&shown.list, Qt::Key_Up);
            QCOMPARE(shown.name.text(), QStringLiteral("Alpha"));
            shown.clickRow(1);
            QTest::mouseDClick(shown.list.viewport(), Qt::LeftButton, {}, middleOf(shown.list, 1));
            QVERIFY(!window.isVisible());
        });
        program.choose("LoadScenarioM");
        QVERIFY(program.frame.activeScenario());
        QCOMPARE(program.frame.activeScenario()->Caption(), std::string("Beta & Co"));
    }

    void firstArrowKeyTakesTheFirstRow() {
        WindowProgram program;
        program.start();
        saveTwo(program);
        program.dialogs.at(QStringLiteral("ViewScenarios"), [](QDialog& window) {
            Scenarios shown(window);
            QVERIFY(shown.list.hasFocus());
            QCOMPARE(shown.name.text(), QString());
            QTest::keyClick(&shown.list, Qt::Key_Down);
            QCOMPARE(shown.name.text(), QStringLiteral("Alpha"));
            QTest::keyClick(&shown.list, Qt::Key_Return);
            QVERIFY(!window.isVisible());
        });
        program.choose("LoadScenarioM");
        QCOMPARE(program.frame.activeScenario()->Caption(), std::string("Alpha"));
    }

    void renameAndDelete() {
        WindowProgram program;
        program.start();
        saveTwo(program);
        program.messages.expect("ARE YOU SURE YOU WANT TO DELETE SCENARIO BETA & CO ?", "Deleting Scenario",
                                Icon::question, Buttons::yesNo, Answer::no);
        program.messages.expect("ARE YOU SURE YOU WANT TO DELETE SCENARIO BETA & CO ?", "Deleting Scenario",
                                Icon::question, Buttons::yesNo, Answer::yes);
        program.dialogs.at(QStringLiteral("ViewScenarios"), [](QDialog& window) {
            Scenarios shown(window);
            shown.clickRow(0);
            QTest::keyClick(&shown.list, Qt::Key_F2);
            auto* editor = shown.list.viewport()->findChild<QLineEdit*>();
            QVERIFY(editor);
            QTest::keyClicks(editor, QStringLiteral("Gamma"));
            QTest::keyClick(editor, Qt::Key_Delete);  // belongs to the editor
            QTest::keyClick(editor, Qt::Key_Return);
            QTRY_VERIFY(!shown.list.viewport()->findChild<QLineEdit*>());
            QCoreApplication::sendPostedEvents();  // the renaming follows the end of the editing
            QVERIFY2(window.isVisible(), "Enter ends the editing and nothing else");

            shown.clickRow(1);
            QTest::keyClick(&shown.list, Qt::Key_Delete);
            QCOMPARE(shown.list.count(), 2);
            QTest::keyClick(&shown.list, Qt::Key_Delete);
            QCOMPARE(rows(shown.list), QStringList({QStringLiteral("Gamma")}));
            QVERIFY(!shown.ok.isEnabled());
            click(window, "CancelButton");
        });
        program.choose("LoadScenarioM");
        program.dialogs.at(QStringLiteral("ViewScenarios"), [](QDialog& window) {
            QCOMPARE(rows(*control<QListWidget>(window, "ScenarioView")), QStringList({QStringLiteral("Gamma")}));
            click(window, "CancelButton");
        });
        program.choose("LoadScenarioM");
    }

    void contextMenuSelectsWhatIsUnderThePointer() {
        WindowProgram program;
        program.start();
        saveTwo(program);
        program.dialogs.at(QStringLiteral("ViewScenarios"), [](QDialog& window) {
            Scenarios shown(window);
            auto* menu = control<QMenu>(window, "ScenarioViewM");
            Q_EMIT shown.list.customContextMenuRequested({20, shown.list.viewport()->height() - 5});
            QVERIFY2(!menu->isVisible(), "no row, no menu");
            Q_EMIT shown.list.customContextMenuRequested(middleOf(shown.list, 1));
            QVERIFY(menu->isVisible());
            QCOMPARE(shown.name.text(), QStringLiteral("Beta & Co"));
            QStringList items;
            for (const QAction* action : menu->actions()) {
                items << action->text();
            }
            QCOMPARE(items, QStringList({QStringLiteral("Rename"), QStringLiteral("Delete")}));
            menu->close();
            click(window, "CancelButton");
        });
        program.choose("DeleteScenarioM");
    }

    void aboutTellsTheVersion() {
        QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
        AboutForm about;
        QStringList texts;
        for (const QLabel* label : about.findChildren<QLabel*>()) {
            texts << label->text();
        }
        QVERIFY(texts.contains(QStringLiteral("Version 1.2.3")));
        about.show();
        click(about, "cmdOK");
        QVERIFY(!about.isVisible());
    }

  private:
    void saveTwo(WindowProgram& program) {
        for (const char* name : {"Alpha", "Beta & Co"}) {
            canvas::DrawForm* form = program.open(name);
            program.saveAs(name);
            program.answerClose(name, Answer::ok);
            program.logic.closeScenario(*form);
        }
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::DialogsTest)
#include "dialogs_test.moc"
