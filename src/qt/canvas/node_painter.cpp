#include "qt/canvas/node_painter.h"

#include <QFontMetricsF>
#include <cmath>

#include "canvas/node_tip.h"
#include "qt/canvas/comment_bar.h"
#include "qt/canvas/node_shapes.h"
#include "qt/canvas/tint_legend.h"
#include "qt/text.h"
#include "qt/theme/blend.h"

namespace orvent::qt {

namespace {

constexpr double kPictureMargin = 2;  // pixels around a kept picture
constexpr int kLargestPicture = 512;  // device pixels; larger boxes are drawn each time
constexpr std::size_t kMostPictures = 256;
constexpr double kFoundRim = 5;       // pixels around a node that was found, at scale 1
constexpr double kLeastFoundRim = 2;  // pixels
constexpr double kNote = 10;          // pixels of its letters, at scale 1
constexpr int kLeastNote = 7;         // pixels
constexpr double kLackRadius = 3.5;   // pixels at scale 1

void paintSelection(const PaintContext& context, const QRectF& box) {
    const double pen = context.penWidth(2);
    const double gap = std::max(2.0, context.length(3));
    const QRectF frame = context.sharp(box.adjusted(-gap, -gap, gap, gap), pen);
    if (context.detail != Detail::full) {
        const double half = pen / 2;
        context.image->frame(frame.adjusted(-half, -half, half, half), pen, context.colours.accent.rgb());
        return;
    }
    context.painter.setPen(QPen(context.colours.accent, pen));
    context.painter.setBrush(Qt::NoBrush);
    context.painter.drawRoundedRect(frame, context.length(4), context.length(4));
}

/// The parts that tell the figures apart at a glance.
void paintMarks(const PaintContext& context, canvas::Figure figure, const QRectF& box, const QColor& fill,
                const QPen& border) {
    QPainter& painter = context.painter;
    const double unit = context.transform.scale;
    switch (figure) {
        case canvas::Figure::funnel:
            painter.fillPath(funnelMouth(box, unit), context.colours.activity);
            break;
        case canvas::Figure::drum:
            painter.setPen(border);
            painter.setBrush(context.colours.recordSet);
            painter.drawPath(drumLid(box, unit));
            break;
        case canvas::Figure::field:
            painter.fillPath(fieldStripe(box, unit), blend(fill, context.colours.outline, 0.45));
            break;
        case canvas::Figure::tag:
            painter.setPen(border);
            painter.setBrush(context.colours.background);
            painter.drawPath(tagHole(box, unit));
            break;
        case canvas::Figure::doubleHexagon:
            painter.setPen(border);
            painter.setBrush(Qt::NoBrush);
            painter.drawPath(innerHexagon(box, unit));
            break;
        case canvas::Figure::sheet:
            painter.setPen(border);
            painter.setBrush(blend(fill, QColor(Qt::black), 0.14));
            painter.drawPath(sheetFold(box, unit));
            break;
        case canvas::Figure::card: {
            painter.fillPath(cardHeader(box, unit), context.colours.logHeader);
            const double middle = cardHeader(box, unit).boundingRect().center().y();
            painter.setPen(Qt::NoPen);
            painter.setBrush(context.colours.lightText);
            for (const double at : {6.0, 11.0, 16.0}) {
                painter.drawEllipse(QPointF(box.left() + at * unit, middle), 1.3 * unit, 1.3 * unit);
            }
            break;
        }
        default:
            break;
    }
}

/// Below full detail: a plain box, and what is left of the marks; smaller still, only its colour.
void paintThin(const PaintContext& context, canvas::Figure figure, const QRectF& place, const QColor& fill) {
    Pixels& pixels = *context.image;
    if (context.detail == Detail::coarse) {
        pixels.fill(place, fill == context.colours.paper ? context.colours.outline.rgb() : fill.rgb());
        return;
    }
    const double pen = context.penWidth(1);
    const double half = pen / 2;
    const QRectF box = context.sharp(place, pen);
    const QRectF inside = box.adjusted(half, half, -half, -half);
    pixels.fill(box.adjusted(-half, -half, half, half), context.colours.outline.rgb());
    pixels.fill(inside, fill.rgb());
    if (figure == canvas::Figure::funnel) {
        pixels.fill(QRectF(inside.topLeft(), QSizeF(std::max(2.0, box.width() * 0.12), inside.height())),
                    context.colours.activity.rgb());
    } else if (figure == canvas::Figure::drum) {
        pixels.fill(QRectF(inside.topLeft(), QSizeF(inside.width(), std::max(2.0, box.height() * 0.25))),
                    context.colours.recordSet.rgb());
    }
}

/// Beside the name of an activity that looks finished and is not: a ring with gaps, in the corner that its point leaves
/// free.
void paintLack(const PaintContext& context, const QRectF& box) {
    QPen pen(context.colours.line, context.penWidth(1));
    pen.setCapStyle(Qt::FlatCap);
    pen.setDashPattern({2.2, 1.47});  // six dashes around the ring
    context.painter.setPen(pen);
    context.painter.setBrush(Qt::NoBrush);
    const double radius = context.length(kLackRadius);
    const double edge = radius + context.length(1);
    context.painter.drawEllipse(box.topRight() + QPointF(-edge, edge), radius, radius);
}

/// Three dots before the name: what leads here comes from somewhere else.
void paintBeyond(const PaintContext& context, const QRectF& box, const QColor& colour) {
    context.painter.setPen(Qt::NoPen);
    context.painter.setBrush(colour);
    const double step = context.length(3.6);
    for (int dot = 0; dot < 3; ++dot) {
        context.painter.drawEllipse(QPointF(box.left() + context.length(4) + dot * step, box.center().y()),
                                    context.length(1.1), context.length(1.1));
    }
}

void drawBox(const PaintContext& context, canvas::Figure figure, const QRectF& box, const QColor& fill, bool faint) {
    const double pen = context.penWidth(1);
    const QPen border(context.colours.outline, pen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPainterPath outline = nodeShape(figure).outline(box, context.transform.scale);
    if (faint) {
        // What lies below does not shine through.
        context.painter.fillPath(outline, context.colours.background);
        context.painter.setOpacity(1 - kDimmedShare);
    }
    context.painter.fillPath(outline, fill);
    paintMarks(context, figure, box, fill, border);
    context.painter.strokePath(outline, border);
    context.painter.setOpacity(1);
}

/// At the upper right corner of the box, above its name, within what is repainted with it.
void paintNote(const PaintContext& context, const canvas::LabelsD& node, const QRectF& box) {
    const std::string note = context.notes ? context.notes->note(node) : std::string();
    if (note.empty()) {
        return;
    }
    const QString words = text(note);
    QFont font = context.painter.font();
    font.setPixelSize(std::max(kLeastNote, static_cast<int>(context.length(kNote))));
    font.setBold(true);
    const QFontMetricsF letters(font);
    QRectF room(QPointF(), QSizeF(letters.horizontalAdvance(words) + letters.height() * 0.6, letters.height()));
    room.moveTopRight({box.right() + 2, box.top() - 2});
    context.painter.setPen(Qt::NoPen);
    context.painter.setBrush(context.colours.accent);
    context.painter.drawRoundedRect(room, room.height() / 2, room.height() / 2);
    context.painter.setFont(font);
    context.painter.setPen(context.colours.background);
    context.painter.drawText(room, Qt::AlignCenter, words);
}

}  // namespace

const NodeColours& NodePainter::coloursOf(std::int32_t modelColour, const CanvasColours& theme) {
    const auto [row, isNew] = colours_.try_emplace(modelColour);
    if (isNew) {
        row->second = nodeColours(modelColour, theme);
    }
    return row->second;
}

void paintCentre(const PaintContext& context, const canvas::LabelsD& node) {
    const double around = context.length(5);
    QColor colour = context.colours.accent;
    colour.setAlphaF(0.28F);
    context.painter.setPen(Qt::NoPen);
    context.painter.setBrush(colour);
    context.painter.drawRoundedRect(context.transform.toPixels(boxOf(node)).adjusted(-around, -around, around, around),
                                    2 * around, 2 * around);
}

// What a figure takes of its box grows more slowly than the box, so a few rounds find the width.
float NodePainter::widthForName(const canvas::LabelsD& node) {
    const NodeShape& shape = nodeShape(node.figure());
    const double letters = captions_.widthOf(node.shownText(), shape.form) + 1;  // boxes are drawn on whole pixels
    QRectF box(0, 0, letters, node.Height() / kTwipsPerPixel);
    for (int round = 0; round < 12; ++round) {
        box.setWidth(letters + box.width() - shape.captionRoom(box, 1).width());
    }
    return static_cast<float>(box.width() * kTwipsPerPixel);
}

void paintFound(const PaintContext& context, const canvas::LabelsD& node) {
    const double around = std::max(kLeastFoundRim, context.length(kFoundRim));
    context.painter.setPen(Qt::NoPen);
    context.painter.setBrush(context.colours.found);
    context.painter.drawRoundedRect(context.transform.toPixels(boxOf(node)).adjusted(-around, -around, around, around),
                                    around, around);
}

void NodePainter::prepare(const PaintContext& context) {
    captions_.trim();
    if (context.transform.scale != scale_ || context.pixelRatio != pixelRatio_ || pictures_.size() > kMostPictures) {
        scale_ = context.transform.scale;
        pixelRatio_ = context.pixelRatio;
        pictures_.clear();
    }
}

void NodePainter::paintBox(const PaintContext& context, canvas::Figure figure, const QRectF& box, const QColor& fill,
                           bool faint) {
    const int width = static_cast<int>(std::lround(box.width() * context.pixelRatio));
    const int height = static_cast<int>(std::lround(box.height() * context.pixelRatio));
    if (width > kLargestPicture || height > kLargestPicture) {
        drawBox(context, figure, box, fill, faint);
        return;
    }
    // Boxes stand on whole device pixels, so the same picture fits all of them.
    QPixmap& picture = pictures_[{figure, width, height, fill.rgb(), faint}];
    const double margin =
        kPictureMargin + box.left() - std::floor(box.left() * context.pixelRatio) / context.pixelRatio;
    if (picture.isNull()) {
        const int around = static_cast<int>(std::ceil(2 * (kPictureMargin + 1) * context.pixelRatio));
        picture = QPixmap(width + around, height + around);
        picture.setDevicePixelRatio(context.pixelRatio);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        const PaintContext inside{painter, context.transform, context.colours, context.pixelRatio, context.detail};
        drawBox(inside, figure, QRectF(QPointF(margin, margin), box.size()), fill, faint);
    }
    context.painter.drawPixmap(box.topLeft() - QPointF(margin, margin), picture);
}

void NodePainter::paintCaption(const PaintContext& context, const canvas::LabelsD& node, const QRectF& box,
                               const QColor& colour) {
    const NodeShape& shape = nodeShape(node.figure());
    QRectF room = shape.captionRoom(box, context.transform.scale);
    if (shape.form == CaptionForm::paragraph) {
        room.setRight(std::min(room.right(), commentStrip(box, context.transform.scale).left()));
    }
    if (room.width() < 4 || node.shownText().empty()) {
        return;
    }
    const CaptionCache::Caption& caption =
        captions_.caption(node.Index(), node.shownText(), shape.form, room.size(), context.transform.scale);
    const QSizeF size = caption.text.size();
    QPointF at(room.left(), room.top());
    if (shape.form != CaptionForm::paragraph) {
        at = QPointF(room.center().x() - size.width() / 2, room.center().y() - size.height() / 2);
    }
    context.painter.setFont(caption.font);
    context.painter.setPen(colour);
    context.painter.drawStaticText(context.sharp(at, 0), caption.text);
    if (shape.form == CaptionForm::paragraph && caption.scrolls()) {
        const CommentBar bar(box, context.transform.scale, caption);
        QColor veiled = colour;
        veiled.setAlphaF(0.15F);
        context.painter.fillRect(bar.track, veiled);
        veiled.setAlphaF(0.55F);
        context.painter.fillRect(bar.thumb, veiled);
    }
}

void NodePainter::paint(const PaintContext& context, const canvas::LabelsD& node, NodeState state) {
    const std::optional<double> tint = context.tints ? context.tints->share(node) : std::nullopt;
    const std::int32_t colour = tint ? tintOf(*tint) : (node.Color() ^ state.mask) & 0xFFFFFF;
    const NodeColours& colours = coloursOf(colour, context.colours);
    const QRectF place = context.transform.toPixels(boxOf(node));
    if (context.detail != Detail::full) {
        paintThin(context, node.figure(), place, state.dimmed ? dimmed(colours, context.colours).fill : colours.fill);
    } else {
        const QRectF box = context.sharp(place, context.penWidth(1));
        paintBox(context, node.figure(), box, colours.fill, state.dimmed);
        context.painter.setOpacity(state.dimmed ? 1 - kDimmedShare : 1);
        paintCaption(context, node, box, colours.caption);
        if (context.selection && !canvas::lackOf(node).empty()) {
            paintLack(context, box);
        }
        if (context.selection && state.beyond) {
            paintBeyond(context, box, colours.caption);
        }
        context.painter.setOpacity(1);
        paintNote(context, node, box);
    }
    if (state.selected) {
        paintSelection(context, place);
    }
}

}  // namespace orvent::qt
