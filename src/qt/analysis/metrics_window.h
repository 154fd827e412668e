#pragma once

#include <QDockWidget>
#include <functional>
#include <memory>

#include "analysis/metrics_form.h"

class QSortFilterProxyModel;
class QLabel;
class QListView;
class QSpinBox;
class QPushButton;
class QStringListModel;
class QTableView;
class QVBoxLayout;

namespace orvent::qt {

class HintTable;
class MetricsModel;
class MetricsTotals;
class SearchField;

/// The window of `MetricsForm`, beside the canvas or floating: the entries at the left, the tables of numbers at the
/// right.
class MetricsWindow : public QDockWidget {
    Q_OBJECT

  public:
    MetricsWindow(std::unique_ptr<analysis::MetricsForm> form, QWidget* parent);
    ~MetricsWindow() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* buildEntries();
    QWidget* buildTables();
    HintTable* addTable(QVBoxLayout& box, const QString& name, const QString& words, MetricsModel& model);
    void fitNames();
    void addTotals(QVBoxLayout& box);
    void addRowOfTools(QVBoxLayout& box);
    void link(QTableView& one, QTableView& other);
    void clickEntry(const QModelIndex& entry);
    void showEntries(const std::function<void()>& change);
    void showState();
    void showOrder();

    std::unique_ptr<analysis::MetricsForm> form_;
    MetricsModel* inputs_;
    MetricsModel* outputs_;
    MetricsTotals* totals_;
    QStringListModel* entries_;
    QSortFilterProxyModel* found_;  ///< the entries that the search finds
    bool counted_ = false;          ///< the press under way has chosen another entry, which was counted
    bool listing_ = false;          ///< the list changes by itself: nobody chooses
    QLabel* lblEntity_ = nullptr;
    QListView* list_ = nullptr;
    SearchField* search_ = nullptr;
    QSpinBox* counter_ = nullptr;
    QPushButton* switch_ = nullptr;
    QLabel* note_ = nullptr;
    QLabel* inOutLbl_ = nullptr;
    HintTable* inpView_ = nullptr;
    HintTable* outView_ = nullptr;
    QTableView* sumView_ = nullptr;
};

}  // namespace orvent::qt
