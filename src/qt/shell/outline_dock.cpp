#include "qt/shell/outline_dock.h"

#include <QHeaderView>
#include <QTreeView>
#include <utility>

#include "qt/shell/desk_area.h"
#include "qt/text.h"
#include "qt/theme/icons.h"

namespace orvent::qt {

namespace {

constexpr int kColumns = 2;
constexpr int kTypeWidth = 90;

QString pictureOf(const analysis::Outline::Row& row, const std::string& what) {
    if (row.link > 0) {
        return QString();
    }
    if (row.place.isNode()) {
        return what == "Activity" ? QStringLiteral("activity") : QStringLiteral("record-set");
    }
    switch (row.place.list) {
        case entities::KindInput:
        case entities::KindFunctionInput:
            return QStringLiteral("input");
        case entities::KindOutput:
        case entities::KindFunctionOutput:
            return QStringLiteral("output");
        case entities::KindParameter:
            return QStringLiteral("parameter");
        case entities::KindFunction:
            return QStringLiteral("function");
        default:
            return QStringLiteral("attribute");
    }
}

}  // namespace

OutlineModel::~OutlineModel() {
    if (outline_ && form_()) {
        outline_->watch(nullptr);
    }
}

void OutlineModel::take(analysis::Outline* outline) {
    beginResetModel();
    outline_ = outline;
    if (outline_) {
        outline_->watch(this);
    }
    endResetModel();
}

QModelIndex OutlineModel::indexOf(const Row& row, int column) const {
    return createIndex(row.position, column, &row);
}

QModelIndex OutlineModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) {
        return {};
    }
    const auto& rows = parent.isValid() ? outline_->rowsOf(*rowOf(parent)) : outline_->roots();
    return createIndex(row, column, rows[static_cast<std::size_t>(row)].get());
}

QModelIndex OutlineModel::parent(const QModelIndex& child) const {
    const Row* row = child.isValid() ? rowOf(child) : nullptr;
    return row && row->parent ? indexOf(*row->parent) : QModelIndex();
}

bool OutlineModel::hasChildren(const QModelIndex& parent) const {
    if (!outline_ || parent.column() > 0) {
        return false;
    }
    return parent.isValid() ? outline_->hasRows(*rowOf(parent)) : !outline_->roots().empty();
}

int OutlineModel::rowCount(const QModelIndex& parent) const {
    if (!outline_ || parent.column() > 0) {
        return 0;
    }
    return static_cast<int>(parent.isValid() ? outline_->rowsOf(*rowOf(parent)).size() : outline_->roots().size());
}

int OutlineModel::columnCount(const QModelIndex&) const {
    return kColumns;
}

QVariant OutlineModel::data(const QModelIndex& index, int role) const {
    const bool asked = role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::DecorationRole ||
                       role == Qt::ToolTipRole || role == Qt::AccessibleTextRole;
    if (!outline_ || !index.isValid() || !asked) {
        return {};
    }
    const Row& row = *rowOf(index);
    const analysis::Outline::Words words = outline_->wordsOf(row);
    if (role == Qt::DecorationRole) {
        const QString picture = index.column() == 0 ? pictureOf(row, words.what) : QString();
        return picture.isEmpty() ? QVariant() : QVariant(icon(picture));
    }
    const bool ofWholeRow = role == Qt::ToolTipRole || (role == Qt::AccessibleTextRole && index.column() == 0);
    if (ofWholeRow && !words.what.empty()) {
        return text(words.name + ", " + words.what + (words.type.empty() ? "" : ", " + words.type));
    }
    return text(ofWholeRow || index.column() == 0 ? words.name : words.type);
}

/// Of a name that was refused the row keeps its own.
bool OutlineModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    shell::OutlineForm* form = form_();
    return form && outline_ && role == Qt::EditRole && index.column() == 0 &&
           form->rename(*rowOf(index), value.toString().toStdString());
}

Qt::ItemFlags OutlineModel::flags(const QModelIndex& index) const {
    const shell::OutlineForm* form = form_();
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (form && outline_ && index.isValid() && index.column() == 0 && form->mayRename(*rowOf(index))) {
        flags |= Qt::ItemIsEditable;
    }
    return flags;
}

QVariant OutlineModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == 0 ? tr("Name") : tr("Type");
}

void OutlineModel::aboutToRemove(const Row& parent) {
    removes_ = !parent.rows.empty();
    if (removes_) {
        beginRemoveRows(indexOf(parent), 0, static_cast<int>(parent.rows.size()) - 1);
    }
}

void OutlineModel::removed() {
    if (std::exchange(removes_, false)) {
        endRemoveRows();
    }
}

void OutlineModel::aboutToInsert(const Row& parent, int count) {
    inserts_ = count > 0;
    if (inserts_) {
        beginInsertRows(indexOf(parent), 0, count - 1);
    }
}

void OutlineModel::inserted(const Row& parent) {
    if (std::exchange(inserts_, false)) {
        endInsertRows();
        Q_EMIT rowsRenewed(indexOf(parent));
    }
}

