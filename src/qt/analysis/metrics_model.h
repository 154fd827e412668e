#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <vector>

#include "analysis/metrics_form.h"

namespace orvent::qt {

/// One view of the metrics as a table: the name, then the numbers. Rows stand in the form's order.
class MetricsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The part of the column's largest value, 0 to 1, that the cell's bar shows.
    static constexpr int ShareRole = Qt::UserRole;

    MetricsModel(const analysis::MetricsForm& form, const std::vector<analysis::MetricsRow>& rows, QObject* parent);

    /// Shows the rows again.
    void refresh();
    const analysis::MetricsRow& row(int shown) const { return rows_[shown_[static_cast<std::size_t>(shown)]]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const analysis::MetricsForm& form_;
    const std::vector<analysis::MetricsRow>& rows_;
    std::vector<std::size_t> shown_;
    std::vector<std::int32_t> largest_;
};

/// The sum and average rows.
class MetricsTotals : public QAbstractTableModel {
    Q_OBJECT

  public:
    MetricsTotals(const analysis::MetricsForm& form, QObject* parent) : QAbstractTableModel(parent), form_(form) {}

    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    const analysis::MetricsForm& form_;
};

/// A number with a quiet bar behind it, as long as its share.
class MetricBar : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace orvent::qt
