#include "qt/theme/theme.h"

#include <QApplication>
#include <QStyle>
#include <QWidget>
#include <array>

#include "qt/theme/icons.h"
#include "qt/theme/style.h"

namespace orvent::qt {

namespace {

struct RoleRow {
    QPalette::ColorRole role;
    QRgb light, dark;
};

constexpr std::array<RoleRow, 20> kRoles = {{
    {QPalette::Window, 0xFFF4F5F7, 0xFF26282C},
    {QPalette::WindowText, 0xFF1D2127, 0xFFE4E6EA},
    {QPalette::Base, 0xFFFFFFFF, 0xFF1D1F22},
    {QPalette::AlternateBase, 0xFFF0F2F5, 0xFF232529},
    {QPalette::Text, 0xFF1D2127, 0xFFE4E6EA},
    {QPalette::PlaceholderText, 0xFF70767F, 0xFF8E949E},
    {QPalette::Button, 0xFFFAFBFC, 0xFF34373D},
    {QPalette::ButtonText, 0xFF2B3038, 0xFFE4E6EA},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Highlight, 0xFF1F7A8C, 0xFF2C8CA0},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Link, 0xFF176B7C, 0xFF67C3D4},
    {QPalette::LinkVisited, 0xFF5B5496, 0xFFA79FE0},
    {QPalette::ToolTipBase, 0xFF2B3038, 0xFF3C4047},
    {QPalette::ToolTipText, 0xFFF4F5F7, 0xFFE4E6EA},
    {QPalette::Light, 0xFFFFFFFF, 0xFF40444B},
    {QPalette::Midlight, 0xFFE9EBEF, 0xFF383B41},
    {QPalette::Mid, 0xFFCBD0D8, 0xFF474B53},
    {QPalette::Dark, 0xFF9AA1AC, 0xFF17181B},
    {QPalette::Shadow, 0xFF5E6570, 0xFF0E0F11},
}};

constexpr QRgb kDisabledLight = 0xFF9CA2AC;
constexpr QRgb kDisabledDark = 0xFF6E747D;

CanvasColours lightCanvas() {
    return {QColor(0xFAFBFC), QColor(0xDDE1E7), QColor(0xFFFFFF), QColor(0x262B33), QColor(0x3A424E),
            QColor(0x5A6472), QColor(0x1D2127), QColor(0xFFFFFF), QColor(0x1F7A8C), QColor(0xF0A03C),
            QColor(0x9BD3C9), QColor(0x4A5360), QColor(0xFFFFFF), QColor(0xFFC62E)};
}

CanvasColours darkCanvas() {
    return {QColor(0x1D1F22), QColor(0x3E4249), QColor(0x33373D), QColor(0xD5DAE1), QColor(0xB4BCC8),
            QColor(0x98A1AE), QColor(0x15171A), QColor(0xF1F3F6), QColor(0x4FB6CA), QColor(0xD98C2B),
            QColor(0x3E8F84), QColor(0x5A6472), QColor(0x1D1F22), QColor(0xB98A00)};
}

}  // namespace

Theme::Theme(ThemeMode mode, QObject* parent) : QObject(parent), mode_(mode) {}

ThemeMode Theme::modeOf(const QPalette& desktop) {
    return desktop.color(QPalette::Window).lightness() < 128 ? ThemeMode::dark : ThemeMode::light;
}

void Theme::apply(QApplication& application) {
    application_ = &application;
    application.setStyle(new Style);  // the application owns it
    application.setPalette(palette());
    application.setWindowIcon(programIcon());
}

void Theme::setMode(ThemeMode mode) {
    if (mode == mode_) {
        return;
    }
    mode_ = mode;
    if (application_) {
        application_->setPalette(palette());
        for (QWidget* widget : QApplication::allWidgets()) {
            application_->style()->polish(widget);
        }
    }
    Q_EMIT changed();
}

const CanvasColours& Theme::canvas() const {
    static const CanvasColours light = lightCanvas();
    static const CanvasColours dark = darkCanvas();
    return mode_ == ThemeMode::dark ? dark : light;
}

QPalette Theme::palette() const {
    const bool dark = mode_ == ThemeMode::dark;
    QPalette palette;
    for (const RoleRow& row : kRoles) {
        palette.setColor(row.role, QColor::fromRgba(dark ? row.dark : row.light));
    }
    const QColor disabled = QColor::fromRgba(dark ? kDisabledDark : kDisabledLight);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, palette.color(QPalette::Mid));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, palette.color(QPalette::Text));
    return palette;
}

}  // namespace orvent::qt
