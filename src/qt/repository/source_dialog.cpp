#include "qt/repository/source_dialog.h"

#include <QVBoxLayout>

#include "qt/dialogs/fields.h"
#include "qt/dialogs/program_header.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

SourceDialog::SourceDialog(const QString& title, const QString& hint, const std::vector<std::string>& sources,
                           int index, QWidget* parent)
    : DialogBase(title, parent) {
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
    form->addRow(newCaption(tr("Data source"), this), DSNNames);
    form->addRow(newCaption(tr("User name"), this), txtUserName);
    form->addRow(newCaption(tr("Password"), this), txtPassword);
    body().addWidget(newHint(hint, this));
    body().addSpacing(Spacing::gap);
    body().addLayout(form);
    body().addStretch();
}

}  // namespace orvent::qt
