#include "qt/theme/style.h"

#include <QApplication>
#include <QMdiArea>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QToolButton>

#include "qt/theme/blend.h"
#include "qt/theme/icons.h"
#include "qt/theme/scroll_bar.h"
#include "qt/theme/spacing.h"
#include "qt/theme/tab_bar.h"
#include "qt/theme/title_bar.h"

namespace orvent::qt {

namespace {

void panel(QPainter* painter, const QRect& rect, const QColor& fill, const QColor& border) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(border.isValid() ? QPen(border, 1) : QPen(Qt::NoPen));
    painter->setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    painter->drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), Spacing::radius, Spacing::radius);
    painter->restore();
}

void drawPushButton(const QStyleOption* option, QPainter* painter) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const QPalette& colours = option->palette;
    const bool enabled = option->state & QStyle::State_Enabled;
    const bool standard = enabled && button && (button->features & QStyleOptionButton::DefaultButton);
    QColor fill = standard ? colours.color(QPalette::Highlight) : colours.color(QPalette::Button);
    if (option->state & (QStyle::State_Sunken | QStyle::State_On)) {
        fill = blend(fill, colours.color(QPalette::Shadow), 0.18);
    } else if (enabled && (option->state & QStyle::State_MouseOver)) {
        fill = blend(fill, colours.color(standard ? QPalette::BrightText : QPalette::Highlight), 0.10);
    }
    QColor border = standard ? fill : colours.color(QPalette::Mid);
    if (enabled && (option->state & QStyle::State_HasFocus)) {
        border = colours.color(standard ? QPalette::WindowText : QPalette::Highlight);
    }
    panel(painter, option->rect, fill, border);
}

void drawToolButton(const QStyleOption* option, QPainter* painter) {
    const QPalette& colours = option->palette;
    if (!(option->state & QStyle::State_Enabled)) {
        return;
    }
    double share = 0;
    if (option->state & (QStyle::State_Sunken | QStyle::State_On)) {
        share = 0.26;
    } else if (option->state & QStyle::State_MouseOver) {
        share = 0.13;
    }
    if (share > 0) {
        panel(painter, option->rect, blend(colours.color(QPalette::Window), colours.color(QPalette::Highlight), share),
              {});
    }
}

void drawField(const QStyleOption* option, QPainter* painter, bool filled) {
    const QPalette& colours = option->palette;
    const bool focus = (option->state & QStyle::State_HasFocus) && (option->state & QStyle::State_Enabled);
    const bool editable = (option->state & QStyle::State_Enabled) && !(option->state & QStyle::State_ReadOnly);
    const QColor fill = filled ? colours.color(editable ? QPalette::Base : QPalette::Window) : QColor();
    panel(painter, option->rect, fill, colours.color(focus ? QPalette::Highlight : QPalette::Mid));
}

/// The arrow that opens and closes a tree row, in the ink of its row.
void drawBranch(const QStyleOption* option, QPainter* painter) {
    if (!(option->state & QStyle::State_Children)) {
        return;
    }
    const bool active = option->state & QStyle::State_Active;
    const bool onSelection = option->state & QStyle::State_Selected;
    const QPalette::ColorGroup group = active ? QPalette::Active : QPalette::Inactive;
    const double half = std::min({option->rect.width(), option->rect.height(), 18}) / 4.0;
    const bool leftToRight = option->direction == Qt::LeftToRight;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(option->rect).center());
    painter->rotate(option->state & QStyle::State_Open ? 90 : leftToRight ? 0 : 180);
    painter->setPen(QPen(option->palette.color(group, onSelection ? QPalette::HighlightedText : QPalette::Text), 1.4,
                         Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF({{-half / 2, -half}, {half / 2, 0}, {-half / 2, half}}));
    painter->restore();
}

