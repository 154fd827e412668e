// The painted canvas: where items lie, what is repainted, and how the kinds and themes look.

#include "qt/canvas/canvas_view.h"

#include <QApplication>
#include <QScrollBar>
#include <array>
#include <random>

#include "canvas/draw_form.h"
#include "qt/canvas/edge_painter.h"
#include "qt/canvas/node_painter.h"
#include "qt/canvas/node_shapes.h"
#include "qt/theme/model_colour.h"
#include "window_test.h"

namespace orvent::qt {

namespace {

struct SilentMessages : platform::MessageBox {
    platform::Answer show(const std::string& text, const std::string&, platform::Icon, platform::Buttons) override {
        qWarning("unexpected message: %s", text.c_str());
        return platform::Answer::ok;
    }
};

/// A view that tells which areas it was asked to paint.
class WatchedView : public CanvasViewWidget {
  public:
    using CanvasViewWidget::CanvasViewWidget;
    QRegion painted;

  protected:
    void paintEvent(QPaintEvent* event) override {
        painted += event->region();
        CanvasViewWidget::paintEvent(event);
    }
};

/// A canvas with a view that is shown.
struct Scene {
    SilentMessages messages;
    canvas::CanvasSettings settings;
    canvas::DrawForm form{canvas::CanvasServices{messages, settings}};
    Theme theme;
    WatchedView view;

    explicit Scene(ThemeMode mode = ThemeMode::light) : theme(mode), view(form, theme) {
        view.resize(800, 600);
        view.show();
        settle();
    }

    canvas::LabelsD& add(const char* name, std::int32_t kind, float left, float top, float width = 1050,
                         float height = 450) {
        return form.Labels.Add(left, width, top, height, name, kind);
    }
    canvas::LinesD& join(const canvas::LabelsD& from, const canvas::LabelsD& to) {
        return *form.Lines.addFullLine(from.Index(), 3, to.Index(), 1, canvas::EdgeTypeProvider, canvas::AngleStraight,
                                       0);
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
    /// The colour of the picture at a place in twips.
    QColor at(const QImage& image, float x, float y) const {
        const QPointF pixel = view.transform().toPixels(canvas::Point{x, y}) * image.devicePixelRatio();
        return image.pixelColor(pixel.toPoint());
    }
};

double contrastOf(const QColor& a, const QColor& b) {
    return std::abs(a.lightnessF() - b.lightnessF());
}

}  // namespace

class CanvasViewTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void paintsAnEmptyCanvas() {
        Scene scene;
        const QImage image = scene.picture();
        QCOMPARE(image.pixelColor(5, 5), scene.theme.canvas().background);
        // The bars are those of the empty picture area.
        QCOMPARE(scene.view.horizontalScrollBar()->maximum(), 17000 / 15 + 1 - scene.view.viewport()->width());
        scene.view.fit();
        QCOMPARE(scene.view.scale(), 1.0);
    }

    void eachKindHasItsOwnShape() {
        const std::array<std::int32_t, 9> kinds = {
            canvas::NodeTypeDataType, canvas::NodeTypeConstant,  canvas::NodeTypeRecordSet,
            canvas::NodeTypeFunction, canvas::NodeTypeParameter, canvas::NodeTypeActivity,
            canvas::NodeTypeLog,      canvas::NodeTypeComment,   canvas::NodeTypeAttribute};
        std::vector<QImage> seen;
        for (const std::int32_t kind : kinds) {
            Scene scene;
            canvas::LabelsD& node = scene.add("x", kind, 300, 300);
            node.setColor(0x00FFFF);  // the same fill for all; only the shape may tell them apart
            seen.push_back(scene.picture());
        }
        for (std::size_t i = 0; i + 1 < seen.size(); ++i) {
            for (std::size_t j = i + 1; j + 1 < seen.size(); ++j) {
                QVERIFY2(seen[i] != seen[j], qPrintable(QStringLiteral("kinds %1, %2").arg(kinds[i]).arg(kinds[j])));
            }
        }
        QCOMPARE(seen.back(), seen.front());  // attribute and data type are both plain boxes
    }

