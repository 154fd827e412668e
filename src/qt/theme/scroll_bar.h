#pragma once

#include <QStyle>

class QPainter;
class QStyleOptionSlider;

namespace orvent::qt {

/// A slim scroll bar without arrow buttons: where its parts lie, and how it is drawn.
QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part);
void drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter);

}  // namespace orvent::qt
