#include "qt/canvas/canvas_view.h"

#include <QScrollBar>
#include <QTimer>

#include "qt/canvas/corner_grip.h"

namespace orvent::qt {

namespace {

constexpr double kMargin = 40;            // pixels around the picture
constexpr double kFarthestPixel = 1e8;    // scroll bars count in whole pixels
constexpr std::size_t kFewChanges = 256;  // below this the index is kept up to date change by change
constexpr int kMostDirtyAreas = 48;       // more are cheaper to repaint as one
constexpr double kScaleStep = 1.25;
constexpr double kReadableScale = 0.75;

}  // namespace

CanvasViewWidget::CanvasViewWidget(canvas::Canvas& canvas, const Theme& theme, QWidget* parent)
    : QAbstractScrollArea(parent),
      canvas_(canvas),
      subscription_(canvas.listen(*this)),
      theme_(theme),
      nodePainter_(font()) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setCornerWidget(new CornerGrip([this](QPoint by) {
        const float twips = static_cast<float>(kTwipsPerPixel / scale_);
        canvas_.PicForm.dragCorner(static_cast<float>(by.x()) * twips, static_cast<float>(by.y()) * twips);
        followPicForm();
    }));
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    connect(&theme_, &Theme::changed, this, [this] {
        nodePainter_.forgetPictures();
        repaintAll();
    });
    settleSoon();
}

CanvasViewWidget::~CanvasViewWidget() = default;

// What the model tells.

// While a canvas is being filled, or all of it changes, keeping the index up to date item by item and asking for single
// areas costs more than building it once at the next painting.
bool CanvasViewWidget::takesChange() {
    if (stale_) {
        return false;
    }
    if (++changes_ <= kFewChanges + (nodes_.count() + edges_.count()) / 4) {
        return true;
    }
    forgetIndex();
    return false;
}

void CanvasViewWidget::forgetIndex() {
    stale_ = true;
    nodes_.clear();
    edges_.clear();
    repaintAll();
    settleSoon();
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
    if (edge.ToLabel() == 0) {
        drawnEdge_ = &edge;
        showMarkers();
        return;
    }
    if (drawnEdge_ == &edge) {
        drawnEdge_ = nullptr;
        showMarkers();
    }
    itemChanged(edges_, edge);
}

void CanvasViewWidget::edgeRemoved(const canvas::LinesD& edge) {
    if (pointedEdge_ == &edge) {
        pointedEdge_ = nullptr;
    }
    if (drawnEdge_ == &edge) {
        drawnEdge_ = nullptr;
        showMarkers();
    }
    itemRemoved(edges_, edge);
    if (const canvas::LabelsD* fed = canvas_.Labels.byIndex(edge.ToLabel())) {
        nodeChanged(*fed);  // it may lack a source now
    }
}

void CanvasViewWidget::manyChanged() {
    forgetIndex();
}

void CanvasViewWidget::markersChanged() {
    followPicForm();
    showMarkers();
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
        repaintAll();
    } else {
        layerDirty_ += area.toAlignedRect();
        viewport()->update(area.toAlignedRect());
    }
}

void CanvasViewWidget::setTints(canvas::Tints* tints) {
    tints_ = tints;
    repaintAll();
}

void CanvasViewWidget::repaintAll() {
    layerDirty_ = viewport()->rect();
    viewport()->update();
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
        if (edge.ToLabel() != 0) {
            edges_.put(edge, extentOf(edge));
        }
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

// Scale and scrolling.

Transform CanvasViewWidget::transform() const {
    return {scale_, QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value())};
}

std::optional<Extent> CanvasViewWidget::pictureBounds() const {
    const std::optional<Extent> nodes = nodes_.bounds();
    const std::optional<Extent> edges = edges_.bounds();
    return nodes && edges ? nodes->united(*edges) : nodes ? nodes : edges;
}

/// `PicForm` and what lies beyond it with a margin, in pixels from the picture's origin.
QRectF CanvasViewWidget::pictureArea() const {
    const Transform unscrolled{scale_, {}};
    const QRectF form = unscrolled.toPixels(Extent{0, 0, canvas_.PicForm.Width(), canvas_.PicForm.Height()});
    const std::optional<Extent> bounds = pictureBounds();
    if (!bounds) {
        return form;
    }
    const QRectF area = unscrolled.toPixels(*bounds).adjusted(-kMargin, -kMargin, kMargin, kMargin);
    const auto limited = [](double value) { return std::clamp(value, -kFarthestPixel, kFarthestPixel); };
    return QRectF(QPointF(std::min(0.0, limited(bounds->left < 0 ? area.left() : 0)),
                          std::min(0.0, limited(bounds->top < 0 ? area.top() : 0))),
                  QPointF(std::max(limited(form.right()), limited(area.right())),
                          std::max(limited(form.bottom()), limited(area.bottom()))));
}

