// What lies under the pointer, and the wheel and the middle button.

#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "qt/canvas/canvas_view.h"
#include "qt/canvas/edge_painter.h"
#include "qt/text.h"

namespace orvent::qt {

namespace {

constexpr double kLineReach = 4;    // pixels beside an edge that count as on it
constexpr double kHandleReach = 4;  // pixels around the middle of a handle, however small it is
constexpr double kWheelStep = 1.2;

/// The square of the distance of a place to a line from one point to another.
float squareToLine(canvas::Point place, canvas::Point from, canvas::Point to) {
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    const float length = dx * dx + dy * dy;
    const float along =
        length > 0 ? std::clamp(((place.x - from.x) * dx + (place.y - from.y) * dy) / length, 0.0F, 1.0F) : 0.0F;
    const float x = place.x - from.x - along * dx;
    const float y = place.y - from.y - along * dy;
    return x * x + y * y;
}

}  // namespace

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

/// One look at the edges near a place serves both. Handles of selected edges lie above others.
CanvasViewWidget::EdgeHit CanvasViewWidget::edgeHitAt(canvas::Point place, float handleReach, float lineReach) const {
    const auto holds = [&](float x, float y) {
        return std::abs(place.x - x) <= handleReach && std::abs(place.y - y) <= handleReach;
    };
    const float reach = std::max(handleReach, lineReach);
    const Extent around{place.x - reach, place.y - reach, place.x + reach, place.y + reach};
    EdgeHit hit;
    bool foundSelected = false;
    float nearest = lineReach * lineReach;
    for (const canvas::LinesD* edge : edges_.at(around)) {
        if (!edge->Visible()) {
            continue;
        }
        const canvas::Point start{edge->X1(), edge->Y1()};
        const canvas::Point middle{edge->Xm(), edge->Ym()};
        const canvas::Point end{edge->X2(), edge->Y2()};
        const std::int32_t handle = holds(end.x, end.y)                                        ? edge->EndBox()
                                    : holds(start.x, start.y)                                  ? edge->StartBox()
                                    : edge->middleHandleVisible() && holds(middle.x, middle.y) ? edge->MidBox()
                                                                                               : 0;
        if (handle != 0 && (edge->Selected() || !foundSelected)) {
            hit.handle = handle;
            foundSelected = edge->Selected();
        } else if (hit.handle == 0 && lineReach > 0) {
            const float away = std::min(squareToLine(place, start, middle), squareToLine(place, middle, end));
            if (away <= nearest) {
                nearest = away;
                hit.line = edge->Index();
            }
        }
    }
    return hit;
}

canvas::Hit CanvasViewWidget::hitAt(QPointF pixel) const {
    if (!QRectF(viewport()->rect()).contains(pixel)) {
        return {canvas::Element::outside, 0};
    }
    const canvas::Point place = transform().toTwips(pixel);
    const canvas::LabelsD* node = nodeAt(place);
    const float ofHandle = canvas::kHandleSize / 2;
    const auto twips = [this](double pixels) { return static_cast<float>(pixels * kTwipsPerPixel / scale_); };
    const EdgeHit edge =
        edgeHitAt(place, node ? ofHandle : std::max(ofHandle, twips(kHandleReach)), node ? 0 : twips(kLineReach));
    if (edge.handle != 0) {
        return {canvas::Element::handle, edge.handle, node ? node->Index() : 0};
    }
    if (node) {
        return {canvas::Element::node, node->Index()};
    }
    return edge.line != 0 ? canvas::Hit{canvas::Element::line, edge.line} : canvas::Hit{};
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

void CanvasViewWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        panFrom_ = event->position().toPoint();
        viewport()->setCursor(Qt::ClosedHandCursor);
    }
}

void CanvasViewWidget::mouseMoveEvent(QMouseEvent* event) {
    if (panFrom_) {
        const QPoint by = event->position().toPoint() - *panFrom_;
        panFrom_ = event->position().toPoint();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
    } else if (event->buttons() == Qt::NoButton) {
        const canvas::Hit hit = hitAt(event->position());
        const bool onHandle = hit.element == canvas::Element::handle && hit.below == 0;
        setPointedEdge(onHandle                               ? canvas_.Lines.byIndex(canvas::edgeOfHandle(hit.number))
                       : hit.element == canvas::Element::line ? canvas_.Lines.byIndex(hit.number)
                                                              : nullptr);
    }
}

void CanvasViewWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        panFrom_.reset();
        viewport()->unsetCursor();
    }
}

void CanvasViewWidget::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier) {
        const double steps = event->angleDelta().y() / static_cast<double>(QWheelEvent::DefaultDeltasPerStep);
        setScale(scale_ * std::pow(kWheelStep, steps), event->position());
        event->accept();
    } else if ((event->modifiers() & Qt::ShiftModifier) && event->angleDelta().x() == 0) {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - event->angleDelta().y());
        event->accept();
    } else if (const canvas::LabelsD* comment = commentBarAt(event->position());
               comment && scrollComment(*comment, nodePainter_.cache().laidOut(comment->Index())->first +
                                                      (event->angleDelta().y() > 0 ? -1 : 1))) {
        event->accept();  // at the end of the text the wheel goes on to the picture
    } else {
        QAbstractScrollArea::wheelEvent(event);
    }
}

bool CanvasViewWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        setPointedEdge(nullptr);
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void CanvasViewWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        nodePainter_.setFont(font());
        repaintAll();
    }
    QAbstractScrollArea::changeEvent(event);
}

}  // namespace orvent::qt
