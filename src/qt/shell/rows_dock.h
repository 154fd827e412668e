#pragma once

#include <QAbstractTableModel>
#include <QDockWidget>
#include <functional>
#include <vector>

#include "shell/rows_form.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QSplitter;
class QTableView;
class QToolButton;

namespace orvent::qt {

class SearchField;

/// One table of `RowsDock`: the rows of a node, or of what comes into it. NULL is written pale, numbers at the right.
class RowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using Table = std::function<shell::RowTable*()>;

    RowsModel(Table table, QObject* parent) : QAbstractTableModel(parent), table_(std::move(table)) {}

    void renew();
    shell::RowTable* table() const { return table_(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

  private:
    Table table_;
};

/// The rows at the nodes of the scenario in front, and the run that brings them.
class RowsDock : public QDockWidget {
    Q_OBJECT

  public:
    /// `logic` gives the rows, or nothing once that is gone.
    RowsDock(std::function<shell::RowsForm*()> logic, QWidget* parent);

    void renewTables();
    void renewState();

  Q_SIGNALS:
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    /// A table with what stands above it.
    struct Pane {
        QWidget* widget;
        QLabel* title;
        QLabel* words;
        QTableView* view;
        RowsModel* model;
    };

    QWidget* buildBar();
    QToolButton* addButton(QWidget* bar, const char* name, const QString& words, std::function<void()> what);
    void addPane();
    void copy(std::size_t pane);
    void act(const std::function<void(shell::RowsForm& form)>& what);

    std::function<shell::RowsForm*()> logic_;
    QComboBox* way_;
    QCheckBox* keep_;
    QToolButton *refresh_, *cancel_, *facts_, *copy_, *export_;
    SearchField* filter_;
    QProgressBar* progress_;
    QLabel* status_;
    QSplitter* splitter_;
    std::vector<Pane> panes_;
};

}  // namespace orvent::qt
