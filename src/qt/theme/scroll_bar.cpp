#include "qt/theme/scroll_bar.h"

#include <QPainter>
#include <QStyleOption>

#include "qt/theme/blend.h"

namespace orvent::qt {

namespace {

constexpr int kLeastThumb = 28;

QRect along(const QStyleOptionSlider& bar, int from, int to) {
    return bar.orientation == Qt::Horizontal
               ? QRect(bar.rect.left() + from, bar.rect.top(), to - from, bar.rect.height())
               : QRect(bar.rect.left(), bar.rect.top() + from, bar.rect.width(), to - from);
}

}  // namespace

QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
    const int length = bar.orientation == Qt::Horizontal ? bar.rect.width() : bar.rect.height();
    const qint64 range = qint64{bar.maximum} - bar.minimum;
    const qint64 shown = range > 0 ? qint64{length} * bar.pageStep / (range + bar.pageStep) : length;
    const int thumb = static_cast<int>(std::clamp<qint64>(shown, std::min(kLeastThumb, length), length));
    const int start =
        QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - thumb, bar.upsideDown);
    switch (part) {
        case QStyle::SC_ScrollBarGroove:
            return bar.rect;
        case QStyle::SC_ScrollBarSlider:
            return along(bar, start, start + thumb);
        case QStyle::SC_ScrollBarSubPage:
            return along(bar, 0, start);
        case QStyle::SC_ScrollBarAddPage:
            return along(bar, start + thumb, length);
        default:
            return {};
    }
}

void drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter) {
    const QPalette& colours = bar.palette;
    painter.fillRect(bar.rect, colours.color(QPalette::Window));
    if (bar.minimum == bar.maximum) {
        return;
    }
    const bool taken = (bar.activeSubControls & QStyle::SC_ScrollBarSlider) &&
                       (bar.state & (QStyle::State_MouseOver | QStyle::State_Sunken));
    const QRectF thumb = QRectF(scrollBarPart(bar, QStyle::SC_ScrollBarSlider)).adjusted(3, 3, -3, -3);
    const double radius = std::min(thumb.width(), thumb.height()) / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(blend(colours.color(QPalette::Window), colours.color(QPalette::WindowText), taken ? 0.45 : 0.25));
    painter.drawRoundedRect(thumb, radius, radius);
    painter.restore();
}

}  // namespace orvent::qt