    void grabPointsLieNearTheOutline() {
        Scene scene;
        for (std::int32_t kind = 1; kind <= 10; ++kind) {
            const std::string name = "n" + std::to_string(kind);
            canvas::LabelsD& node = scene.add(name.c_str(), kind, 0, 0, 3000, 1200);
            const QRectF box(0, 0, 3000, 1200);
            const QPainterPath outline = nodeShape(kind).outline(box, kTwipsPerPixel);
            for (int point = 1; point <= (kind == canvas::NodeTypeActivity ? 5 : 4); ++point) {
                const canvas::Point at = node.GrabPoint(point);
                QPainterPath around;
                around.addEllipse(QPointF(at.x, at.y), 110, 110);
                QVERIFY2(around.intersects(outline) && !outline.contains(around),
                         qPrintable(QStringLiteral("kind %1 point %2").arg(kind).arg(point)));
            }
        }
    }

    void fillIsTheColourOfTheNode_data() {
        QTest::addColumn<int>("colour");
        QTest::addColumn<QColor>("light");
        QTest::addColumn<QColor>("dark");
        QTest::newRow("white") << 0xFFFFFF << QColor(255, 255, 255) << QColor(0x33373D);
        QTest::newRow("red has the low byte") << 0x0000FF << QColor(255, 0, 0) << QColor(255, 0, 0);
        QTest::newRow("blue has the high byte") << 0xFF0000 << QColor(0, 0, 255) << QColor(0, 0, 255);
        QTest::newRow("black") << 0 << QColor(0, 0, 0) << QColor(0, 0, 0);
        QTest::newRow("selected white") << (0xFFFFFF ^ 16744448) << QColor(255, 127, 0) << QColor(255, 127, 0);
    }
    void fillIsTheColourOfTheNode() {
        QFETCH(int, colour);
        for (const ThemeMode mode : {ThemeMode::light, ThemeMode::dark}) {
            QFETCH(QColor, light);
            QFETCH(QColor, dark);
            Scene scene(mode);
            canvas::LabelsD& node = scene.add("", canvas::NodeTypeRecordSet, 300, 300);
            node.setColor(colour);
            const QColor fill = scene.at(scene.picture(), 360, 600);
            QCOMPARE(fill, mode == ThemeMode::light ? light : dark);
            const QColor ink = captionColour(fill, scene.theme.canvas());
            QVERIFY2(contrastOf(ink, fill) > 0.35, qPrintable(ink.name() + fill.name()));
        }
    }

    void themeChangesWhileOpen() {
        Scene scene;
        canvas::LabelsD& a = scene.add("a", canvas::NodeTypeRecordSet, 300, 300);
        canvas::LabelsD& b = scene.add("b", canvas::NodeTypeRecordSet, 4500, 300);
        scene.join(a, b);
        for (const ThemeMode mode : {ThemeMode::light, ThemeMode::dark}) {
            scene.theme.setMode(mode);
            const QImage image = scene.picture();
            const QColor ground = scene.at(image, 3000, 1000);
            const QColor line = scene.at(image, 3000, 525);
            QCOMPARE(ground, scene.theme.canvas().background);
            QVERIFY2(contrastOf(ground, line) > 0.4, qPrintable(ground.name() + line.name()));
        }
    }

    void captionsAreElidedToFit() {
        CaptionCache cache(QApplication::font());
        const QSizeF room(60, 14);
        const auto& fits = cache.caption(1, "RS1", CaptionForm::line, room, 1);
        QVERIFY(!fits.elided);
        const auto& cut = cache.caption(2, "A caption that is much too long", CaptionForm::line, room, 1);
        QVERIFY(cut.elided && cut.text.size().width() <= room.width());
        const QSizeF note(90, 40);
        const auto& text = cache.caption(3,
                                         "Three words here\nand then a second paragraph that goes on and on, "
                                         "wordwithoutanyblankthatisverylong",
                                         CaptionForm::paragraph, note, 1);
        QVERIFY(text.elided && text.text.size().height() <= note.height());
        QVERIFY(text.text.size().height() > 2 * 10);
        QVERIFY(text.text.text().startsWith(QStringLiteral("Three words")));
        const auto& renamed = cache.caption(1, "RS2", CaptionForm::line, room, 1);
        QCOMPARE(renamed.text.text(), QStringLiteral("RS2"));
    }

    void captionsAreLaidOutOnlyWhenSeen() {
        Scene scene;
        for (int i = 0; i < 500; ++i) {
            scene.add(("n" + std::to_string(i)).c_str(), canvas::NodeTypeRecordSet, 0, static_cast<float>(i) * 600);
        }
        scene.picture();
        QVERIFY(scene.view.laidOutCaptions() > 0 && scene.view.laidOutCaptions() < 40);
    }

