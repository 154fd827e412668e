// The frame over its real logic: start, commands by state, the scenarios' windows and their closing, tool bars,
// palettes and options.

#include "platform/text.h"
#include "qt/canvas/canvas_editor.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "qt/shell/palette_window.h"
#include "testkit/graph_builder.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

using platform::Answer;

/// The started program with what these tests look at.
struct Frame : StartedProgram {
    bool isShown(const char* name) const { return control<QWidget>(frame, name)->isVisible(); }
    QString title() const { return frame.windowTitle(); }
    qsizetype windows() { return frame.area().subWindowList().size(); }
    void press(const char* button) { QTest::mouseClick(control<QToolButton>(frame, button), Qt::LeftButton); }

    /// `WindowM` as it is when a user opens it.
    QMenu& windowMenu() {
        auto* menu = control<QMenu>(frame, "WindowM");
        menu->popup(QPoint());
        menu->close();
        return *menu;
    }
    void arrange(const char* item) { control<QAction>(windowMenu(), item)->trigger(); }
};

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
        QVERIFY(program.frame.isVisible() && program.frame.isMaximized());
        QCOMPARE(program.frame.normalGeometry().topLeft(), QPoint(40, 40));
        QCOMPARE(program.frame.windowTitle(), QStringLiteral("ORVENT II"));
        QVERIFY(control<QWidget>(program.frame, "WelcomePage")->isVisible());
        QCOMPARE(control<QLabel>(program.frame, "whoAndWhere")->text(),
                 QStringLiteral("anna @ ") + QString::fromStdString(program.source()));
        QCOMPARE(program.frame.statusBar()->findChild<QLabel*>(QStringLiteral("status"))->text(),
                 QStringLiteral("Ready"));
    }

    void commandsFollowTheState() {
        struct Row {
            const char *item, *empty, *open;  // "on", "grey" or "gone" without a scenario and with one
        };
        Frame program;
        for (const bool open : {false, true}) {
            if (open) {
                program.open("One");
            }
            for (const Row& row : {Row{"NewScenarioM", "on", "on"},
                                   {"SaveScenarioM", "gone", "on"},
                                   {"LoginM", "on", "gone"},
                                   {"ViewFitM", "gone", "on"},
                                   {"ShowDataTypesM", "on", "on"}}) {
                const QAction* action = program.menuItem(row.item);
                const char* state = !action->isVisible() ? "gone" : action->isEnabled() ? "on" : "grey";
                QVERIFY2(QLatin1String(state) == QLatin1String(open ? row.open : row.empty), row.item);
            }
            QCOMPARE(control<QToolButton>(program.frame, "LDL")->isEnabled(), open);
            for (const char* menu : {"WindowM", "ViewM", "ZoomM"}) {
                QCOMPARE(control<QMenu>(program.frame, menu)->menuAction()->isVisible(), open);
            }
        }
    }

    void theListOfProblemsGoesAlongAndLeadsToNodes() {
        Frame program;
        program.open("One");
        canvas::DrawForm& form = *program.logic.activeScenario();
        const auto* count = control<QToolButton>(program.frame, "problemCount");
        program.choose("ViewProblemsM");
        auto* list = control<QTreeView>(program.frame, "lstProblems");
        QVERIFY(list->isVisible() && !count->isVisible());
        testkit::GraphBuilder(form).recordSet("EMPTY");
        testkit::GraphBuilder(form).activity("Load", {"ID"}).Act_Type = -1;
        QTRY_COMPARE(list->model()->rowCount(), 5);
        QCOMPARE(count->text(), QStringLiteral("5"));
        QVERIFY(count->isVisible());
        list->setCurrentIndex(list->model()->index(0, 0));
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(list->currentIndex().siblingAtColumn(0).data().toString(), QStringLiteral("Load"));
        QVERIFY(control<QLabel>(program.frame, "lblWhy")->text().contains(QStringLiteral("ACTIVITY TYPE")));
        QTest::keyClick(list, Qt::Key_Return);
        QVERIFY(form.SelectedLabels.Item(form.nodeNamed("Load")->Index()));
        form.Labels.Remove(form.nodeNamed("EMPTY")->Index());
        QTRY_COMPARE(list->model()->rowCount(), 4);
        QCOMPARE(list->currentIndex().row(), 0);
        program.dialogs.at(QStringLiteral("OptionsForm"), [](QDialog& window) {
            control<QListWidget>(window, "lstProblemKinds")->item(1)->setCheckState(Qt::Unchecked);
            click(window, "butOK");
        });
        program.press("Options");
        QCOMPARE(list->model()->rowCount(), 3);
        control<QDockWidget>(program.frame, "ProblemsDock")->close();
        QTRY_VERIFY(!program.menuItem("ViewProblemsM")->isChecked());
        program.press("problemCount");
        QVERIFY(list->isVisible());
    }

    void theSideMenuMarksItsCurrentGroup() {
        Frame program;
        for (const char* chosen : {"", "GroupMetrics", "GroupDrawing"}) {
            if (*chosen) {
                program.press(chosen);
            }
            for (const char* group : {"GroupGeneral", "GroupDrawing", "GroupMetrics"}) {
                const bool current = QLatin1String(group) == QLatin1String(*chosen ? chosen : "GroupGeneral");
                QCOMPARE(control<QToolButton>(program.frame, group)->isChecked(), current);
            }
            QVERIFY2(control<QToolButton>(program.frame, "LDL")->isVisible(), "all groups stay in sight");
        }
        QPalette otherTheme = program.frame.palette();
        otherTheme.setColor(QPalette::WindowText, QColor(1, 2, 3));
        program.frame.setPalette(otherTheme);
        QCOMPARE(control<QToolButton>(program.frame, "GroupDrawing")->palette().color(QPalette::ButtonText),
                 QColor(1, 2, 3));
    }

    void newScenarioAndItsCaption() {
        Frame program;
        program.input.expect("Give The Name Of The New Scenario:", "Scenario Name", "Scenario1", "50 % & %1");
        click(program.frame, "WelcomeNewScenarioM");
        canvas::DrawForm* form = program.logic.activeScenario();
        QVERIFY(form);
        QVERIFY(!program.isShown("WelcomePage"));
        QCOMPARE(program.title(), QStringLiteral("50 % & %1 — ORVENT II"));
        const auto* tabs = program.frame.area().findChild<QTabBar*>();
        QCOMPARE(tabs->tabText(0), QStringLiteral("50 % && %1"));
        QVERIFY(program.frame.area().windowOf(*form)->isMaximized());
        form->Labels.Add({0, 0, 1050, 450}, "LOG1", canvas::NodeTypeLog);
        QTRY_COMPARE(program.title(), QStringLiteral("50 % & %1 • — ORVENT II"));
        QCOMPARE(tabs->tabText(0), QStringLiteral("50 % && %1 •"));
        form->setCaption(std::string(300, 'x'));
        QVERIFY(program.title().startsWith(QString(300, u'x')));
        QVERIFY2(tabs->tabText(0).size() < 100, "a long name is cut in the tab");
        QVERIFY2(tabs->tabText(0).endsWith(QChar(0x2022)), "its mark is not");
    }

    void theStatusLineLeadsToTheListOfWhatChanged() {
        Frame program;
        canvas::DrawForm* form = program.open("Loads");
        testkit::GraphBuilder graph(*form);
        graph.recordSet("SOURCE");
        graph.activity("Load");
        graph.edge("SOURCE", "Load");
        const auto* list = control<QToolButton>(program.frame, "openStatus");
        QVERIFY(!list->isVisible());
        program.messages.anyway = [](const std::string&) { return Answer::ok; };
        program.press("CheckCons");
        QVERIFY(list->isVisible());
        program.dialogs.at(QStringLiteral("EdgeChangesWindow"), [](QDialog& window) {
            const QTreeWidgetItem* row = control<QTreeWidget>(window, "rows")->topLevelItem(0);
            QCOMPARE(row->text(0) + " " + row->text(1), QStringLiteral("Deleted SOURCE → Load"));
            click(window, "cmdClose");
        });
        program.press("openStatus");
        program.logic.enableFrame(false);
        QVERIFY2(!list->isEnabled(), "a step is under way");
        program.logic.enableFrame(true);
        program.open("Other");
        QVERIFY2(!list->isVisible(), "the scenario is not in front");
    }

    void filesThatFallOnTheWindowAreOpened() {
        Frame program;
        program.open("One");
        QList<QUrl> urls{QUrl(QStringLiteral("http://localhost/two.orvent"))};
        for (const char* name : {"Two", "Three"}) {
            const std::string path = (program.repository.folder.path() / name).string() + ".orvent";
            platform::writeFile(path, "{\"format\": \"orvent scenario\", \"version\": 1, \"nodes\": [], \"name\": \"" +
                                          std::string(name) + "\"}");
            urls += QUrl::fromLocalFile(QString::fromStdString(path));
        }
        QWidget* viewport = program.frame.area().activeWindow()->editor().viewport();
        QMimeData dragged;
        dragged.setText(QStringLiteral("words"));
        for (const bool files : {false, true}) {
            if (files) {
                dragged.setUrls(urls);
            }
            QDragEnterEvent enters(QPoint(9, 9), Qt::CopyAction, &dragged, Qt::LeftButton, {});
            QApplication::sendEvent(viewport, &enters);
            QCOMPARE(enters.isAccepted(), files);
        }
        QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(viewport, &drop);
        QVERIFY(drop.isAccepted());
        QVERIFY2(program.windows() == 1, "the program that they come from waits meanwhile");
        QTRY_COMPARE(program.windows(), 3);
        QCOMPARE(program.title().section(u' ', 0, 0), QStringLiteral("Three"));
    }

    void closeAsksAndCancelKeeps() {
        Frame program;
        QPointer<QMdiSubWindow> window = program.frame.area().windowOf(*program.open("One"));
        program.open("Two");
        program.answerClose("One", Answer::cancel);
        window->close();
        QCOMPARE(program.windows(), 2);

        program.answerClose("One", Answer::ok);
        auto* tabs = program.frame.area().findChild<QTabBar*>();
        QTest::mouseClick(tabs->tabButton(0, QTabBar::RightSide), Qt::LeftButton);
        QTRY_VERIFY(!window);
        QCOMPARE(program.logic.activeScenario()->Caption(), std::string("Two"));
        QVERIFY(program.menuItem("SaveScenarioM")->isEnabled());

        // The child windows have a key of their own for this; it must not stand against the menu's.
        for (const char* arrangement : {"TileM", "TabsM"}) {
            program.arrange(arrangement);
            program.answerClose("Two", Answer::cancel);
            QTest::keyClick(program.frame.focusWidget(), Qt::Key_W, Qt::ControlModifier);
            program.messages.verify();
        }
        program.answerClose("Two", Answer::ok);
        program.choose("CloseScenarioM");
        QVERIFY(!program.logic.activeScenario());
        QVERIFY(program.isShown("WelcomePage"));
        QCOMPARE(program.title(), QStringLiteral("ORVENT II"));
    }

    void windowListMarksTheActiveAndGreysTheDisabled() {
        Frame program;
        canvas::DrawForm* one = program.open("One & only");
        canvas::DrawForm* two = program.open("Two");
        two->setEnabled(false);
        const QList<QAction*> entries = program.windowMenu().actions();
        QCOMPARE(entries.size(), 6);  // three arrangements, a line and the windows
        QCOMPARE(entries[4]->text(), QStringLiteral("One && only"));
        QVERIFY(!entries[4]->isChecked() && entries[4]->isEnabled());
        QVERIFY(entries[5]->isChecked() && !entries[5]->isEnabled());
        QVERIFY(!program.frame.area().windowOf(*two)->isEnabled());
        QVERIFY(!program.menuItem("SaveScenarioM")->isEnabled());
        program.messages.expect("Two stays open until its dialog is closed.", "", platform::Icon::information);
        program.frame.area().windowOf(*two)->close();
        QCOMPARE(program.windows(), 2);

        entries[4]->trigger();
        QCOMPARE(program.logic.activeScenario(), one);
        QVERIFY(program.menuItem("SaveScenarioM")->isEnabled());
    }

    void windowsCanLieSideBySide() {
        Frame program;
        DeskWindow* one = program.frame.area().windowOf(*program.open("One"));
        DeskWindow* two = program.frame.area().windowOf(*program.open("Two"));
        program.arrange("TileM");
        QVERIFY(!one->isMaximized());
        QVERIFY(!one->geometry().intersects(two->geometry().adjusted(2, 2, -2, -2)));
        QVERIFY2(!(one->windowFlags() & Qt::WindowMaximizeButtonHint), "the toolkit would change the frame's title");
        program.frame.area().setActiveSubWindow(one);
        QCOMPARE(program.title(), QStringLiteral("One — ORVENT II"));
        program.arrange("TabsM");
        QVERIFY(one->isMaximized());
        QCOMPARE(program.title(), QStringLiteral("One — ORVENT II"));
    }

    void theNeighbourComesForwardAndFillsItsTab() {
        Frame program;
        DeskArea& area = program.frame.area();
        program.open("One");
        canvas::DrawForm* two = program.open("Two");
        DeskWindow* three = area.windowOf(*program.open("Three"));
        DeskWindow* four = area.windowOf(*program.open("Four"));
        const auto closes = [&](const char* name) {
            program.answerClose(name, Answer::ok);
            program.choose("CloseScenarioM");
        };
        area.setActiveSubWindow(area.windowOf(*two));
        closes("Two");
        QCOMPARE(area.active(), three->form());
        QVERIFY(three->isMaximized() && three->width() == area.width());
        area.setActiveSubWindow(four);
        QVERIFY(four->isMaximized());
        closes("Four");
        QCOMPARE(area.active(), three->form());
        three->showNormal();
        program.arrange("TabsM");
        QVERIFY(three->isMaximized());
    }

    void tabsOfOneNameAreNumbered() {
        Frame program;
        program.open("One");
        program.open("Two")->setCaption("One");
        auto* tabs = program.frame.area().findChild<QTabBar*>();
        QCOMPARE(tabs->tabText(0), QStringLiteral("One (1)"));
        QCOMPARE(tabs->tabText(1), QStringLiteral("One (2)"));
        QCOMPARE(program.title(), QStringLiteral("One — ORVENT II"));
        program.answerClose("One", Answer::ok);
        program.choose("CloseScenarioM");
        QCOMPARE(tabs->tabText(0), QStringLiteral("One"));
    }

    void theFrameFitsASmallScreen() {
        Frame program;
        program.open("One");
        program.frame.showNormal();
        const auto fits = [&] {
            const QSize least = program.frame.minimumSizeHint();
            QVERIFY2(least.height() <= 460 && least.width() <= 780,
                     qPrintable(QStringLiteral("1600 x 1000 at 200 %: %1, %2").arg(least.width()).arg(least.height())));
        };
        fits();
        program.logic.run(shell::Command::metrics);
        QApplication::processEvents();
        fits();
        click(program.frame, "Switch");
        fits();
    }

    void everyMenuHasAKeyOfItsOwn() {
        Frame program;
        QStringList keys;
        for (const QAction* menu : program.frame.menuBar()->actions()) {
            const qsizetype mark = menu->text().indexOf(u'&');
            QVERIFY2(mark >= 0, qPrintable(menu->text()));
            keys.append(menu->text().mid(mark + 1, 1).toLower());
        }
        QCOMPARE(keys.removeDuplicates(), 0);
    }

    void bothPalettesCanBeSeen() {
        Frame program;
        program.logic.run(shell::Command::toggleNodes);
        program.logic.run(shell::Command::toggleEdges);
        const QList<PaletteWindow*> palettes = program.frame.findChildren<PaletteWindow*>();
        QCOMPARE(palettes.size(), 2);
        QVERIFY(palettes[0]->isVisible() && palettes[1]->isVisible());
        QVERIFY(!palettes[0]->frameGeometry().intersects(palettes[1]->frameGeometry()));
        for (const PaletteWindow* palette : palettes) {
            QVERIFY(palette->width() >= palette->fontMetrics().horizontalAdvance(palette->windowTitle()) + 100);
        }
    }

    void theFrameClosesUnlessItIsDisabledOrTheUserCancels() {
        Frame program;
        program.open("One");
        program.frame.enableFrame(false);
        QVERIFY(!control<QToolButton>(program.frame, "LDL")->isEnabled());
        program.choose("NewScenarioM");  // does nothing
        QVERIFY(!program.frame.close());
        QVERIFY2(program.frame.isEnabled(), "its message boxes must stay usable");
        program.frame.enableFrame(true);
        program.answerClose("One", Answer::cancel);
        QVERIFY(!program.frame.close());
        QVERIFY(program.frame.isVisible());
        program.answerClose("One", Answer::ok);
        QVERIFY(program.frame.close());
    }

    void anotherUserLogsIn() {
        Frame program;
        testkit::expectLogin(program.messages);
        program.dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) {
            QCOMPARE(control<QLineEdit>(window, "txtUser")->text(), QStringLiteral("anna"));
            typeInto(window, "txtUser", QStringLiteral("bert"));
            QTest::keyClick(&window, Qt::Key_Return);
        });
        program.press("Login");
        QVERIFY(control<QLabel>(program.frame, "whoAndWhere")->text().startsWith(QStringLiteral("bert @ ")));

        // A login that is given up ends the program.
        program.dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) { window.reject(); });
        program.choose("LoginM");
        QVERIFY(!program.frame.isVisible());
    }

    void toolsShowOneStateInBarsAndPalettes() {
        Frame program;
        auto* band = control<QToolBar>(program.frame, "NodeBar");
        auto* palette = control<QWidget>(program.frame, "NodeForm");
        QVERIFY(!band->isVisible());
        program.open("One");
        QTRY_VERIFY(band->isVisible() && !palette->isVisible());  // when the window becomes active
        program.press("Nodes");
        QVERIFY(!band->isVisible() && palette->isVisible());
        auto* comment = control<QAction>(*band, "Comment");
        auto* twin = control<QAction>(*palette, "Comment");
        twin->trigger();
        QVERIFY(twin->isChecked() && comment->isChecked());
        control<QAction>(*control<QToolBar>(program.frame, "ArrowBar"), "Crop")->trigger();
        QVERIFY(!twin->isChecked() && !comment->isChecked());
        QVERIFY(!control<QAction>(*palette, "Function")->isEnabled());

        program.frame.showMinimized();
        QVERIFY(!palette->isVisible());
        program.frame.showNormal();
        QVERIFY(palette->isVisible());
        for (const auto& [button, area] : {std::pair{"DockL", Qt::LeftToolBarArea},
                                           {"DockR", Qt::RightToolBarArea},
                                           {"DockD", Qt::BottomToolBarArea},
                                           {"DockU", Qt::TopToolBarArea}}) {
            QTest::mouseClick(control<QToolButton>(*palette, button), Qt::LeftButton);
            QVERIFY(band->isVisible() && !palette->isVisible());
            QCOMPARE(program.frame.toolBarArea(band), area);
            program.press("Nodes");
        }
        QTest::mouseClick(control<QToolButton>(*palette, "DockNo"), Qt::LeftButton);
        QVERIFY(palette->isVisible());
        palette->close();
        QVERIFY(band->isVisible() && !palette->isVisible());

        // Dragged out of its bar, a band becomes a palette where it is dropped.
        const QPoint centre = program.frame.centralWidget()->rect().center();
        const QPoint drop = band->mapFromGlobal(program.frame.centralWidget()->mapToGlobal(centre));
        QTest::mousePress(band, Qt::LeftButton, {}, QPoint(5, band->height() / 2));
        QTest::mouseRelease(band, Qt::LeftButton, {}, drop);
        QVERIFY(!band->isVisible() && palette->isVisible());
        program.answerClose("One", Answer::ok);
        program.choose("CloseScenarioM");
        QVERIFY(!twin->isEnabled() && !program.isShown("EdgeBar"));
    }

    void optionsAreStoredAndCancelledDialogsDoNothing() {
        Frame program;
        program.repository.store.setValue("Draw", "ActW", "9000");
        program.dialogs.at(QStringLiteral("OptionsForm"), [&](QDialog& window) {
            auto* width = control<QDoubleSpinBox>(window, "Text8");
            QCOMPARE(width->value(), 70.0);
            width->setValue(99999);
            QCOMPARE(width->value(), 1000.0);
            width->setValue(0);
            QCOMPARE(width->value(), 15.0);
            const QAction* missing = control<QAction>(window, "missing");
            QVERIFY(!missing->isVisible());
            QTest::keyClicks(control<QLineEdit>(window, "txtSQL"), QStringLiteral("x"));
            QVERIFY2(missing->isVisible(), "there is no such script");
            QTest::keyClick(control<QLineEdit>(window, "txtSQL"), Qt::Key_Backspace);
            width->setFocus();
            width->selectAll();
            QTest::keyClicks(width, QStringLiteral("100"));
            click(window, "butOK");
        });
        program.press("Options");
        QCOMPARE(program.repository.store.value("Draw", "ActW", ""), std::string("1500"));
        QCOMPARE(program.logic.options().canvas.ActW, 1500.0F);
        program.open("One");
        for (const auto& [item, dialog] : {std::pair{"PrintScenarioM", "PrintDialog"},
                                           {"PrintPreviewM", "PrintPreview"},
                                           {"HelpShortcutsM", "ShortcutsForm"}}) {
            program.dialogs.at(QLatin1String(dialog), [](QDialog& window) { window.reject(); });
            program.choose(item);
        }
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::FrameTest)
#include "frame_test.moc"
