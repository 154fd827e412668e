#include "qt/shell/rows_dock.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPalette>
#include <QProgressBar>
#include <QShortcut>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/forms/search_field.h"
#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kLongestShown = 300;  // characters of a value
constexpr int kWidestColumn = 260;
constexpr std::size_t kMostPanes = 6;

QString shortened(const std::string& value) {
    const QString all = text(value);
    return all.size() <= kLongestShown ? all : all.left(kLongestShown) + QChar(0x2026);
}

}  // namespace

void RowsModel::renew() {
    beginResetModel();
    endResetModel();
}

int RowsModel::rowCount(const QModelIndex& parent) const {
    const shell::RowTable* its = table_();
    return parent.isValid() || !its ? 0 : static_cast<int>(its->count());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    const shell::RowTable* its = table_();
    return parent.isValid() || !its ? 0 : static_cast<int>(its->page.columns.size());
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    const shell::RowTable* its = table_();
    if (!its || !index.isValid() || static_cast<std::size_t>(index.row()) >= its->count()) {
        return {};
    }
    const auto column = static_cast<std::size_t>(index.column());
    const entities::Field& field = its->row(static_cast<std::size_t>(index.row()))[column];
    switch (role) {
        case Qt::DisplayRole:
            return field ? shortened(*field) : its->nodes.empty() ? QStringLiteral("NULL") : QString();
        case Qt::ToolTipRole:
            return field ? QVariant(text(*field)) : QVariant();
        case Qt::ForegroundRole:
            return field ? QVariant() : QVariant(QPalette().brush(QPalette::PlaceholderText));
        case Qt::TextAlignmentRole:
            return its->page.numbers[column] ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
        default:
            return {};
    }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool across = orientation == Qt::Horizontal;
    if (role != Qt::DisplayRole || (across ? columnCount() : rowCount()) <= section) {
        return {};
    }
    return across ? QVariant(text(table_()->page.columns[static_cast<std::size_t>(section)])) : QVariant(section + 1);
}

void RowsModel::sort(int column, Qt::SortOrder order) {
    if (shell::RowTable* its = table_()) {
        beginResetModel();
        its->sort(column, order == Qt::DescendingOrder);
        endResetModel();
    }
}

RowsDock::RowsDock(std::function<shell::RowsForm*()> logic, QWidget* parent)
    : QDockWidget(tr("Rows"), parent), logic_(std::move(logic)) {
    setObjectName(QStringLiteral("RowsDock"));
    auto* inside = new QWidget(this);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins(Spacing::gap, Spacing::gap, Spacing::gap, Spacing::gap);
    column->setSpacing(Spacing::gap);
    column->addWidget(buildBar());
    status_ = new QLabel;
    status_->setObjectName(QStringLiteral("lblRows"));
    status_->setTextFormat(Qt::PlainText);
    status_->setWordWrap(true);
    column->addWidget(status_);
    splitter_ = new QSplitter(Qt::Horizontal);
    splitter_->setChildrenCollapsible(false);
    column->addWidget(splitter_, 1);
    setWidget(inside);
    renewState();
}

QToolButton* RowsDock::addButton(QWidget* bar, const char* name, const QString& words, std::function<void()> what) {
    auto* button = new QToolButton(bar);
    button->setObjectName(QLatin1String(name));
    button->setText(words);
    bar->layout()->addWidget(button);
    connect(button, &QToolButton::clicked, this, std::move(what));
    return button;
}

QWidget* RowsDock::buildBar() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins({});
    way_ = new QComboBox;
    way_->setObjectName(QStringLiteral("cboWay"));
    way_->setAccessibleName(tr("Where the rows come from"));
    way_->addItems({tr("Sample"), tr("At the source")});
    way_->setToolTip(
        tr("A sample runs in memory on the first rows of what is given. At the source the database that "
           "holds all record sets is asked."));
    row->addWidget(way_);
    connect(way_, &QComboBox::activated, this, [this](int index) {
        act([index](shell::RowsForm& form) {
            form.optWay_Click(index == 0 ? shell::RowsForm::Way::sample : shell::RowsForm::Way::atSource);
        });
    });
    keep_ = new QCheckBox(tr("Keep Duplicates"));
    keep_->setObjectName(QStringLiteral("chkKeepDuplicates"));
    keep_->setToolTip(tr("Equal rows stay as many as there are ways to derive them; without it they count once"));
    row->addWidget(keep_);
    connect(keep_, &QCheckBox::clicked, this,
            [this](bool keep) { act([keep](shell::RowsForm& form) { form.chkKeepDuplicates_Click(keep); }); });
    refresh_ = addButton(bar, "cmdRefresh", tr("Refresh"),
                         [this] { act([](shell::RowsForm& form) { form.cmdRefresh_Click(); }); });
    cancel_ = addButton(bar, "cmdCancelRun", tr("Cancel"),
                        [this] { act([](shell::RowsForm& form) { form.cmdCancel_Click(); }); });
    progress_ = new QProgressBar;
    progress_->setMaximumWidth(160);
    progress_->setTextVisible(false);
    row->addWidget(progress_);
    facts_ = addButton(bar, "cmdFacts", tr("Rows And Expectations..."),
                       [this] { act([](shell::RowsForm& form) { form.cmdFacts_Click(); }); });
    facts_->setToolTip(tr("Rows that the selected record set is tried on, and what is expected of the selected node"));
    copy_ = addButton(bar, "cmdCopyRows", tr("Copy"), [this] { copy(0); });
    export_ = addButton(bar, "cmdExportRows", tr("Export..."),
                        [this] { act([](shell::RowsForm& form) { form.cmdExport_Click(0); }); });
    row->addStretch(1);
    filter_ = new SearchField(QStringLiteral("txtRows"), tr("Filter"), bar);
    filter_->setMaximumWidth(220);
    row->addWidget(filter_);
    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& word) {
        act([&word](shell::RowsForm& form) { form.txtFilter_Change(word.toStdString()); });
    });
    return bar;
}

