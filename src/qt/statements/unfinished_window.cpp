#include "qt/statements/unfinished_window.h"

#include <QPushButton>
#include <QTreeWidget>

namespace orvent::qt {

namespace {

using statements::UnfinishedStatement;

std::vector<ReportWindow::Row> rowsOf(const std::vector<UnfinishedStatement>& statements) {
    std::vector<ReportWindow::Row> rows;
    for (const UnfinishedStatement& statement : statements) {
        rows.push_back({statement.node, statement.why, "missing"});
    }
    return rows;
}

}  // namespace

UnfinishedWindow::UnfinishedWindow(const std::vector<UnfinishedStatement>& statements, QWidget* parent)
    : ReportWindow(tr("Statements To Look At"),
                   tr("The file was written, but these are not finished: activities whose statement is not whole, does "
                      "not fit any more or may mean another one, and record sets that nobody feeds. Write it again "
                      "when they are mended."),
                   rowsOf(statements), parent) {
    setObjectName(QStringLiteral("UnfinishedWindow"));
    QPushButton& generate = addSideButton(QStringLiteral("cmdGenerate"), tr("Ge&nerate…"), [this] {
        generates_ = true;
        press();
    });
    QPushButton& confirm = addSideButton(QStringLiteral("cmdConfirm"), tr("&Leave As It Is"), [this] {
        confirms_ = true;
        press();
    });
    confirm.setToolTip(tr("The names in this statement are right. It is not shown here again."));
    // A record set has no statement, and only a doubt can be settled by looking.
    const auto showWhat = [this, &generate, &confirm, &statements] {
        using Kind = UnfinishedStatement::Kind;
        const int row = list().indexOfTopLevelItem(list().currentItem());
        const Kind kind = row < 0 ? Kind::notFed : statements[static_cast<std::size_t>(row)].kind;
        generate.setEnabled(kind != Kind::notFed);
        confirm.setEnabled(kind == Kind::doubtful);
    };
    connect(&list(), &QTreeWidget::currentItemChanged, this, showWhat);
    showWhat();
}

}  // namespace orvent::qt
