#pragma once

#include <QByteArray>
#include <QMap>
#include <QSize>
#include <QString>

class QWidget;

namespace orvent::qt {

/// The sizes that a window had when it was closed: its own and those of its named splitters. The next opening of the
/// same kind of window takes them over.
class WindowSizes {
  public:
    void keep(const QWidget& window);
    /// Sizes that were never kept stay as they are; a window is never larger than its screen.
    void give(QWidget& window) const;

  private:
    QSize size_;
    QMap<QString, QByteArray> splitters_;
};

}  // namespace orvent::qt
