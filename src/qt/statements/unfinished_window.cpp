#include "qt/statements/unfinished_window.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "qt/theme/icons.h"

namespace orvent::qt {

namespace {

constexpr QSize kUnfinishedSize(560, 320);

}  // namespace

UnfinishedWindow::UnfinishedWindow(const std::vector<statements::UnfinishedStatement>& statements, QWidget* parent)
    : FormWindow(tr("Statements To Look At"), parent), list_(new QTreeWidget(this)) {
    setObjectName(QStringLiteral("UnfinishedWindow"));
    auto* words = new QLabel(tr("The file was written, but the statements of these activities are not whole, or do not "
                                "fit the activity any more. Write it again when they are mended."),
                             this);
    words->setWordWrap(true);
    body().addWidget(words);
    list_->setObjectName(QStringLiteral("unfinished"));
    list_->setAccessibleName(tr("Activities"));
    list_->setHeaderHidden(true);
    list_->setColumnCount(2);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    for (const statements::UnfinishedStatement& statement : statements) {
        auto* row = new QTreeWidgetItem(
            list_, {QString::fromStdString(statement.activity), QString::fromStdString(statement.why)});
        row->setIcon(0, icon(QStringLiteral("missing")));
        row->setToolTip(1, row->text(1));
    }
    list_->setCurrentItem(list_->topLevelItem(0));
    body().addWidget(list_, 1);
    connect(list_, &QTreeWidget::itemDoubleClicked, this, [this] { press(); });
    addAccept(QStringLiteral("cmdGoTo"), tr("&Go To Activity"), [this] {
        chosen_ = list_->currentItem()->text(0).toStdString();
        return true;
    });
    addSideButton(QStringLiteral("cmdGenerate"), tr("Ge&nerate…"), [this] {
        generates_ = true;
        press();
    });
    addCancel(QStringLiteral("cmdClose")).setText(tr("&Close"));
    resize(kUnfinishedSize);
}

}  // namespace orvent::qt