    void onlyTheChangedAreaIsRepainted() {
        Scene scene;
        canvas::LabelsD& node = scene.add("a", canvas::NodeTypeRecordSet, 300, 300);
        scene.add("b", canvas::NodeTypeRecordSet, 6000, 6000);
        scene.settle();
        scene.view.painted = {};
        node.setColor(255);
        scene.settle();
        QVERIFY(!scene.view.painted.isEmpty());
        QVERIFY(QRect(0, 0, 110, 70).contains(scene.view.painted.boundingRect()));

        scene.view.painted = {};
        node.setBox(7500, 300, 1050, 450);
        scene.settle();
        QVERIFY(scene.view.painted.contains(QPoint(30, 30)));   // where it was
        QVERIFY(scene.view.painted.contains(QPoint(530, 30)));  // where it is
        QVERIFY(!scene.view.painted.contains(QPoint(300, 30)));
        QVERIFY(!scene.view.painted.contains(QPoint(430, 430)));
    }

    void aPartialRepaintEqualsAWholeOne() {
        Scene scene;
        std::vector<canvas::LabelsD*> nodes;
        for (int i = 0; i < 20; ++i) {
            nodes.push_back(&scene.add(("n" + std::to_string(i)).c_str(), i % 2 ? 8 : 5,
                                       static_cast<float>(i % 5) * 2200, static_cast<float>(i / 5) * 1700));
        }
        for (std::size_t i = 1; i < nodes.size(); ++i) {
            scene.join(*nodes[i - 1], *nodes[i]);
        }
        scene.settle();
        QImage kept = scene.picture();
        scene.view.painted = {};
        nodes[7]->setBox(3333, 2345, 1050, 450);
        scene.settle();
        const QRegion region = scene.view.painted;
        const QImage whole = scene.picture();
        QPainter painter(&kept);
        painter.setClipRegion(region);
        painter.drawImage(0, 0, whole);
        painter.end();
        QCOMPARE(kept, whole);  // nothing outside of the repainted region was meant to change
    }

    void findsItemsWhereTheyAre() {
        Scene scene;
        std::mt19937 random(7);
        std::uniform_real_distribution<float> place(-40000, 90000);
        std::vector<canvas::LabelsD*> nodes;
        for (int i = 0; i < 300; ++i) {
            nodes.push_back(&scene.add(("n" + std::to_string(i)).c_str(), 5, place(random), place(random)));
        }
        canvas::LinesD& edge = scene.join(*nodes[0], *nodes[1]);
        scene.settle();
        for (int round = 0; round < 200; ++round) {  // few enough for the index to be kept up to date
            canvas::LabelsD& node = *nodes[static_cast<std::size_t>(round % 150)];
            node.setBox(place(random), place(random), 1050, 450);
            scene.view.viewport()->repaint();
            const canvas::LabelsD* found = scene.view.nodeAt({node.Left() + 500, node.Top() + 200});
            QVERIFY(found != nullptr && found->Index() >= node.Index());
        }
        const canvas::Point middle{(edge.X1() + edge.X2()) / 2, (edge.Y1() + edge.Y2()) / 2};
        QCOMPARE(scene.view.edgeAt(middle, 4), &edge);
        QCOMPARE(scene.view.edgeAt({middle.x + 3000, middle.y + 3000}, 4), nullptr);

        canvas::LabelsD& top = *nodes.back();
        const canvas::Point inside{top.Left() + 10, top.Top() + 10};
        scene.form.Labels.Remove(top.Index());
        const canvas::LabelsD* below = scene.view.nodeAt(inside);
        QVERIFY(below == nullptr || below != nodes.back());
        scene.form.Labels.Remove(nodes[0]->Index());
        QCOMPARE(scene.view.edgeAt(middle, 4), nullptr);
        scene.picture();
    }

