#include "qt/shell/side_menu.h"

#include <QEvent>
#include <QPainter>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include "qt/shell/command_actions.h"
#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kMenuWidth = 168;

QToolButton* newGroupCaption(const QString& caption, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setText(caption);
    button->setAutoRaise(true);
    button->setCheckable(true);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::NoFocus);
    QFont font = button->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    font.setWeight(QFont::DemiBold);
    button->setFont(font);
    return button;
}

}  // namespace

SideMenu::SideMenu(CommandActions& actions, const std::function<void(int)>& choose, QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("VerticalMenu"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Spacing::gap, Spacing::margin, Spacing::gap, Spacing::gap);
    rows->setSpacing(2);
    for (const shell::ButtonGroup& group : shell::verticalMenu()) {
        QToolButton* caption = newGroupCaption(text(group.caption), this);
        caption->setObjectName(QStringLiteral("Group") + text(group.caption));
        captions_.push_back(caption);
        const int number = static_cast<int>(captions_.size());
        connect(caption, &QToolButton::clicked, this, [choose, number] { choose(number); });
        rows->addWidget(caption);
        for (const shell::Button& button : group.buttons) {
            auto* row = new QToolButton(this);
            row->setDefaultAction(actions.add(button, row));
            row->setObjectName(text(button.key));
            connect(row, &QToolButton::pressed, this, [choose, number] { choose(number); });
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

QWidget* SideMenu::scrolling() {
    auto* room = new QScrollArea(parentWidget());
    room->setFrameShape(QFrame::NoFrame);
    room->setFocusPolicy(Qt::NoFocus);
    room->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    room->setWidgetResizable(true);
    room->setFixedWidth(kMenuWidth);
    room->setWidget(this);
    return room;
}

void SideMenu::showCurrent(int group) {
    current_ = group;
    for (std::size_t at = 0; at < captions_.size(); ++at) {
        const bool current = static_cast<int>(at) + 1 == group;
        captions_[at]->setChecked(current);
        QPalette colours;
        colours.setColor(QPalette::ButtonText,
                         palette().color(current ? QPalette::WindowText : QPalette::PlaceholderText));
        captions_[at]->setPalette(colours);
    }
}

// The captions keep the colours that they were given, so they are given those of the new theme.
void SideMenu::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        showCurrent(current_);
    }
    QFrame::changeEvent(event);
}

void SideMenu::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.fillRect(QRect(width() - 1, 0, 1, height()), palette().color(QPalette::Midlight));
}

}  // namespace orvent::qt
