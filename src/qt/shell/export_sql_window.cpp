#include "qt/shell/export_sql_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>

#include "qt/forms/fields.h"
#include "qt/text.h"
#include "sql/dialect.h"

namespace orvent::qt {

namespace {

constexpr int kDatabaseWidth = 220;

}  // namespace

ExportSqlWindow::ExportSqlWindow(shell::ExportSqlForm& question, QWidget* parent)
    : FormWindow(text(question.title), parent) {
    setObjectName(QStringLiteral("ExportSqlWindow"));
    QFormLayout* form = newForm();
    auto* dialect = new QComboBox(this);
    dialect->setObjectName(QStringLiteral("cboDialect"));
    for (const sql::Dialect& one : sql::dialects()) {
        dialect->addItem(text(one.title));
    }
    dialect->setCurrentIndex(static_cast<int>(question.dialect));
    dialect->setMinimumWidth(kDatabaseWidth);
    addField(*form, tr("&Database:"), dialect);
    auto* keep = new QCheckBox(tr("&Keep Duplicates"), this);
    keep->setObjectName(QStringLiteral("chkKeepDuplicates"));
    keep->setToolTip(tr("Equal rows stay as many as there are ways to derive them; without it they count once"));
    keep->setChecked(question.keepDuplicates);
    form->addRow(keep);
    body().addLayout(form);
    addAccept(QStringLiteral("butOK"), tr("&OK"), [&question, dialect, keep] {
        question.dialect = static_cast<std::size_t>(dialect->currentIndex());
        question.keepDuplicates = keep->isChecked();
        return question.chosen = true;
    });
    addCancel(QStringLiteral("butCancel"));
    dialect->setFocus();
}

}  // namespace orvent::qt
