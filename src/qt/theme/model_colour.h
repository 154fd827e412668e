#pragma once

#include <QColor>
#include <cstdint>

namespace orvent::qt {

/// The model keeps colours as 24-bit numbers with blue in the high byte.
inline QColor fromModel(std::int32_t colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

inline std::int32_t toModel(const QColor& colour) {
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}

}  // namespace orvent::qt
