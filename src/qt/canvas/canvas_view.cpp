#include "qt/canvas/canvas_view.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>

#include "qt/canvas/edge_painter.h"

namespace orvent::qt {

namespace {

constexpr float kMarkerReach = 90;        // twips from a marker to its rim
constexpr double kMargin = 40;            // pixels around the picture
constexpr double kFarthestPixel = 1e8;    // scroll bars count in whole pixels
constexpr std::size_t kFewChanges = 256;  // below this the index is kept up to date change by change
constexpr int kMostDirtyAreas = 48;       // more are cheaper to repaint as one

}  // namespace

CanvasViewWidget::CanvasViewWidget(canvas::Canvas& canvas, const Theme& theme, QWidget* parent)
    : QAbstractScrollArea(parent), canvas_(canvas), theme_(theme), nodePainter_(font()) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    connect(&theme_, &Theme::changed, this, [this] {
        dots_ = QPixmap();
        nodePainter_.forgetPictures();
        viewport()->update();
    });
    canvas_.setView(this);
    settleSoon();
}

CanvasViewWidget::~CanvasViewWidget() {
    if (canvas_.view() == this) {
        canvas_.setView(nullptr);
    }
}

// ---- What the model tells
// --------------------------------------------------------------------------------------------

// While a canvas is being filled, or all of it changes, keeping the index up to date item by item and asking for single
// areas costs more than building it once at the next painting.
bool CanvasViewWidget::takesChange() {
    if (stale_) {
        return false;
    }
    if (++changes_ <= kFewChanges + (nodes_.count() + edges_.count()) / 4) {
        return true;
    }
    stale_ = true;
    nodes_.clear();
    edges_.clear();
    viewport()->update();
    settleSoon();
    return false;
}

template <class Item>
void CanvasViewWidget::itemChanged(ItemIndex<Item>& index, const Item& item) {
    if (!takesChange()) {
        return;
    }
    const std::optional<Extent> before = pictureBounds();
    const Extent extent = extentOf(item);
    const std::optional<Extent> former = index.put(item, extent);
    if (former && *former != extent) {
        markDirty(*former);
    }
    markDirty(extent);
    if (pictureBounds() != before) {
        settleSoon();
    }
}

template <class Item>
void CanvasViewWidget::itemRemoved(ItemIndex<Item>& index, const Item& item) {
    if (!takesChange()) {
        return;
    }
    if (const std::optional<Extent> former = index.remove(item)) {
        markDirty(*former);
    }
    settleSoon();
}

void CanvasViewWidget::nodeChanged(const canvas::LabelsD& node) {
    itemChanged(nodes_, node);
}

void CanvasViewWidget::nodeRemoved(const canvas::LabelsD& node) {
    nodePainter_.forgetCaption(node.Index());
    itemRemoved(nodes_, node);
}

void CanvasViewWidget::edgeChanged(const canvas::LinesD& edge) {
    itemChanged(edges_, edge);
}

void CanvasViewWidget::edgeRemoved(const canvas::LinesD& edge) {
    if (pointedEdge_ == &edge) {
        pointedEdge_ = nullptr;
    }
    itemRemoved(edges_, edge);
}

void CanvasViewWidget::markersChanged() {
    for (const canvas::Point place : {shownGrabber_, canvas_.Grabber}) {
        markDirty({place.x - kMarkerReach, place.y - kMarkerReach, place.x + kMarkerReach, place.y + kMarkerReach});
    }
    shownGrabber_ = canvas_.Grabber;
}

void CanvasViewWidget::markDirty(const Extent& extent) {
    if (dirtyAreas_ > kMostDirtyAreas) {
        return;
    }
    const QRectF area = transform().toPixels(extent).adjusted(-3, -3, 3, 3) & QRectF(viewport()->rect());
    if (area.isEmpty()) {
        return;
    }
    if (++dirtyAreas_ > kMostDirtyAreas) {
        viewport()->update();
    } else {
        viewport()->update(area.toAlignedRect());
    }
}

void CanvasViewWidget::ensureIndex() const {
    if (!stale_) {
        return;
    }
    stale_ = false;
    nodes_.clear();
    edges_.clear();
    for (const canvas::LabelsD& node : std::as_const(canvas_.Labels)) {
        nodes_.put(node, extentOf(node));
    }
    for (const canvas::LinesD& edge : std::as_const(canvas_.Lines)) {
        edges_.put(edge, extentOf(edge));
    }
}

void CanvasViewWidget::settleSoon() {
    if (!settling_) {
        settling_ = true;
        QTimer::singleShot(0, this, &CanvasViewWidget::settle);
    }
}

void CanvasViewWidget::settle() {
    settling_ = false;
    changes_ = 0;
    stale_ = stale_ || nodes_.isWorn() || edges_.isWorn();
    ensureIndex();
    updateScrollBars();
}

// ---- Scale and scrolling
// ---------------------------------------------------------------------------------------------

Transform CanvasViewWidget::transform() const {
    return {scale_, QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value())};
}

std::optional<Extent> CanvasViewWidget::pictureBounds() const {
    const std::optional<Extent> nodes = nodes_.bounds();
    const std::optional<Extent> edges = edges_.bounds();
    return nodes && edges ? nodes->united(*edges) : nodes ? nodes : edges;
}

