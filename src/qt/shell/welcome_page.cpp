#include "qt/shell/welcome_page.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "qt/forms/program_header.h"
#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kCardWidth = 440;

/// A push button with a picture, a title and a line of explanation.
class ChoiceButton : public QPushButton {
  public:
    ChoiceButton(QAction& action, const QString& line, QWidget* parent) : QPushButton(parent) {
        setObjectName(QStringLiteral("Welcome") + action.objectName());
        setAccessibleName(action.text());
        setAccessibleDescription(line);
        setAutoDefault(false);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        auto* grid = new QGridLayout(this);
        grid->setContentsMargins(Spacing::margin, Spacing::margin - 2, Spacing::margin, Spacing::margin - 2);
        grid->setHorizontalSpacing(Spacing::margin);
        grid->setVerticalSpacing(2);
        auto* title = new QLabel(action.text(), this);
        QFont font = title->font();
        font.setWeight(QFont::DemiBold);
        title->setFont(font);
        grid->addWidget(newPicture(action.icon(), 28, this), 0, 0, 2, 1);
        grid->addWidget(title, 0, 1);
        grid->addWidget(newHint(line, this), 1, 1, 1, 2);
        grid->addWidget(newHint(action.shortcut().toString(QKeySequence::NativeText), this), 0, 2);
        grid->setColumnStretch(1, 1);
        for (QWidget* part : findChildren<QWidget*>()) {
            part->setAttribute(Qt::WA_TransparentForMouseEvents);
        }
        connect(this, &QPushButton::clicked, &action, &QAction::trigger);
    }

    QSize sizeHint() const override { return layout()->sizeHint(); }
    QSize minimumSizeHint() const override { return layout()->minimumSize(); }
};

}  // namespace

WelcomePage::WelcomePage(QWidget* parent) : QWidget(parent), card_(new QWidget(this)) {
    setObjectName(QStringLiteral("WelcomePage"));
    card_->setFixedWidth(kCardWidth);
    auto* rows = new QVBoxLayout(card_);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::gap);
    rows->addWidget(
        newProgramHeader(tr("Draw where your data comes from, what is done to it and where it goes."), card_));
    rows->addSpacing(Spacing::margin);

    auto* middle = new QGridLayout(this);
    middle->addWidget(card_, 1, 1);
    middle->setRowStretch(0, 2);
    middle->setRowStretch(2, 3);
    middle->setColumnStretch(0, 1);
    middle->setColumnStretch(2, 1);
}

void WelcomePage::addChoice(QAction& action, const QString& line) {
    card_->layout()->addWidget(new ChoiceButton(action, line, card_));
}

void WelcomePage::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), palette().color(QPalette::Base));
}

}  // namespace orvent::qt
