#include "qt/repository/user_login_window.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include "qt/forms/fields.h"
#include "qt/forms/program_header.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

UserLoginWindow::UserLoginWindow(repository::UserLogin& logic, QWidget* parent)
    : FormWindow(tr("Login"), parent), logic_(logic) {
    setObjectName(QStringLiteral("UserLogin"));

    txtRepos_ = newField(QStringLiteral("txtRepos"), this);
    txtRepos_->setReadOnly(true);
    txtRepos_->setFocusPolicy(Qt::ClickFocus);
    txtRepos_->setPlaceholderText(tr("No repository selected"));
    txtRepos_->addAction(icon(QStringLiteral("database")), QLineEdit::LeadingPosition);
    changeRepos_ = new QPushButton(tr("C&hange…"), this);
    changeRepos_->setObjectName(QStringLiteral("ChangeRepos"));
    changeRepos_->setAutoDefault(false);
    txtUser_ = newField(QStringLiteral("txtUser"), this);
    txtUser_->setText(QString::fromStdString(logic_.txtUser));
    txtUser_->setPlaceholderText(tr("Whose scenarios to show"));
    txtUser_->addAction(icon(QStringLiteral("user")), QLineEdit::LeadingPosition);

    auto* repository = new QHBoxLayout;
    repository->setSpacing(Spacing::gap);
    repository->addWidget(txtRepos_, 1);
    repository->addWidget(changeRepos_);
    QFormLayout* form = newForm();
    form->addRow(newCaption(tr("Repository"), this), repository);
    addField(*form, tr("&User"), txtUser_);

    body().addWidget(newProgramHeader(tr("Logical design of ETL scenarios"), this));
    body().addSpacing(Spacing::section);
    body().addLayout(form);
    body().addStretch();
    login_ = &addAccept(QStringLiteral("Login"), tr("&Login"), [this] { return logic_.Login(); });
    addCancel(QStringLiteral("cmdCancel"));

    connect(txtUser_, &QLineEdit::textChanged, this,
            [this](const QString& text) { logic_.txtUser = text.toStdString(); });
    connect(changeRepos_, &QPushButton::clicked, this, [this] {
        logic_.ChangeRepos();
        showState();
    });
    showState();
    txtUser_->setFocus();
    txtUser_->selectAll();
}

void UserLoginWindow::showState() {
    txtRepos_->setText(QString::fromStdString(logic_.txtRepos));
    txtRepos_->setCursorPosition(0);
}

}  // namespace orvent::qt
