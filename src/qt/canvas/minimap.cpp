#include "qt/canvas/minimap.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace orvent::qt {

namespace {

constexpr QSize kSize(220, 150);
constexpr int kShareOfView = 3;  // no wider and higher than this part of the view
constexpr QSize kLeastSize(80, 60);
constexpr int kFromCorner = 10;
constexpr double kMargin = 6;
constexpr int kDimmed = 110;      // of 255: how much of the ground lies over what the view does not show
constexpr double kLeastNode = 2;  // pixels
constexpr double kLeastEdge = 3;  // a shorter one lies below its nodes

Extent pictureOf(const canvas::Canvas& canvas) {
    Extent all{0, 0, canvas.PicForm.Width(), canvas.PicForm.Height()};
    for (const canvas::LabelsD& node : canvas.Labels) {
        all = all.united(boxOf(node));
    }
    return all;
}

/// The picture in the middle of a room, as large as it goes.
Transform fitted(const Extent& picture, QSizeF room) {
    const double wide = std::max(1.0F, picture.right - picture.left) / kTwipsPerPixel;
    const double high = std::max(1.0F, picture.bottom - picture.top) / kTwipsPerPixel;
    Transform fit{std::min((room.width() - 2 * kMargin) / wide, (room.height() - 2 * kMargin) / high), {}};
    fit.origin = fit.toPixels(picture).center() - QPointF(room.width() / 2, room.height() / 2);
    return fit;
}

QRectF atLeast(const QRectF& box, double side) {
    const double wide = std::max(0.0, side - box.width()) / 2;
    const double high = std::max(0.0, side - box.height()) / 2;
    return box.adjusted(-wide, -high, wide, high);
}

QRgb between(const QColor& one, const QColor& other) {
    return qRgb((2 * one.red() + other.red()) / 3, (2 * one.green() + other.green()) / 3,
                (2 * one.blue() + other.blue()) / 3);
}

QRgb colourOf(const canvas::Canvas& canvas, const canvas::LabelsD& node, const CanvasColours& colours) {
    const auto& found = canvas.found();
    if (std::binary_search(found.begin(), found.end(), node.Index())) {
        return colours.found.rgb();
    }
    if (canvas.SelectedLabels.Count() > 0 && canvas.SelectedLabels.Item(node.Index())) {
        return colours.accent.rgb();
    }
    return node.activity()    ? colours.activity.rgb()
           : node.recordSet() ? colours.recordSet.rgb()
                              : colours.outline.rgb();
}

}  // namespace

Minimap::Minimap(CanvasViewWidget& view, const Theme& theme)
    : QWidget(&view), view_(view), theme_(theme), subscription_(view.listen(*this)) {
    setObjectName(QStringLiteral("minimap"));
    setAccessibleName(tr("Minimap"));
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    view.viewport()->installEventFilter(this);
    connect(&view, &CanvasViewWidget::partChanged, this, qOverload<>(&QWidget::update));
    connect(&theme, &Theme::changed, this, &Minimap::forget);
    place();
}

void Minimap::forget() {
    picture_ = QImage();
    update();
}

/// In the lower right corner of what the view shows.
void Minimap::place() {
    const QRect room = view_.viewport()->geometry();
    const QSize size = kSize.boundedTo(room.size() / kShareOfView);
    setVisible(size.width() >= kLeastSize.width() && size.height() >= kLeastSize.height());
    const QPoint corner = room.bottomRight() - QPoint(kFromCorner, kFromCorner);
    const QRect now(corner - QPoint(size.width() - 1, size.height() - 1), size);
    if (now.size() != this->size()) {
        forget();
    }
    setGeometry(now);
    raise();
}

bool Minimap::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        place();
    }
    return QWidget::eventFilter(watched, event);
}

void Minimap::paintPicture() {
    ++paintings_;
    const canvas::Canvas& canvas = view_.shown();
    const CanvasColours& colours = theme_.canvas();
    const double ratio = devicePixelRatioF();
    transform_ = fitted(pictureOf(canvas), size());
    picture_ = QImage(size() * ratio, QImage::Format_RGB32);
    picture_.setDevicePixelRatio(ratio);
    picture_.fill(colours.background);
    Pixels pixels(picture_, {}, ratio);
    const QRgb line = between(colours.background, colours.line);
    for (const canvas::LinesD& edge : canvas.Lines) {
        const QLineF shown(transform_.toPixels(canvas::Point{edge.X1(), edge.Y1()}),
                           transform_.toPixels(canvas::Point{edge.X2(), edge.Y2()}));
        if (edge.Visible() && std::abs(shown.dx()) + std::abs(shown.dy()) > kLeastEdge) {
            pixels.line(shown, line);
        }
    }
    for (const canvas::LabelsD& node : canvas.Labels) {
        if (node.Visible()) {
            pixels.fill(atLeast(transform_.toPixels(boxOf(node)), kLeastNode), colourOf(canvas, node, colours));
        }
    }
}

void Minimap::paintEvent(QPaintEvent*) {
    if (picture_.isNull()) {
        paintPicture();
    }
    const CanvasColours& colours = theme_.canvas();
    QPainter painter(this);
    painter.drawImage(QPointF(), picture_);
    const QRectF all = rect();
    const QRectF shown = transform_.toPixels(view_.transform().toTwips(QRectF(view_.viewport()->rect()))) & all;
    QPainterPath beyond;
    beyond.addRect(all);
    beyond.addRect(shown);
    QColor veil = colours.background.darker(colours.background.lightness() > 128 ? 112 : 160);
    veil.setAlpha(kDimmed);
    painter.fillPath(beyond, veil);
    painter.setPen(colours.accent);
    painter.drawRect(shown.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setPen(colours.outline);
    painter.drawRect(all.adjusted(0.5, 0.5, -0.5, -0.5));
}

void Minimap::goTo(QPointF pixel) {
    view_.centreOn(transform_.toTwips(pixel));
}

void Minimap::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        goTo(event->position());
    }
    event->accept();
}

void Minimap::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) {
        goTo(event->position());
    }
    event->accept();
}

}  // namespace orvent::qt
