#include "qt/theme/node_colours.h"

#include <algorithm>
#include <cmath>

#include "qt/theme/blend.h"
#include "qt/theme/model_colour.h"

namespace orvent::qt {

namespace {

constexpr float kLeastSaturation = 0.04F;  // below, a colour has no hue that could be kept
constexpr float kMostSaturation = 0.62F;   // full colours glare beside paper and ink
constexpr float kStep = 0.01F;

/// Relative luminance of a colour, 0 to 1 (WCAG 2).
double luminance(const QColor& colour) {
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

NodeColours withCaption(const QColor& fill, const CanvasColours& theme) {
    const bool light = contrast(fill, theme.lightText) > contrast(fill, theme.darkText);
    return {fill, light ? theme.lightText : theme.darkText};
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
    const double x = luminance(a) + 0.05;
    const double y = luminance(b) + 0.05;
    return x > y ? x / y : y / x;
}

NodeColours nodeColours(const QColor& plain, const CanvasColours& theme) {
    float hue = 0, saturation = 0, lightness = 0;
    plain.getHslF(&hue, &saturation, &lightness);
    const QColor grey = blend(theme.ink, theme.paper, lightness);
    if (saturation < kLeastSaturation || hue < 0) {
        hue = std::max(0.0F, grey.hslHueF());
        saturation = grey.hslSaturationF();
    } else {
        saturation = std::min(saturation, kMostSaturation);
    }
    QColor fill = plain.lightness() == 0 ? theme.ink : plain.lightness() == 255 ? theme.paper : QColor();
    lightness = grey.lightnessF();
    if (!fill.isValid()) {
        fill = QColor::fromHslF(hue, saturation, lightness);
    }
    NodeColours colours = withCaption(fill, theme);
    // In the middle neither caption can be read: on into the direction in which this one can.
    const float step = colours.caption == theme.lightText ? -kStep : kStep;
    while (contrast(colours.fill, colours.caption) < kLeastContrast && lightness > 0 && lightness < 1) {
        lightness = std::clamp(lightness + step, 0.0F, 1.0F);
        colours.fill = QColor::fromHslF(hue, saturation, lightness);
    }
    colours.fill = QColor(colours.fill.rgb());
    return colours;
}

NodeColours nodeColours(std::int32_t modelColour, const CanvasColours& theme) {
    return nodeColours(fromModel(modelColour), theme);
}

NodeColours dimmed(const NodeColours& colours, const CanvasColours& theme) {
    return {blend(colours.fill, theme.background, kDimmedShare),
            blend(colours.caption, theme.background, kDimmedShare)};
}

}  // namespace orvent::qt
