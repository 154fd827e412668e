#include "qt/shell/offer_bar.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>

#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

OfferBar::OfferBar(canvas::CanvasForm& form, QAbstractScrollArea& view, QWidget* parent)
    : QWidget(parent), form_(form), view_(view), words_(new QLabel(this)), take_(new QPushButton(this)) {
    setObjectName(QStringLiteral("offer"));
    setFocusProxy(&view);
    words_->setTextFormat(Qt::PlainText);
    take_->setObjectName(QStringLiteral("takeOffer"));
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("closeOffer"));
    close->setIcon(icon(QStringLiteral("close")));
    close->setIconSize({12, 12});
    close->setAutoRaise(true);
    close->setToolTip(tr("Leave it as it is"));
    buttons_ = {take_, close};
    for (QWidget* button : buttons_) {
        button->setFocusPolicy(Qt::TabFocus);  // a click leaves the keys with the canvas
    }
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Spacing::gap, 3, Spacing::gap, 3);
    row->setSpacing(Spacing::gap);
    row->addWidget(words_);
    row->addWidget(take_);
    row->addStretch();
    row->addWidget(close);
    connect(take_, &QPushButton::clicked, this, [this] { form_.answerOffer(true); });
    connect(close, &QToolButton::clicked, this, [this] { form_.answerOffer(false); });
}

void OfferBar::refresh() {
    const std::optional<canvas::Offer> offer = form_.offer();
    if (offer) {
        words_->setText(text(offer->words));
        take_->setText(text(offer->button));
    } else if (isAncestorOf(QApplication::focusWidget())) {
        focusProxy()->setFocus();
    }
    if (offer.has_value() == isHidden()) {
        showOrHide(offer.has_value());
    }
}

/// What the view loses or gains at its top is scrolled away.
void OfferBar::showOrHide(bool shown) {
    const bool isSeen = view_.isVisible();
    const int before = view_.y();
    setVisible(shown);
    if (isSeen) {
        parentWidget()->layout()->activate();
        view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->value() + view_.y() - before);
    }
}

void OfferBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::AlternateBase));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(QPointF(0, height() - 0.5), QPointF(width(), height() - 0.5));
}

}  // namespace orvent::qt
