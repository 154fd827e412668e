#pragma once

#include <QAbstractTableModel>
#include <QDockWidget>
#include <functional>
#include <vector>

#include "shell/problem_lists.h"

class QLabel;
class QTreeView;

namespace orvent::qt {

/// The rows of `ProblemsDock`: the node, and what is to be said of it.
class ProblemsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void take(std::vector<shell::ProblemLine> lines);
    const shell::ProblemLine* line(int row) const;
    /// The row that is alike, -1 when there is none.
    int rowOf(const shell::ProblemLine& line) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::vector<shell::ProblemLine> lines_;
};

/// What is unfinished or doubtful in the scenario in front, with why and what to do of the current row; a click goes to
/// the node.
class ProblemsDock : public QDockWidget {
    Q_OBJECT

  public:
    ProblemsDock(std::function<void(canvas::NodeNumber node)> goTo, QWidget* parent);

    /// Of no scenario: `isOpen` is false.
    void showLines(std::vector<shell::ProblemLine> lines, bool isOpen);

  Q_SIGNALS:
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void explain();

    ProblemsModel* model_;
    QTreeView* list_;
    QLabel* why_;
    bool isOpen_ = false;
};

}  // namespace orvent::qt
