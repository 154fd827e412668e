#pragma once

class QPainter;
class QStyleOptionTab;

namespace orvent::qt {

/// A flat tab above its page; a line of the accent colour marks the chosen one. Gives false for tabs at other sides.
bool drawTab(const QStyleOptionTab& tab, QPainter& painter);

}  // namespace orvent::qt
