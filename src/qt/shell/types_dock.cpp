#include "qt/shell/types_dock.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/canvas/canvas_editor.h"
#include "qt/forms/search_field.h"
#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

QString pictureOf(canvas::NodeTypeCode kind) {
    switch (kind) {
        case canvas::NodeTypeRecordSet:
            return QStringLiteral("record-set");
        case canvas::NodeTypeComment:
            return QStringLiteral("comment");
        case canvas::NodeTypeLog:
            return QStringLiteral("log");
        default:
            return QStringLiteral("activity");
    }
}

}  // namespace

void TypesModel::renew() {
    beginResetModel();
    const shell::TypesForm* form = form_();
    count_ = form ? form->Count() : 0;
    endResetModel();
}

QVariant TypesModel::data(const QModelIndex& index, int role) const {
    const shell::TypesForm* form = form_();
    if (!form || !index.isValid()) {
        return {};
    }
    const shell::TypeRow& row = form->row(index.row() + 1);
    switch (role) {
        case Qt::DisplayRole:
            return text(index.column() == 0 ? row.name : row.schemata);
        case Qt::ToolTipRole:
            return text(row.tip);
        case Qt::DecorationRole:
            return index.column() == 0 ? QVariant(icon(pictureOf(row.kind))) : QVariant();
        default:
            return {};
    }
}

QVariant TypesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::ToolTipRole && section == 1) {
        return tr("How many schemata an activity of the type reads");
    }
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == 0 ? tr("Name") : tr("Schemata");
}

Qt::ItemFlags TypesModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren | Qt::ItemIsDragEnabled
                           : Qt::NoItemFlags;
}

QStringList TypesModel::mimeTypes() const {
    return {QLatin1String(kTypeMime)};
}

QMimeData* TypesModel::mimeData(const QModelIndexList& indexes) const {
    const shell::TypesForm* form = form_();
    auto* data = new QMimeData;
    if (form && !indexes.isEmpty()) {
        data->setData(QLatin1String(kTypeMime), QByteArray::fromStdString(form->row(indexes.first().row() + 1).key));
    }
    return data;
}

TypesDock::TypesDock(std::function<shell::TypesForm*()> logic, QWidget* parent)
    : QDockWidget(tr("Types"), parent), logic_(std::move(logic)), list_(new QTreeView), status_(new QLabel) {
    setObjectName(QStringLiteral("TypesDock"));
    auto* inside = new QWidget(this);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins({});
    column->setSpacing(0);
    field_ = new SearchField(QStringLiteral("txtTypes"), tr("Words of names or descriptions"), inside);
    field_->setAccessibleName(windowTitle());
    field_->installEventFilter(this);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(Spacing::gap, Spacing::gap, Spacing::gap, Spacing::gap);
    row->addWidget(field_);
    model_ = new TypesModel([this] { return logic_(); }, this);
    list_->setObjectName(QStringLiteral("lstTypes"));
    list_->setAccessibleName(tr("What can be placed"));
    list_->setModel(model_);
    list_->setFrameShape(QFrame::NoFrame);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setDragEnabled(true);
    list_->setDragDropMode(QAbstractItemView::DragOnly);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    status_->setObjectName(QStringLiteral("lblTypes"));
    status_->setTextFormat(Qt::PlainText);
    status_->setWordWrap(true);
    status_->setContentsMargins(Spacing::gap, Spacing::gap, Spacing::gap, Spacing::gap);
    status_->hide();
    column->addLayout(row);
    column->addWidget(list_, 1);
    column->addWidget(status_);
    setWidget(inside);
    connect(field_, &QLineEdit::textChanged, this, [this](const QString& words) {
        if (shell::TypesForm* form = logic_()) {
            form->txtSearch_Change(words.toStdString());
        }
    });
    field_->goToFirst = [this] { place(std::max(list_->currentIndex().row(), 0)); };
    connect(list_, &QTreeView::activated, this, [this](const QModelIndex& index) { place(index.row()); });
}

void TypesDock::place(int row) {
    if (shell::TypesForm* form = logic_()) {
        form->place(row + 1);
    }
}

void TypesDock::enter() {
    raise();
    field_->setFocus();
    field_->selectAll();
}

void TypesDock::renew() {
    model_->renew();
    const shell::TypesForm* form = logic_();
    status_->setText(form ? text(form->status()) : QString());
    status_->setVisible(!status_->text().isEmpty());
}

/// Down leads from the words into the list.
bool TypesDock::eventFilter(QObject* watched, QEvent* event) {
    if (watched == field_ && event->type() == QEvent::KeyPress && model_->rowCount() > 0 &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        list_->setFocus();
        list_->setCurrentIndex(model_->index(0, 0));
        return true;
    }
    return QDockWidget::eventFilter(watched, event);
}

void TypesDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    Q_EMIT closed();
}

}  // namespace orvent::qt
