#include "qt/forms/check_list.h"

#include <QHeaderView>
#include <QSignalBlocker>

namespace orvent::qt {

CheckList::CheckList(const QString& name, const QStringList& heads, QWidget* parent) : QTreeWidget(parent) {
    setObjectName(name);
    setHeaderLabels(heads);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    header()->setStretchLastSection(true);
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (column == 0 && toggled) {
            toggled(static_cast<std::size_t>(indexOfTopLevelItem(item)), item->checkState(0) == Qt::Checked);
        }
    });
}

void CheckList::showRows(const std::vector<Row>& rows) {
    const QSignalBlocker quiet(this);
    clear();
    QList<QTreeWidgetItem*> items;
    for (const Row& row : rows) {
        auto* item = new QTreeWidgetItem(row.texts);
        item->setCheckState(0, row.checked ? Qt::Checked : Qt::Unchecked);
        if (!row.why.isEmpty()) {
            item->setFlags(Qt::ItemIsSelectable);
        }
        items << item;
    }
    addTopLevelItems(items);
    for (int column = 0; column + 1 < columnCount(); ++column) {
        resizeColumnToContents(column);
    }
    if (topLevelItemCount() > 0) {
        setCurrentItem(topLevelItem(0));
    }
}

}  // namespace orvent::qt
