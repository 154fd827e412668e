#pragma once

#include <QWidget>

class QIcon;
class QLabel;

namespace orvent::qt {

/// The program's picture and name, with a quieter line below.
QWidget* newProgramHeader(const QString& line, QWidget* parent);

/// A picture that is sharp on every screen.
QWidget* newPicture(const QIcon& icon, int size, QWidget* parent);

/// A label in the quiet colour of hints, which wraps.
QLabel* newHint(const QString& text, QWidget* parent);

}  // namespace orvent::qt