    void extremeCoordinatesAreHarmless() {
        Scene scene;
        canvas::LabelsD& a = scene.add("a", 5, -3e9F, 3e30F);
        canvas::LabelsD& b = scene.add("b", 8, 300, 300);
        canvas::LabelsD& c = scene.add("c", 5, 1e7F, 300, 1e9F, 1e9F);
        for (canvas::LinesD* edge : {&scene.join(b, a), &scene.join(b, c)}) {
            edge->setEdgeType(canvas::EdgeTypeDescription);
        }
        QElapsedTimer clock;
        clock.start();
        scene.picture();
        scene.view.fit();
        scene.picture();
        QVERIFY(clock.elapsed() < 3000);
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
        scene.add("a", 5, 0, 0);
        scene.add("b", 5, 30000, 15000);
        scene.settle();
        QScrollBar* bar = scene.view.horizontalScrollBar();
        QVERIFY(bar->maximum() + scene.view.viewport()->width() >= 31050 / 15);
        bar->setValue(bar->maximum());
        const QPointF right = scene.view.transform().toPixels(canvas::Point{31050, 15000});
        QVERIFY(right.x() > 0 && right.x() < scene.view.viewport()->width());
        scene.form.Labels.byIndex(1)->setLeft(-9000);
        scene.settle();
        QVERIFY(bar->minimum() <= -600);
        scene.view.fit();
        const Transform now = scene.view.transform();
        for (const canvas::Point corner : {canvas::Point{-9000, 0}, canvas::Point{31050, 15450}}) {
            QVERIFY(QRectF(scene.view.viewport()->rect()).contains(now.toPixels(corner)));
        }
    }

    void scaleKeepsThePlaceUnderTheAnchor() {
        Scene scene;
        scene.add("a", 5, 0, 0);
        scene.add("b", 5, 60000, 60000);
        scene.settle();
        scene.view.horizontalScrollBar()->setValue(1000);
        scene.view.verticalScrollBar()->setValue(1200);
        const QPointF anchor(200, 150);
        const canvas::Point before = scene.view.transform().toTwips(anchor);
        scene.view.setScale(2.5, anchor);
        const canvas::Point after = scene.view.transform().toTwips(anchor);
        QVERIFY(std::abs(before.x - after.x) < 15 && std::abs(before.y - after.y) < 15);
        scene.view.setScale(1e9);
        QCOMPARE(scene.view.scale(), CanvasViewWidget::kLargestScale);
        scene.view.setScale(-1);
        QCOMPARE(scene.view.scale(), CanvasViewWidget::kLeastScale);
    }

    void fillingIsNotIndexedItemByItem() {
        Scene scene;
        scene.settle();
        scene.view.painted = {};
        std::vector<canvas::LabelsD*> nodes;
        for (int i = 0; i < 3000; ++i) {
            nodes.push_back(&scene.add(("n" + std::to_string(i)).c_str(), 5, static_cast<float>(i % 60) * 1300,
                                       static_cast<float>(i / 60) * 700));
        }
        QCOMPARE(scene.view.indexedItems(), std::size_t{0});
        scene.picture();
        QCOMPARE(scene.view.indexedItems(), std::size_t{3000});
        QCOMPARE(scene.view.nodeAt({1400, 800}), nodes[61]);
    }

    void theGrabMarkerMoves() {
        Scene scene;
        canvas::LabelsD& node = scene.add("a", 5, 3000, 3000, 3000, 3000);
        const QImage plain = scene.picture();
        scene.form.GrabberVisible = true;
        node.DrawRect(100, 1500);
        scene.settle();
        const QPoint left = scene.view.transform().toPixels(node.GrabPoint(1)).toPoint();
        QVERIFY(scene.picture() != plain);
        scene.view.painted = {};
        node.DrawRect(2900, 1500);
        scene.settle();
        QVERIFY(scene.view.painted.contains(left));  // the old marker goes
        QVERIFY(scene.view.painted.contains(scene.view.transform().toPixels(node.GrabPoint(3)).toPoint()));
    }

    void handlesShowForSelectedAndPointedEdges() {
        Scene scene;
        canvas::LabelsD& a = scene.add("a", 5, 300, 300);
        canvas::LabelsD& b = scene.add("b", 5, 6000, 3000);
        canvas::LinesD& edge = scene.join(a, b);
        const QImage plain = scene.picture();
        const QPoint middle = scene.view.transform()
                                  .toPixels(canvas::Point{(edge.X1() + edge.X2()) / 2, (edge.Y1() + edge.Y2()) / 2})
                                  .toPoint();
        QTest::mouseMove(scene.view.viewport(), middle);
        const QImage pointed = scene.picture();
        QVERIFY(pointed != plain);
        QTest::mouseMove(scene.view.viewport(), QPoint(700, 20));
        QCOMPARE(scene.picture(), plain);
        scene.form.SelectedLines.Add(edge.Index());
        const QImage selected = scene.picture();
        QVERIFY(selected != plain && selected != pointed);
        scene.form.SelectedLines.Clear();
        QCOMPARE(scene.picture(), plain);
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::CanvasViewTest)
#include "canvas_view_test.moc"
