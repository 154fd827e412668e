#include "qt/theme/title_bar.h"

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <array>

#include "qt/theme/blend.h"
#include "qt/theme/spacing.h"

namespace orvent::qt {

namespace {

enum class Glyph { minimise, maximise, restore, close };

struct TitleButton {
    QStyle::SubControl control;
    Qt::WindowType hint;
    Glyph glyph;
    Qt::WindowState wanted;  ///< shown only in this state of the window, or in every one
    bool always;
};

constexpr std::array<TitleButton, 5> kTitleButtons = {{
    {QStyle::SC_TitleBarMinButton, Qt::WindowMinimizeButtonHint, Glyph::minimise, Qt::WindowMinimized, false},
    {QStyle::SC_TitleBarMaxButton, Qt::WindowMaximizeButtonHint, Glyph::maximise, Qt::WindowMaximized, false},
    {QStyle::SC_TitleBarNormalButton, Qt::WindowMinimizeButtonHint, Glyph::restore, Qt::WindowMinimized, true},
    {QStyle::SC_TitleBarNormalButton, Qt::WindowMaximizeButtonHint, Glyph::restore, Qt::WindowMaximized, true},
    {QStyle::SC_TitleBarCloseButton, Qt::WindowSystemMenuHint, Glyph::close, Qt::WindowNoState, false},
}};

bool isShown(const TitleButton& row, const QStyleOptionTitleBar& bar) {
    if (!(bar.titleBarFlags & row.hint)) {
        return false;
    }
    const bool inState = row.wanted != Qt::WindowNoState && (bar.titleBarState & row.wanted);
    return row.always ? inState : !inState;
}

void drawGlyph(QPainter& painter, Glyph glyph, QPointF middle) {
    constexpr double r = 4;
    switch (glyph) {
        case Glyph::minimise:
            painter.drawLine(middle + QPointF(-r, r - 1), middle + QPointF(r, r - 1));
            break;
        case Glyph::maximise:
            painter.drawRect(QRectF(middle.x() - r, middle.y() - r, 2 * r, 2 * r));
            break;
        case Glyph::restore:
            painter.drawRect(QRectF(middle.x() - r, middle.y() - r + 2, 2 * r - 2, 2 * r - 2));
            painter.drawPolyline(
                QPolygonF({middle + QPointF(-r + 2, -r + 2), middle + QPointF(-r + 2, -r), middle + QPointF(r, -r),
                           middle + QPointF(r, r - 2), middle + QPointF(r - 2, r - 2)}));
            break;
        case Glyph::close:
            painter.drawLine(middle + QPointF(-r, -r), middle + QPointF(r, r));
            painter.drawLine(middle + QPointF(-r, r), middle + QPointF(r, -r));
            break;
    }
}

void drawButtons(const QProxyStyle& style, const QStyleOptionTitleBar& bar, const QColor& ground, QPainter& painter,
                 const QWidget* widget) {
    const QColor ink = painter.pen().color();
    for (const TitleButton& row : kTitleButtons) {
        if (!isShown(row, bar)) {
            continue;
        }
        const QRect rect = style.subControlRect(QStyle::CC_TitleBar, &bar, row.control, widget);
        if ((bar.activeSubControls & row.control) && (bar.state & (QStyle::State_MouseOver | QStyle::State_Sunken))) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(blend(ground, ink, bar.state & QStyle::State_Sunken ? 0.28 : 0.16));
            painter.drawRoundedRect(rect, Spacing::radius, Spacing::radius);
        }
        painter.setPen(QPen(ink, 1.25, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        drawGlyph(painter, row.glyph, QPointF(rect.center()) + QPointF(0.5, 0.5));
    }
}

}  // namespace

void drawTitleBar(const QProxyStyle& style, const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) {
    const QPalette& colours = bar.palette;
    const bool active = bar.titleBarState & QStyle::State_Active;
    const QColor ground =
        blend(colours.color(QPalette::Window), colours.color(QPalette::Highlight), active ? 0.24 : 0.06);
    painter.save();
    painter.fillRect(bar.rect, ground);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colours.color(active ? QPalette::WindowText : QPalette::PlaceholderText));
    QFont font = painter.font();
    font.setWeight(active ? QFont::DemiBold : QFont::Normal);
    painter.setFont(font);
    const QRect label = style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, widget);
    const QRect words = label.adjusted(6, 0, -4, 0);
    painter.drawText(words, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(bar.text, Qt::ElideRight, words.width()));
    if (!bar.icon.isNull() && (bar.titleBarFlags & Qt::WindowSystemMenuHint)) {
        const QRect menu = style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarSysMenu, widget);
        bar.icon.paint(&painter, menu);
    }
    drawButtons(style, bar, ground, painter, widget);
    painter.restore();
}

}  // namespace orvent::qt
