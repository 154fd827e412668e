// The list of rows and the window of rows that are given by hand, while a run goes on in its own thread.

#include <QEventLoop>
#include <QPlainTextEdit>
#include <functional>

#include "qt/shell/rows_dock.h"
#include "testkit/graph_builder.h"
#include "testkit/model_text.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

constexpr int kPatience = 10'000;  // milliseconds
constexpr const char* kSelects = "a_out(X,Y)<-a_in1(X,Y),Y>1.";
constexpr const char* kNeverEnds = "a_out(X,Y)<-a_in1(X,Y),a_in1(_,Z),add(Y,Z,W),W<0.";

/// S -> A over rows that are given by hand.
struct Rows : StartedProgram {
    explicit Rows(int count = 3) {
        form = open("One");
        testkit::GraphBuilder graph(*form);
        graph.recordSet("S", {"K", "V"});
        graph.activity("A", {"K", "V"}, {"K", "V"}).Act_LDL = kSelects;
        graph.feed("S.K", "A.IN.K");
        graph.feed("S.V", "A.IN.V");
        graph.edge("S", "A");
        const auto number = logic.catalogue().tables.dataTypes.indexOf("NUMBER").value();
        for (const char* member : {"S.V", "A.IN.V", "A.OUT.V"}) {
            graph.attribute(member).Attribute_Type = static_cast<std::int16_t>(number);
        }
        entities::Facts& facts = form->facts[form->nodeNamed("S")->Index()].facts.emplace();
        facts.columns = {"K", "V"};
        for (int row = 0; row < count; ++row) {
            facts.rows.push_back({"k" + std::to_string(row), std::to_string(row)});
        }
        logic.run(shell::Command::viewRows);
        drawn = testkit::modelText(*form);
    }

    /// Lets the program live for a while, idle times and all, or until something is so; whether it is.
    static bool wait(
        int most, const std::function<bool()>& isSo = [] { return false; }) {
        QElapsedTimer clock;
        for (clock.start(); !isSo() && clock.elapsed() < most;) {
            QEventLoop loop;
            QTimer::singleShot(10, &loop, &QEventLoop::quit);
            loop.exec();
        }
        return isSo();
    }
    bool waitForEnd() {
        return wait(kPatience, [this] { return !isEnabled("cmdCancelRun"); });
    }
    bool waitForRows(int list, int count) {
        return wait(kPatience, [=, this] { return rowCount(list) == count; });
    }

    void press(const char* name) { QTest::mouseClick(control<QToolButton>(frame, name), Qt::LeftButton); }
    void select(const char* node) {
        form->ClearCrop();
        form->SelectedLabels.Add(form->nodeNamed(node)->Index());
    }
    /// 0 while the list is not there.
    int rowCount(int list) {
        const auto* view = frame.findChild<QTableView*>(QStringLiteral("lstRows%1").arg(list));
        return view ? view->model()->rowCount() : 0;
    }
    QString status() { return control<QLabel>(frame, "lblRows")->text(); }
    bool isEnabled(const char* name) { return control<QToolButton>(frame, name)->isEnabled(); }

    /// Whatever was done with rows, the drawing is as it was, and what can be pressed fits what goes on.
    void holds() {
        QCOMPARE(testkit::modelText(*form), drawn);
        QCOMPARE(isEnabled("cmdCancelRun"), logic.lists().rows().isRunning());
        QCOMPARE(isEnabled("cmdRefresh"), logic.lists().rows().canRefresh());
    }
    void refresh(const char* statement) {
        form->nodeNamed("A")->activity()->Act_LDL = statement;
        drawn = testkit::modelText(*form);
        logic.lists().rows().touch(*form);
        press("cmdRefresh");
    }

    canvas::DrawForm* form;
    std::string drawn;
};

}  // namespace

class RowsWindowTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void theSameStepTwiceShowsTheSame() {
        Rows rows;
        for (int time = 0; time < 2; ++time) {
            rows.press("cmdRefresh");
            QVERIFY(rows.waitForEnd());
            rows.select("A");
            QVERIFY(rows.waitForRows(1, 3));
            QCOMPARE(rows.rowCount(0), 1);
            rows.holds();
        }
        rows.select("S");
        for (int time = 0; time < 2; ++time) {
            rows.dialogs.at(QStringLiteral("FactsWindow"), [time](QDialog& window) {
                QCOMPARE(control<QTableView>(window, "lstFacts")->model()->rowCount(), 3 + time);
                if (time == 0) {
                    click(window, "cmdAddRow");
                    control<QPlainTextEdit>(window, "txtExpected")->setPlainText(QStringLiteral("At least 4 rows"));
                }
                click(window, "cmdOK");
            });
            rows.press("cmdFacts");
            rows.dialogs.settle();
            rows.holds();
        }
        QCOMPARE(rows.form->facts.begin()->second.facts->rows.size(), std::size_t{4});
        rows.press("cmdRefresh");
        QVERIFY(rows.wait(kPatience, [&] { return rows.status() == QStringLiteral("All that is expected is so."); }));
    }

    void overAZoomTheRowsAreThoseOfItsActivity() {
        Rows rows;
        rows.press("cmdRefresh");
        QVERIFY(rows.waitForEnd());
        rows.select("A");
        rows.choose("ActivityZoomM");
        QApplication::processEvents();
        canvas::CanvasForm& zoom = *rows.frame.area().active();
        QVERIFY(zoom.isZoom());
        zoom.ClearCrop();
        zoom.SelectedLabels.Add(zoom.nodeNamed("A.OUT.V")->Index());
        QVERIFY(rows.wait(kPatience,
                          [&] { return control<QTableView>(rows.frame, "lstRows0")->model()->columnCount() == 1; }));
        rows.dialogs.at(QStringLiteral("FactsWindow"), [](QDialog& window) {
            control<QPlainTextEdit>(window, "txtExpected")->setPlainText(QStringLiteral("Exactly 1 row"));
            click(window, "cmdOK");
        });
        rows.press("cmdFacts");
        rows.dialogs.settle();
        QCOMPARE(rows.form->facts.at(rows.form->nodeNamed("A")->Index()).expectations.size(), std::size_t{1});
        QCOMPARE(rows.frame.area().active(), &zoom);
        rows.holds();
    }

    void aStatementThatNeverEndsLeavesTheProgramAlive() {
        Rows rows(20000);
        rows.refresh(kSelects);  // so that S is there before
        QVERIFY(rows.waitForEnd());
        rows.refresh(kNeverEnds);
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&ticks] { ++ticks; });
        timer.start(10);
        Rows::wait(1000);
        QVERIFY2(ticks > 5, qPrintable(QString::number(ticks)));
        QCOMPARE(rows.status(), QStringLiteral("Running."));
        rows.select("S");
        Rows::wait(100);
        rows.holds();
        QElapsedTimer clock;
        clock.start();
        rows.press("cmdCancelRun");
        QVERIFY(clock.elapsed() < kPatience);
        QCOMPARE(rows.status(), QStringLiteral("Cancelled. Refresh goes on."));
        QVERIFY(rows.waitForRows(0, 1000));
        rows.holds();
        rows.refresh(kSelects);
        QVERIFY(rows.waitForEnd());
        rows.select("A");
        QVERIFY(rows.waitForRows(0, 1000));
        rows.holds();
    }

    void closingBreaksInto() {
        Rows rows(20000);
        rows.refresh(kNeverEnds);
        Rows::wait(300);
        rows.answerClose("One", platform::Answer::ok);
        QElapsedTimer clock;
        clock.start();
        rows.choose("CloseScenarioM");
        QVERIFY(clock.elapsed() < kPatience);
        QVERIFY(!rows.isEnabled("cmdRefresh"));

        Rows another(20000);
        another.refresh(kNeverEnds);
        Rows::wait(300);  // and the program ends
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::RowsWindowTest)
#include "rows_window_test.moc"
