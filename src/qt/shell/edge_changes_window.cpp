#include "qt/shell/edge_changes_window.h"

namespace orvent::qt {

namespace {

std::vector<ReportWindow::Row> rowsOfChanges(const links::EdgeChanges& changes) {
    std::vector<ReportWindow::Row> rows;
    for (const links::EdgeNames& edge : changes.deleted) {
        rows.push_back({EdgeChangesWindow::tr("Deleted").toStdString(), links::edgeWords(edge), "delete"});
    }
    for (const links::EdgeNames& edge : changes.drawn) {
        rows.push_back({EdgeChangesWindow::tr("Drawn").toStdString(), links::edgeWords(edge), "provider"});
    }
    return rows;
}

}  // namespace

EdgeChangesWindow::EdgeChangesWindow(const links::EdgeChanges& changes, QWidget* parent)
    : ReportWindow(
          tr("Provider Edges That Changed"),
          tr("Edges without a link between the columns of their nodes were deleted, and second ones between the same "
             "nodes. Where such links had no edge, one was drawn."),
          rowsOfChanges(changes), parent) {
    setObjectName(QStringLiteral("EdgeChangesWindow"));
}

}  // namespace orvent::qt
