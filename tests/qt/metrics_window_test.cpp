// The window of metrics over the frame: opened by its command, filled by a click, sorted by its heads.

#include "qt/analysis/metrics_window.h"

#include <QHeaderView>
#include <QListView>
#include <QSpinBox>
#include <QTableView>

#include "qt/canvas/canvas_editor.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "window_program.h"

namespace orvent::qt {

class MetricsWindowTest : public WindowTest {
    Q_OBJECT

    struct Opened : StartedProgram {
        Opened() {
            logic.run(shell::Command::loadTestGraph);
            logic.run(shell::Command::metrics);
            window = frame.findChild<MetricsWindow*>();
        }
        void clickEntry(int row) {
            auto* list = control<QListView>(*window, "Entities");
            list->setCurrentIndex(list->model()->index(row, 0));
        }
        QTableView* table(const char* name) { return control<QTableView>(*window, name); }
        QString cell(const char* name, int row, int column) {
            return table(name)->model()->index(row, column).data().toString();
        }
        MetricsWindow* window;
    };

  private Q_SLOTS:
    void aClickFillsTheTablesAndAHeadSortsThem() {
        Opened program;
        QVERIFY(program.window && program.window->isVisible() && !program.window->isModal());
        QCOMPARE(program.cell("SumView", 0, 1), QStringLiteral("-----"));
        program.clickEntry(7);  // Activity2
        QVERIFY(program.table("OutMetrView")->isVisible());
        QCOMPARE(program.cell("InpMetrView", 0, 0), QStringLiteral("SONUM"));
        QCOMPARE(program.cell("InpMetrView", 1, 1), QStringLiteral(" 2"));
        QTest::mouseClick(program.table("InpMetrView")->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(program.table("InpMetrView")->horizontalHeader()->sectionViewportPosition(1) + 20, 5));
        QCOMPARE(program.cell("InpMetrView", 0, 0), QStringLiteral("AU_ID"));

        control<QSpinBox>(*program.window, "txtCounter")->setValue(0);
        click(*program.window, "RefreshBut");
        QCOMPARE(program.cell("SumView", 0, 9), QStringLiteral(" 0"));

        click(*program.window, "Switch");
        program.clickEntry(0);
        QCOMPARE(program.table("InpMetrView")->model()->rowCount(), 9);
        QVERIFY(!program.table("OutMetrView")->isVisible());
    }

    void aDoubleClickGoesToTheNodeAndASecondOpeningReplacesTheFirst() {
        Opened program;
        program.clickEntry(1);
        canvas::DrawForm& sample = *program.logic.activeScenario();
        sample.SelectedLabels.Clear();
        Q_EMIT program.table("InpMetrView")->activated(program.table("InpMetrView")->model()->index(0, 0));
        QCOMPARE(program.frame.area().active(), &sample);
        program.logic.run(shell::Command::metrics);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(program.frame.findChildren<MetricsWindow*>().size(), 1);
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::MetricsWindowTest)
#include "metrics_window_test.moc"
