// A scenario drawn by hand: real mouse and key events from an empty canvas to the repository and back.

#include <QPrintDialog>
#include <QPrinter>

#include "canvas/lines.h"
#include "qt/canvas/canvas_editor.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "testkit/model_text.h"
#include "testkit/numbers.h"
#include "window_program.h"

namespace orvent::qt {

namespace {

using canvas::Point;

struct NodeRow {
    const char* tool;
    Point at;
};

// What each click makes: RecordSet1 to 3, Activity1 to 3, a comment and a log.
constexpr NodeRow kNodes[] = {{"RecordSet", {1500, 1500}}, {"RecordSet", {1500, 4500}}, {"RecordSet", {10000, 1500}},
                              {"Activity", {4000, 1500}},  {"Activity", {4000, 4500}},  {"Activity", {7000, 3000}},
                              {"Comment", {4000, 7500}},   {"Log", {13000, 9000}}};

struct EdgeRow {
    const char* tool;
    int from, to;  // rows of kNodes
};

constexpr EdgeRow kEdges[] = {{"Provider", 0, 3}, {"Provider", 1, 4}, {"Provider", 3, 5},    {"Provider", 4, 5},
                              {"Provider", 5, 2}, {"Provider", 1, 5}, {"Description", 6, 4}, {"Description", 4, 7}};

/// The frame with an empty scenario, large enough for the picture, and the user's hand on it: real events of the whole
/// frame, at places of the picture in twips.
struct Desk : StartedProgram {
    Desk() {
        frame.showNormal();
        frame.resize(1400, 950);
        open("By hand");
        QApplication::processEvents();
    }

    canvas::DrawForm& form() { return *logic.activeScenario(); }
    canvas::LabelsD& node(const std::string& name) { return *form().nodeNamed(name); }
    int selected() { return form().SelectedLabels.Count(); }
    CanvasEditor& editor() { return frame.area().activeWindow()->editor(); }
    QImage picture() { return editor().viewport()->grab().toImage(); }
    QWindow* window() { return frame.windowHandle(); }
    QPoint pixel(Point at) { return editor().viewport()->mapTo(&frame, editor().transform().toPixels(at).toPoint()); }

    /// Presses the button of a tool with the mouse.
    void tool(const char* bar, const char* key) {
        auto* band = control<QToolBar>(frame, bar);
        QWidget* button = band->widgetForAction(control<QAction>(*band, key));
        QTest::mouseClick(window(), Qt::LeftButton, {}, button->mapTo(&frame, button->rect().center()));
    }
    void moveTo(Point at) { QTest::mouseMove(window(), pixel(at)); }
    void press(Point at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(window(), button, {}, pixel(at));
    }
    void release(Point at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(window(), button, {}, pixel(at));
    }
    void clickAt(Point at, Qt::MouseButton button = Qt::LeftButton) {
        moveTo(at);
        press(at, button);
        release(at, button);
    }
    /// Places a node with the tool in use, and leaves its dialog at once.
    void place(const std::string& kind, Point at) {
        if (kind == "RecordSet" || kind == "Activity") {
            dialogs.at(kind == "Activity" ? QStringLiteral("SetActProp") : QStringLiteral("RecordSetProp"),
                       [](QDialog& window) { window.reject(); });
        }
        clickAt(at);
        dialogs.settle();
        // A platform without a display gives no window the focus that a closed one had.
        frame.activateWindow();
        QApplication::processEvents();
    }
    void drag(Point from, Point to) {
        moveTo(from);
        press(from);
        moveTo({(from.x + to.x) / 2, (from.y + to.y) / 2});
        moveTo(to);
        release(to);
    }
    void wheel(Point at, int delta, Qt::KeyboardModifiers keys = {}) {
        const QPoint inside = editor().transform().toPixels(at).toPoint();
        QWheelEvent event(inside, editor().viewport()->mapToGlobal(inside), QPoint(), QPoint(0, delta), Qt::NoButton,
                          keys, Qt::NoScrollPhase, false);
        QApplication::sendEvent(editor().viewport(), &event);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(window(), key, modifiers); }

