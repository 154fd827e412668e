#include "qt/forms/node_view.h"

#include <QDragMoveEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>

#include "qt/forms/fields.h"
#include "qt/forms/list_model.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kNearEdge = 20;

bool holdsRows(const QDropEvent& event) {
    return event.mimeData()->hasFormat(QLatin1String(ListModel::kRowsMime));
}

}  // namespace

NodeView::NodeView(QWidget* panel) : QTreeView(panel) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setIconSize({Spacing::icon - 2, Spacing::icon - 2});
    setIndentation(Spacing::section);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setTextElideMode(Qt::ElideMiddle);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setMinimumWidth(200);
}

void NodeView::setNodes(QAbstractItemModel& nodes) {
    setModel(&nodes);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    // Names need the room more than counts do; those in sight are enough to know how wide.
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    header()->setResizeContentsPrecision(0);
}

void NodeView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) {
        checkSelected(false);
    } else {
        QTreeView::keyPressEvent(event);
    }
}

/// Two quick clicks on the box of a node are two.
bool NodeView::onBox(const QModelIndex& index, const QPoint& at) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return index.column() == 0 &&
           style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this).contains(at);
}

void NodeView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && model()->rowCount(index.siblingAtColumn(0)) == 0 && !onBox(index, event->pos())) {
        checkSelected(true);
    } else {
        QTreeView::mouseDoubleClickEvent(event);
    }
}

void NodeView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (model()->rowCount() == 0 && !hint_.isEmpty()) {
        paintHint(*this, hint_);
    }
}

void NodeView::startDrag(Qt::DropActions actions) {
    dragging_ = true;
    QTreeView::startDrag(actions);
    dragging_ = false;
    setState(NoState);
}

/// The list that takes the dragged node comes forward before the pointer is there.
void NodeView::tellLeaving() {
    if (dragging_) {
        leave();
    }
}

void NodeView::dragEnterEvent(QDragEnterEvent* event) {
    event->accept();
}

void NodeView::dragMoveEvent(QDragMoveEvent* event) {
    event->setAccepted(holdsRows(*event) && takesRows());
    if (event->position().x() >= viewport()->width() - kNearEdge) {
        tellLeaving();
    }
}

void NodeView::dragLeaveEvent(QDragLeaveEvent*) {
    tellLeaving();
}

void NodeView::dropEvent(QDropEvent* event) {
    if (holdsRows(*event) && takesRows()) {
        event->acceptProposedAction();
        dropRows();
    }
}

}  // namespace orvent::qt
