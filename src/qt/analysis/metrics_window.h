#pragma once

#include <QDialog>
#include <memory>

#include "analysis/metrics_form.h"

class QLabel;
class QLineEdit;
class QListView;
class QSpinBox;
class QPushButton;
class QStringListModel;
class QTableView;
class QVBoxLayout;

namespace orvent::qt {

class MetricsModel;
class MetricsTotals;

/// The window of `MetricsForm`, beside the frame: the entries at the left, the tables of numbers at the right.
class MetricsWindow : public QDialog {
    Q_OBJECT

  public:
    MetricsWindow(std::unique_ptr<analysis::MetricsForm> form, QWidget* parent);
    ~MetricsWindow() override;

    analysis::MetricsForm& form() { return *form_; }

  private:
    QWidget* buildEntries();
    QWidget* buildTables();
    QTableView* addTable(QVBoxLayout& box, const QString& name, const QString& words, MetricsModel& model);
    void addTotals(QVBoxLayout& box);
    void addRowOfTools(QVBoxLayout& box);
    void show();
    void saveAsCsv();

    std::unique_ptr<analysis::MetricsForm> form_;
    MetricsModel* inputs_;
    MetricsModel* outputs_;
    MetricsTotals* totals_;
    QStringListModel* entries_;
    QLabel* lblEntity_ = nullptr;
    QListView* list_ = nullptr;
    QLineEdit* search_ = nullptr;
    QSpinBox* counter_ = nullptr;
    QPushButton* switch_ = nullptr;
    QLabel* inOutLbl_ = nullptr;
    QTableView* inpView_ = nullptr;
    QTableView* outView_ = nullptr;
};

}  // namespace orvent::qt