/// Check boxes and radio buttons, also those of list items.
void drawIndicator(QStyle::PrimitiveElement element, const QStyleOption* option, QPainter* painter) {
    const bool round = element == QStyle::PE_IndicatorRadioButton;
    const QPalette& colours = option->palette;
    const bool enabled = option->state & QStyle::State_Enabled;
    const bool set = option->state & (QStyle::State_On | QStyle::State_NoChange);
    const double side = std::min(option->rect.width(), option->rect.height()) - 1.0;
    const QPointF middle = QRectF(option->rect).center();
    const QRectF box(middle.x() - side / 2, middle.y() - side / 2, side, side);
    const QColor mark = enabled ? colours.color(QPalette::Highlight) : colours.color(QPalette::Mid);
    const bool hot = enabled && (option->state & (QStyle::State_MouseOver | QStyle::State_HasFocus));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QColor border =
        blend(colours.color(QPalette::Window), colours.color(QPalette::WindowText), enabled ? 0.5 : 0.25);
    // A selected row has the colour of the mark.
    const bool onMark = element == QStyle::PE_IndicatorItemViewItemCheck && option->state & QStyle::State_Selected;
    painter->setPen(QPen(onMark ? colours.color(QPalette::HighlightedText) : set || hot ? mark : border, 1));
    painter->setBrush(set ? mark : colours.color(enabled ? QPalette::Base : QPalette::Window));
    const double radius = round ? side / 2 : 3;
    painter->drawRoundedRect(box, radius, radius);
    const QColor ink = colours.color(QPalette::BrightText);
    if (set && round) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(ink);
        painter->drawEllipse(middle, side * 0.2, side * 0.2);
    } else if (set) {
        painter->setPen(QPen(ink, side / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        const auto at = [&](double x, double y) { return box.topLeft() + QPointF(x, y) * side; };
        painter->drawPolyline(option->state & QStyle::State_On
                                  ? QPolygonF({at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.31)})
                                  : QPolygonF({at(0.25, 0.5), at(0.75, 0.5)}));
    }
    painter->restore();
}

/// Square, since the contents reach into the corners. A page is one with its tab.
void drawFrame(QStyle::PrimitiveElement element, const QStyleOption* option, QPainter* painter) {
    const bool page = element == QStyle::PE_FrameTabWidget;
    painter->setPen(option->palette.color(QPalette::Mid));
    painter->setBrush(page ? QBrush(option->palette.color(QPalette::Base)) : QBrush(Qt::NoBrush));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
}

void drawProgressGroove(const QStyleOption* option, QPainter* painter) {
    panel(painter, option->rect, option->palette.color(QPalette::Base), option->palette.color(QPalette::Mid));
}

/// Gives false for a bar that shows no amount; that one is left to the base style.
bool drawProgressContents(const QStyleOption* option, QPainter* painter) {
    const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    if (!bar || bar->maximum <= bar->minimum || !(bar->state & QStyle::State_Horizontal)) {
        return false;
    }
    const QRect room = bar->rect.adjusted(2, 2, -2, -2);
    const double share = static_cast<double>(bar->progress - bar->minimum) / (bar->maximum - bar->minimum);
    const int length = static_cast<int>(room.width() * std::clamp(share, 0.0, 1.0));
    if (length > 0) {
        const QRect done =
            QStyle::visualRect(bar->direction, room, QRect(room.topLeft(), QSize(length, room.height())));
        panel(painter, done, option->palette.color(QPalette::Highlight), {});
    }
    return true;
}

}  // namespace

Style::Style() : QProxyStyle(QStringLiteral("Fusion")) {}

