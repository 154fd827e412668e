#include "qt/forms/window_sizes.h"

#include <QScreen>
#include <QSplitter>

namespace orvent::qt {

namespace {

constexpr QSize kAround(0, 40);  // a window's title

}  // namespace

void WindowSizes::keep(const QWidget& window) {
    size_ = window.size();
    for (const QSplitter* splitter : window.findChildren<QSplitter*>()) {
        if (!splitter->objectName().isEmpty()) {
            splitters_[splitter->objectName()] = splitter->saveState();
        }
    }
}

void WindowSizes::give(QWidget& window) const {
    const QSize wanted = size_.isValid() ? size_ : window.size();
    window.resize(wanted.boundedTo(window.screen()->availableSize() - kAround));
    for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
        if (splitters_.contains(splitter->objectName())) {
            splitter->restoreState(splitters_[splitter->objectName()]);
        }
    }
}

}  // namespace orvent::qt
