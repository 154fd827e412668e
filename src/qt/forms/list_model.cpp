#include "qt/forms/list_model.h"

#include <QMimeData>

#include "qt/text.h"

namespace orvent::qt {

using Kind = forms::ListChange::Kind;

ListModel::ListModel(forms::List& list, QStringList columns, Picture picture, QObject* parent)
    : QAbstractTableModel(parent), list_(list), columns_(std::move(columns)), picture_(std::move(picture)) {
    list_.watch(this);
}

ListModel::~ListModel() {
    list_.watch(nullptr);
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : list_.Count();
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const forms::ListRow& shown = row(index);
    const bool first = index.column() == 0;
    const std::string& words = first ? shown.Text : shown.SubItems[static_cast<std::size_t>(index.column() - 1)];
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return text(words);
        case Qt::DecorationRole:
            return first ? picture_(shown.Image, shown.ForeColor != 0 ? shown.ForeColor : colour_) : QVariant();
        case Qt::ToolTipRole: {
            QStringList lines{text(words)};
            lines += first ? text(shown.Warning) : QString();
            lines += text(shown.Tip);
            lines.removeAll(QString());
            return lines.join(QLatin1Char('\n'));
        }
        case Qt::AccessibleDescriptionRole:
        case WarningRole:
            return first ? text(shown.Warning) : QString();
        default:
            return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? columns_.value(section) : QVariant();
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    return role == Qt::EditRole && index.column() == 0 && rename &&
           rename(index.row() + 1, value.toString().toStdString());
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::ItemIsDropEnabled;
    }
    const bool edited = index.column() == 0 && rename && row(index).Editable;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren | Qt::ItemIsDragEnabled |
           (edited ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

QStringList ListModel::mimeTypes() const {
    return {QLatin1String(kNodesMime), QLatin1String(kRowsMime)};
}

QMimeData* ListModel::mimeData(const QModelIndexList& indexes) const {
    QByteArray rows = owner();
    for (const QModelIndex& index : indexes) {
        if (index.column() == 0) {
            rows += ' ' + QByteArray::number(index.row() + 1);
        }
    }
    auto* data = new QMimeData;
    data->setData(QLatin1String(kRowsMime), rows);
    return data;
}

/// Rows are moved within their own list only.
QByteArray ListModel::owner() const {
    return QByteArray::number(reinterpret_cast<quintptr>(this));
}

namespace {

std::vector<std::string> nodesOf(const QMimeData& data) {
    std::vector<std::string> keys;
    for (const QByteArray& key : data.data(QLatin1String(ListModel::kNodesMime)).split(ListModel::kBetweenKeys)) {
        keys.push_back(key.toStdString());
    }
    return keys;
}

}  // namespace

bool ListModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int, const QModelIndex&) const {
    if (data->hasFormat(QLatin1String(kNodesMime))) {
        return takesNodes && takesNodes(nodesOf(*data));
    }
    return dropRows && data->data(QLatin1String(kRowsMime)).startsWith(owner() + ' ');
}

bool ListModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                             const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) {
        return false;
    }
    const int before = row >= 0 ? row : parent.isValid() ? parent.row() : list_.Count();
    const int position = before < list_.Count() ? before + 1 : 0;
    if (data->hasFormat(QLatin1String(kNodesMime))) {
        dropNodes(nodesOf(*data), position);
        return true;
    }
    std::vector<int> rows;
    for (const QByteArray& each : data->data(QLatin1String(kRowsMime)).split(' ').mid(1)) {
        rows.push_back(each.toInt());
    }
    dropRows(rows, position);
    // The rows have been moved: the view that they come from has none to remove.
    return false;
}

void ListModel::about(const forms::ListChange& change) {
    changing_ = true;
    const int at = change.position - 1;
    switch (change.kind) {
        case Kind::inserted:
            beginInsertRows({}, at, at);
            end_ = &ListModel::endInsertRows;
            break;
        case Kind::removed:
            beginRemoveRows({}, at, at);
            end_ = &ListModel::endRemoveRows;
            break;
        case Kind::moved:
            beginMoveRows({}, at, at, {}, change.to > change.position ? change.to : change.to - 1);
            end_ = &ListModel::endMoveRows;
            break;
        case Kind::reset:
            beginResetModel();
            end_ = &ListModel::endResetModel;
            break;
        case Kind::altered:
        case Kind::selected:
            end_ = nullptr;
    }
}

void ListModel::done(const forms::ListChange& change) {
    if (end_) {
        (this->*end_)();
    } else if (change.kind == Kind::altered) {
        Q_EMIT dataChanged(index(change.position - 1, 0), index(change.to - 1, columnCount() - 1));
    }
    changing_ = false;
    if (change.kind != Kind::altered) {
        Q_EMIT listChanged();
    }
}

}  // namespace orvent::qt
