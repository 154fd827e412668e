#pragma once

class QPainter;
class QProxyStyle;
class QStyleOptionTitleBar;
class QWidget;

namespace orvent::qt {

/// Draws the title bar of a child window: a flat ground, the title at the left, thin glyphs as buttons.
void drawTitleBar(const QProxyStyle& style, const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget);

}  // namespace orvent::qt
