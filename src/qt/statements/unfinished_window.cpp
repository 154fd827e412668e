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
    : ReportWindow(
          tr("Statements To Look At"),
          tr("The file was written, but these are not finished: activities whose statement is not whole or does "
             "not fit any more, and record sets that nobody feeds. Write it again when they are mended."),
          rowsOf(statements), parent) {
    setObjectName(QStringLiteral("UnfinishedWindow"));
    QPushButton& generate = addSideButton(QStringLiteral("cmdGenerate"), tr("Ge&nerate…"), [this] {
        generates_ = true;
        press();
    });
    // A record set has no statement.
    const auto showWhat = [this, &generate, &statements] {
        const int row = list().indexOfTopLevelItem(list().currentItem());
        generate.setEnabled(row >= 0 &&
                            statements[static_cast<std::size_t>(row)].kind != UnfinishedStatement::Kind::notFed);
    };
    connect(&list(), &QTreeWidget::currentItemChanged, this, showWhat);
    showWhat();
}

}  // namespace orvent::qt
