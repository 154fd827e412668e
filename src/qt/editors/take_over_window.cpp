#include "qt/editors/take_over_window.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/forms/check_list.h"
#include "qt/forms/fields.h"
#include "qt/text.h"

namespace orvent::qt {

namespace {

constexpr QSize kTakeOverSize(560, 520);

}  // namespace

TakeOverWindow::TakeOverWindow(editors::TakeOverForm& logic, QWidget* parent)
    : FormWindow(tr("Take Over Columns"), logic, parent), logic_(logic) {
    setObjectName(QStringLiteral("TakeOverForm"));
    QComboBox* sources = newChoice(QStringLiteral("Sources"), this);
    for (const std::string& source : logic.Sources) {
        sources->addItem(text(source));
    }
    sources->setCurrentIndex(logic.Source);
    QFormLayout* form = newForm();
    addField(*form, tr("&From"), sources);
    body().addLayout(form);
    lines_ = new QPlainTextEdit(this);
    lines_->setObjectName(QStringLiteral("txtLines"));
    lines_->setTabChangesFocus(true);
    lines_->setPlaceholderText(tr("A name and a type in each line, or a CREATE TABLE statement"));
    lines_->setAccessibleName(lines_->placeholderText());
    body().addWidget(lines_, 1);
    rows_ = new CheckList(QStringLiteral("Rows"), {tr("Column"), tr("Type"), tr("Remark")}, this);
    rows_->setAccessibleName(tr("Columns"));
    rows_->toggled = [this](std::size_t row, bool on) {
        logic_.Row_Check(row, on);
        showState();
    };
    body().addWidget(rows_, 2);
    connect(sources, &QComboBox::activated, this, [this](int index) {
        logic_.Source_Click(index);
        showRows();
    });
    connect(lines_, &QPlainTextEdit::textChanged, this, [this] {
        logic_.Pasted_Change(lines_->toPlainText().toStdString());
        showRows();
    });
    ok_ = &addOK(QStringLiteral("cmdOK"), tr("&OK"));
    addCancel(QStringLiteral("cmdCancel"));
    resize(kTakeOverSize);
    showRows();
    sources->setFocus();
}

void TakeOverWindow::showRows() {
    std::vector<CheckList::Row> rows;
    for (const editors::TakeOverRow& row : logic_.Rows) {
        const QString remark = !row.why.empty() ? text(row.why)
                               : row.typeIndex  ? QString()
                                                : tr("the catalogue lacks this type");
        rows.push_back({{text(row.name), text(row.type), remark}, row.checked, text(row.why)});
    }
    rows_->showRows(rows);
    showState();
}

void TakeOverWindow::showState() {
    lines_->setVisible(logic_.readsLines());
    ok_->setEnabled(logic_.mayTake());
}

}  // namespace orvent::qt
