#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "qt/forms/form_window.h"
#include "shell/facts_form.h"
#include "shell/rows_form.h"

class QTableView;

namespace orvent::qt {

/// The rows of `FactsWindow`, which are edited in their places.
class FactsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    FactsModel(shell::FactsForm& logic, QObject* parent) : QAbstractTableModel(parent), logic_(logic) {}

    /// Does something to the rows.
    void change(const std::function<void()>& what);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  private:
    shell::FactsForm& logic_;
};

/// The rows that a node is tried on, and what is expected of it.
class FactsWindow : public FormWindow {
    Q_OBJECT

  public:
    FactsWindow(shell::FactsForm& logic, QWidget* parent);

  private:
    void addRows();

    shell::FactsForm& logic_;
    FactsModel* model_;
    QTableView* view_;
};

/// The login at a data source whose rows are read.
class SourceLoginWindow : public FormWindow {
    Q_OBJECT

  public:
    SourceLoginWindow(shell::SourceLogin& logic, QWidget* parent);
};

}  // namespace orvent::qt
