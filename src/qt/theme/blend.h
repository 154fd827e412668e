#pragma once

#include <QColor>

namespace orvent::qt {

/// `base` with a share (0 to 1) of `over` mixed in.
inline QColor blend(const QColor& base, const QColor& over, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return QColor(mix(base.red(), over.red()), mix(base.green(), over.green()), mix(base.blue(), over.blue()));
}

}  // namespace orvent::qt
