#include "qt/forms/report_window.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "qt/text.h"
#include "qt/theme/icons.h"

namespace orvent::qt {

namespace {

constexpr QSize kReportSize(560, 320);

}  // namespace

ReportWindow::ReportWindow(const QString& title, const QString& words, const std::vector<Row>& rows, QWidget* parent)
    : FormWindow(title, parent), list_(new QTreeWidget(this)) {
    auto* above = new QLabel(words, this);
    above->setWordWrap(true);
    body().addWidget(above);
    list_->setObjectName(QStringLiteral("rows"));
    list_->setAccessibleName(title);
    list_->setHeaderHidden(true);
    list_->setColumnCount(2);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    for (const Row& told : rows) {
        auto* row = new QTreeWidgetItem(list_, {text(told.head), text(told.words)});
        row->setIcon(0, icon(QLatin1String(told.icon)));
        row->setToolTip(1, row->text(1));
    }
    list_->setCurrentItem(list_->topLevelItem(0));
    body().addWidget(list_, 1);
    connect(list_, &QTreeWidget::itemDoubleClicked, this, [this] { press(); });
    addAccept(QStringLiteral("cmdGoTo"), tr("&Go To Node"), [this] {
        chosen_ = list_->indexOfTopLevelItem(list_->currentItem());
        return true;
    });
    addCancel(QStringLiteral("cmdClose")).setText(tr("&Close"));
    resize(kReportSize);
}

}  // namespace orvent::qt
