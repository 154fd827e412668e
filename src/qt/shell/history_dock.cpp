#include "qt/shell/history_dock.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

HistoryDock::HistoryDock(std::function<void(std::size_t line)> goTo, QWidget* parent)
    : QDockWidget(tr("History"), parent), list_(new QListWidget), reason_(new QLabel) {
    setObjectName(QStringLiteral("HistoryDock"));
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    auto* inside = new QWidget(this);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins({});
    column->setSpacing(0);
    list_->setObjectName(QStringLiteral("lstSteps"));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setAlternatingRowColors(false);
    list_->setUniformItemSizes(true);
    list_->setTextElideMode(Qt::ElideRight);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    reason_->setObjectName(QStringLiteral("lblReason"));
    reason_->setWordWrap(true);
    reason_->setContentsMargins(Spacing::gap, Spacing::gap, Spacing::gap, Spacing::gap);
    column->addWidget(list_);
    column->addWidget(reason_);
    setWidget(inside);
    const auto chosen = [this, goTo = std::move(goTo)](const QListWidgetItem* item) {
        goTo(static_cast<std::size_t>(list_->row(item)));
    };
    connect(list_, &QListWidget::itemClicked, this, chosen);
    connect(list_, &QListWidget::itemActivated, this, chosen);
}

void HistoryDock::showLines(const shell::HistoryLines& lines) {
    while (list_->count() > static_cast<int>(lines.lines.size())) {
        delete list_->takeItem(list_->count() - 1);
    }
    for (std::size_t at = 0; at < lines.lines.size(); ++at) {
        const int row = static_cast<int>(at);
        if (row == list_->count()) {
            list_->addItem(QString());
        }
        QListWidgetItem& item = *list_->item(row);
        const QString words = text(lines.lines[at]).simplified();
        item.setText(words);
        item.setToolTip(words);
        QFont font = list_->font();
        font.setBold(at == lines.present);
        item.setFont(font);
        // What lies ahead is not done.
        item.setData(Qt::ForegroundRole, at > lines.present
                                             ? QVariant(palette().brush(QPalette::Active, QPalette::PlaceholderText))
                                             : QVariant());
    }
    if (!lines.lines.empty()) {
        list_->setCurrentRow(static_cast<int>(lines.present));
        list_->scrollToItem(list_->currentItem());
    }
    list_->setEnabled(lines.reason.empty());
    reason_->setText(lines.lines.empty() ? tr("No scenario is in front.") : text(lines.reason));
    reason_->setVisible(!reason_->text().isEmpty());
}

void HistoryDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    Q_EMIT closed();
}

}  // namespace orvent::qt