void RowsDock::addPane() {
    const std::size_t at = panes_.size();
    Pane pane{new QWidget, new QLabel, new QLabel, new QTableView, nullptr};
    pane.model = new RowsModel(
        [this, at]() -> shell::RowTable* {
            shell::RowsForm* form = logic_();
            return form && at < form->tables().size() ? &form->tables()[at] : nullptr;
        },
        this);
    auto* column = new QVBoxLayout(pane.widget);
    column->setContentsMargins({});
    column->setSpacing(2);
    for (QLabel* label : {pane.title, pane.words}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        column->addWidget(label);
    }
    QFont bold = pane.title->font();
    bold.setBold(true);
    pane.title->setFont(bold);
    pane.words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    pane.view->setObjectName(QStringLiteral("lstRows%1").arg(at));
    pane.view->setModel(pane.model);
    pane.view->setSelectionBehavior(QAbstractItemView::SelectRows);
    pane.view->setAlternatingRowColors(true);
    pane.view->setWordWrap(false);
    pane.view->verticalHeader()->setDefaultSectionSize(pane.view->fontMetrics().height() + 6);
    pane.view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    pane.view->setSortingEnabled(true);
    column->addWidget(pane.view, 1);
    column->addStretch(0);
    splitter_->addWidget(pane.widget);
    auto* key = new QShortcut(QKeySequence(QKeySequence::Copy), pane.view);
    key->setContext(Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, [this, at] { copy(at); });
    connect(pane.view, &QTableView::activated, this, [this, at](const QModelIndex& index) {
        act([&](shell::RowsForm& form) { form.choose(at, static_cast<std::size_t>(index.row())); });
    });
    panes_.push_back(pane);
}

void RowsDock::renewTables() {
    shell::RowsForm* form = logic_();
    const std::size_t count = form ? std::min(form->tables().size(), kMostPanes) : 0;
    while (panes_.size() < count) {
        addPane();
    }
    for (std::size_t at = 0; at < panes_.size(); ++at) {
        const Pane& pane = panes_[at];
        pane.widget->setVisible(at < count);
        pane.model->renew();
        if (at >= count) {
            continue;
        }
        const shell::RowTable& table = form->tables()[at];
        pane.title->setText(text(table.title));
        pane.words->setText(text(table.words));
        pane.words->setVisible(!table.words.empty());
        pane.view->setVisible(!table.page.columns.empty());
        pane.view->setAccessibleName(pane.title->text());
        const QHeaderView& header = *pane.view->horizontalHeader();
        const int sorted = header.sortIndicatorSection();
        if (sorted >= 0 && sorted < pane.model->columnCount()) {
            pane.model->sort(sorted, header.sortIndicatorOrder());
        }
        pane.view->resizeColumnsToContents();
        for (int column = 0; column < pane.model->columnCount(); ++column) {
            pane.view->setColumnWidth(column, std::min(pane.view->columnWidth(column), kWidestColumn));
        }
    }
    renewState();
}

void RowsDock::renewState() {
    shell::RowsForm* form = logic_();
    const bool running = form && form->isRunning();
    const bool any = form && !form->tables().empty() && form->tables()[0].count() > 0;
    refresh_->setEnabled(form && form->canRefresh());
    cancel_->setEnabled(running);
    keep_->setEnabled(form && form->watched());
    keep_->setChecked(form && form->keepDuplicates());
    facts_->setEnabled(form && form->canGive());
    copy_->setEnabled(any);
    export_->setEnabled(any);
    progress_->setVisible(running);
    if (running) {
        progress_->setMaximum(static_cast<int>(form->total()));
        progress_->setValue(static_cast<int>(form->done()));
    }
    status_->setText(form ? text(form->status()) : QString());
    status_->setVisible(!status_->text().isEmpty());
    for (const Pane& pane : panes_) {
        pane.view->setEnabled(form && !form->isOld());
    }
}

void RowsDock::copy(std::size_t pane) {
    std::vector<std::size_t> rows;
    if (pane < panes_.size()) {
        for (const QModelIndex& index : panes_[pane].view->selectionModel()->selectedRows()) {
            rows.push_back(static_cast<std::size_t>(index.row()));
        }
    }
    act([&](shell::RowsForm& form) {
        if (pane < form.tables().size()) {
            form.copy(pane, rows);
        }
    });
}

void RowsDock::act(const std::function<void(shell::RowsForm& form)>& what) {
    if (shell::RowsForm* form = logic_()) {
        what(*form);
    }
}

void RowsDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    Q_EMIT closed();
}

}  // namespace orvent::qt
