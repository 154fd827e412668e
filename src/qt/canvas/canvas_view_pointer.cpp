// What lies under the pointer, and the wheel and the middle button.

#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>

#include "qt/canvas/canvas_view.h"

namespace orvent::qt {

namespace {

constexpr double kLineReach = 4;    // pixels beside an edge that count as on it
constexpr double kHandleReach = 4;  // pixels around the middle of a handle, however small it is
constexpr double kWheelStep = 1.2;

}  // namespace

canvas::Hit CanvasViewWidget::hitAt(QPointF pixel) const {
    if (!QRectF(viewport()->rect()).contains(pixel)) {
        return {.element = canvas::Element::outside};
    }
    const canvas::Point place = transform().toTwips(pixel);
    const canvas::LabelsD* node = nodeAt(place);
    const float ofHandle = canvas::kHandleSize / 2;
    const auto twips = [this](double pixels) { return static_cast<float>(pixels * kTwipsPerPixel / scale()); };
    const PictureIndex::EdgeHit edge =
        index_.edgeAt(place, node ? ofHandle : std::max(ofHandle, twips(kHandleReach)), node ? 0 : twips(kLineReach));
    if (canvas::isGiven(edge.handle)) {
        return canvas::Hit::onHandle(edge.handle, node ? node->Index() : canvas::NodeNumber{});
    }
    if (node) {
        return canvas::Hit::onNode(node->Index());
    }
    return canvas::isGiven(edge.line) ? canvas::Hit::onLine(edge.line) : canvas::Hit{};
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
        scroller_.scrollBy(-by);
    } else if (event->buttons() == Qt::NoButton) {
        const canvas::Hit hit = hitAt(event->position());
        const bool onNode = canvas::isGiven(hit.node);  // also below a handle
        painter_.setPointedEdge(onNode ? nullptr : canvas_.Lines.byIndex(hit.edge));
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
        setScale(scale() * std::pow(kWheelStep, steps), event->position());
        event->accept();
    } else if ((event->modifiers() & Qt::ShiftModifier) && event->angleDelta().x() == 0) {
        scroller_.scrollBy({-event->angleDelta().y(), 0});
        event->accept();
    } else if (const canvas::LabelsD* comment = commentBarAt(event->position());
               comment && scrollComment(*comment, painter_.nodes().cache().laidOut(comment->Index())->first +
                                                      (event->angleDelta().y() > 0 ? -1 : 1))) {
        event->accept();  // at the end of the text the wheel goes on to the picture
    } else {
        QAbstractScrollArea::wheelEvent(event);
    }
}

bool CanvasViewWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        painter_.setPointedEdge(nullptr);
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void CanvasViewWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        painter_.nodes().setFont(font());
        painter_.repaintAll();
    }
    QAbstractScrollArea::changeEvent(event);
}

}  // namespace orvent::qt
