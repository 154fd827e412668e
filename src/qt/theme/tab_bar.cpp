#include "qt/theme/tab_bar.h"

#include <QPainter>
#include <QStyleOption>

#include "qt/theme/blend.h"

namespace orvent::qt {

namespace {

constexpr int kTabMark = 2;  // height of the line, in pixels
constexpr double kHover = 0.10;

}  // namespace

bool drawTab(const QStyleOptionTab& tab, QPainter& painter) {
    if (tab.shape != QTabBar::RoundedNorth && tab.shape != QTabBar::TriangularNorth) {
        return false;
    }
    const QColor ground = tab.palette.color(QPalette::Window);
    const QColor accent = tab.palette.color(QPalette::Highlight);
    const bool chosen = tab.state & QStyle::State_Selected;
    const bool pointed = tab.state & QStyle::State_MouseOver && tab.state & QStyle::State_Enabled;
    painter.fillRect(tab.rect, chosen    ? tab.palette.color(QPalette::Base)
                               : pointed ? blend(ground, accent, kHover)
                                         : ground);
    if (chosen) {
        painter.fillRect(QRect(tab.rect.left(), tab.rect.top(), tab.rect.width(), kTabMark), accent);
    }
    return true;
}

}  // namespace orvent::qt
