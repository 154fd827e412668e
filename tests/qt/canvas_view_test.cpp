// The painted canvas: where items lie, what is repainted, and how the kinds and themes look.

#include "qt/canvas/canvas_view.h"

#include <QScrollBar>
#include <algorithm>
#include <functional>
#include <random>

#include "canvas/draw_form.h"
#include "qt/canvas/edge_painter.h"
#include "qt/canvas/node_painter.h"
#include "qt/canvas/node_shapes.h"
#include "qt/canvas/tint_legend.h"
#include "testkit/numbers.h"
#include "testkit/scripted_ports.h"
#include "window_test.h"

namespace orvent::qt {

namespace {

using canvas::Point;

/// A view that tells which areas it was asked to paint.
class WatchedView : public CanvasViewWidget {
  public:
    using CanvasViewWidget::CanvasViewWidget;
    using CanvasViewWidget::ownState;
    QRegion painted;

  protected:
    void paintEvent(QPaintEvent* event) override {
        painted += event->region();
        CanvasViewWidget::paintEvent(event);
    }
};

/// The parts of a view, to be looked into.
class Paper : public QAbstractScrollArea {
  public:
    Paper(canvas::Canvas& form, const Theme& theme)
        : state(form),
          index(form),
          scroller(*this, form.PicForm, state.window, index, [] {}),
          painter(form, state, index, scroller, theme, *viewport()) {
        resize(800, 600);
    }
    canvas::ViewState state;
    PictureIndex index;
    PictureScroller scroller;
    PicturePainter painter;

  protected:
    void paintEvent(QPaintEvent* event) override {
        index.ensure();
        painter.paint(event->region());
    }
};

/// A canvas with a view that is shown.
struct Scene {
    testkit::ScriptedMessageBox messages{failQt};
    canvas::CanvasSettings settings;
    canvas::DrawForm form{canvas::CanvasServices{messages, settings}};
    Theme theme{ThemeMode::light};
    WatchedView view{form, theme};

    Scene() {
        view.resize(800, 600);
        view.show();
        settle();
    }

    canvas::LabelsD& add(canvas::NodeTypeCode kind, float left, float top, float width = 1050, float height = 450) {
        const std::string name = "n" + std::to_string(form.Labels.Count());
        return form.Labels.Add({left, top, width, height}, name, kind);
    }
    canvas::LinesD& join(const canvas::LabelsD& from, const canvas::LabelsD& to,
                         canvas::EdgeTypeCode kind = canvas::EdgeTypeProvider) {
        return *form.Lines.addFullLine(from.Index(), 3, to.Index(), 1, kind, canvas::AngleStraight, 0);
    }
    /// What the window itself holds of the picture.
    QImage held() {
        const auto& whole = *static_cast<QImage*>(view.backingStore()->paintDevice());
        return whole.copy(QRect(view.viewport()->pos(), view.viewport()->size()));
    }
    void settle() {
        for (int i = 0; i < 3; ++i) {
            QApplication::processEvents();
        }
    }
    QImage picture() {
        settle();
        return view.viewport()->grab().toImage();
    }
    /// What is repainted after a change.
    QRegion repainted(const std::function<void()>& change) {
        settle();
        view.painted = {};
        change();
        settle();
        return view.painted;
    }
    /// The colour of the picture at a place in twips.
    QColor at(const QImage& image, float x, float y) const {
        const QPointF pixel = view.transform().toPixels(Point{x, y}) * image.devicePixelRatio();
        return image.pixelColor(pixel.toPoint());
    }
};

Point middleOf(const canvas::LinesD& edge) {
    return {(edge.X1() + edge.X2()) / 2, (edge.Y1() + edge.Y2()) / 2};
}

}  // namespace

class CanvasViewTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void eachKindHasItsOwnShape() {
        std::vector<QImage> seen;
        for (const canvas::NodeTypeCode kind :
             {canvas::NodeTypeDataType, canvas::NodeTypeFunctionType, canvas::NodeTypeConstant,
              canvas::NodeTypeRecordSet, canvas::NodeTypeFunction, canvas::NodeTypeParameter, canvas::NodeTypeActivity,
              canvas::NodeTypeLog, canvas::NodeTypeComment, canvas::NodeTypeAttribute}) {
            Scene scene;
            scene.add(kind, 300, 300).setColor(0x00FFFF);  // only the shape may tell them apart
            seen.push_back(scene.picture());
        }
        for (const canvas::EdgeTypeCode kind :
             {canvas::EdgeTypeProvider, canvas::EdgeTypePartOf, canvas::EdgeTypeReserved, canvas::EdgeTypeRegulator,
              canvas::EdgeTypeDescription, canvas::EdgeTypeDerived}) {
            Scene scene;
            const canvas::LabelsD& from = scene.add(canvas::NodeTypeRecordSet, 300, 300);
            const canvas::LabelsD& to = scene.add(canvas::NodeTypeRecordSet, 4500, 300);
            scene.form.Lines.addFullLine(from.Index(), 3, to.Index(), 1, kind, canvas::AngleStraight, 0xFF);
            seen.push_back(scene.picture());
        }
        for (std::size_t i = 0; i < seen.size(); ++i) {
            for (std::size_t j = i + 1; j < seen.size(); ++j) {
                QVERIFY2(seen[i] != seen[j], qPrintable(QStringLiteral("rows %1 and %2").arg(i).arg(j)));
            }
        }
    }

