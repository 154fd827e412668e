// What is remembered of a scenario, in its windows: the steps, earlier states, and what a dead program has left.

#include <filesystem>
#include <fstream>

#include "canvas/node_moves.h"
#include "qt/shell/desk_area.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

namespace fs = std::filesystem;

/// The started program with the sample, whose first node is moved a few times.
struct Moved : StartedProgram {
    Moved() {
        choose("LoadTestGraph");
        for (int step = 0; step < 3; ++step) {
            canvas::moveNodes(form(), {node().Index()}, 100, 0);
            idle();
        }
    }
    ~Moved() {
        answerClose("Sample", platform::Answer::ok);
        choose("CloseScenarioM");
    }

    canvas::DrawForm& form() { return frame.area().active()->scenario(); }
    canvas::LabelsD& node() { return *form().Labels.at(1); }
    static void idle() {
        QEventLoop loop;  // it blocks, and what is idle work is done before
        QTimer::singleShot(10, &loop, &QEventLoop::quit);
        loop.exec();
    }
    fs::path states() const { return repository.folder.path() / "states"; }
};

}  // namespace

class HistoryWindowsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void aClickOnALineGoesToItsStep() {
        Moved program;
        program.choose("ViewHistoryM");
        auto* list = control<QListWidget>(program.frame, "lstSteps");
        QCOMPARE(list->count(), 4);
        const float moved = program.node().Left();
        for (const int row : {1, 3, 0, 2}) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
            QCOMPARE(program.node().Left(), moved - 100.0F * static_cast<float>(3 - row));
            for (int other = 0; other < 4; ++other) {
                QCOMPARE(list->item(other)->font().bold(), other == row);
            }
        }
        QTest::keyClick(&program.frame, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.node().Left(), moved - 200);
        QTest::keyClick(&program.frame, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(program.node().Left(), moved - 100);
    }

    void anEarlierStateOpensAsACopy() {
        Moved program;
        program.dialogs.at(QStringLiteral("EarlierWindow"), [](QDialog& window) {
            DialogScript::isNamed(window);
            auto* list = control<QTreeWidget>(window, "lstStates");
            QCOMPARE(list->topLevelItemCount(), 1);
            QVERIFY(!control<QLabel>(window, "imgState")->pixmap().isNull());
            list->clearSelection();
            QVERIFY(control<QLabel>(window, "imgState")->pixmap().isNull());
            QVERIFY(!control<QPushButton>(window, "cmdOpen")->isEnabled());
            list->topLevelItem(0)->setSelected(true);
            click(window, "cmdOpen");
        });
        const float moved = program.node().Left();
        program.choose("EarlierStatesM");
        QCOMPARE(program.frame.area().subWindowList().size(), 2);
        QCOMPARE(program.node().Left(), moved - 300);
        program.answerClose(program.form().Caption(), platform::Answer::ok);
        program.choose("CloseScenarioM");
    }

    void whatADeadProgramHasLeftIsBroughtBack() {
        Moved program;
        WindowProgram next;
        const fs::path states = next.repository.folder.path() / "states";
        fs::create_directories(states);
        for (const fs::directory_entry& file : fs::directory_iterator(program.states())) {
            if (file.path().extension() == ".state") {
                fs::copy_file(file.path(), states / "1.1-scenario.state");
                fs::copy_file(file.path(), states / "2.1-scenario.state");
            }
        }
        std::ofstream(states / "3.1-scenario.state") << "no state";
        next.dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) {
            typeInto(window, "txtUser", QStringLiteral("anna"));
            click(window, "Login");
        });
        next.dialogs.at(QStringLiteral("RecoveryWindow"), [](QDialog& window) {
            DialogScript::isNamed(window);
            QVERIFY(control<QLabel>(window, "lblWords")->text().contains(QStringLiteral("2 scenarios can be")));
            auto* list = control<QTreeWidget>(window, "lstScenarios");
            QCOMPARE(list->topLevelItemCount(), 3);
            list->clearSelection();
            for (int row = 0; row < 3; ++row) {
                list->topLevelItem(row)->setSelected(list->topLevelItem(row)->text(0) != QStringLiteral("Sample"));
            }
            click(window, "cmdDiscard");
            QCOMPARE(list->topLevelItemCount(), 2);
            list->topLevelItem(1)->setSelected(false);
            click(window, "cmdBringBack");
            QCOMPARE(list->topLevelItemCount(), 1);
            QVERIFY(window.isVisible());
            click(window, "cmdLater");
        });
        QVERIFY(next.logic.start());
        QCOMPARE(next.frame.area().subWindowList().size(), 1);
        QCOMPARE(next.frame.area().active()->Labels.at(1)->Left(), program.node().Left());
        QVERIFY(fs::exists(states / "1.1-scenario.state") != fs::exists(states / "2.1-scenario.state"));
        QVERIFY(!fs::exists(states / "3.1-scenario.state"));
        next.answerClose("Sample", platform::Answer::ok);
        next.choose("CloseScenarioM");
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::HistoryWindowsTest)
#include "history_windows_test.moc"
