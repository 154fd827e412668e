#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

#include "qt/theme/blend.h"

namespace orvent::qt {

/// The model keeps colours as 24-bit numbers with blue in the high byte.
inline QColor fromModel(std::int32_t colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

inline std::int32_t toModel(const QColor& colour) {
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}

/// A model colour as letters on the ground of a text box: as it is on a light one, brighter on a dark one.
inline QColor letterColour(std::int32_t modelColour, const QPalette& palette) {
    const QColor plain = fromModel(modelColour);
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    return dark ? blend(plain, palette.color(QPalette::BrightText), 0.5) : plain;
}

}  // namespace orvent::qt
