#include "qt/forms/tree_model.h"

#include <QFont>
#include <QGuiApplication>
#include <QMimeData>
#include <QPalette>

#include "qt/text.h"
#include "qt/theme/model_colour.h"

namespace orvent::qt {

using forms::Tree;
using Kind = forms::TreeChange::Kind;

TreeModel::TreeModel(Tree& tree, Picture picture, QObject* parent)
    : QAbstractItemModel(parent), tree_(tree), picture_(std::move(picture)) {
    tree_.watch(this);
}

TreeModel::~TreeModel() {
    tree_.watch(nullptr);
}

Tree::Node* TreeModel::node(const QModelIndex& index) const {
    return index.isValid() ? static_cast<Tree::Node*>(index.internalPointer()) : nullptr;
}

QModelIndex TreeModel::indexOf(const Tree::Node* node, int column) const {
    return node ? createIndex(node->position(), column, node) : QModelIndex();
}

const std::vector<std::unique_ptr<Tree::Node>>& TreeModel::children(const QModelIndex& parent) const {
    return parent.isValid() ? node(parent)->children() : tree_.roots();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column < 0 || column > 1 || parent.column() > 0 || row >= rowCount(parent)) {
        return {};
    }
    return indexOf(children(parent)[static_cast<std::size_t>(row)].get(), column);
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
    const Tree::Node* of = node(child);
    return indexOf(of ? of->parent() : nullptr);
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(children(parent).size());
}

int TreeModel::columnCount(const QModelIndex&) const {
    return 2;
}

namespace {

Qt::CheckState checkOf(const forms::TreeNode& value) {
    return value.Checked ? Qt::Checked : value.Image.ends_with("-UnderChecked") ? Qt::PartiallyChecked : Qt::Unchecked;
}

/// How many of a parent's children are used, or shown where some are not; a root tells nothing.
QString countOf(const Tree::Node& node) {
    if (!node.parent() || node.children().empty()) {
        return {};
    }
    const int shown = node.shownChildren(), all = static_cast<int>(node.children().size());
    return shown < all ? TreeModel::tr("%1 of %2 shown").arg(shown).arg(all)
                       : TreeModel::tr("%1 of %2").arg(node.checkedChildren()).arg(all);
}

/// While the line tells what is shown, its tip still tells what is used.
QString usedAndShown(const Tree::Node& node) {
    const int shown = node.shownChildren(), all = static_cast<int>(node.children().size());
    return node.parent() && shown < all
               ? TreeModel::tr("%1 of %2 used, %3 shown").arg(node.checkedChildren()).arg(all).arg(shown)
               : QString();
}

QVariant fontOf(const forms::TreeNode& value) {
    QFont font = QGuiApplication::font();
    font.setBold(true);
    return value.Bold ? QVariant(font) : QVariant();
}

}  // namespace

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Tree::Node& of = *node(index);
    const forms::TreeNode& value = of.value();
    if (index.column() == 1) {
        switch (role) {
            case Qt::DisplayRole:
                return countOf(of);
            case Qt::ToolTipRole:
                return usedAndShown(of);
            case Qt::TextAlignmentRole:
                return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
            case Qt::ForegroundRole:
                return QGuiApplication::palette().color(QPalette::PlaceholderText);
            default:
                return {};
        }
    }
    switch (role) {
        case Qt::DisplayRole:
            return text(value.Text);
        case Qt::ToolTipRole:
            return !value.Refusal.empty() ? text(value.Text + "\n" + value.Refusal)
                   : of.parent()          ? text(value.Text)
                                          : QString();
        case Qt::DecorationRole:
            return picture_(value.Image, value.ForeColor);
        case Qt::ForegroundRole:
            if (!value.Refusal.empty()) {
                return QGuiApplication::palette().color(QPalette::Disabled, QPalette::Text);
            }
            return value.ForeColor != 0 ? QVariant(letterColour(value.ForeColor, QGuiApplication::palette()))
                                        : QVariant();
        case Qt::FontRole:
            return fontOf(value);
        case Qt::CheckStateRole:
            return of.parent() ? QVariant(checkOf(value)) : QVariant();
        case Qt::AccessibleDescriptionRole:
            return value.Refusal.empty() ? countOf(of) : text(value.Refusal);
        default:
            return {};
    }
}

bool TreeModel::setData(const QModelIndex& index, const QVariant&, int role) {
    if (role != Qt::CheckStateRole || !click) {
        return false;
    }
    click(*node(index));
    return true;
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const bool inner = node(index)->parent() && node(index)->value().Refusal.empty();
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable |
           (inner ? Qt::ItemIsDragEnabled | Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

QMimeData* TreeModel::mimeData(const QModelIndexList& indexes) const {
    QByteArrayList keys;
    for (const QModelIndex& index : indexes) {
        if (index.column() == 0) {
            keys.append(QByteArray::fromStdString(node(index)->value().Key));
        }
    }
    auto* data = new QMimeData;
    data->setData(QLatin1String(ListModel::kNodesMime), keys.join(ListModel::kBetweenKeys));
    return data;
}

void TreeModel::about(const forms::TreeChange& change) {
    switch (change.kind) {
        case Kind::inserted:
            beginInsertRows(indexOf(change.parent), change.position, change.position);
            end_ = &TreeModel::endInsertRows;
            break;
        case Kind::removed:
            beginRemoveRows(indexOf(change.parent), change.position, change.position);
            end_ = &TreeModel::endRemoveRows;
            break;
        case Kind::reset:
            beginResetModel();
            end_ = &TreeModel::endResetModel;
            break;
        case Kind::altered:
            end_ = nullptr;
    }
}

void TreeModel::done(const forms::TreeChange& change) {
    if (end_) {
        (this->*end_)();
    } else {
        const QModelIndex parent = indexOf(change.parent);
        Q_EMIT dataChanged(index(change.position, 0, parent), index(change.last, 0, parent));
    }
    // A parent's count is one of its children.
    if (change.parent && change.kind != Kind::reset) {
        const QModelIndex count = indexOf(change.parent, 1);
        Q_EMIT dataChanged(count, count);
    }
}

}  // namespace orvent::qt
