#pragma once

#include <cstdint>

#include "qt/theme/theme.h"

namespace orvent::qt {

/// How a node of a colour is painted.
struct NodeColours {
    QColor fill;
    QColor caption;

    bool operator==(const NodeColours&) const = default;
};

/// The contrast of two colours, 1 to 21 (WCAG 2).
double contrast(const QColor& a, const QColor& b);

/// The least contrast of a caption to its box.
inline constexpr double kLeastContrast = 4.5;

/// Any colour as the theme shows it on a canvas: its hue stays, white becomes paper and black ink, and what lies
/// between them keeps its order. The caption is light or dark, whichever can be read.
NodeColours nodeColours(const QColor& plain, const CanvasColours& theme);
/// The same for a colour of the model.
NodeColours nodeColours(std::int32_t modelColour, const CanvasColours& theme);

/// How much of a node that is not lit is left to the background.
inline constexpr double kDimmedShare = 0.72;

/// The colours of a node that is not lit while others are.
NodeColours dimmed(const NodeColours& colours, const CanvasColours& theme);

}  // namespace orvent::qt
