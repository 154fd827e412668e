#include "qt/repository/db_login_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace orvent::qt {

DBLoginWindow::DBLoginWindow(repository::frmDBLogin& logic, QWidget* parent)
    : SourceDialog(tr("DB Login"), tr("The source database whose tables are to be browsed."), logic.DSNNames,
                   logic.DSNIndex, parent) {
    setObjectName(QStringLiteral("frmDBLogin"));
    txtUserName->setText(QString::fromStdString(logic.txtUserName));
    txtPassword->setText(QString::fromStdString(logic.txtPassword));
    addAccept(QStringLiteral("cmdOK"), tr("&OK"), [&logic] { return logic.cmdOK(); });
    addCancel(QStringLiteral("cmdCancel"));

    connect(DSNNames, &QComboBox::currentIndexChanged, this, [&logic](int index) { logic.DSNIndex = index; });
    connect(txtUserName, &QLineEdit::textChanged, this,
            [&logic](const QString& text) { logic.txtUserName = text.toStdString(); });
    connect(txtPassword, &QLineEdit::textChanged, this,
            [&logic](const QString& text) { logic.txtPassword = text.toStdString(); });
}

}  // namespace orvent::qt
