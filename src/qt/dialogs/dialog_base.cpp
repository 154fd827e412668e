#include "qt/dialogs/dialog_base.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/theme/theme.h"

namespace orvent::qt {

DialogBase::DialogBase(const QString& title, QWidget* parent)
    : QDialog(parent), body_(new QVBoxLayout), lastRow_(new QHBoxLayout), buttons_(new QDialogButtonBox(this)) {
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Spacing::section, Spacing::section, Spacing::section, Spacing::margin);
    rows->setSpacing(Spacing::section);
    body_->setSpacing(Spacing::gap);
    rows->addLayout(body_, 1);
    lastRow_->setSpacing(Spacing::section);
    lastRow_->addWidget(buttons_, 1);
    rows->addLayout(lastRow_);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QPushButton& DialogBase::addAccept(const QString& name, const QString& text, std::function<bool()> act) {
    accept_ = buttons_->addButton(text, QDialogButtonBox::AcceptRole);
    accept_->setObjectName(name);
    accept_->setDefault(true);
    connect(accept_, &QPushButton::clicked, this, [this, act = std::move(act)] {
        if (act()) {
            accept();
        }
    });
    return *accept_;
}

QPushButton& DialogBase::addCancel(const QString& name) {
    QPushButton* cancel = buttons_->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(name);
    cancel->setAutoDefault(false);
    return *cancel;
}

QPushButton& DialogBase::addSideButton(const QString& name, const QString& text, std::function<void()> act) {
    QPushButton* button = buttons_->addButton(text, QDialogButtonBox::ResetRole);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, std::move(act));
    return *button;
}

QLabel& DialogBase::addNote(const QString& name) {
    auto* note = new QLabel(this);
    note->setObjectName(name);
    note->setForegroundRole(QPalette::PlaceholderText);
    lastRow_->insertWidget(0, note, 1);
    lastRow_->setStretchFactor(buttons_, 0);
    return *note;
}

void DialogBase::press() {
    accept_->click();
}

}  // namespace orvent::qt
