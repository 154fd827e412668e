#include "qt/forms/row_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

using forms::RowMove;

namespace {

constexpr int kRowHeight = 26;
constexpr int kNameColumn = 190;
constexpr int kColumnWidth = 110;
constexpr int kMark = 16;

struct MoveKey {
    Qt::Key key;
    RowMove where;
};

constexpr MoveKey kMoveKeys[] = {{Qt::Key_Up, RowMove::up},
                                 {Qt::Key_Down, RowMove::down},
                                 {Qt::Key_Home, RowMove::top},
                                 {Qt::Key_End, RowMove::bottom}};

/// Draws a row's warning mark at the end of its label.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem label = option;
        if (!index.data(ListModel::WarningRole).toString().isEmpty()) {
            // The mark stands on the ground of its row.
            option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
            label.rect.adjust(0, 0, -kMark - Spacing::gap, 0);
            const QPoint corner(label.rect.right() + Spacing::gap / 2, option.rect.center().y() - kMark / 2 + 1);
            const bool selected = option.state.testFlag(QStyle::State_Selected);
            icon(QStringLiteral("warning"), selected ? option.palette.color(QPalette::HighlightedText) : QColor())
                .paint(painter, QRect(corner, QSize(kMark, kMark)));
        }
        QStyledItemDelegate::paint(painter, label, index);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize base = QStyledItemDelegate::sizeHint(option, index);
        return {base.width(), std::max(base.height(), kRowHeight)};
    }
};

}  // namespace

RowView::RowView(ListModel& model, const QString& name, QWidget* parent) : QTreeView(parent), model_(model) {
    setObjectName(name);
    setItemDelegate(new RowDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setIndentation(0);
    setAllColumnsShowFocus(true);
    setIconSize({Spacing::icon - 2, Spacing::icon - 2});
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setDragDropMode(DragDrop);
    setDropIndicatorShown(true);
    setDefaultDropAction(Qt::MoveAction);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setTabKeyNavigation(false);
    setModel(&model);
    header()->setHighlightSections(false);
    header()->setDefaultSectionSize(kColumnWidth);
    header()->resizeSection(0, kNameColumn);
    setMinimumWidth(220);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &RowView::tellSelection);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &RowView::tellSelection);
    connect(&model, &ListModel::listChanged, this, &RowView::takeSelection);
    takeSelection();
}

void RowView::setReport(bool report) {
    setHeaderHidden(!report);
    for (int column = 1; column < model_.columnCount(); ++column) {
        setColumnHidden(column, !report);
    }
}

void RowView::fitColumn(int column) {
    header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    header()->setResizeContentsPrecision(0);
}

int RowView::sizeHintForColumn(int column) const {
    return std::clamp(QTreeView::sizeHintForColumn(column), kColumnWidth,
                      std::max(kColumnWidth, viewport()->width() / 2));
}

void RowView::editLabel() {
    const QModelIndex current = model_.index(model_.list().selected() - 1, 0);
    if (current.isValid() && current.flags().testFlag(Qt::ItemIsEditable)) {
        edit(current);
    }
}

void RowView::tellSelection() {
    if (following_ || model_.isChanging()) {
        return;
    }
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        rows.push_back(index.row() + 1);
    }
    const int current = selectionModel()->isSelected(currentIndex()) ? currentIndex().row() + 1
                        : rows.empty()                               ? 0
                                                                     : rows.front();
    following_ = true;
    model_.list().select(std::move(rows), current);
    following_ = false;
}

void RowView::takeSelection() {
    viewport()->update();
    if (following_) {
        return;
    }
    following_ = true;
    const forms::List& list = model_.list();
    const std::vector<int> rows = list.selection();
    QItemSelection wanted;
    for (std::size_t first = 0, last = 0; first < rows.size(); first = ++last) {
        while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) {
            ++last;  // rows side by side are one range
        }
        wanted.select(model_.index(rows[first] - 1, 0), model_.index(rows[last] - 1, model_.columnCount() - 1));
    }
    if (wanted != selectionModel()->selection()) {
        selectionModel()->select(wanted, QItemSelectionModel::ClearAndSelect);
    }
    if (list.selected() > 0 && currentIndex().row() != list.selected() - 1) {
        selectionModel()->setCurrentIndex(model_.index(list.selected() - 1, 0), QItemSelectionModel::NoUpdate);
    }
    if (list.selected() > 0) {
        scrollTo(currentIndex());
    }
    following_ = false;
}

void RowView::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers() & Qt::AltModifier) {
        for (const MoveKey& move : kMoveKeys) {
            if (event->key() == move.key && moveRows) {
                return moveRows(move.where);
            }
        }
    }
    if (event->key() == Qt::Key_Delete && removeRows) {
        return removeRows();
    }
    if (event->matches(QKeySequence::Copy)) {
        return QGuiApplication::clipboard()->setText(selectedText());
    }
    QTreeView::keyPressEvent(event);
}

QString RowView::selectedText() const {
    QString lines;
    for (int row = 0; row < model()->rowCount(); ++row) {
        if (!selectionModel()->isRowSelected(row)) {
            continue;
        }
        for (int column = 0; column < model()->columnCount(); ++column) {
            lines += column == 0 ? QString() : QStringLiteral("\t");
            lines += model()->index(row, column).data().toString();
        }
        lines += QLatin1Char('\n');
    }
    return lines;
}

void RowView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (const std::optional<std::string>& hint = model_.list().hint()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect().adjusted(Spacing::margin, 0, -Spacing::margin, 0),
                         Qt::AlignCenter | Qt::TextWordWrap, text(*hint));
    }
}

}  // namespace orvent::qt