void Style::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QToolButton*>(widget) || qobject_cast<QPushButton*>(widget)) {
        widget->setAttribute(Qt::WA_Hover);
    }
    if (auto* area = qobject_cast<QMdiArea*>(widget)) {
        // The area takes its ground once, at its making; a change of the theme polishes it again.
        area->setBackground(QApplication::palette().color(QPalette::Midlight));
    }
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    switch (element) {
        case PE_PanelButtonCommand:
            drawPushButton(option, painter);
            return;
        case PE_PanelButtonTool:
            drawToolButton(option, painter);
            return;
        case PE_PanelLineEdit:
            if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
                frame && frame->lineWidth > 0) {
                drawField(option, painter, true);
                return;
            }
            break;
        case PE_FrameLineEdit:
            drawField(option, painter, false);
            return;
        case PE_FrameFocusRect:
            if (qobject_cast<const QPushButton*>(widget)) {
                return;  // the border shows it
            }
            if (qobject_cast<const QToolButton*>(widget)) {
                panel(painter, option->rect, {}, option->palette.color(QPalette::Highlight));
                return;
            }
            break;
        case PE_IndicatorBranch:
            drawBranch(option, painter);
            return;
        case PE_PanelStatusBar:
            painter->fillRect(option->rect, option->palette.color(QPalette::Window));
            painter->fillRect(QRect(option->rect.topLeft(), QSize(option->rect.width(), 1)),
                              option->palette.color(QPalette::Midlight));
            return;
        case PE_FrameStatusBarItem:
            return;
        case PE_PanelScrollAreaCorner:
            painter->fillRect(option->rect, option->palette.color(QPalette::Window));
            return;
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
        case PE_IndicatorRadioButton:
            drawIndicator(element, option, painter);
            return;
        case PE_Frame:
        case PE_FrameTabWidget:
            drawFrame(element, option, painter);
            return;
        case PE_FrameGroupBox: {
            const int title =
                std::max(pixelMetric(PM_IndicatorHeight, option, widget), option->fontMetrics.height()) + 3;
            panel(painter, option->rect.adjusted(0, title, 0, 0), {}, option->palette.color(QPalette::Mid));
            return;
        }
        default:
            break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    if (element == CE_ToolBar) {
        painter->fillRect(option->rect, option->palette.color(QPalette::Window));
        return;
    }
    if (element == CE_ProgressBarGroove) {
        drawProgressGroove(option, painter);
        return;
    }
    if (element == CE_ProgressBarContents && drawProgressContents(option, painter)) {
        return;
    }
    if (element == CE_TabBarTabShape) {
        const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        if (tab && drawTab(*tab, *painter)) {
            return;
        }
    }
    if (element == CE_PushButtonLabel) {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (button && (button->features & QStyleOptionButton::DefaultButton) && (button->state & State_Enabled)) {
            QStyleOptionButton bright = *button;
            bright.palette.setColor(QPalette::ButtonText, button->palette.color(QPalette::BrightText));
            QProxyStyle::drawControl(element, &bright, painter, widget);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
    if (control == CC_TitleBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option)) {
            drawTitleBar(*this, *bar, *painter, widget);
            return;
        }
    }
    if (control == CC_ScrollBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            drawScrollBar(*bar, *painter);
            return;
        }
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_SpinBox) {
        drawField(option, painter, false);  // the base style's border is lost on a dark ground
    }
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const {
    if (control == CC_ScrollBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            return scrollBarPart(*bar, part);
        }
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    return element == SE_LineEditContents && frame && frame->lineWidth > 0 ? rect.adjusted(4, 0, -4, 0) : rect;
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                              const QWidget* widget) const {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
        case CT_LineEdit:
        case CT_ComboBox:
            return QSize(plain.width(), std::max(plain.height(), size.height() + 10));
        case CT_ItemViewItem:
            return plain + QSize(0, 6);
        default:
            return plain;
    }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_ToolBarIconSize:
            return Spacing::icon;
        case PM_ToolBarItemSpacing:
            return 2;
        case PM_ToolBarItemMargin:
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return 4;
        case PM_LayoutLeftMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutBottomMargin:
            return Spacing::margin;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return Spacing::gap;
        case PM_ScrollBarExtent:
            return 13;
        case PM_ButtonMargin:
            return 12;
        case PM_TabBarTabShiftVertical:
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
    switch (hint) {
        case SH_DialogButtonBox_ButtonsHaveIcons:
        case SH_EtchDisabledText:
        case SH_ComboBox_Popup:  // a list on the ground of lists, not a menu that is as grey as the window
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QIcon Style::standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const {
    switch (picture) {
        case SP_MessageBoxInformation:
            return icon(QStringLiteral("about"));
        case SP_MessageBoxQuestion:
            return icon(QStringLiteral("help"));
        case SP_MessageBoxWarning:
            return icon(QStringLiteral("warning"));
        case SP_MessageBoxCritical:
            return icon(QStringLiteral("error"));
        default:
            return QProxyStyle::standardIcon(picture, option, widget);
    }
}

}  // namespace orvent::qt
