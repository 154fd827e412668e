#pragma once

#include <QByteArray>
#include <QMap>
#include <QSize>
#include <QString>
#include <map>
#include <string>

#include "platform/settings_store.h"

class QWidget;

namespace orvent::qt {

/// The sizes that a window had when it was closed: its own and those of its named splitters. The next opening of the
/// same kind of window takes them over.
class WindowSizes {
  public:
    void keep(const QWidget& window);
    /// Sizes that were never kept stay as they are; a window is never larger than its screen.
    void give(QWidget& window) const;

    /// As a line of the settings: "width height splitter=state ...", empty when none were kept.
    std::string text() const;
    /// Takes a line of `text`; of any other it takes what can be read.
    void read(const std::string& text);

  private:
    QSize size_;
    QMap<QString, QByteArray> splitters_;
};

/// The sizes of all kinds of windows. They outlive the program in the section "Windows" of the settings.
class SizeMemory {
  public:
    /// Null: from now on nothing is read or written.
    void attach(platform::SettingsStore* store) { store_ = store; }

    WindowSizes& of(const std::string& window);
    /// Stores what a window has left. Settings that cannot be written lose it, without a word.
    void store(const std::string& window);

  private:
    platform::SettingsStore* store_ = nullptr;
    std::map<std::string, WindowSizes> known_;
};

}  // namespace orvent::qt