    void drawAll() {
        for (const NodeRow& row : kNodes) {
            tool("NodeBar", row.tool);
            place(row.tool, row.at);
        }
        for (const EdgeRow& row : kEdges) {
            tool("EdgeBar", row.tool);
            // From the right side of a box to the left side of the next one.
            const Point to{kNodes[row.to].at.x - 400, kNodes[row.to].at.y};
            const QPoint before = pixel(to);
            drag({kNodes[row.from].at.x + 400, kNodes[row.from].at.y}, to);
            QCOMPARE(pixel(to), before);  // the line above the picture has come
        }
        QVERIFY(control<QWidget>(frame, "offer")->isVisible());
        editor().verticalScrollBar()->setValue(0);
    }
};

}  // namespace

class DrawingTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void wholeScenarioComesBackEqual() {
        Desk desk;
        desk.drawAll();
        QCOMPARE(desk.form().Labels.Count(), static_cast<int>(std::size(kNodes)));
        QCOMPARE(desk.form().Lines.Count(), static_cast<int>(std::size(kEdges)));

        // A corner set on the way, and an edge that is bent by its menu.
        desk.tool("EdgeBar", "Provider");
        desk.moveTo({1500, 1500});
        desk.press({1500, 1500});
        desk.clickAt({2000, 600}, Qt::RightButton);
        desk.moveTo({10000, 1500});
        desk.release({10000, 1500});
        const canvas::LinesD* bent = desk.form().Lines.at(desk.form().Lines.Count());
        QVERIFY(std::abs(bent->Xm() - 2000) < 15 && std::abs(bent->Ym() - 600) < 15);
        const canvas::LinesD& first = *desk.form().Lines.at(1);
        desk.clickAt({first.X2(), first.Y2()}, Qt::RightButton);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        auto* up = control<QAction>(*menu, "EdgeAngleVerticalUpM");
        auto& submenu = *qobject_cast<QMenu*>(up->parent());
        menu->setActiveAction(submenu.menuAction());
        QTest::keyClick(menu, Qt::Key_Right);
        QTest::mouseClick(&submenu, Qt::LeftButton, {}, submenu.actionGeometry(up).center());
        QCOMPARE(first.Angle(), canvas::AngleVerticalUp);

        desk.tool("ArrowBar", "Move");
        desk.drag({10000, 1500}, {9000, 8000});
        QVERIFY(std::abs(desk.node("RecordSet3").Left() - (9000 - 525)) < 30);
        desk.tool("ArrowBar", "Resize");
        const canvas::LabelsD& wide = desk.node("Activity3");
        const float width = wide.Width();
        const Point corner{wide.Left() + wide.Width() - 30, wide.Top() + wide.Height() - 30};
        desk.drag(corner, {corner.x + 600, corner.y + 300});
        QVERIFY(wide.Width() > width + 500);

        QTest::mouseDClick(desk.window(), Qt::LeftButton, {}, desk.pixel({3700, 7500}));
        for (const char letter : std::string("Late rows")) {
            QTest::keyClick(desk.window(), letter);
        }
        desk.key(Qt::Key_Escape);
        QTRY_VERIFY(!desk.editor().findChild<QPlainTextEdit*>());
        desk.tool("ArrowBar", "Arrow");
        desk.clickAt({13000, 9000});
        desk.key(Qt::Key_Delete);
        QCOMPARE(desk.form().Labels.Count(), static_cast<int>(std::size(kNodes)) - 1);
        QCOMPARE(desk.form().Lines.Count(), static_cast<int>(std::size(kEdges)));

