#include "qt/analysis/metrics_model.h"

#include <QFont>
#include <QPainter>

#include "qt/text.h"

namespace orvent::qt {

namespace {

constexpr int kColumns = static_cast<int>(analysis::kMetricsColumns) + 1;

std::size_t metric(int column) {
    return static_cast<std::size_t>(column - 1);
}

QVariant alignment(int column) {
    return static_cast<int>((column == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
}

}  // namespace

MetricsModel::MetricsModel(const analysis::MetricsForm& form, const std::vector<analysis::MetricsRow>& rows,
                           QObject* parent)
    : QAbstractTableModel(parent), form_(form), rows_(rows) {}

void MetricsModel::refresh() {
    beginResetModel();
    shown_ = form_.order(rows_);
    largest_.clear();
    for (std::size_t column = 0; column < analysis::kMetricsColumns; ++column) {
        largest_.push_back(form_.largest(column));
    }
    endResetModel();
}

int MetricsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int MetricsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant MetricsModel::data(const QModelIndex& index, int role) const {
    const analysis::MetricsRow& shown = row(index.row());
    const int column = index.column();
    switch (role) {
        case Qt::DisplayRole:
            return column == 0 ? text(shown.name) : text(analysis::MetricsForm::cell(shown, metric(column)));
        case Qt::TextAlignmentRole:
            return alignment(column);
        case ShareRole: {
            if (column == 0 || largest_[metric(column)] <= 0) {
                return {};
            }
            return static_cast<double>(shown.values[metric(column)]) / largest_[metric(column)];
        }
        default:
            return {};
    }
}

QVariant MetricsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return alignment(section);
    }
    if (role == Qt::DisplayRole) {
        return section == 0 ? text(form_.nameColumn) : QString::fromLatin1(analysis::kMetricsHeads[metric(section)]);
    }
    return {};
}

void MetricsTotals::refresh() {
    beginResetModel();
    endResetModel();
}

int MetricsTotals::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

int MetricsTotals::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant MetricsTotals::data(const QModelIndex& index, int role) const {
    const bool sums = index.row() == 0;
    switch (role) {
        case Qt::DisplayRole: {
            if (index.column() == 0) {
                return sums ? tr("Sum") : tr("Average");
            }
            const std::string& value = (sums ? form_.views.SumView : form_.views.AvgView)[metric(index.column())];
            return text(sums ? analysis::PadColumns(value) : value);
        }
        case Qt::TextAlignmentRole:
            return alignment(index.column());
        default:
            return {};
    }
}

void MetricBar::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    // A wider line divides the groups Local, Trans and Total.
    if (index.column() > 0 && index.column() % 3 == 1) {
        painter->fillRect(QRect(option.rect.left(), option.rect.top(), 1, option.rect.height()),
                          option.palette.color(QPalette::Mid));
    }
    const double share = index.data(MetricsModel::ShareRole).toDouble();
    if (share > 0 && !option.state.testFlag(QStyle::State_Selected)) {
        QColor colour = option.palette.color(QPalette::Highlight);
        colour.setAlphaF(0.22F);
        const QRect room = option.rect.adjusted(3, 3, -3, -3);
        const int width = static_cast<int>(room.width() * share);
        painter->fillRect(QRect(room.right() + 1 - width, room.top(), width, room.height()), colour);
    }
    QStyledItemDelegate::paint(painter, option, index);
}

}  // namespace orvent::qt
