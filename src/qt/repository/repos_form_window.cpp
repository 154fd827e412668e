#include "qt/repository/repos_form_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "qt/forms/fields.h"
#include "qt/theme/icons.h"

namespace orvent::qt {

ReposFormWindow::ReposFormWindow(repository::ReposForm& logic, QWidget* parent)
    : SourceDialog(tr("Repository"), tr("The database that keeps your scenarios and types."), logic.DSNNames,
                   logic.DSNIndex, parent) {
    setObjectName(QStringLiteral("ReposForm"));
    txtUserName->setText(QString::fromStdString(logic.txtUserName));
    txtPassword->setText(QString::fromStdString(logic.txtPassword));
    addSideButton(QStringLiteral("TestConn"), withLetter(tr("Test Connection"), QLatin1Char('T')), [this, &logic] {
        logic.TestConn();
        showStatus(logic.status);
    }).setIcon(icon(QStringLiteral("test-connection")));
    addAccept(QStringLiteral("cmdOK"), tr("&OK"), [this, &logic] {
        const bool done = logic.cmdOK();
        showStatus(logic.status);
        return done;
    });
    addCancel(QStringLiteral("cmdCancel"));

    showStatus(logic.status);

    connect(DSNNames, &QComboBox::currentIndexChanged, this, [this, &logic](int index) {
        logic.selectDSN(index);
        showStatus(logic.status);
    });
    connect(txtUserName, &QLineEdit::textChanged, this, [this, &logic](const QString& text) {
        logic.changeUserName(text.toStdString());
        showStatus(logic.status);
    });
    connect(txtPassword, &QLineEdit::textChanged, this, [this, &logic](const QString& text) {
        logic.changePassword(text.toStdString());
        showStatus(logic.status);
    });
}

}  // namespace orvent::qt