        // No dialog gives an activity its type yet, and one without a type is not saved.
        for (const char* name : {"Activity1", "Activity2", "Activity3"}) {
            desk.node(name).activity()->Act_Type = 0;
        }
        const std::string drawn = testkit::modelText(desk.form());
        QVERIFY2(drawn.find("Late rows") != std::string::npos, drawn.c_str());
        desk.saveAs("By hand");
        desk.answerClose("By hand", platform::Answer::ok);
        desk.choose("CloseScenarioM");
        desk.dialogs.at(QStringLiteral("ViewScenarios"), [](QDialog& window) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Down);
            click(window, "OKButton");
        });
        desk.choose("LoadScenarioM");
        const std::string loaded = testkit::modelText(desk.form());
        QVERIFY2(loaded == drawn, (drawn + "\n---- loaded ----\n" + loaded).c_str());
    }

    void gesturesShowTheirMarkersAndEscapeLeavesNothing() {
        struct Row {
            const char *bar, *tool;
            Point start;
        };
        Desk desk;
        desk.tool("NodeBar", "RecordSet");
        desk.place("RecordSet", {3000, 3000});
        desk.place("RecordSet", {6000, 6000});
        for (const auto& [bar, tool, start] : {Row{"EdgeBar", "Provider", {3000, 3000}},
                                               {"ArrowBar", "Move", {3000, 3000}},
                                               {"ArrowBar", "Resize", {3480, 3180}},
                                               {"ArrowBar", "Crop", {2000, 2000}}}) {
            desk.tool(bar, tool);
            desk.clickAt({12000, 11000});  // nothing selected
            const std::string before = testkit::modelText(desk.form());
            desk.moveTo(start);
            desk.press(start);
            desk.key(Qt::Key_Escape);
            desk.release(start);
            desk.moveTo({12000, 11000});
            const QImage still = desk.picture();

            desk.press(start);
            desk.moveTo({7500, 7000});
            QVERIFY2(desk.picture() != still, tool);
            desk.moveTo({7000, 6800});
            // The picture under the markers is kept in a layer; it must not differ from a fresh one.
            const QImage kept = desk.picture();
            desk.theme.setMode(ThemeMode::dark);
            desk.theme.setMode(ThemeMode::light);
            QCOMPARE(desk.picture(), kept);
            desk.key(Qt::Key_Escape);
            desk.release({7000, 6800});
            desk.moveTo({12000, 11000});
            QCOMPARE(testkit::modelText(desk.form()), before);
            QVERIFY(!desk.form().RubberBand && !desk.editor().state().GrabberVisible);
        }
    }

    void cropSelectsAndTheKeyboardWalks() {
        Desk desk;
        desk.drawAll();
        desk.tool("ArrowBar", "Crop");
        desk.drag({200, 200}, {5200, 5600});
        QCOMPARE(desk.selected(), 4);
        desk.clickAt({12000, 11000});
        QCOMPARE(desk.selected(), 0);
        for (const auto& [key, name] :
             {std::pair{Qt::Key_Right, "RecordSet1"}, {Qt::Key_Down, "RecordSet2"}, {Qt::Key_Up, "RecordSet1"}}) {
            desk.key(key);
            QVERIFY2(desk.form().SelectedLabels.Item(desk.node(name).Index()), name);
        }
        desk.key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(desk.selected(), static_cast<int>(std::size(kNodes)));
    }

    void wheelZoomsTheViewAndTheMiddleButtonPans() {
        Desk desk;
        desk.drawAll();
        CanvasEditor& editor = desk.editor();
        const QScrollBar& bar = *editor.verticalScrollBar();
        const Point place{7000, 3000};
        const QPoint at = desk.pixel(place);
        const std::string model = testkit::modelText(desk.form());
        desk.wheel(place, 240, Qt::ControlModifier);
        QVERIFY(editor.scale() > 1.3);
        QVERIFY((desk.pixel(place) - at).manhattanLength() <= 2);
        const int before = bar.value();
        desk.wheel(place, -120);
        const int scrolled = bar.value();
        QVERIFY(scrolled > before);
        QVERIFY(std::abs(desk.editor().state().window.ScrollBarVer().Value -
                         static_cast<float>(scrolled * kTwipsPerPixel / editor.scale())) < 1);
        desk.press(place, Qt::MiddleButton);
        desk.moveTo({place.x, place.y + 600});
        desk.release({place.x, place.y + 600}, Qt::MiddleButton);
        QVERIFY(bar.value() < scrolled);
        desk.choose("ViewActualSizeM");
        QCOMPARE(editor.scale(), 1.0);
        desk.choose("ViewFitM");
        QVERIFY(editor.scale() != 1.0);
        QCOMPARE(testkit::modelText(desk.form()), model);
    }

    void draggingPastTheBorderScrollsAndThenGrows() {
        Desk desk;
        desk.frame.resize(900, 700);
        QApplication::processEvents();
        desk.tool("NodeBar", "RecordSet");
        desk.place("RecordSet", {3000, 3000});
        desk.tool("ArrowBar", "Move");
        canvas::PictureArea& picture = desk.form().PicForm;
        desk.moveTo({3000, 3000});
        desk.press({3000, 3000});
        const int right = desk.editor().viewport()->width() - 3;
        float scrolled = 0;
        for (int step = 0; step < 600 && picture.Width() == canvas::PictureArea::kStartWidth; ++step) {
            desk.moveTo(desk.editor().transform().toTwips(QPointF(right - step % 2, 200)));
            QVERIFY(desk.editor().state().window.ScrollBarHor().Value >= scrolled);
            scrolled = desk.editor().state().window.ScrollBarHor().Value;
        }
        QCOMPARE(picture.Width(), canvas::PictureArea::kStartWidth + canvas::PictureWindow::kStep);
        QCOMPARE(desk.editor().horizontalScrollBar()->value(),
                 static_cast<int>(std::lround(scrolled / static_cast<float>(kTwipsPerPixel))));
        desk.key(Qt::Key_Escape);
        QCOMPARE(desk.node("RecordSet1").Left(), 2475.0F);

        auto* corner = control<QWidget>(desk.editor(), "lblSroll");
        const float height = picture.Height();
        QTest::mousePress(corner, Qt::LeftButton, {}, QPoint(5, 5));
        QTest::mouseMove(corner, QPoint(5, 45));
        QTest::mouseRelease(corner, Qt::LeftButton, {}, QPoint(5, 45));
        QCOMPARE(picture.Height(), height + 600);
    }

    void closingInTheMiddleOfAGestureIsHarmless() {
        Desk desk;
        desk.tool("NodeBar", "RecordSet");
        desk.place("RecordSet", {3000, 3000});
        desk.tool("EdgeBar", "Provider");
        desk.moveTo({3000, 3000});
        desk.press({3000, 3000});
        desk.moveTo({5000, 9000});
        desk.answerClose("By hand", platform::Answer::ok);
        desk.key(Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!desk.logic.activeScenario());
        QTest::mouseRelease(desk.window(), Qt::LeftButton, {}, QPoint(500, 500));
    }

    void aLongCommentScrollsInItsStrip() {
        Desk desk;
        desk.tool("NodeBar", "Comment");
        desk.clickAt({6000, 6000});
        desk.tool("ArrowBar", "Move");
        desk.clickAt({12000, 11000});
        canvas::LabelsD& node = desk.node("Comment0");
        const Point strip{node.Left() + node.Width() - 100, node.Top() + node.Height() / 2};
        const Point low{strip.x, node.Top() + node.Height() - 60};
        const int bar = desk.editor().verticalScrollBar()->value();
        const auto box = node.box();
        std::string text = "start";
        for (int line = 0; line < 12; ++line) {
            text += "\nline " + std::to_string(line);
        }
        node.setComment(text);
        const QImage start = desk.picture();
        desk.wheel(strip, -120);
        QVERIFY2(desk.picture() != start, "the text moves");
        QCOMPARE(desk.editor().verticalScrollBar()->value(), bar);
        desk.wheel(strip, 120);
        QCOMPARE(desk.picture(), start);

        desk.moveTo(strip);
        const QImage hovered = desk.picture();
        desk.press(strip);
        desk.moveTo(low);
        desk.release(low);
        QVERIFY(desk.picture() != hovered);
        QCOMPARE(desk.selected(), 0);
        QVERIFY(node.box() == box);
        desk.wheel(strip, -120);  // the text is at its end
        QVERIFY(desk.editor().verticalScrollBar()->value() > bar);

        node.setComment("short");
        desk.picture();
        desk.clickAt({node.Left() + node.Width() - 100, node.Top() + node.Height() / 2});
        QCOMPARE(desk.selected(), 1);
    }

    void anEdgeOnItsWayDoesNotSurviveAChangeOfTheWindow() {
        Desk desk;
        desk.tool("NodeBar", "RecordSet");
        desk.place("RecordSet", {3000, 3000});
        desk.place("RecordSet", {9000, 3000});
        desk.tool("EdgeBar", "Provider");
        desk.moveTo({3400, 3000});
        desk.press({3400, 3000});
        desk.moveTo({8600, 3000});
        canvas::DrawForm& first = desk.form();
        QCOMPARE(first.Lines.Count(), 1);
        desk.open("Other");
        QCOMPARE(first.Lines.Count(), 0);
        desk.release({8600, 3000});
        desk.frame.area().setActiveSubWindow(desk.frame.area().windowOf(first));
        desk.moveTo({8630, 3000});
        QCOMPARE(first.Lines.Count(), 0);
    }

    void aSecondEdgeLeavesFromTheSameMark() {
        Desk desk;
        desk.tool("NodeBar", "Activity");
        desk.place("Activity", {3000, 3000});
        desk.tool("NodeBar", "RecordSet");
        desk.place("RecordSet", {9000, 2000});
        desk.place("RecordSet", {9000, 5000});
        desk.tool("EdgeBar", "Provider");
        const canvas::LabelsD& activity = desk.node("Activity1");
        for (const float height : {2000.0F, 5000.0F}) {
            const Point mark = activity.GrabPoint(3);
            desk.moveTo(mark);
            desk.press(mark);
            desk.moveTo({8600, height});
            desk.release({8600, height});
        }
        QCOMPARE(desk.form().Lines.Count(), 2);
        QCOMPARE(desk.form().Lines.at(1)->ToLabel(), desk.node("RecordSet1").Index());
        QCOMPARE(desk.form().Lines.at(2)->ToLabel(), desk.node("RecordSet2").Index());
    }

    void theArrowClicksLinesAndDragsNodesAndTheGround() {
        Desk desk;
        desk.drawAll();
        desk.tool("ArrowBar", "Arrow");
        const canvas::LinesD& edge = *desk.form().Lines.at(1);
        const Point middle{(edge.X1() + edge.X2()) / 2, (edge.Y1() + edge.Y2()) / 2};
        const auto below = [&](int pixels) {
            return Point{middle.x, middle.y + static_cast<float>(pixels * kTwipsPerPixel / desk.editor().scale())};
        };
        desk.clickAt(below(6));
        QCOMPARE(desk.form().SelectedLines.Count(), 0);
        desk.clickAt(below(3));
        QVERIFY(desk.form().SelectedLines.Item(edge.Index()));
        desk.clickAt({12000, 11000});
        QTest::mouseDClick(desk.window(), Qt::LeftButton, {}, desk.pixel(below(3)));
        QVERIFY(std::abs(edge.Ym() - below(3).y) < 15);

        desk.drag({200, 200}, {5200, 5600});
        QCOMPARE(desk.selected(), 4);
        const float former = desk.node("Activity2").Left();
        desk.drag({1500, 1500}, {1800, 2100});
        QCOMPARE(desk.selected(), 4);
        QVERIFY(std::abs(desk.node("Activity2").Left() - former - 300) < 30);
        desk.clickAt({12000, 11000});
        QCOMPARE(desk.selected(), 0);
    }

    void theKeyboardPlacesAndEnds() {
        Desk desk;
        desk.clickAt({12000, 11000});
        const auto pressed = [&] { return desk.logic.tools().DrawMode(); };
        desk.key(Qt::Key_C);
        QCOMPARE(pressed(), "Comment");
        desk.key(Qt::Key_Return);
        desk.key(Qt::Key_Return);
        QCOMPARE(desk.form().Labels.Count(), 2);
        desk.key(Qt::Key_F10, Qt::ShiftModifier);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QCOMPARE(QApplication::activePopupWidget()->objectName(), QStringLiteral("CommentM"));
        QApplication::activePopupWidget()->close();
        desk.key(Qt::Key_D);
        desk.key(Qt::Key_Escape);
        QCOMPARE(pressed(), "Arrow");
        QTest::mouseDClick(desk.window(), Qt::LeftButton, {},
                           desk.pixel({desk.node("Comment0").Left() + 300, desk.node("Comment0").Top() + 200}));
        desk.key(Qt::Key_M);
        desk.key(Qt::Key_Escape);
        QCOMPARE(pressed(), "Arrow");
        QCOMPARE(desk.node("Comment0").Comment(), "m");
        QVERIFY(desk.editor().hasFocus());
        desk.clickAt({desk.node("Comment0").Left() + 300, desk.node("Comment0").Top() + 200});
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(desk.window(), &menuKey);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QCOMPARE(QApplication::activePopupWidget()->objectName(), QStringLiteral("CommentM"));
        QApplication::activePopupWidget()->close();
        desk.frame.activateWindow();
        QApplication::processEvents();
        desk.answerClose("By hand", platform::Answer::cancel);
        desk.key(Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(desk.frame.isVisible());
        desk.answerClose("By hand", platform::Answer::ok);
        desk.key(Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!desk.frame.isVisible() && !desk.logic.anyScenario());
    }

    void tabWalksOutOfTheCanvasAndBack() {
        Desk desk;
        desk.open("Behind");
        CanvasEditor& behind = desk.editor();
        desk.open("In front");
        const auto rim = [&] { return desk.editor().grab().toImage().pixelColor(0, desk.editor().height() / 2); };
        const QColor accent = desk.theme.canvas().accent;
        const auto bar = [&] { return desk.editor().horizontalScrollBar()->grab().toImage(); };
        const QImage former = bar();
        for (const auto& [key, modifiers] :
             {std::pair{Qt::Key_Tab, Qt::NoModifier}, {Qt::Key_Backtab, Qt::ShiftModifier}}) {
            QVERIFY(desk.editor().hasFocus());
            QCOMPARE(rim(), accent);
            QSet<QWidget*> passed;
            for (int presses = 0; presses < 40 && (passed.isEmpty() || !desk.editor().hasFocus()); ++presses) {
                desk.key(key, modifiers);
                passed.insert(QApplication::focusWidget());
                QVERIFY(desk.editor().hasFocus() || rim() != accent);
                QCOMPARE(bar(), former);
            }
            QVERIFY(desk.editor().hasFocus());
            QVERIFY(passed.contains(control<QWidget>(desk.frame, "LDL")) && !passed.contains(&behind));
        }
    }

    void whatAGestureOrTheRestingPointerTells() {
        Desk desk;
        desk.tool("NodeBar", "Activity");
        desk.place("Activity", {3000, 3000});
        desk.node("Activity1").activity()->Act_Type = 1;
        const QPoint at = desk.editor().transform().toPixels(Point{3000, 3000}).toPoint();
        QHelpEvent help(QEvent::ToolTip, at, desk.editor().viewport()->mapToGlobal(at));
        QApplication::sendEvent(desk.editor().viewport(), &help);
        const QString type = QString::fromStdString(desk.logic.catalogue().tables.activityTypes.name(1));
        QVERIFY(!type.isEmpty());
        QCOMPARE(QToolTip::text(), QStringLiteral("<b>Activity1</b><br>Activity, %1, ready<br>inputs: 0, outputs: "
                                                  "0, parameters: 0<br>Still has no source")
                                       .arg(type));
        QToolTip::hideText();
        desk.tool("EdgeBar", "Provider");
        desk.drag({3400, 3000}, {9000, 9000});
        desk.moveTo({9100, 9000});
        QCOMPARE(desk.form().Lines.Count(), 0);
        QCOMPARE(desk.frame.statusBar()->currentMessage(), QStringLiteral("An edge ends at a node."));
    }

    void theCornerTellsScaleAndPlace() {
        Desk desk;
        auto* corner = control<QLabel>(desk.frame, "viewCorner");
        desk.editor().setScale(1.5);
        QCOMPARE(corner->text(), QStringLiteral("150 %"));
        desk.moveTo(desk.editor().transform().toTwips({200, 100}));
        QVERIFY2(corner->text().endsWith(QStringLiteral("150 %")) && corner->text().size() > 12,
                 qPrintable(corner->text()));
    }

    void theBarsStepsFollowThePicture() {
        Desk desk;
        canvas::PictureArea& picture = desk.form().PicForm;
        const QScrollBar& bar = *desk.editor().horizontalScrollBar();
        QCOMPARE(bar.singleStep(), 11);  // a hundredth of 17,000 twips
        QCOMPARE(bar.pageStep(), 113);
        picture.setSize(34000, 13000);
        desk.form().tellPicture();
        QCOMPARE(bar.singleStep(), 23);
        picture.setSize(1e7F, 13000);
        desk.form().tellPicture();
        QVERIFY2(bar.pageStep() <= desk.editor().viewport()->width(), "nothing is passed over unseen");
    }

    void theChosenPrinterComesAgain() {
        Desk desk;
        const QString file = QString::fromStdString((desk.repository.folder.path() / "page.pdf").string());
        for (const bool again : {false, true}) {
            desk.dialogs.at(QStringLiteral("PrintDialog"), [&](QDialog& dialog) {
                QPrinter& printer = *qobject_cast<QPrintDialog*>(&dialog)->printer();
                QCOMPARE(printer.outputFileName() == file, again);
                QCOMPARE(printer.copyCount(), 1);
                printer.setOutputFormat(QPrinter::PdfFormat);
                printer.setOutputFileName(file);
                printer.setCopyCount(3);
                dialog.done(QDialog::Accepted);
            });
            desk.choose("PrintScenarioM");
        }
    }

    void paperShowsNoSelection() {
        Desk desk;
        desk.drawAll();
        const auto page = [&] { return onPage(desk.form(), {800, 600}); };
        desk.form().ClearCrop();
        desk.form().SelectedLines.Clear();
        const QImage plain = page();
        for (const canvas::LabelsD& node : desk.form().Labels) {
            desk.form().SelectedLabels.Add(node.Index());
        }
        desk.form().SelectedLines.Add(1_edge);
        QCOMPARE(page(), plain);
    }

    void theWholePictureIsPrintedOnOnePage() {
        Desk desk;
        desk.drawAll();
        const QSizeF picture(desk.form().PicForm.Width(), desk.form().PicForm.Height());
        for (const QSize size : {QSize(800, 600), QSize(300, 700)}) {
            const QImage page = onPage(desk.form(), size);
            const double factor = std::min(size.width() / picture.width(), size.height() / picture.height());
            for (const NodeRow& row : kNodes) {
                const QPointF fromMiddle(row.at.x - picture.width() / 2, row.at.y - picture.height() / 2);
                const QPoint at = (QRectF(page.rect()).center() + fromMiddle * factor).toPoint();
                const QRect around = QRect(at - QPoint(14, 8), QSize(28, 16)) & page.rect();
                QVERIFY2(!isBlank(page.copy(around)), row.tool);
            }
        }
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::DrawingTest)
#include "drawing_test.moc"
