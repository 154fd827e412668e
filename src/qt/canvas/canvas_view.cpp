#include "qt/canvas/canvas_view.h"

#include <QPaintEvent>
#include <QTimer>
#include <cmath>

#include "qt/canvas/corner_grip.h"

namespace orvent::qt {

namespace {

constexpr double kScaleStep = 1.25;

}  // namespace

CanvasViewWidget::CanvasViewWidget(canvas::Canvas& canvas, const Theme& theme, QWidget* parent)
    : QAbstractScrollArea(parent),
      canvas_(canvas),
      subscription_(canvas.listen(*this)),
      theme_(theme),
      state_(canvas),
      index_(canvas),
      scroller_(*this, canvas.PicForm, state_.window, index_,
                [this] {
                    painter_.rescaled();
                    Q_EMIT scaleChanged();
                    Q_EMIT partChanged();
                }),
      painter_(canvas, state_, index_, scroller_, theme, *viewport()) {
    state_.changed = [this] { stateChanged(); };
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setCornerWidget(new CornerGrip([this](QPoint by) {
        const float twips = static_cast<float>(kTwipsPerPixel / scale());
        state_.window.dragCorner(static_cast<float>(by.x()) * twips, static_cast<float>(by.y()) * twips);
        canvas_.tellPicture();
    }));
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    connect(&theme_, &Theme::changed, this, [this] {
        painter_.nodes().forgetPictures();
        painter_.repaintAll();
    });
    settleSoon();
}

CanvasViewWidget::~CanvasViewWidget() = default;

// What the model tells.

bool CanvasViewWidget::takesChange() {
    const bool stood = index_.stands();
    const bool taken = index_.takesChange();
    if (stood && !taken) {
        forgetIndex();
    }
    return taken;
}

void CanvasViewWidget::forgetIndex() {
    index_.drop();
    painter_.repaintAll();
    settleSoon();
}

template <class Item>
void CanvasViewWidget::itemChanged(const Item& item) {
    if (!takesChange()) {
        return;
    }
    const std::optional<Extent> before = index_.bounds();
    const Extent extent = extentOf(item);
    const std::optional<Extent> former = index_.put(item);
    if (former && *former != extent) {
        painter_.markDirty(*former);
    }
    painter_.markDirty(extent);
    if (index_.bounds() != before) {
        settleSoon();
    }
}

template <class Item>
void CanvasViewWidget::itemRemoved(const Item& item) {
    if (!takesChange()) {
        return;
    }
    if (const std::optional<Extent> former = index_.remove(item)) {
        painter_.markDirty(*former);
    }
    settleSoon();
}

void CanvasViewWidget::nodeChanged(const canvas::LabelsD& node) {
    itemChanged(node);
}

void CanvasViewWidget::nodeRemoved(const canvas::LabelsD& node) {
    painter_.nodes().forgetCaption(node.Index());
    itemRemoved(node);
}

void CanvasViewWidget::edgeChanged(const canvas::LinesD& edge) {
    if (painter_.takesEdge(edge)) {
        itemChanged(edge);
    }
}

void CanvasViewWidget::edgeRemoved(const canvas::LinesD& edge) {
    painter_.forgetEdge(edge);
    itemRemoved(edge);
    if (const canvas::LabelsD* fed = canvas_.Labels.byIndex(edge.ToLabel())) {
        nodeChanged(*fed);  // it may lack a source now
    }
}

void CanvasViewWidget::pictureChanged() {
    scroller_.followWindow();
    painter_.showMarkers();
}

void CanvasViewWidget::stateChanged() {
    scroller_.followWindow();
    painter_.showMarkers();
}

void CanvasViewWidget::settleSoon() {
    if (!settling_) {
        settling_ = true;
        QTimer::singleShot(0, this, &CanvasViewWidget::settle);
    }
}

void CanvasViewWidget::settle() {
    settling_ = false;
    index_.countAnew();
    if (index_.isWorn()) {
        index_.drop();
    }
    index_.ensure();
    scroller_.updateBars();
}

// What the window tells.

void CanvasViewWidget::stepScale(double steps) {
    setScale(scale() * std::pow(kScaleStep, steps));
}

void CanvasViewWidget::paintEvent(QPaintEvent* event) {
    index_.ensure();
    index_.countAnew();
    painter_.paint(event->region());
}

void CanvasViewWidget::resizeEvent(QResizeEvent*) {
    index_.ensure();
    painter_.dropLayer();
    scroller_.measureWindow();
    scroller_.updateBars();
    Q_EMIT partChanged();
}

void CanvasViewWidget::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(dx, dy);
    painter_.scrolled(dx, dy);
    scroller_.followBars();
    Q_EMIT partChanged();
}

}  // namespace orvent::qt
