#include "qt/repository/repos_form_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "qt/theme/icons.h"

namespace orvent::qt {

ReposFormWindow::ReposFormWindow(repository::ReposForm& logic, QWidget* parent)
    : SourceDialog(tr("Repository"), tr("The database that keeps your scenarios and types."), logic.DSNNames,
                   logic.DSNIndex, parent) {
    setObjectName(QStringLiteral("ReposForm"));
    txtUserName->setText(QString::fromStdString(logic.txtUserName));
    txtPassword->setText(QString::fromStdString(logic.txtPassword));
    addSideButton(QStringLiteral("TestConn"), tr("Test Connection"), [&logic] {
        logic.TestConn();
    }).setIcon(icon(QStringLiteral("test-connection")));
    addAccept(QStringLiteral("cmdOK"), tr("OK"), [&logic] { return logic.cmdOK(); });
    addCancel(QStringLiteral("cmdCancel"));

    connect(DSNNames, &QComboBox::currentIndexChanged, this, [&logic](int index) { logic.selectDSN(index); });
    connect(txtUserName, &QLineEdit::textChanged, this,
            [&logic](const QString& text) { logic.changeUserName(text.toStdString()); });
    connect(txtPassword, &QLineEdit::textChanged, this,
            [&logic](const QString& text) { logic.changePassword(text.toStdString()); });
}

}  // namespace orvent::qt
