#include "qt/shell/recovery_window.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "qt/text.h"

namespace orvent::qt {

RecoveryWindow::RecoveryWindow(shell::RecoveryForm& logic, QWidget* parent)
    : FormWindow(tr("Unsaved Scenarios"), parent), logic_(logic), list_(new QTreeWidget) {
    setObjectName(QStringLiteral("RecoveryWindow"));
    auto* words = new QLabel(text(logic.words()));
    words->setObjectName(QStringLiteral("lblWords"));
    words->setWordWrap(true);
    body().addWidget(words);
    list_->setObjectName(QStringLiteral("lstScenarios"));
    list_->setAccessibleName(tr("Scenarios that can be brought back"));
    list_->setRootIsDecorated(false);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setHeaderLabels({tr("Scenario"), tr("Last Change"), tr("Beyond What Is Saved")});
    list_->setMinimumSize(640, 180);
    list_->header()->setStretchLastSection(true);
    body().addWidget(list_);
    addSideButton(QStringLiteral("cmdDiscard"), tr("&Discard"), [this] {
        logic_.cmdDiscard_Click(selected());
        showRows();
        if (logic_.rows().empty()) {
            accept();
        }
    });
    addAccept(QStringLiteral("cmdBringBack"), tr("&Bring Back"), [this] {
        logic_.cmdBringBack_Click(selected());
        showRows();
        return logic_.rows().empty();
    });
    addCancel(QStringLiteral("cmdLater")).setText(tr("&Later"));
    showRows();
    parent->window()->installEventFilter(this);
}

/// The frame gets its place and size after this window at a start.
bool RecoveryWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget()->window() && event->type() == QEvent::Resize) {
        QRect place = frameGeometry();
        place.moveCenter(parentWidget()->window()->geometry().center());
        move(place.topLeft());
    }
    return FormWindow::eventFilter(watched, event);
}

void RecoveryWindow::showRows() {
    list_->clear();
    for (const shell::RecoveryForm::Row& row : logic_.rows()) {
        auto* item = new QTreeWidgetItem(list_, {text(row.name), text(row.when), text(row.changes)});
        item->setToolTip(2, text(row.changes));
        item->setSelected(true);
    }
    for (int column = 0; column < 2; ++column) {
        list_->resizeColumnToContents(column);
    }
}

std::vector<std::size_t> RecoveryWindow::selected() const {
    std::vector<std::size_t> places;
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        if (list_->topLevelItem(row)->isSelected()) {
            places.push_back(static_cast<std::size_t>(row));
        }
    }
    return places;
}

}  // namespace orvent::qt
