#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace orvent::qt {

/// One of the program's own icons by its file name without ending ("save", "record-set"). It takes the colour of the
/// text around it, so it follows a change of the theme, and is drawn anew for each size and pixel ratio.
QIcon icon(const QString& name);

/// The same in a colour of its own, but where it is disabled or selected.
QIcon icon(const QString& name, const QColor& colour);

/// The coloured picture that stands for the program.
QIcon programIcon();

}  // namespace orvent::qt