/// The picture and its margin, in pixels from the picture's origin, which is always part of it.
QRectF CanvasViewWidget::pictureArea() const {
    const std::optional<Extent> bounds = pictureBounds();
    if (!bounds) {
        return {};
    }
    const Transform unscrolled{scale_, {}};
    const QRectF area = unscrolled.toPixels(*bounds).adjusted(-kMargin, -kMargin, kMargin, kMargin);
    const auto limited = [](double value) { return std::clamp(value, -kFarthestPixel, kFarthestPixel); };
    return QRectF(QPointF(std::min(0.0, limited(bounds->left < 0 ? area.left() : 0)),
                          std::min(0.0, limited(bounds->top < 0 ? area.top() : 0))),
                  QPointF(limited(area.right()), limited(area.bottom())));
}

void CanvasViewWidget::updateScrollBars() {
    const QRectF area = pictureArea();
    const QSize room = viewport()->size();
    const auto set = [](QScrollBar* bar, double from, double to, int length) {
        const int least = static_cast<int>(std::floor(from));
        bar->setRange(least, std::max(least, static_cast<int>(std::ceil(to)) - length));
        bar->setPageStep(length);
        bar->setSingleStep(20);
    };
    set(horizontalScrollBar(), area.left(), area.right(), room.width());
    set(verticalScrollBar(), area.top(), area.bottom(), room.height());
}

void CanvasViewWidget::setScale(double scale) {
    setScale(scale, QRectF(viewport()->rect()).center());
}

void CanvasViewWidget::setScale(double scale, QPointF anchor) {
    const double wanted = std::isnan(scale) ? 1 : std::clamp(scale, kLeastScale, kLargestScale);
    if (wanted == scale_) {
        return;
    }
    ensureIndex();
    const QPointF place = (anchor + transform().origin) / scale_;
    scale_ = wanted;
    updateScrollBars();
    const QPointF origin = place * scale_ - anchor;
    horizontalScrollBar()->setValue(static_cast<int>(std::lround(origin.x())));
    verticalScrollBar()->setValue(static_cast<int>(std::lround(origin.y())));
    viewport()->update();
}

void CanvasViewWidget::fit() {
    ensureIndex();
    const std::optional<Extent> bounds = pictureBounds();
    if (!bounds) {
        return;
    }
    const double left = std::min(0.0F, bounds->left);
    const double top = std::min(0.0F, bounds->top);
    const QSizeF room = QSizeF(maximumViewportSize()) - QSizeF(2 * kMargin, 2 * kMargin);
    const double wide = room.width() * kTwipsPerPixel / std::max(1.0, bounds->right - left);
    const double high = room.height() * kTwipsPerPixel / std::max(1.0, bounds->bottom - top);
    setScale(std::min({wide, high, 2.0}));
    horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
    verticalScrollBar()->setValue(verticalScrollBar()->minimum());
}

void CanvasViewWidget::resizeEvent(QResizeEvent*) {
    ensureIndex();
    updateScrollBars();
}

void CanvasViewWidget::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(dx, dy);
}

// ---- Pointer
// ---------------------------------------------------------------------------------------------------------

const canvas::LabelsD* CanvasViewWidget::nodeAt(canvas::Point place) const {
    ensureIndex();
    const canvas::LabelsD* topmost = nullptr;
    for (const canvas::LabelsD* node : nodes_.at({place.x, place.y, place.x, place.y})) {
        if (node->Visible() && boxOf(*node).contains(place)) {
            topmost = node;
        }
    }
    return topmost;
}

const canvas::LinesD* CanvasViewWidget::edgeAt(canvas::Point place, double reach) const {
    ensureIndex();
    const Transform now = transform();
    const QPointF at = now.toPixels(place);
    const QRectF square(at.x() - reach, at.y() - reach, 2 * reach, 2 * reach);
    const canvas::LinesD* topmost = nullptr;
    for (const canvas::LinesD* edge : edges_.at(now.toTwips(square))) {
        QLineF first(now.toPixels(canvas::Point{edge->X1(), edge->Y1()}),
                     now.toPixels(canvas::Point{edge->Xm(), edge->Ym()}));
        QLineF second(first.p2(), now.toPixels(canvas::Point{edge->X2(), edge->Y2()}));
        if (edge->Visible() && (cutTo(first, square, 0) || cutTo(second, square, 0))) {
            topmost = edge;
        }
    }
    return topmost;
}

void CanvasViewWidget::setPointedEdge(const canvas::LinesD* edge) {
    if (edge == pointedEdge_) {
        return;
    }
    for (const canvas::LinesD* changed : {pointedEdge_, edge}) {
        if (changed) {
            markDirty(extentOf(*changed));
        }
    }
    pointedEdge_ = edge;
}

void CanvasViewWidget::mouseMoveEvent(QMouseEvent* event) {
    const canvas::Point place = transform().toTwips(event->position());
    setPointedEdge(nodeAt(place) ? nullptr : edgeAt(place, 5));
    QAbstractScrollArea::mouseMoveEvent(event);
}

bool CanvasViewWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        setPointedEdge(nullptr);
    } else if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), viewport());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

QString CanvasViewWidget::toolTipAt(QPoint place) {
    const canvas::LabelsD* node = nodeAt(transform().toTwips(place));
    if (!node) {
        return {};
    }
    const std::string_view text = node->ToolTipText().empty() ? node->shownText() : node->ToolTipText();
    // As plain text: a caption may hold characters that a tool tip would take for markup.
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).left(1000).toHtmlEscaped();
}

void CanvasViewWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        nodePainter_.setFont(font());
        viewport()->update();
    }
    QAbstractScrollArea::changeEvent(event);
}

}  // namespace orvent::qt
