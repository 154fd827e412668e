// Boxes and lines that are written straight into an image.

#include "qt/canvas/pixels.h"

#include "window_test.h"

namespace orvent::qt {

namespace {

constexpr QRgb kGround = 0xFFFFFFFF;
constexpr QRgb kInk = 0xFF204060;

/// A part of a picture, as it looks on an image of its own.
template <class Draw>
QImage drawn(const QRect& part, const Draw& draw, double ratio = 1) {
    QImage image(part.size() * ratio, QImage::Format_RGB32);
    image.fill(kGround);
    Pixels pixels(image, part.topLeft(), ratio);
    draw(pixels);
    return image;
}

void nothing(Pixels&) {}

}  // namespace

class PixelsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void aPartLooksAsInTheWhole() {
        const QRect all(0, 0, 120, 100);
        const QRect part(37, 21, 60, 50);
        for (const QLineF& line :
             {QLineF(-50, 40, 300, 40), QLineF(-5.5, 10.5, 310.5, 71.5), QLineF(310.5, 13, -700.5, 71),
              QLineF(61.5, -900.5, 83, 400), QLineF(3, 3, 97, 97), QLineF(45, 45, 45, 45)}) {
            for (const double ratio : {1.0, 2.0}) {
                for (const double width : {0.0, 2.0, 3.0}) {
                    const auto draw = [&](Pixels& pixels) {
                        width > 0 ? pixels.smoothLine(line, width, kInk) : pixels.line(line, kInk);
                    };
                    const QImage whole = drawn(all, draw, ratio);
                    QVERIFY(whole != drawn(all, nothing, ratio));
                    const QRect device(part.topLeft() * ratio, part.size() * ratio);
                    QCOMPARE(drawn(part, draw, ratio), whole.copy(device));
                }
            }
        }
    }

    void smoothEdgesCoverPartsOfPixels() {
        const QImage sharp = drawn({0, 0, 20, 20}, [](Pixels& pixels) { pixels.smoothLine({5, 10, 15, 10}, 2, kInk); });
        const QImage between = drawn({0, 0, 20, 20}, [](Pixels& pixels) {
            pixels.smoothLine({5, 10.5, 15, 10.5}, 2, kInk);
        });
        const int half = qRed(kInk) + (qRed(kGround) - qRed(kInk)) / 2;
        for (const auto& [y, expected] : {std::pair{8, kGround}, {9, kInk}, {10, kInk}, {11, kGround}}) {
            QCOMPARE(sharp.pixel(10, y), expected);
        }
        QVERIFY(std::abs(qRed(between.pixel(10, 9)) - half) < 2 && std::abs(qRed(between.pixel(10, 11)) - half) < 2);
        QCOMPARE(between.pixel(10, 10), kInk);
        // A square end reaches as far as half the width.
        for (const auto& [x, expected] : {std::pair{3, kGround}, {4, kInk}, {15, kInk}, {16, kGround}}) {
            QCOMPARE(sharp.pixel(x, 10), expected);
        }
    }

    void boxesKeepWithinTheImage() {
        const std::pair<QRectF, QRect> rows[] = {{{2.6, 3.4, 4, 2}, {3, 3, 4, 2}},
                                                 {{5.1, 5.1, 0.2, 0.2}, {5, 5, 1, 1}},  // smaller than a pixel
                                                 {{-3, -3, 5, 6}, {0, 0, 2, 3}},
                                                 {{-1e12, -1e12, 2e12, 2e12}, {0, 0, 10, 10}},
                                                 {{50, 2, 5, 5}, {}}};
        for (const auto& [box, filled] : rows) {
            QImage expected = drawn({0, 0, 10, 10}, nothing);
            QPainter(&expected).fillRect(filled, QColor(kInk));
            const QRectF& area = box;
            QCOMPARE(drawn({0, 0, 10, 10}, [&area](Pixels& pixels) { pixels.fill(area, kInk); }), expected);
        }
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::PixelsTest)
#include "pixels_test.moc"