void CanvasViewWidget::updateScrollBars() {
    const QRectF area = pictureArea();
    const QSize room = viewport()->size();
    const double pixels = scale_ / kTwipsPerPixel;
    const auto set = [pixels](QScrollBar* bar, double from, double to, int length, const canvas::ScrollBar& steps) {
        const int least = static_cast<int>(std::floor(from));
        bar->setRange(least, std::max(least, static_cast<int>(std::ceil(to)) - length));
        // The steps follow the size of the picture, but never pass over what was not seen.
        bar->setPageStep(std::clamp(static_cast<int>(std::lround(steps.LargeChange * pixels)), 1, std::max(1, length)));
        bar->setSingleStep(
            std::clamp(static_cast<int>(std::lround(steps.SmallChange * pixels)), 1, std::max(1, length / 8)));
    };
    const canvas::PictureArea& form = canvas_.PicForm;
    set(horizontalScrollBar(), area.left(), area.right(), room.width(), form.ScrollBarHor());
    set(verticalScrollBar(), area.top(), area.bottom(), room.height(), form.ScrollBarVer());
}

/// What is seen of the picture decides how far `PicForm` can be scrolled, and where dragging scrolls it.
void CanvasViewWidget::measureWindow() {
    const double twips = kTwipsPerPixel / scale_;
    canvas_.PicForm.resizeWindow(static_cast<float>(viewport()->width() * twips),
                                 static_cast<float>(viewport()->height() * twips));
    shownSize_ = {};
    followPicForm();
}

void CanvasViewWidget::followPicForm() {
    const canvas::PictureArea& form = canvas_.PicForm;
    if (shownSize_.x != form.Width() || shownSize_.y != form.Height()) {
        shownSize_ = {form.Width(), form.Height()};
        ensureIndex();
        updateScrollBars();
    }
    const canvas::Point scroll = form.seen();
    const QPointF pixels = Transform{scale_, {}}.toPixels(scroll);
    following_ = true;
    if (scroll.x != shownScroll_.x) {
        horizontalScrollBar()->setValue(static_cast<int>(std::lround(pixels.x())));
    }
    if (scroll.y != shownScroll_.y) {
        verticalScrollBar()->setValue(static_cast<int>(std::lround(pixels.y())));
    }
    following_ = false;
    shownScroll_ = scroll;
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
    shownMarkers_ = QRegion();
    measureWindow();
    const QPointF origin = place * scale_ - anchor;
    horizontalScrollBar()->setValue(static_cast<int>(std::lround(origin.x())));
    verticalScrollBar()->setValue(static_cast<int>(std::lround(origin.y())));
    repaintAll();
    shownMarkers_ = markerRegion();
    Q_EMIT scaleChanged();
}

void CanvasViewWidget::stepScale(double steps) {
    setScale(scale_ * std::pow(kScaleStep, steps));
}

void CanvasViewWidget::reveal(const canvas::LabelsD& node) {
    const QRect box = transform().toPixels(extentOf(node)).toAlignedRect();
    const auto shift = [](QScrollBar* bar, int from, int to, int room) {
        bar->setValue(bar->value() + std::min(std::max(0, to - room), from) + std::min(0, from));
    };
    shift(horizontalScrollBar(), box.left(), box.right(), viewport()->width());
    shift(verticalScrollBar(), box.top(), box.bottom(), viewport()->height());
}

void CanvasViewWidget::present(const canvas::LabelsD& node) {
    fit();
    if (scale_ >= kReadableScale) {
        setScale(std::min(scale_, 1.0));
        return;
    }
    setScale(1);
    const QPoint middle = transform().toPixels(boxOf(node)).center().toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + middle.x() - viewport()->width() / 2);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + middle.y() - viewport()->height() / 2);
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
    layer_ = QPixmap();
    measureWindow();
    updateScrollBars();
}

void CanvasViewWidget::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(dx, dy);
    scrollLayer(dx, dy);
    if (!following_) {
        const QPointF twips = transform().origin * (kTwipsPerPixel / scale_);
        canvas_.PicForm.scrollTo(static_cast<float>(twips.x()), static_cast<float>(twips.y()));
        shownScroll_ = canvas_.PicForm.seen();
    }
}

}  // namespace orvent::qt
