// The frame over its real logic: start, commands by state, the scenarios' windows and their closing.

#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

#include "qt/shell/scenario_area.h"
#include "qt/shell/scenario_window.h"
#include "window_program.h"
#include "window_test.h"

namespace orvent::qt {

namespace {

using platform::Answer;

struct ItemRow {
    const char* item;
    bool shownEmpty, enabledEmpty;  // without a scenario
    bool shownOpen, enabledOpen;    // with one in front
};

constexpr ItemRow kItems[] = {
    {"NewScenarioM", true, true, true, true},     {"LoadScenarioM", true, true, true, true},
    {"SaveScenarioM", false, false, true, true},  {"SaveScenarioAsM", false, false, true, true},
    {"DeleteScenarioM", true, true, true, true},  {"ExportTxtM", false, false, true, true},
    {"CloseScenarioM", false, false, true, true}, {"LoginM", true, true, false, false},
    {"PrintScenarioM", false, false, true, true}, {"PrintPreviewM", false, false, true, true},
    {"ZoomInM", false, false, true, true},        {"ViewFitM", false, false, true, true},
    {"SelectAllM", false, false, true, true},     {"HelpShortcutsM", true, true, true, true},
    {"ShowDataTypesM", true, false, true, false}, {"LoadTestGraph", true, true, true, true},
    {"HelpETLM", true, true, true, true},         {"HelpAboutM", true, true, true, true},
};

QStringList entriesOf(QMenu& menu) {
    QStringList entries;
    for (const QAction* action : menu.actions()) {
        entries << (action->isSeparator() ? QStringLiteral("-")
                                          : action->text() + (action->isChecked() ? QStringLiteral(" *") : QString()) +
                                                (action->isEnabled() ? QString() : QStringLiteral(" off")));
    }
    return entries;
}

/// `WindowM` as it is when a user opens it.
QMenu& windowMenu(FrameWindow& frame) {
    auto* menu = control<QMenu>(frame, "WindowM");
    menu->popup(QPoint());
    menu->close();
    return *menu;
}

QAction* entry(QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions()) {
        if (action->text() == text) {
            return action;
        }
    }
    failQt("no entry " + text.toStdString());
    return nullptr;
}

}  // namespace

class FrameTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void startShowsTheFrameAfterTheLogin() {
        WindowProgram program;
        program.dialogs.at(QStringLiteral("UserLogin"), [&](QDialog& window) {
            QVERIFY(!program.frame.isVisible());
            typeInto(window, "txtUser", QStringLiteral("anna"));
            click(window, "Login");
        });
        QVERIFY(program.logic.start());
        QVERIFY(program.frame.isVisible());
        QVERIFY(program.frame.isMaximized());
        QCOMPARE(program.frame.normalGeometry().topLeft(), QPoint(40, 40));
        QCOMPARE(program.frame.windowTitle(), QStringLiteral("ORVENT II"));
        QVERIFY(control<QWidget>(program.frame, "WelcomePage")->isVisible());
        const QString who = control<QLabel>(program.frame, "whoAndWhere")->text();
        QCOMPARE(who, QStringLiteral("anna @ ") + QString::fromStdString(program.source()));
        QStringList statusTexts;
        for (const QLabel* label : program.frame.statusBar()->findChildren<QLabel*>()) {
            statusTexts << label->text();
        }
        QVERIFY(statusTexts.contains(QStringLiteral("Ready")));
    }

    void cancelledLoginShowsNoFrame() {
        WindowProgram program;
        program.dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) { click(window, "cmdCancel"); });
        QVERIFY(!program.logic.start());
        QVERIFY(!program.frame.isVisible());
    }

    void commandsFollowTheState() {
        WindowProgram program;
        program.start();
        auto* save = control<QToolBar>(program.frame, "MenuBar")->findChild<QAction*>(QStringLiteral("Save"));
        auto* ldl = control<QToolButton>(program.frame, "LDL");
        for (const bool open : {false, true}) {
            if (open) {
                program.open("One");
            }
            for (const ItemRow& row : kItems) {
                const QAction* action = program.menuItem(row.item);
                QVERIFY2(action->isVisible() == (open ? row.shownOpen : row.shownEmpty), row.item);
                QVERIFY2(action->isEnabled() == (open ? row.enabledOpen : row.enabledEmpty), row.item);
            }
            QCOMPARE(save->isEnabled(), open);
            QCOMPARE(ldl->isEnabled(), open);
            for (const char* menu : {"WindowM", "ViewM", "ZoomM"}) {
                QCOMPARE(control<QMenu>(program.frame, menu)->menuAction()->isVisible(), open);
            }
            for (const char* key : {"ActivityZoom", "CheckCons", "Metrics"}) {
                QVERIFY(!control<QToolButton>(program.frame, key)->isEnabled());
            }
        }
    }

    void newScenarioAndItsCaption() {
        WindowProgram program;
        program.start();
        program.input.expect("Give The Name Of The New Scenario:", "Scenario Name", "Scenario1", "50 % & %1");
        click(program.frame, "WelcomeNewScenarioM");
        canvas::DrawForm* form = program.frame.activeScenario();
        QVERIFY(form);
        QVERIFY(!control<QWidget>(program.frame, "WelcomePage")->isVisible());
        QCOMPARE(program.frame.windowTitle(), QStringLiteral("50 % & %1 — ORVENT II"));
        auto* tabs = program.frame.area().findChild<QTabBar*>();
        QCOMPARE(tabs->tabText(0), QStringLiteral("50 % && %1"));
        QVERIFY(program.frame.area().windowOf(*form)->isMaximized());
        form->setCaption(std::string(300, 'x'));
        QVERIFY(program.frame.windowTitle().startsWith(QString(300, u'x')));
        QVERIFY2(tabs->tabText(0).size() < 100, "a long name is cut in the tab");

        program.input.expect("Give The Name Of The New Scenario:", "Scenario Name", "Scenario2", "");
        program.choose("NewScenarioM");
        QCOMPARE(program.frame.area().subWindowList().size(), 1);
    }

    void closeAsksAndCancelKeeps() {
        WindowProgram program;
        program.start();
        canvas::DrawForm* form = program.open("One");
        program.open("Two");
        QPointer<QMdiSubWindow> window = program.frame.area().windowOf(*form);
        program.answerClose("One", Answer::cancel);
        window->close();
        QCOMPARE(program.frame.area().subWindowList().size(), 2);

        program.answerClose("One", Answer::ok);
        auto* tabs = program.frame.area().findChild<QTabBar*>();
        QTest::mouseClick(tabs->tabButton(0, QTabBar::RightSide), Qt::LeftButton);
        QTRY_VERIFY(!window);
        QCOMPARE(program.frame.activeScenario()->Caption(), std::string("Two"));
        QVERIFY(program.menuItem("SaveScenarioM")->isEnabled());

        // The child windows have a key of their own for this; it must not stand against the menu's.
        for (const char* arrangement : {"Tile", "Tabs"}) {
            entry(windowMenu(program.frame), QLatin1String(arrangement))->trigger();
            program.answerClose("Two", Answer::cancel);
            QTest::keyClick(program.frame.focusWidget(), Qt::Key_W, Qt::ControlModifier);
            program.messages.verify();
        }
        program.answerClose("Two", Answer::ok);
        program.choose("CloseScenarioM");
        QVERIFY(!program.frame.activeScenario());
        QVERIFY(control<QWidget>(program.frame, "WelcomePage")->isVisible());
        QCOMPARE(program.frame.windowTitle(), QStringLiteral("ORVENT II"));
    }

    void twelfthScenarioIsRefused() {
        WindowProgram program;
        program.start();
        for (int number = 1; number <= shell::MDIForm1::kSlots; ++number) {
            program.open("S" + std::to_string(number));
        }
        program.messages.expect(
            "Maximum Number Of Possible Concurrently Loaded Scenarios is Exceeded\n"
            "You Will Have To Close One Of the Allready Open Scenarios Before Opening A New One");
        program.choose("NewScenarioM");
        QCOMPARE(program.frame.area().subWindowList().size(), 11);

        program.answerClose("S4", Answer::ok);
        program.logic.closeScenario(*program.logic.scenario(3));
        program.input.expect("Give The Name Of The New Scenario:", "Scenario Name", "Scenario4", "Again");
        program.choose("NewScenarioM");
        QCOMPARE(program.logic.scenario(3)->Caption(), std::string("Again"));
    }

    void windowListMarksTheActiveAndGreysTheDisabled() {
        WindowProgram program;
        program.start();
        canvas::DrawForm* one = program.open("One & only");
        canvas::DrawForm* two = program.open("Two");
        two->Enabled = false;
        program.frame.commandsChanged();
        QMenu& menu = windowMenu(program.frame);
        QCOMPARE(entriesOf(menu).mid(3),
                 QStringList({QStringLiteral("-"), QStringLiteral("One && only"), QStringLiteral("Two * off")}));
        QVERIFY(!program.frame.area().windowOf(*two)->isEnabled());
        QVERIFY(!program.menuItem("SaveScenarioM")->isEnabled());
        program.frame.area().windowOf(*two)->close();  // asks nothing and does nothing
        QCOMPARE(program.frame.area().subWindowList().size(), 2);

        entry(menu, QStringLiteral("One && only"))->trigger();
        QCOMPARE(program.frame.activeScenario(), one);
        QVERIFY(program.menuItem("SaveScenarioM")->isEnabled());
    }

    void windowsCanLieSideBySide() {
        WindowProgram program;
        program.start();
        canvas::DrawForm* one = program.open("One");
        program.open("Two");
        entry(windowMenu(program.frame), QStringLiteral("Tile"))->trigger();
        ScenarioWindow* window = program.frame.area().windowOf(*one);
        QVERIFY(!window->isMaximized());
        QVERIFY(!window->geometry().intersects(
            program.frame.area().windowOf(*program.logic.scenario(1))->geometry().adjusted(2, 2, -2, -2)));
        QVERIFY2(!(window->windowFlags() & Qt::WindowMaximizeButtonHint), "the toolkit would change the frame's title");
        program.frame.area().setActiveSubWindow(window);
        QCOMPARE(program.frame.windowTitle(), QStringLiteral("One — ORVENT II"));
        entry(windowMenu(program.frame), QStringLiteral("Tabs"))->trigger();
        QVERIFY(window->isMaximized());
        QCOMPARE(program.frame.windowTitle(), QStringLiteral("One — ORVENT II"));
    }

    void closingTheFrameAsksInSlotOrder() {
        WindowProgram program;
        program.start();
        for (const char* name : {"A", "B", "C"}) {
            program.open(name);
        }
        program.answerClose("A", Answer::ok);
        program.answerClose("B", Answer::cancel);
        QVERIFY(!program.frame.close());
        program.messages.verify();
        QVERIFY(program.frame.isVisible());
        QCOMPARE(program.frame.area().subWindowList().size(), 2);

        program.answerClose("B", Answer::ok);
        program.answerClose("C", Answer::ok);
        QVERIFY(program.frame.close());
    }

    void disabledFrameTakesNothing() {
        WindowProgram program;
        program.start();
        program.open("One");
        program.frame.enableFrame(false);
        QVERIFY(!control<QToolButton>(program.frame, "LDL")->isEnabled());
        program.choose("NewScenarioM");
        QVERIFY(!program.frame.close());
        QVERIFY2(program.frame.isEnabled(), "its message boxes must stay usable");
        program.frame.enableFrame(true);
        program.answerClose("One", Answer::ok);
        program.choose("CloseScenarioM");
    }

    void anotherUserLogsIn() {
        WindowProgram program;
        program.start();
        program.open("One");
        program.messages.expect(
            "All active Scenarios must close in order to login as a different user!\n"
            "Are you sure you want to continue?",
            "Login", platform::Icon::none, platform::Buttons::okCancel);
        program.answerClose("One", Answer::ok);
        program.dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) {
            QCOMPARE(control<QLineEdit>(window, "txtUser")->text(), QStringLiteral("anna"));
            typeInto(window, "txtUser", QStringLiteral("bert"));
            QTest::keyClick(&window, Qt::Key_Return);
        });
        QTest::mouseClick(control<QToolButton>(program.frame, "Login"), Qt::LeftButton);
        QVERIFY(control<QLabel>(program.frame, "whoAndWhere")->text().startsWith(QStringLiteral("bert @ ")));

        // A login that is given up ends the program.
        program.dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) { window.reject(); });
        program.choose("LoginM");
        QVERIFY(!program.frame.isVisible());
    }

    void sampleGoesThroughTheRepository() {
        WindowProgram program;
        program.start();
        program.choose("LoadTestGraph");
        const int nodes = program.frame.activeScenario()->Labels.Count();
        program.saveAs("Stored");
        QCOMPARE(program.frame.windowTitle(), QStringLiteral("Stored — ORVENT II"));
        program.answerClose("Stored", Answer::ok);
        program.choose("CloseScenarioM");
        program.dialogs.at(QStringLiteral("ViewScenarios"), [](QDialog& window) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Down);
            click(window, "OKButton");
        });
        program.choose("LoadScenarioM");
        QCOMPARE(program.frame.activeScenario()->Labels.Count(), nodes);
        QCOMPARE(program.frame.windowTitle(), QStringLiteral("Stored — ORVENT II"));
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::FrameTest)
#include "frame_test.moc"
