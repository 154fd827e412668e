#include "qt/shell/side_menu.h"

#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

#include "qt/shell/command_actions.h"
#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kWidth = 168;

QLabel* newCaption(const QString& caption, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    label->setContentsMargins(Spacing::gap, 0, 0, 2);
    return label;
}

}  // namespace

SideMenu::SideMenu(CommandActions& actions, QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("VerticalMenu"));
    setFixedWidth(kWidth);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Spacing::gap, Spacing::margin, Spacing::gap, Spacing::gap);
    rows->setSpacing(2);
    for (const shell::ButtonGroup& group : shell::verticalMenu()) {
        rows->addWidget(newCaption(text(group.caption), this));
        for (const shell::Button& button : group.buttons) {
            auto* row = new QToolButton(this);
            row->setDefaultAction(actions.add(button, row));
            row->setObjectName(text(button.key));
            row->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
            row->setIconSize({Spacing::icon, Spacing::icon});
            row->setAutoRaise(true);
            row->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
            rows->addWidget(row);
        }
        rows->addSpacing(Spacing::section);
    }
    rows->addStretch();
}

void SideMenu::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.fillRect(QRect(width() - 1, 0, 1, height()), palette().color(QPalette::Midlight));
}

}  // namespace orvent::qt
