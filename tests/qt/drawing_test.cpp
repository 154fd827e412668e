// A scenario drawn by hand: real mouse and key events from an empty canvas to the repository and back.

#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QWheelEvent>

#include "canvas/lines.h"
#include "hand.h"
#include "qt/canvas/canvas_print.h"
#include "testkit/model_text.h"
#include "window_test.h"

namespace orvent::qt {

namespace {

using canvas::Point;

struct NodeRow {
    const char* tool;
    Point at;
};

// What each click makes: RecordSet1 to 6, Activity1 to 5, then comments and logs.
constexpr NodeRow kNodes[] = {
    {"RecordSet", {1500, 1500}},  {"RecordSet", {1500, 4500}},  {"RecordSet", {10000, 1500}},
    {"RecordSet", {13000, 1500}}, {"RecordSet", {13000, 4500}}, {"RecordSet", {10000, 7000}},
    {"Activity", {4000, 1500}},   {"Activity", {4000, 4500}},   {"Activity", {7000, 3000}},
    {"Activity", {10000, 4500}},  {"Activity", {7000, 6000}},   {"Comment", {4000, 7500}},
    {"Comment", {1500, 7500}},    {"Log", {13000, 7500}},       {"Log", {13000, 9000}},
};

struct EdgeRow {
    const char* tool;
    int from, to;  // rows of kNodes
};

constexpr EdgeRow kEdges[] = {
    {"Provider", 0, 6},     {"Provider", 1, 7},     {"Provider", 6, 8},      {"Provider", 7, 8},
    {"Provider", 8, 2},     {"Provider", 8, 9},     {"Provider", 9, 3},      {"Provider", 9, 4},
    {"Provider", 1, 10},    {"Provider", 10, 5},    {"Provider", 2, 3},      {"Description", 11, 10},
    {"Description", 12, 7}, {"Description", 9, 13}, {"Description", 10, 14},
};

/// The frame with an empty scenario, large enough for the picture.
struct Desk {
    WindowProgram program;
    Hand hand{program};

    Desk() {
        program.start();
        program.frame.showNormal();
        program.frame.resize(1400, 950);
        program.open("By hand");
        QApplication::processEvents();
    }
    void drawAll() {
        const char* former = "";
        for (const NodeRow& row : kNodes) {
            if (std::string_view(row.tool) != former) {
                hand.tool("NodeBar", row.tool);
            }
            former = row.tool;
            hand.click(row.at);
        }
        for (const EdgeRow& row : kEdges) {
            hand.tool("EdgeBar", row.tool);
            // From the right side of a box to the left side of the next one.
            const Point from = kNodes[row.from].at;
            const Point to = kNodes[row.to].at;
            hand.drawEdge({from.x + 400, from.y}, {to.x - 400, to.y});
        }
    }
};

}  // namespace

class DrawingTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void wholeScenarioComesBackEqual() {
        Desk desk;
        Hand& hand = desk.hand;
        desk.drawAll();
        QCOMPARE(hand.form().Labels.Count(), static_cast<int>(std::size(kNodes)));
        QCOMPARE(hand.form().Lines.Count(), static_cast<int>(std::size(kEdges)));

        // A corner set on the way, and an edge that is bent by its menu.
        hand.tool("EdgeBar", "Provider");
        hand.moveTo({1500, 1500});
        hand.press({1500, 1500});
        hand.moveTo({2000, 600});
        hand.press({2000, 600}, Qt::RightButton);
        hand.release({2000, 600}, Qt::RightButton);
        hand.moveTo({10000, 1500});
        hand.release({10000, 1500});
        hand.moveTo({10030, 1500});
        const canvas::LinesD* bent = hand.form().Lines.at(hand.form().Lines.Count());
        QVERIFY(std::abs(bent->Xm() - 2000) < 15 && std::abs(bent->Ym() - 600) < 15);
        const canvas::LinesD& first = *hand.form().Lines.at(1);
        hand.click({first.X2(), first.Y2()}, Qt::RightButton);
        hand.choose("EdgeAngleVerticalUpM");
        QCOMPARE(first.Angle(), static_cast<std::int32_t>(canvas::AngleVerticalUp));

