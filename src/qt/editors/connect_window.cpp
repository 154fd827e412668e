#include "qt/editors/connect_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/forms/check_list.h"
#include "qt/text.h"

namespace orvent::qt {

namespace {

constexpr QSize kConnectSize(680, 460);

}  // namespace

ConnectWindow::ConnectWindow(editors::ConnectByName& logic, QWidget* parent)
    : FormWindow(tr("Connect By Name"), logic, parent) {
    setObjectName(QStringLiteral("ConnectByName"));
    auto* caption = new QLabel(text(logic.Caption), this);
    caption->setTextFormat(Qt::PlainText);
    body().addWidget(caption);
    auto* rows = new CheckList(QStringLiteral("Rows"), {tr("From"), tr("To"), tr("Type"), tr("Remark")}, this);
    rows->setAccessibleName(tr("Pairs"));
    body().addWidget(rows, 1);
    QPushButton& connectThem = addOK(QStringLiteral("cmdOK"), tr("C&onnect"));
    addCancel(QStringLiteral("cmdCancel"));
    std::vector<CheckList::Row> shown;
    for (const editors::ConnectRow& row : logic.Rows) {
        shown.push_back({{text(row.from), text(row.to), text(row.type), text(row.remark)},
                         row.checked,
                         row.possible ? QString() : text(row.remark)});
    }
    rows->showRows(shown);
    rows->toggled = [&logic, &connectThem](std::size_t row, bool on) {
        logic.Row_Check(row, on);
        connectThem.setEnabled(logic.mayConnect());
    };
    connectThem.setEnabled(logic.mayConnect());
    resize(kConnectSize);
    rows->setFocus();
}

}  // namespace orvent::qt
