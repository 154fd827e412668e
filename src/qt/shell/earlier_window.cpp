#include "qt/shell/earlier_window.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTreeWidget>

#include "qt/canvas/canvas_print.h"
#include "qt/text.h"

namespace orvent::qt {

namespace {

constexpr QSize kPicture(320, 240);
constexpr int kMargin = 8;
constexpr int kLarger = 4;

}  // namespace

EarlierWindow::EarlierWindow(shell::EarlierForm& logic, QWidget* parent)
    : FormWindow(tr("Earlier States"), parent),
      logic_(logic),
      scenarios_(new QComboBox),
      list_(new QTreeWidget),
      picture_(new QLabel) {
    setObjectName(QStringLiteral("EarlierWindow"));
    auto* which = new QLabel(tr("&Scenario:"));
    which->setBuddy(scenarios_);
    scenarios_->setObjectName(QStringLiteral("cboScenario"));
    for (const std::string& name : logic.scenarios()) {
        scenarios_->addItem(text(name));
    }
    scenarios_->setCurrentIndex(static_cast<int>(logic.scenario()));
    auto* top = new QHBoxLayout;
    top->addWidget(which);
    top->addWidget(scenarios_, 1);
    body().addLayout(top);

    list_->setObjectName(QStringLiteral("lstStates"));
    list_->setAccessibleName(tr("Earlier states"));
    list_->setRootIsDecorated(false);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setHeaderLabels({tr("Time"), tr("What Was Done")});
    list_->setMinimumSize(340, kPicture.height());
    picture_->setObjectName(QStringLiteral("imgState"));
    picture_->setFixedSize(kPicture);
    picture_->setFrameShape(QFrame::StyledPanel);
    picture_->setAlignment(Qt::AlignCenter);
    picture_->setWordWrap(true);
    auto* middle = new QHBoxLayout;
    middle->addWidget(list_, 1);
    middle->addWidget(picture_);
    body().addLayout(middle);
    auto* note = new QLabel(tr("A state opens as a copy in a window of its own; the scenario stays as it is."));
    note->setWordWrap(true);
    body().addWidget(note);

    remove_ = &addSideButton(QStringLiteral("cmdRemove"), tr("&Remove"), [this] {
        logic_.cmdRemove_Click(selected());
        showRows();
    });
    open_ = &addAccept(QStringLiteral("cmdOpen"), tr("&Open"), [this] {
        const std::vector<std::size_t> rows = selected();
        return rows.size() == 1 && logic_.cmdOpen_Click(rows.front());
    });
    addCancel(QStringLiteral("cmdClose")).setText(tr("&Close"));
    connect(scenarios_, &QComboBox::activated, this, [this](int scenario) {
        logic_.cboScenario_Click(static_cast<std::size_t>(scenario));
        showRows();
    });
    connect(list_, &QTreeWidget::itemSelectionChanged, this, &EarlierWindow::showPicture);
    connect(list_, &QTreeWidget::itemDoubleClicked, open_, &QPushButton::click);
    showRows();
}

void EarlierWindow::showRows() {
    list_->clear();
    for (const shell::EarlierForm::Row& row : logic_.rows()) {
        auto* item = new QTreeWidgetItem(list_, {text(row.when), text(row.words)});
        item->setToolTip(1, text(row.words));
    }
    list_->resizeColumnToContents(0);
    list_->setColumnWidth(0, list_->columnWidth(0) + 2 * kMargin);
    if (list_->topLevelItemCount() > 0) {
        list_->setCurrentItem(list_->topLevelItem(0));
    }
    scenarios_->setEnabled(scenarios_->count() > 0);
    showPicture();
}

void EarlierWindow::showPicture() {
    const std::vector<std::size_t> rows = selected();
    open_->setEnabled(rows.size() == 1);
    remove_->setEnabled(!rows.empty());
    const canvas::DrawForm* form = rows.size() == 1 ? logic_.pictureOf(rows.front()) : nullptr;
    picture_->clear();
    if (!form) {
        picture_->setText(rows.size() == 1        ? tr("This state cannot be shown.")
                          : logic_.rows().empty() ? tr("No state is kept yet.")
                                                  : QString());
        return;
    }
    // Painted larger: thin lines and small boxes are spread over the pixels that they touch.
    QImage large(kPicture * kLarger, QImage::Format_RGB32);
    large.fill(Qt::white);
    QPainter painter(&large);
    const int margin = kMargin * kLarger;
    paintOnPage(*form, painter, QRectF(large.rect()).adjusted(margin, margin, -margin, -margin));
    painter.end();
    const qreal ratio = devicePixelRatioF();
    QPixmap picture =
        QPixmap::fromImage(large.scaled(kPicture * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    picture.setDevicePixelRatio(ratio);
    picture_->setPixmap(picture);
}

std::vector<std::size_t> EarlierWindow::selected() const {
    std::vector<std::size_t> rows;
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        if (list_->topLevelItem(row)->isSelected()) {
            rows.push_back(static_cast<std::size_t>(row));
        }
    }
    return rows;
}

}  // namespace orvent::qt
