#include "qt/canvas/node_shapes.h"

#include <QLineF>
#include <algorithm>
#include <array>
#include <initializer_list>

namespace orvent::qt {

namespace {

struct Corner {
    QPointF at;
    double radius;
};

/// The polygon with its corners rounded off.
QPainterPath rounded(std::initializer_list<Corner> corners) {
    QPainterPath path;
    const std::size_t n = corners.size();
    const Corner* c = corners.begin();
    for (std::size_t i = 0; i < n; ++i) {
        const QPointF at = c[i].at;
        QLineF back(at, c[(i + n - 1) % n].at);
        QLineF onward(at, c[(i + 1) % n].at);
        const double radius = std::min({c[i].radius, back.length() / 2, onward.length() / 2});
        back.setLength(radius);
        onward.setLength(radius);
        if (i == 0) {
            path.moveTo(back.p2());
        } else {
            path.lineTo(back.p2());
        }
        path.quadTo(at, onward.p2());
    }
    path.closeSubpath();
    return path;
}

double flare(const QRectF& box) {
    return std::min(box.width() * 0.15, box.height() * 0.4);
}
double nose(const QRectF& box) {
    return std::min(box.width() * 0.16, box.height() * 0.36);
}
double lidRadius(const QRectF& box) {
    return std::min(box.height() * 0.14, box.width() * 0.14);
}
double foldSize(const QRectF& box, double unit) {
    return std::min({10 * unit, box.width() * 0.3, box.height() * 0.4});
}
double headerHeight(const QRectF& box, double unit) {
    return std::min(8 * unit, box.height() * 0.3);
}

// Broad at the left, where the inputs are, and pointed at the right, where the output is.
QPainterPath funnelOutline(const QRectF& box, double unit) {
    const double waist = box.height() * kFunnelWaist;
    const double in = box.left() + flare(box);
    const double out = box.right() - nose(box);
    return rounded({{box.topLeft(), 2.5 * unit},
                    {{in, box.top() + waist}, 5 * unit},
                    {{out, box.top() + waist}, 4 * unit},
                    {{box.right(), box.center().y()}, 2.5 * unit},
                    {{out, box.bottom() - waist}, 4 * unit},
                    {{in, box.bottom() - waist}, 5 * unit},
                    {box.bottomLeft(), 2.5 * unit}});
}

QRectF funnelRoom(const QRectF& box, double unit) {
    const double waist = box.height() * kFunnelWaist;
    return box.adjusted(flare(box) * 0.8 + unit, waist, -nose(box) * 0.55 - unit, -waist);
}

QPainterPath drumOutline(const QRectF& box, double) {
    const double ry = lidRadius(box);
    QPainterPath path;
    path.moveTo(box.left(), box.top() + ry);
    path.arcTo(QRectF(box.left(), box.top(), box.width(), 2 * ry), 180, -180);
    path.lineTo(box.right(), box.bottom() - ry);
    path.arcTo(QRectF(box.left(), box.bottom() - 2 * ry, box.width(), 2 * ry), 0, -180);
    path.closeSubpath();
    return path;
}

QRectF drumRoom(const QRectF& box, double unit) {
    const double ry = lidRadius(box);
    return box.adjusted(2 * unit, 2 * ry + unit, -2 * unit, 0);
}

QPainterPath sheetOutline(const QRectF& box, double unit) {
    const double fold = foldSize(box, unit);
    return rounded({{box.topLeft(), 2 * unit},
                    {{box.right() - fold, box.top()}, 0},
                    {{box.right(), box.top() + fold}, 0},
                    {box.bottomRight(), 2 * unit},
                    {box.bottomLeft(), 2 * unit}});
}

QRectF sheetRoom(const QRectF& box, double unit) {
    return box.adjusted(6 * unit, 5 * unit, -12 * unit, -4 * unit);
}

QPainterPath roundedBox(const QRectF& box, double radius) {
    QPainterPath path;
    path.addRoundedRect(box, radius, radius);
    return path;
}

QPainterPath cardOutline(const QRectF& box, double unit) {
    return roundedBox(box, 3 * unit);
}

QRectF cardRoom(const QRectF& box, double unit) {
    return box.adjusted(4 * unit, headerHeight(box, unit), -4 * unit, 0);
}

QPainterPath plainOutline(const QRectF& box, double unit) {
    return roundedBox(box, 2.5 * unit);
}

QPainterPath pillOutline(const QRectF& box, double) {
    return roundedBox(box, std::min(box.width(), box.height()) / 2);
}

QPainterPath hexagonOutline(const QRectF& box, double unit) {
    const double in = nose(box);
    return rounded({{{box.left(), box.center().y()}, 2 * unit},
                    {{box.left() + in, box.top()}, 3 * unit},
                    {{box.right() - in, box.top()}, 3 * unit},
                    {{box.right(), box.center().y()}, 2 * unit},
                    {{box.right() - in, box.bottom()}, 3 * unit},
                    {{box.left() + in, box.bottom()}, 3 * unit}});
}

QPainterPath octagonOutline(const QRectF& box, double unit) {
    const double cut = std::min({7 * unit, box.width() / 4, box.height() / 4});
    return rounded({{{box.left() + cut, box.top()}, unit},
                    {{box.right() - cut, box.top()}, unit},
                    {{box.right(), box.top() + cut}, unit},
                    {{box.right(), box.bottom() - cut}, unit},
                    {{box.right() - cut, box.bottom()}, unit},
                    {{box.left() + cut, box.bottom()}, unit},
                    {{box.left(), box.bottom() - cut}, unit},
                    {{box.left(), box.top() + cut}, unit}});
}

double tagPoint(const QRectF& box) {
    return std::min(box.width() * 0.14, box.height() * 0.45);
}

QPainterPath tagOutline(const QRectF& box, double unit) {
    const double in = box.left() + tagPoint(box);
    return rounded({{{in, box.top()}, 2 * unit},
                    {box.topRight(), 2 * unit},
                    {box.bottomRight(), 2 * unit},
                    {{in, box.bottom()}, 2 * unit},
                    {{box.left(), box.center().y()}, 2 * unit}});
}

QRectF tagRoom(const QRectF& box, double unit) {
    return box.adjusted(tagPoint(box) + 3 * unit, 0, -4 * unit, 0);
}

QRectF plainRoom(const QRectF& box, double unit) {
    return box.adjusted(4 * unit, 0, -4 * unit, 0);
}

QRectF roundRoom(const QRectF& box, double unit) {
    const double in = std::min(7 * unit, box.width() / 6);
    return box.adjusted(in, 0, -in, 0);
}

// By figure.
constexpr std::array<NodeShape, 11> kNodeShapes = {{
    {plainOutline, plainRoom, CaptionForm::line},       // plain
    {plainOutline, plainRoom, CaptionForm::line},       // field
    {tagOutline, tagRoom, CaptionForm::line},           // tag
    {octagonOutline, plainRoom, CaptionForm::line},     // octagon
    {hexagonOutline, roundRoom, CaptionForm::line},     // hexagon
    {hexagonOutline, roundRoom, CaptionForm::line},     // double hexagon
    {pillOutline, roundRoom, CaptionForm::line},        // pill
    {drumOutline, drumRoom, CaptionForm::line},         // drum
    {funnelOutline, funnelRoom, CaptionForm::line},     // funnel
    {cardOutline, cardRoom, CaptionForm::strongLine},   // card
    {sheetOutline, sheetRoom, CaptionForm::paragraph},  // sheet
}};

}  // namespace

const NodeShape& nodeShape(canvas::Figure figure) {
    return kNodeShapes[static_cast<std::size_t>(figure)];
}

QPainterPath funnelMouth(const QRectF& box, double unit) {
    const double waist = box.height() * kFunnelWaist * 0.6;
    const double in = box.left() + flare(box) * 0.6;
    return rounded({{box.topLeft(), 2.5 * unit},
                    {{in, box.top() + waist}, 0},
                    {{in, box.bottom() - waist}, 0},
                    {box.bottomLeft(), 2.5 * unit}});
}

QPainterPath drumLid(const QRectF& box, double) {
    QPainterPath path;
    path.addEllipse(QRectF(box.left(), box.top(), box.width(), 2 * lidRadius(box)));
    return path;
}

QPainterPath sheetFold(const QRectF& box, double unit) {
    const double fold = foldSize(box, unit);
    return rounded({{{box.right() - fold, box.top()}, 0},
                    {{box.right() - fold, box.top() + fold}, 1.5 * unit},
                    {{box.right(), box.top() + fold}, 0}});
}

QPainterPath tagHole(const QRectF& box, double unit) {
    const double radius = std::min(1.8 * unit, box.height() / 8);
    QPainterPath path;
    path.addEllipse(QPointF(box.left() + tagPoint(box), box.center().y()), radius, radius);
    return path;
}

QPainterPath fieldStripe(const QRectF& box, double unit) {
    QPainterPath stripe;
    stripe.addRect(QRectF(box.topLeft(), QSizeF(3.5 * unit, box.height())));
    return stripe & plainOutline(box, unit);
}

QPainterPath innerHexagon(const QRectF& box, double unit) {
    return hexagonOutline(box.adjusted(5 * unit, 3 * unit, -5 * unit, -3 * unit), unit);
}

QPainterPath cardHeader(const QRectF& box, double unit) {
    const double bottom = box.top() + headerHeight(box, unit);
    return rounded(
        {{box.topLeft(), 3 * unit}, {box.topRight(), 3 * unit}, {{box.right(), bottom}, 0}, {{box.left(), bottom}, 0}});
}

}  // namespace orvent::qt