    void grabPointsLieNearTheOutline() {
        Scene scene;
        for (int code = 1; code <= 10; ++code) {
            const auto kind = static_cast<canvas::NodeTypeCode>(code);
            const canvas::LabelsD& node = scene.add(kind, 0, 0, 3000, 1200);
            const QPainterPath outline = nodeShape(node.figure()).outline(QRectF(0, 0, 3000, 1200), kTwipsPerPixel);
            for (int point = 1; point <= (kind == canvas::NodeTypeActivity ? 5 : 4); ++point) {
                const Point at = node.GrabPoint(point);
                QPainterPath around;
                around.addEllipse(QPointF(at.x, at.y), 110, 110);
                QVERIFY2(around.intersects(outline) && !outline.contains(around),
                         qPrintable(QStringLiteral("kind %1 point %2").arg(code).arg(point)));
            }
        }
    }

    void coloursFollowTheModelAndTheTheme() {
        QVERIFY(qAbs(contrast(Qt::black, Qt::white) - 21) < 0.001 && qAbs(contrast(0x777777, Qt::white) - 4.48) < 0.01);
        const int selection = canvas::CanvasSettings{}.SelColor;
        for (const ThemeMode mode : {ThemeMode::light, ThemeMode::dark}) {
            const CanvasColours& theme = Theme(mode).canvas();
            QCOMPARE(nodeColours(0xFFFFFF, theme).fill, theme.paper);
            QCOMPARE(nodeColours(0, theme).fill, theme.ink);
            // Ready, not ready, as made and not loaded yet; then some that only a setting can bring.
            for (const int plain : {0xFFFFFF, 0xFF, 0xFF0000, 0, 0xDDDDDD, 0xCCFFFF, 0x777777, 0x00FF00, 0x8080C0}) {
                for (const int colour : {plain, plain ^ selection}) {
                    const NodeColours shown = nodeColours(colour, theme);
                    const QByteArray words = QByteArray::number(colour, 16) + shown.fill.name().toLatin1();
                    QVERIFY2(contrast(shown.fill, shown.caption) >= 4.5, words);
                    const int hue = QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16).hslHue();
                    QVERIFY2(hue < 0 || qAbs(shown.fill.hslHue() - hue) <= 2, words);
                    QVERIFY2(shown.fill != nodeColours(colour ^ selection, theme).fill, words);
                }
            }
        }
    }

    void boxesTakeTheColoursOfTheTheme() {
        Scene scene;
        canvas::LabelsD& node = scene.add(canvas::NodeTypeRecordSet, 300, 300);
        const canvas::LinesD& edge = scene.join(node, scene.add(canvas::NodeTypeRecordSet, 4500, 300));
        node.setColor(0xFF);
        for (const ThemeMode mode : {ThemeMode::light, ThemeMode::dark}) {
            scene.theme.setMode(mode);
            const CanvasColours& theme = scene.theme.canvas();
            const QImage image = scene.picture();
            QCOMPARE(scene.at(image, 360, 600), nodeColours(0xFF, theme).fill);
            QCOMPARE(scene.at(image, 3000, 1000), theme.background);
            QVERIFY(contrast(scene.at(image, 3000, 525), theme.background) > 3);  // the edge
            scene.form.setLight({{2_node}, {}, true});
            const QImage dark = scene.picture();
            QVERIFY(contrast(scene.at(dark, 360, 600), theme.background) < 1.8);
            QVERIFY(contrast(scene.at(dark, 3000, 525), theme.background) < 2.2);
            QCOMPARE(scene.at(dark, 4560, 600), scene.at(image, 4560, 600));
            scene.form.setLight({{2_node}, {edge.Index()}, true});
            QCOMPARE(scene.at(scene.picture(), 3000, 525), scene.at(image, 3000, 525));
            scene.form.setLight({});
            QCOMPARE(scene.picture(), image);
        }
    }

    void nothingShinesThroughADimmedBox() {
        Scene scene;
        const canvas::LabelsD& from = scene.add(canvas::NodeTypeRecordSet, 300, 300);
        const canvas::LinesD& edge = scene.join(from, scene.add(canvas::NodeTypeRecordSet, 4500, 300));
        scene.add(canvas::NodeTypeComment, 2400, 150);
        scene.form.setLight({{1_node, 2_node}, {edge.Index()}, true});
        const QImage image = scene.picture();
        QVERIFY(contrast(scene.at(image, 2000, 525), scene.theme.canvas().background) > 3);
        QCOMPARE(scene.at(image, 2500, 525), scene.at(image, 2500, 405));
    }

    void dimmedBoxesArePaleAtEveryScale() {
        Scene scene;
        scene.add(canvas::NodeTypeRecordSet, 300, 300, 3000, 1500).setColor(0xFF);
        scene.add(canvas::NodeTypeRecordSet, 300, 2400, 3000, 1500).setColor(0xFFFFFF);  // with a dark caption
        const canvas::LabelsD& lit = scene.add(canvas::NodeTypeRecordSet, 4500, 300);
        for (const double scale : {1.0, 0.3, 0.12}) {
            scene.view.setScale(scale);
            const auto strongest = [&] {
                const QImage image = scene.picture();
                double most = 0;
                for (const float top : {300.0F, 2400.0F}) {
                    for (float y = top + 500; y < top + 1000; y += 15) {
                        for (float x = 1000; x < 2800; x += 15) {
                            most = std::max(most, contrast(scene.at(image, x, y), scene.theme.canvas().background));
                        }
                    }
                }
                return most;
            };
            scene.form.setLight({});
            const double plain = strongest();
            scene.form.setLight({{lit.Index()}, {}, true});
            const QByteArray words = QByteArray::number(plain) + " " + QByteArray::number(strongest());
            QVERIFY2(plain > 3 && strongest() < 2.6, words);
        }
    }

    void arrowHeadsFollowTheirLines() {
        Scene scene;
        const canvas::LabelsD& from = scene.add(canvas::NodeTypeRecordSet, 300, 300);
        const canvas::LabelsD& to = scene.add(canvas::NodeTypeRecordSet, 4500, 3000);
        const canvas::LinesD& edge = scene.join(from, to);
        const QPointF way(edge.X2() - edge.X1(), edge.Y2() - edge.Y1());
        const QPointF along = way / std::hypot(way.x(), way.y());
        const QImage image = scene.picture();
        const QPointF end = scene.view.transform().toPixels(Point{edge.X2(), edge.Y2()});
        const QPointF tip = end + along * (50 / kTwipsPerPixel / along.x());
        const auto at = [&](double back, double aside) {
            return image.pixelColor((tip - along * back + QPointF(-along.y(), along.x()) * aside).toPoint());
        };
        const CanvasColours& theme = scene.theme.canvas();
        for (const double aside : {-2.5, 2.5}) {
            QVERIFY(contrast(at(8, aside), theme.background) > 3);
            QCOMPARE(at(16, 2.4 * aside), theme.background);
        }
        // A sloped line leaves its box as it goes on, also one that is in two parts, as a loaded one is.
        scene.form.Lines.byIndex(edge.Index())->setAngle(canvas::AngleNone);
        const QImage sloped = scene.picture();
        QCOMPARE(scene.at(sloped, edge.X1(), edge.Y1()), theme.background);
        const QPointF ten = scene.view.transform().toPixels(Point{edge.X1() - 50, edge.Y1()}) + along * 10;
        QVERIFY(contrast(sloped.pixelColor(ten.toPoint()), theme.background) > 3);
        // Where the line runs along the side that it meets, the head points into the side.
        scene.form.Lines.byIndex(edge.Index())->setAngle(canvas::AngleVerticalDown);
        const QImage bent = scene.picture();
        for (const double aside : {-2.5, 2.5}) {
            QVERIFY(contrast(bent.pixelColor((end + QPointF(50 / kTwipsPerPixel - 8, aside)).toPoint()),
                             theme.background) > 3);
        }
    }

    void tintsGoFromThePalestToTheFullestInEveryTheme() {
        for (const ThemeMode mode : {ThemeMode::light, ThemeMode::dark}) {
            const CanvasColours& theme = Theme(mode).canvas();
            double former = 0;
            for (int step = 0; step <= 8; ++step) {
                const NodeColours colours = nodeColours(tintOf(step / 8.0), theme);
                const double apart = contrast(colours.fill, theme.paper);
                QVERIFY2(apart > former && contrast(colours.fill, colours.caption) >= kLeastContrast,
                         qPrintable(QStringLiteral("%1 %2").arg(step).arg(colours.fill.name())));
                former = apart;
            }
        }
    }

    void aReadyActivityWithoutTypeOrSourceWearsAMark() {
        Scene scene;
        canvas::LabelsD& source = scene.add(canvas::NodeTypeRecordSet, 300, 1500);
        canvas::LabelsD& node = scene.add(canvas::NodeTypeActivity, 3000, 1500);
        node.setReady(true);
        auto& links = *node.activity()->Act_Inputs->Add("A", 0, entities::TagNone, "A").ProvidedFrom;
        for (const ThemeMode mode : {ThemeMode::light, ThemeMode::dark}) {
            scene.theme.setMode(mode);
            links.Add("n0", entities::LinkRecordSet, "n0.A");
            node.activity()->Act_Type = 1;
            const QImage whole = scene.picture();
            node.activity()->Act_Type = -1;
            QVERIFY(scene.picture() != whole);
            node.activity()->Act_Type = 1;
            const canvas::LinesD& edge = scene.join(source, node);
            links.Remove("n0.A");
            QVERIFY(scene.repainted([&] { scene.form.Lines.RemoveFull(edge.Index()); }).contains(QPoint(260, 102)));
            QVERIFY(scene.held().convertToFormat(whole.format()) != whole);
        }
    }

    void captionsAreElidedToFit() {
        CaptionCache cache(QApplication::font());
        const QSizeF room(60, 14);
        QVERIFY(!cache.caption(1_node, "RS1", CaptionForm::line, room, 1).elided);
        const auto& cut = cache.caption(2_node, "A caption that is much too long", CaptionForm::line, room, 1);
        QVERIFY(cut.elided && cut.text.size().width() <= room.width());
        // In two lines, else in smaller letters, else shortened: names that differ at the end only can be told apart.
        const struct {
            const char* name;
            double room;  ///< of the width of the whole name
            const char* lines;
            int letters;  ///< in pixels
        } names[] = {
            {"STG_CUSTOMER_0412", 0.8, "STG_CUSTOMER_|0412", 11},
            {"ordersOfTheLastMonth", 0.6, "ordersOfThe|LastMonth", 11},
            {"HTTPServerPort", 0.8, "HTTPServer|Port", 11},
            {"HTTPServerPort", 0.7, "HTTP|ServerPort", 11},
            {"Q4SalesQ5Sales", 0.6, "Q4Sales|Q5Sales", 11},
            {"first.second-third", 0.8, "first.second-|third", 11},
            {"two words", 0.6, "two|words", 11},
            {"aLongcolumnnameofone", 0.6, "aLongcolumnn|ameofone", 11},
            {"STG_CUSTOMER_0412", 0.6, "STG_CUSTOMER_|0412", 8},
            {"STG_CUSTOMER_0412", 0.3, "STG_|CU…12", 8},
        };
        for (const auto& each : names) {
            const double width = each.room * cache.widthOf(each.name, CaptionForm::line);
            const auto& shown = cache.caption(4_node, each.name, CaptionForm::line, QSizeF(width, 40), 1);
            QCOMPARE(shown.text.text(), QString::fromUtf8(each.lines).replace(QLatin1Char('|'), QChar::LineSeparator));
            QCOMPARE(shown.font.pixelSize(), each.letters);
            QVERIFY(shown.text.size().width() <= width + 1 && shown.text.size().height() <= 40);
            QCOMPARE(shown.elided, shown.text.text().contains(QChar(0x2026)));
        }
        const auto& one = cache.caption(5_node, "STG_CUSTOMER_0412", CaptionForm::line, room, 1);
        QVERIFY(one.text.text().startsWith(QStringLiteral("STG")) && one.text.text().endsWith(QStringLiteral("12")));
        QCOMPARE(one.font.pixelSize(), 11);
        const auto& text = cache.caption(3_node,
                                         "Three words here\nand then a second paragraph that goes on and on, "
                                         "wordwithoutanyblankthatisverylong",
                                         CaptionForm::paragraph, QSizeF(90, 40), 1);
        QVERIFY(text.elided && text.text.size().height() <= 40 && text.text.size().height() > 20);
        QVERIFY(text.text.text().startsWith(QStringLiteral("Three words")));
        QCOMPARE(cache.caption(1_node, "RS2", CaptionForm::line, room, 1).text.text(), QStringLiteral("RS2"));
    }

    void aLargeGraphIsIndexedAtOnceAndLaidOutWhereSeen() {
        Scene scene;
        std::vector<canvas::LabelsD*> nodes;
        for (int i = 0; i < 3000; ++i) {
            nodes.push_back(&scene.add(canvas::NodeTypeRecordSet, static_cast<float>(i % 60) * 1300,
                                       static_cast<float>(i / 60) * 700));
        }
        Paper paper(scene.form, scene.theme);
        QVERIFY(!paper.index.stands() && !paper.index.takesChange());
        paper.grab();
        QCOMPARE(paper.index.count(), std::size_t{3000});
        QCOMPARE(paper.index.nodeAt({1400, 800}), nodes[61]);
        const auto laidOut = std::count_if(nodes.begin(), nodes.end(), [&](const canvas::LabelsD* node) {
            return paper.painter.nodes().cache().laidOut(node->Index());
        });
        QVERIFY(laidOut > 0 && laidOut < 300);
    }

    void severalViewsShowOneCanvas() {
        Scene scene;
        canvas::LabelsD& node = scene.add(canvas::NodeTypeRecordSet, 300, 300);
        WatchedView other(scene.form, scene.theme);
        other.resize(300, 200);
        other.show();
        scene.settle();
        other.verticalScrollBar()->setValue(100);
        other.setScale(0.5);
        QVERIFY(scene.view.verticalScrollBar()->value() == 0 && scene.view.scale() == 1);
        QVERIFY(other.state().window.seen().y > 0 && scene.view.state().window.seen().y == 0);
        other.painted = {};
        QVERIFY(!scene.repainted([&] { node.setBox({300, 6000, 1050, 450}); }).isEmpty());
        QVERIFY2(!other.painted.isEmpty(), "the other one shows it, too");
        other.painted = {};
        canvas::ViewState& state = scene.view.ownState();
        QVERIFY(!scene
                     .repainted([&] {
                         state.CroppingRect.show({300, 3000, 3000, 3000});
                         state.tell();
                     })
                     .isEmpty());
        QVERIFY2(other.painted.isEmpty(), "a gesture shows in its own view");
        const int reach = other.horizontalScrollBar()->maximum();
        scene.form.PicForm.setSize(34000, 13000);
        scene.form.tellPicture();
        QVERIFY(other.horizontalScrollBar()->maximum() > reach);
    }

    void onlyTheChangedAreaIsRepainted() {
        Scene scene;
        canvas::LabelsD& node = scene.add(canvas::NodeTypeRecordSet, 300, 300);
        scene.add(canvas::NodeTypeRecordSet, 6000, 6000);
        QVERIFY(QRect(0, 0, 110, 70).contains(scene.repainted([&] { node.setColor(255); }).boundingRect()));
        const QRegion moved = scene.repainted([&] { node.setBox({7500, 300, 1050, 450}); });
        QVERIFY(!moved.contains(QPoint(300, 30)) && !moved.contains(QPoint(430, 430)));
    }

    void aPartialRepaintEqualsAWholeOne() {
        Scene scene;
        std::vector<canvas::LabelsD*> nodes;
        for (int i = 0; i < 20; ++i) {
            nodes.push_back(&scene.add(i % 2 ? canvas::NodeTypeActivity : canvas::NodeTypeRecordSet,
                                       static_cast<float>(i % 5) * 2200, static_cast<float>(i / 5) * 1700));
            if (i > 0) {
                scene.join(*nodes[nodes.size() - 2], *nodes.back());
            }
        }
        canvas::LabelsD& node = *nodes[7];
        const auto mark = [&](float x) {
            canvas::ViewState& state = scene.view.ownState();
            state.GrabberVisible = true;
            state.Grabber = node.DrawRect(x, 225);
            state.tell();
        };
        for (const std::function<void()>& change : {std::function<void()>([&] { node.setColor(255); }),
                                                    {[&] {
                                                        node.setBox({3333, 2345, 1950, 450});
                                                    }},
                                                    {[&] { mark(10); }},    // at the left side
                                                    {[&] { mark(1940); }},  // and at the right one
                                                    {[&] { scene.form.SelectedLines.Add(3_edge); }},
                                                    {[&] {
                                                        scene.form.setLight({{3_node}, {}, true});
                                                    }}}) {
            QImage kept = scene.picture();
            const QRegion region = scene.repainted(change);
            const QImage whole = scene.picture();
            QVERIFY(kept != whole);
            QPainter painter(&kept);
            painter.setClipRegion(region);
            painter.drawImage(0, 0, whole);
            painter.end();
            QCOMPARE(kept, whole);  // nothing outside of the repainted region was meant to change
            QCOMPARE(scene.held().convertToFormat(whole.format()), whole);
        }
        for (QScrollBar* bar : {scene.view.horizontalScrollBar(), scene.view.verticalScrollBar()}) {
            bar->setValue(bar->value() + 60);
            scene.settle();
            const QImage whole = scene.picture();
            QCOMPARE(scene.held().convertToFormat(whole.format()), whole);
        }
    }

    void findsItemsWhereTheyAre() {
        Scene scene;
        std::mt19937 random(7);
        std::uniform_real_distribution<float> place(-40000, 90000);
        std::vector<canvas::LabelsD*> nodes;
        for (int i = 0; i < 300; ++i) {
            nodes.push_back(&scene.add(canvas::NodeTypeRecordSet, place(random), place(random)));
        }
        const canvas::LinesD& edge = scene.join(*nodes[0], *nodes[1]);
        scene.settle();
        for (int round = 0; round < 200; ++round) {  // few enough for the index to be kept up to date
            canvas::LabelsD& node = *nodes[static_cast<std::size_t>(round % 150)];
            node.setBox({place(random), place(random), 1050, 450});
            scene.view.viewport()->repaint();
            const canvas::LabelsD* found = scene.view.nodeAt({node.Left() + 500, node.Top() + 200});
            QVERIFY(found != nullptr && found->Index() >= node.Index());
        }
        const Point middle = middleOf(edge);
        const PictureIndex index(scene.form);
        QCOMPARE(index.edgeAt(middle, 0, 60).line, edge.Index());
        QCOMPARE(index.edgeAt({middle.x + 3000, middle.y + 3000}, 0, 60).line, canvas::EdgeNumber{});

        const Point inside{nodes.back()->Left() + 10, nodes.back()->Top() + 10};
        QCOMPARE(scene.view.nodeAt(inside), nodes.back());
        scene.form.Labels.Remove(nodes.back()->Index());
        QVERIFY(scene.view.nodeAt(inside) != nodes.back());
        scene.form.Labels.Remove(nodes[0]->Index());
        scene.picture();
    }

    void extremeCoordinatesAreHarmless() {
        Scene scene;
        const canvas::LabelsD& node = scene.add(canvas::NodeTypeActivity, 300, 300);
        for (const canvas::LabelsD* far : {&scene.add(canvas::NodeTypeRecordSet, -3e9F, 3e30F),
                                           &scene.add(canvas::NodeTypeRecordSet, 1e7F, 300, 1e9F, 1e9F)}) {
            scene.join(node, *far, canvas::EdgeTypeDescription);
        }
        scene.picture();
        scene.view.fit();
        scene.picture();
        scene.form.clear();
        QCOMPARE(scene.view.nodeAt({400, 400}), nullptr);
        scene.picture();
    }

    void cutLinesKeepTheirDashes() {
        const QRectF area(0, 0, 100, 100);
        QLineF line(-95, 50, 500, 50);
        QVERIFY(cutTo(line, area, 10));
        QCOMPARE(line.p1(), QPointF(-5, 50));  // nine whole dashes further on
        QCOMPARE(line.p2(), QPointF(100, 50));
        QLineF beside(-10, 20, -5, 80);
        QVERIFY(!cutTo(beside, area, 0));
        QLineF unreal(0, qQNaN(), 50, 50);
        QVERIFY(!cutTo(unreal, area, 0));
    }

    void scrollBarsCoverThePicture() {
        Scene scene;
        QScrollBar* bar = scene.view.horizontalScrollBar();
        const int width = scene.view.viewport()->width();
        QCOMPARE(bar->maximum(), 17000 / 15 + 1 - width);  // the empty picture area
        scene.view.fit();
        QCOMPARE(scene.view.scale(), 1.0);
        canvas::LabelsD& first = scene.add(canvas::NodeTypeRecordSet, 0, 0);
        scene.add(canvas::NodeTypeRecordSet, 30000, 15000);
        scene.settle();
        QVERIFY(bar->maximum() + width >= 31050 / 15);
        bar->setValue(bar->maximum());
        const QPointF right = scene.view.transform().toPixels(Point{31050, 15000});
        QVERIFY(right.x() > 0 && right.x() < width);
        first.setLeft(-9000);
        scene.settle();
        QVERIFY(bar->minimum() <= -600);
        scene.view.fit();
        const Transform now = scene.view.transform();
        for (const Point corner : {Point{-9000, 0}, Point{31050, 15450}}) {
            QVERIFY(QRectF(scene.view.viewport()->rect()).contains(now.toPixels(corner)));
        }
    }

    void scaleKeepsThePlaceUnderTheAnchor() {
        Scene scene;
        scene.add(canvas::NodeTypeRecordSet, 0, 0);
        scene.add(canvas::NodeTypeRecordSet, 60000, 60000);
        scene.settle();
        scene.view.horizontalScrollBar()->setValue(1000);
        scene.view.verticalScrollBar()->setValue(1200);
        const QPointF anchor(200, 150);
        const Point before = scene.view.transform().toTwips(anchor);
        scene.view.setScale(2.5, anchor);
        const Point after = scene.view.transform().toTwips(anchor);
        QVERIFY(std::abs(before.x - after.x) < 15 && std::abs(before.y - after.y) < 15);
        scene.view.setScale(1e9);
        QCOMPARE(scene.view.scale(), CanvasViewWidget::kLargestScale);
        scene.view.setScale(-1);
        QCOMPARE(scene.view.scale(), CanvasViewWidget::kLeastScale);
    }

    void handlesShowForSelectedAndPointedEdges() {
        Scene scene;
        const canvas::LabelsD& start = scene.add(canvas::NodeTypeRecordSet, 300, 300);
        const canvas::LinesD& edge = scene.join(start, scene.add(canvas::NodeTypeRecordSet, 6000, 3000));
        const QImage plain = scene.picture();
        QTest::mouseMove(scene.view.viewport(), scene.view.transform().toPixels(middleOf(edge)).toPoint());
        const QImage pointed = scene.picture();
        QVERIFY(pointed != plain);
        QTest::mouseMove(scene.view.viewport(), QPoint(700, 20));
        QCOMPARE(scene.picture(), plain);
        scene.form.SelectedLines.Add(edge.Index());
        QVERIFY(scene.picture() != plain && scene.picture() != pointed);
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::CanvasViewTest)
#include "canvas_view_test.moc"
