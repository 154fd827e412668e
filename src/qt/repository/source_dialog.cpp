#include "qt/repository/source_dialog.h"

#include <QLabel>
#include <QVBoxLayout>

#include "qt/forms/fields.h"
#include "qt/forms/program_header.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

SourceDialog::SourceDialog(const QString& title, const QString& hint, const std::vector<std::string>& sources,
                           int index, QWidget* parent)
    : FormWindow(title, parent) {
    DSNNames = newChoice(QStringLiteral("DSNNames"), this);
    DSNNames->setMinimumContentsLength(30);
    for (const std::string& source : sources) {
        DSNNames->addItem(icon(QStringLiteral("database")), QString::fromStdString(source));
    }
    DSNNames->setCurrentIndex(index);
    txtUserName = newField(QStringLiteral("txtUserName"), this);
    txtPassword = newField(QStringLiteral("txtPassword"), this);
    txtPassword->setEchoMode(QLineEdit::Password);

    QFormLayout* form = newForm();
    addField(*form, tr("&Data source"), DSNNames);
    addField(*form, tr("&User name"), txtUserName);
    addField(*form, tr("&Password"), txtPassword);
    body().addWidget(newHint(hint, this));
    body().addSpacing(Spacing::gap);
    body().addLayout(form);
    status_ = newHint(QString(), this);
    status_->setObjectName(QStringLiteral("status"));
    status_->setTextFormat(Qt::PlainText);
    status_->setForegroundRole(QPalette::WindowText);
    status_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    status_->setMinimumHeight(2 * status_->fontMetrics().lineSpacing());
    body().addWidget(status_);
    body().addStretch();
}

void SourceDialog::showStatus(const std::string& status) {
    status_->setText(QString::fromStdString(status));
    status_->setAccessibleName(status_->text());
    growToContents();
}

}  // namespace orvent::qt
