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

    txtRepos = newField(QStringLiteral("txtRepos"), this);
    txtRepos->setReadOnly(true);
    txtRepos->setFocusPolicy(Qt::ClickFocus);
    txtRepos->setPlaceholderText(tr("No repository selected"));
    txtRepos->addAction(icon(QStringLiteral("database")), QLineEdit::LeadingPosition);
    ChangeRepos = new QPushButton(tr("Change…"), this);
    ChangeRepos->setObjectName(QStringLiteral("ChangeRepos"));
    ChangeRepos->setAutoDefault(false);
    txtUser = newField(QStringLiteral("txtUser"), this);
    txtUser->setText(QString::fromStdString(logic_.txtUser));
    txtUser->setPlaceholderText(tr("Whose scenarios to show"));
    txtUser->addAction(icon(QStringLiteral("user")), QLineEdit::LeadingPosition);

    auto* repository = new QHBoxLayout;
    repository->setSpacing(Spacing::gap);
    repository->addWidget(txtRepos, 1);
    repository->addWidget(ChangeRepos);
    QFormLayout* form = newForm();
    form->addRow(newCaption(tr("Repository"), this), repository);
    form->addRow(newCaption(tr("User"), this), txtUser);

    body().addWidget(newProgramHeader(tr("Logical design of ETL scenarios"), this));
    body().addSpacing(Spacing::section);
    body().addLayout(form);
    body().addStretch();
    Login = &addAccept(QStringLiteral("Login"), tr("Login"), [this] { return logic_.Login(); });
    addCancel(QStringLiteral("cmdCancel"));

    connect(txtUser, &QLineEdit::textChanged, this,
            [this](const QString& text) { logic_.txtUser = text.toStdString(); });
    connect(ChangeRepos, &QPushButton::clicked, this, [this] {
        logic_.ChangeRepos();
        showState();
    });
    showState();
    txtUser->setFocus();
    txtUser->selectAll();
}

void UserLoginWindow::showState() {
    txtRepos->setText(QString::fromStdString(logic_.txtRepos));
    txtRepos->setCursorPosition(0);
}

}  // namespace orvent::qt
