// What lies under the pointer, and the wheel and the middle button.

#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include "qt/canvas/canvas_view.h"
#include "qt/canvas/edge_painter.h"
#include "qt/text.h"

namespace orvent::qt {

namespace {

constexpr double kEdgeReach = 5;    // pixels beside an edge that count as on it
constexpr double kHandleReach = 4;  // pixels around the middle of a handle, however small it is
constexpr double kWheelStep = 1.2;
constexpr int kLongestTip = 1000;

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

/// The number of the handle at a place, those of selected edges first, or 0. On a node only the handle itself counts.
std::int32_t CanvasViewWidget::handleAt(canvas::Point place, float reach) const {
    const auto holds = [&](float x, float y) {
        return std::abs(x - place.x) <= reach && std::abs(y - place.y) <= reach;
    };
    const Extent around{place.x - reach, place.y - reach, place.x + reach, place.y + reach};
    std::int32_t found = 0;
    bool foundSelected = false;
    for (const canvas::LinesD* edge : edges_.at(around)) {
        if (!edge->Visible() || (foundSelected && !edge->Selected())) {
            continue;
        }
        const std::int32_t handle = holds(edge->X2(), edge->Y2())                                  ? edge->EndBox()
                                    : holds(edge->X1(), edge->Y1())                                ? edge->StartBox()
                                    : edge->middleHandleVisible() && holds(edge->Xm(), edge->Ym()) ? edge->MidBox()
                                                                                                   : 0;
        if (handle != 0) {
            found = handle;
            foundSelected = edge->Selected();
        }
    }
    return found;
}

canvas::Hit CanvasViewWidget::hitAt(QPointF pixel) const {
    if (!QRectF(viewport()->rect()).contains(pixel)) {
        return {canvas::Element::outside, 0};
    }
    const canvas::Point place = transform().toTwips(pixel);
    const canvas::LabelsD* node = nodeAt(place);
    const float ofHandle = canvas::kHandleSize / 2;
    const float reach =
        node ? ofHandle : std::max(ofHandle, static_cast<float>(kHandleReach * kTwipsPerPixel / scale_));
    if (const std::int32_t handle = handleAt(place, reach)) {
        return {canvas::Element::handle, handle, node ? node->Index() : 0};
    }
    return node ? canvas::Hit{canvas::Element::node, node->Index()} : canvas::Hit{canvas::Element::picture, 0};
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
        const canvas::Point place = transform().toTwips(event->position());
        setPointedEdge(nodeAt(place) ? nullptr : edgeAt(place, kEdgeReach));
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
    const std::string_view words = node->ToolTipText().empty() ? node->shownText() : node->ToolTipText();
    const QString name = text(words).left(kLongestTip);
    const canvas::NodeKind& kind = canvas::nodeKind(node->NodeType());
    QString tip = text(kind.title);
    if (kind.showsReadiness) {
        tip = tr("%1, %2").arg(tip, node->Ready() ? tr("ready") : tr("not ready"));
    }
    // As plain text: a caption may hold characters that a tool tip would take for markup.
    return QStringLiteral("<b>%1</b><br>%2").arg(name.toHtmlEscaped(), tip);
}

void CanvasViewWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        nodePainter_.setFont(font());
        repaintAll();
    }
    QAbstractScrollArea::changeEvent(event);
}

}  // namespace orvent::qt