void OutlineModel::altered(const Row& row) {
    Q_EMIT dataChanged(indexOf(row), indexOf(row, kColumns - 1));
}

OutlineDock::OutlineDock(OutlineModel::Form logic, QWidget* parent)
    : QDockWidget(tr("Outline"), parent),
      logic_(std::move(logic)),
      model_(new OutlineModel(logic_, this)),
      tree_(new QTreeView(this)) {
    setObjectName(QStringLiteral("OutlineDock"));
    setProperty(kKeepsKeyboard, true);
    tree_->setObjectName(QStringLiteral("treOutline"));
    tree_->setAccessibleName(windowTitle());
    tree_->setModel(model_);
    tree_->setFrameShape(QFrame::NoFrame);
    tree_->setUniformRowHeights(true);
    tree_->setAllColumnsShowFocus(true);
    tree_->setExpandsOnDoubleClick(false);
    tree_->setEditTriggers(QAbstractItemView::EditKeyPressed);
    tree_->header()->setStretchLastSection(false);
    tree_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    tree_->header()->resizeSection(1, kTypeWidth);
    setWidget(tree_);
    connect(tree_, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        expanded_.insert(keyOf(index));
        spanLinks(index);
    });
    connect(tree_, &QTreeView::collapsed, this, [this](const QModelIndex& index) { expanded_.erase(keyOf(index)); });
    connect(tree_, &QTreeView::activated, this, &OutlineDock::opened);
    connect(tree_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& index) {
        shell::OutlineForm* form = logic_();
        if (!form || !index.isValid()) {
            return;
        }
        current_ = OutlineModel::rowOf(index)->place.node;
        if (!follows_) {
            form->choose(*OutlineModel::rowOf(index));
        }
    });
    connect(model_, &OutlineModel::rowsRenewed, this, [this](const QModelIndex& index) { expandAgain(index); });
    connect(model_, &QAbstractItemModel::modelReset, this, &OutlineDock::expandRoots);
}

OutlineDock::Key OutlineDock::keyOf(const QModelIndex& index) {
    const analysis::Place& place = OutlineModel::rowOf(index)->place;
    return {place.node, static_cast<int>(place.list), place.function, place.member};
}

void OutlineDock::expandAgain(const QModelIndex& index) {
    if (expanded_.contains(keyOf(index))) {
        tree_->setExpanded(index, true);
        spanLinks(index);
        for (int row = 0; row < model_->rowCount(index); ++row) {
            if (const QModelIndex child = model_->index(row, 0, index); OutlineModel::rowOf(child)->link == 0) {
                expandAgain(child);
            }
        }
    }
}

/// A link has no type, and the name of its far end needs the room.
void OutlineDock::spanLinks(const QModelIndex& parent) {
    for (int row = 0; row < model_->rowCount(parent); ++row) {
        tree_->setFirstColumnSpanned(row, parent, OutlineModel::rowOf(model_->index(row, 0, parent))->link > 0);
    }
}

/// What was expanded is so again, and the current row is that of the same node.
void OutlineDock::expandRoots() {
    const analysis::Outline* outline = model_->outline();
    std::set<canvas::NodeNumber> nodes;
    for (const Key& key : expanded_) {
        nodes.insert(std::get<0>(key));
    }
    for (const canvas::NodeNumber node : nodes) {
        if (const OutlineModel::Row* row = outline ? outline->rootOf(node) : nullptr) {
            expandAgain(model_->indexOf(*row));
        }
    }
    const OutlineModel::Row* row = outline ? outline->rootOf(current_) : nullptr;
    follows_ = true;
    tree_->setCurrentIndex(row ? model_->indexOf(*row) : QModelIndex());
    follows_ = false;
}

void OutlineDock::opened(const QModelIndex& index) {
    shell::OutlineForm* form = logic_();
    if (form && index.isValid()) {
        if (const OutlineModel::Row* target = form->open(*OutlineModel::rowOf(index))) {
            tree_->setCurrentIndex(model_->indexOf(*target));
        }
    }
}

void OutlineDock::enter() {
    raise();
    tree_->setFocus();
    if (!tree_->currentIndex().isValid() && model_->rowCount() > 0) {
        follows_ = true;
        tree_->setCurrentIndex(model_->index(0, 0));
        follows_ = false;
    }
}

void OutlineDock::renew() {
    shell::OutlineForm* form = logic_();
    expanded_.clear();
    current_ = {};
    model_->take(form ? form->outline() : nullptr);
    follow();
}

void OutlineDock::follow() {
    const shell::OutlineForm* form = logic_();
    const OutlineModel::Row* row = form ? form->selected() : nullptr;
    if (row && row->place.node != current_) {
        follows_ = true;
        tree_->setCurrentIndex(model_->indexOf(*row));
        follows_ = false;
    }
}

void OutlineDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    Q_EMIT closed();
}

}  // namespace orvent::qt