        hand.tool("ArrowBar", "Move");
        hand.drag({10000, 7000}, {9000, 8000});
        QVERIFY(std::abs(Hand::middle(hand.node("RecordSet6")).x - 9000) < 30);
        hand.tool("ArrowBar", "Resize");
        const canvas::LabelsD& wide = hand.node("Activity3");
        const float width = wide.Width();
        const Point corner{wide.Left() + wide.Width() - 30, wide.Top() + wide.Height() - 30};
        hand.drag(corner, {corner.x + 600, corner.y + 300});
        QVERIFY(wide.Width() > width + 500);

        hand.doubleClick({3700, 7500});
        hand.type(QStringLiteral("Late rows"));
        hand.key(Qt::Key_Escape);
        QTRY_VERIFY(!hand.editor().findChild<QPlainTextEdit*>());
        hand.tool("ArrowBar", "Arrow");
        hand.click({13000, 9000});
        hand.key(Qt::Key_Delete);
        QCOMPARE(hand.form().Labels.Count(), static_cast<int>(std::size(kNodes)) - 1);
        QCOMPARE(hand.form().Lines.Count(), static_cast<int>(std::size(kEdges)));

        // No dialog gives an activity its type yet, and one without a type is not saved.
        for (const canvas::LabelsD& node : hand.form().Labels) {
            if (entities::ActivityProperties* activity = node.activity()) {
                activity->Act_Type = 0;
            }
        }
        const std::string drawn = testkit::modelText(hand.form());
        QVERIFY2(drawn.find("Late rows") != std::string::npos, drawn.c_str());
        desk.program.saveAs("By hand");
        desk.program.answerClose("By hand", platform::Answer::ok);
        desk.program.choose("CloseScenarioM");
        desk.program.dialogs.at(QStringLiteral("ViewScenarios"), [](QDialog& window) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Down);
            click(window, "OKButton");
        });
        desk.program.choose("LoadScenarioM");
        const std::string loaded = testkit::modelText(hand.form());
        QVERIFY2(loaded == drawn, (drawn + "\n---- loaded ----\n" + loaded).c_str());
    }

    void gesturesShowTheirMarkersAndEscapeLeavesNothing_data() {
        QTest::addColumn<QByteArray>("bar");
        QTest::addColumn<QByteArray>("tool");
        QTest::addColumn<QPointF>("from");
        QTest::newRow("edge") << QByteArray("EdgeBar") << QByteArray("Provider") << QPointF(3000, 3000);
        QTest::newRow("move") << QByteArray("ArrowBar") << QByteArray("Move") << QPointF(3000, 3000);
        QTest::newRow("resize") << QByteArray("ArrowBar") << QByteArray("Resize") << QPointF(3480, 3180);
        QTest::newRow("crop") << QByteArray("ArrowBar") << QByteArray("Crop") << QPointF(2000, 2000);
    }
    void gesturesShowTheirMarkersAndEscapeLeavesNothing() {
        QFETCH(QByteArray, bar);
        QFETCH(QByteArray, tool);
        QFETCH(QPointF, from);
        Desk desk;
        Hand& hand = desk.hand;
        hand.tool("NodeBar", "RecordSet");
        hand.click({3000, 3000});
        hand.click({6000, 6000});
        hand.tool(bar.constData(), tool.constData());
        const Point start{static_cast<float>(from.x()), static_cast<float>(from.y())};
        hand.click({12000, 11000});  // nothing selected
        const std::string before = testkit::modelText(hand.form());
        hand.moveTo(start);
        hand.press(start);
        hand.key(Qt::Key_Escape);
        hand.release(start);
        hand.moveTo({12000, 11000});
        const QImage still = hand.editor().viewport()->grab().toImage();

        hand.press(start);
        hand.moveTo({7500, 7000});
        QVERIFY(hand.editor().viewport()->grab().toImage() != still);
        hand.moveTo({7000, 6800});
        // The picture under the markers is kept in a layer; it must not differ from a fresh one.
        const QImage kept = hand.editor().viewport()->grab().toImage();
        hand.editor().resize(hand.editor().size());
        QApplication::sendPostedEvents();
        desk.program.theme.setMode(ThemeMode::dark);
        desk.program.theme.setMode(ThemeMode::light);
        QCOMPARE(hand.editor().viewport()->grab().toImage(), kept);
        hand.key(Qt::Key_Escape);
        hand.release({7000, 6800});
        hand.moveTo({12000, 11000});
        QCOMPARE(testkit::modelText(hand.form()), before);
        QCOMPARE(hand.form().Lines.Count(), 0);
        QVERIFY(!hand.form().RubberBand && !hand.form().GrabberVisible);
    }

    void cropSelectsAndTheKeyboardWalks() {
        Desk desk;
        Hand& hand = desk.hand;
        desk.drawAll();
        hand.tool("ArrowBar", "Crop");
        hand.drag({200, 200}, {5200, 5600});
        QCOMPARE(hand.form().SelectedLabels.Count(), 4);
        hand.click({12000, 11000});
        QCOMPARE(hand.form().SelectedLabels.Count(), 0);
        for (const auto& [key, name] :
             std::initializer_list<std::pair<Qt::Key, const char*>>{{Qt::Key_Down, "RecordSet1"},
                                                                    {Qt::Key_Right, "Activity1"},
                                                                    {Qt::Key_Down, "Activity2"},
                                                                    {Qt::Key_Left, "RecordSet2"},
                                                                    {Qt::Key_Up, "RecordSet1"},
                                                                    {Qt::Key_Up, "RecordSet1"}}) {
            hand.key(key);
            QCOMPARE(hand.form().SelectedLabels.Count(), 1);
            QVERIFY2(hand.form().SelectedLabels.Item(hand.node(name).Index()), name);
        }
        hand.key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(hand.form().SelectedLabels.Count(), static_cast<int>(std::size(kNodes)));
    }

    void wheelZoomsTheViewAndTheMiddleButtonPans() {
        Desk desk;
        Hand& hand = desk.hand;
        desk.drawAll();
        CanvasEditor& editor = hand.editor();
        const Point place{7000, 3000};
        const QPoint at = hand.pixel(place);
        const auto wheel = [&](int delta, Qt::KeyboardModifiers keys) {
            const QPoint inside = editor.viewport()->mapFrom(&desk.program.frame, at);
            QWheelEvent event(inside, editor.viewport()->mapToGlobal(inside), QPoint(), QPoint(0, delta), Qt::NoButton,
                              keys, Qt::NoScrollPhase, false);
            QApplication::sendEvent(editor.viewport(), &event);
        };
        const std::string model = testkit::modelText(hand.form());
        wheel(240, Qt::ControlModifier);
        QVERIFY(editor.scale() > 1.3);
        QVERIFY((hand.pixel(place) - at).manhattanLength() <= 2);
        const int before = editor.verticalScrollBar()->value();
        wheel(-120, {});
        const int scrolled = editor.verticalScrollBar()->value();
        QVERIFY(scrolled > before);
        QVERIFY(std::abs(hand.form().PicForm.ScrollBarVer().Value -
                         static_cast<float>(scrolled * kTwipsPerPixel / editor.scale())) < 1);
        hand.press(place, Qt::MiddleButton);
        hand.moveTo({place.x, place.y + 600});
        hand.release({place.x, place.y + 600}, Qt::MiddleButton);
        QVERIFY(editor.verticalScrollBar()->value() < scrolled);
        desk.program.choose("ViewActualSizeM");
        QCOMPARE(editor.scale(), 1.0);
        desk.program.choose("ViewFitM");
        QVERIFY(editor.scale() != 1.0);
        QCOMPARE(testkit::modelText(hand.form()), model);
        desk.program.input.expect("ZOOM IN RATIO :", "Zooming IN", "", "2");
        QTest::mouseClick(control<QToolButton>(desk.program.frame, "ZoomIn"), Qt::LeftButton);
        QCOMPARE(hand.node("RecordSet1").Width(), 2100.0F);
    }

    void draggingPastTheBorderScrollsAndThenGrows() {
        Desk desk;
        Hand& hand = desk.hand;
        desk.program.frame.resize(900, 700);
        QApplication::processEvents();
        hand.tool("NodeBar", "RecordSet");
        hand.click({3000, 3000});
        hand.tool("ArrowBar", "Move");
        canvas::PictureArea& picture = hand.form().PicForm;
        hand.moveTo({3000, 3000});
        hand.press({3000, 3000});
        const int right = hand.editor().viewport()->width() - 3;
        float scrolled = 0;
        for (int step = 0; step < 600 && picture.Width() == canvas::PictureArea::kStartWidth; ++step) {
            const Point at = hand.editor().transform().toTwips(QPointF(right - step % 2, 200));
            hand.moveTo(at);
            QVERIFY(picture.ScrollBarHor().Value >= scrolled);
            scrolled = picture.ScrollBarHor().Value;
        }
        QCOMPARE(picture.Width(), canvas::PictureArea::kStartWidth + canvas::PictureArea::kStep);
        QCOMPARE(hand.editor().horizontalScrollBar()->value(),
                 static_cast<int>(std::lround(scrolled / static_cast<float>(kTwipsPerPixel))));
        hand.key(Qt::Key_Escape);
        QCOMPARE(hand.node("RecordSet1").Left(), 2475.0F);

        auto* corner = control<QWidget>(hand.editor(), "lblSroll");
        const float height = picture.Height();
        QTest::mousePress(corner, Qt::LeftButton, {}, QPoint(5, 5));
        QTest::mouseMove(corner, QPoint(5, 45));
        QTest::mouseRelease(corner, Qt::LeftButton, {}, QPoint(5, 45));
        QCOMPARE(picture.Height(), height + 600);
    }

    void closingInTheMiddleOfAGestureIsHarmless() {
        Desk desk;
        Hand& hand = desk.hand;
        desk.drawAll();
        hand.moveTo(kNodes[0].at);
        hand.tool("EdgeBar", "Provider");
        hand.press(kNodes[0].at);
        hand.moveTo({5000, 9000});
        desk.program.answerClose("By hand", platform::Answer::ok);
        hand.key(Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!desk.program.frame.activeScenario());
        QTest::mouseRelease(desk.program.frame.windowHandle(), Qt::LeftButton, {}, QPoint(500, 500));
        QCOMPARE(desk.program.logic.tools().DrawMode(), std::string("Provider"));
    }

    void theWholePictureIsPrintedOnOnePage() {
        Desk desk;
        desk.drawAll();
        for (const QSize size : {QSize(800, 600), QSize(300, 700)}) {
            QImage page(size, QImage::Format_RGB32);
            page.fill(Qt::white);
            QPainter painter(&page);
            paintOnPage(desk.hand.form(), painter, QRectF(QPointF(), QSizeF(size)));
            painter.end();
            const canvas::PictureArea& picture = desk.hand.form().PicForm;
            const double factor = std::min(size.width() / static_cast<double>(picture.Width()),
                                           size.height() / static_cast<double>(picture.Height()));
            const QPointF origin(size.width() / 2.0 - picture.Width() * factor / 2,
                                 size.height() / 2.0 - picture.Height() * factor / 2);
            for (const NodeRow& row : kNodes) {
                const QPoint at = (origin + QPointF(row.at.x, row.at.y) * factor).toPoint();
                const QRect around(at - QPoint(14, 8), QSize(28, 16));
                bool inked = false;
                for (int y = around.top(); y <= around.bottom(); ++y) {
                    for (int x = around.left(); x <= around.right(); ++x) {
                        inked = inked || (page.rect().contains(x, y) && page.pixelColor(x, y) != QColor(Qt::white));
                    }
                }
                QVERIFY2(inked, row.tool);
            }
        }
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::DrawingTest)
#include "drawing_test.moc"
