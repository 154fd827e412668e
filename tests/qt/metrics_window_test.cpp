// The window of metrics over the frame: opened by its command, filled by a click, sorted by its heads.

#include "qt/analysis/metrics_window.h"

#include "analysis/metric_tints.h"
#include "qt/canvas/canvas_editor.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "testkit/model_text.h"
#include "testkit/numbers.h"
#include "window_program.h"

namespace orvent::qt {

class MetricsWindowTest : public WindowTest {
    Q_OBJECT

    struct Opened : StartedProgram {
        Opened() {
            frame.show();
            frame.resize(1280, 800);
            logic.run(shell::Command::loadTestGraph);
            logic.run(shell::Command::metrics);
            QApplication::processEvents();
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
        QVERIFY2(!isBlank(program.table("InpMetrView")->viewport()->grab().toImage()), "the hint");
        program.clickEntry(7);  // Activity2
        QVERIFY(program.table("OutMetrView")->isVisible());
        program.frame.resize(1280, 800);
        QApplication::processEvents();
        for (const char* name : {"InpMetrView", "OutMetrView"}) {
            const QTableView& table = *program.table(name);
            QVERIFY2(table.viewport()->height() >= 4 * table.rowHeight(0), name);
            QCOMPARE(table.horizontalHeader()->length(), program.table("OutMetrView")->viewport()->width());
        }
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

    void itStandsBesideTheCanvasAndFindsEntries() {
        Opened program;
        const auto placeOf = [](const QWidget& widget) { return QRect(widget.mapToGlobal(QPoint()), widget.size()); };
        QVERIFY(!placeOf(*program.window).intersects(placeOf(program.frame.area())));
        auto* list = control<QListView>(*program.window, "Entities");
        auto* search = control<QLineEdit>(*program.window, "search");
        program.clickEntry(7);  // Activity2
        const QString counted = program.cell("InpMetrView", 0, 0);
        for (const char* words : {"vity1", "vity", ""}) {  // typing chooses nothing
            search->setText(QLatin1String(words));
            QCOMPARE(program.cell("InpMetrView", 0, 0), counted);
        }
        QCOMPARE(list->currentIndex().row(), 7);
        click(*program.window, "Switch");
        program.clickEntry(0);
        search->setText(QStringLiteral("am"));
        click(*program.window, "Switch");
        QCOMPARE(search->text(), QString());
        search->setText(QStringLiteral("vity2"));
        QCOMPARE(list->model()->rowCount(), 1);
        program.clickEntry(0);
        QCOMPARE(program.cell("InpMetrView", 1, 1), QStringLiteral(" 2"));
        // The depth counts with the next click, also one on the entry that is chosen already.
        control<QSpinBox>(*program.window, "txtCounter")->setValue(0);
        QVERIFY(program.cell("SumView", 0, 9) != QStringLiteral(" 0"));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(0, 0)).center());
        QCOMPARE(program.cell("SumView", 0, 9), QStringLiteral(" 0"));
    }

    void anotherScenarioInTheSlotIsNotTheOneItWasOpenedFor() {
        Opened program;
        program.clickEntry(7);
        program.answerClose("Sample", platform::Answer::ok);
        program.logic.run(shell::Command::loadTestGraph);
        click(*program.window, "RefreshBut");
        QCOMPARE(program.cell("SumView", 0, 1), QStringLiteral("-----"));
        QCOMPARE(program.table("InpMetrView")->model()->rowCount(), 0);
        click(*program.window, "Switch");
        program.clickEntry(0);
        QCOMPARE(program.table("InpMetrView")->model()->rowCount(), 9);
    }

    void theDesignIsTintedAndNothingOfItChanges() {
        Opened program;
        program.window->close();
        canvas::DrawForm& sample = *program.logic.activeScenario();
        CanvasEditor& editor = *program.frame.findChild<CanvasEditor*>();
        const auto picture = [&] {
            QApplication::processEvents();
            return editor.viewport()->grab().toImage().copy(0, 0, editor.viewport()->width(), 200);
        };
        const std::string model = testkit::modelText(sample);
        sample.SelectedLabels.Clear();
        const QImage plain = picture();
        program.choose("ColourByMetricM");
        QVERIFY(program.menuItem("ColourByMetricM")->isChecked());
        const QImage tinted = picture();
        QVERIFY(tinted != plain);
        auto* choice = control<QComboBox>(editor, "tint");
        QVERIFY(choice->isVisible());
        QCOMPARE(choice->currentText(), QStringLiteral("Total_DEGREE"));
        QTest::keyClick(choice, Qt::Key_Home);  // Local_IN
        QVERIFY(picture() != tinted);
        // A new edge counts a while after it was drawn.
        const QString range = control<QLabel>(editor, "tintRange")->text();
        for (int edge = 0; edge < 20; ++edge) {
            sample.Lines.addFullLine(1_node, 3, 2_node, 1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
        }
        QTRY_VERIFY(control<QLabel>(editor, "tintRange")->text() != range);
        for (int edge = 0; edge < 20; ++edge) {
            sample.Lines.RemoveFull(sample.Lines.at(sample.Lines.Count())->Index());
        }
        program.choose("ColourByMetricM");
        QVERIFY(!editor.findChild<QComboBox*>(QStringLiteral("tint")));
        QCOMPARE(testkit::modelText(sample), model);
        QCOMPARE(picture(), plain);
    }

    void onPaperTheLegendStandsAtTheFoot() {
        Opened program;
        canvas::DrawForm& sample = *program.logic.activeScenario();
        const float bottom = sample.PicForm.Height();
        sample.Labels.Add({0, bottom - 450, 1050, 450}, "LOG", canvas::NodeTypeLog);
        const std::int16_t depth = 10;
        analysis::MetricTints tints(sample, depth);
        tints.countAnew();
        const auto page = [&](const canvas::Tints* with) { return onPage(sample, {1200, 800}, with); };
        const int foot = QFontMetrics(QFont()).height();
        const QRect place(0, 800 - foot, 8 * foot, foot);
        QVERIFY(isBlank(page(nullptr).copy(place.translated(300, 0))));
        QVERIFY(!isBlank(page(&tints).copy(place)));
        // The picture ends above it.
        QVERIFY(isBlank(page(&tints).copy(0, 800 - foot - foot / 3, 1200, foot / 4)));
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::MetricsWindowTest)
#include "metrics_window_test.moc"
