#include "qt/analysis/metrics_window.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSortFilterProxyModel>
#include <QSpinBox>
#include <QSplitter>
#include <QStringListModel>
#include <QTableView>
#include <algorithm>

#include "platform/fault.h"
#include "qt/analysis/metrics_model.h"
#include "qt/forms/fields.h"
#include "qt/forms/search_field.h"
#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kNameWidth = 150;
constexpr int kBesideHead = 30;  // margins and the mark of the order, in pixels
constexpr int kWidth = 1190;

constexpr int kTablesGap = 4;

/// Rows of numbers that cannot be edited.
void dress(QTableView& table) {
    table.setItemDelegate(new MetricBar(&table));
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setShowGrid(false);
    table.setWordWrap(false);
    table.setCornerButtonEnabled(false);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->resizeSection(0, kNameWidth);
    for (int column = 1; column <= static_cast<int>(analysis::kMetricsColumns); ++column) {
        const char* head = analysis::kMetricsHeads[static_cast<std::size_t>(column - 1)];
        table.horizontalHeader()->resizeSection(
            column, table.fontMetrics().horizontalAdvance(QLatin1String(head)) + kBesideHead);
    }
}

}  // namespace

/// A table that tells in its middle why it is empty.
class HintTable : public QTableView {
  public:
    using QTableView::QTableView;

    QString hint;

  protected:
    void paintEvent(QPaintEvent* event) override {
        QTableView::paintEvent(event);
        if (model()->rowCount() == 0) {
            paintHint(*this, hint);
        }
    }
};

MetricsWindow::MetricsWindow(std::unique_ptr<analysis::MetricsForm> form, QWidget* parent)
    : QDockWidget(parent),
      form_(std::move(form)),
      inputs_(new MetricsModel(*form_, form_->views.InpMetrView, this)),
      outputs_(new MetricsModel(*form_, form_->views.OutMetrView, this)),
      totals_(new MetricsTotals(*form_, this)),
      entries_(new QStringListModel(this)),
      found_(new QSortFilterProxyModel(this)) {
    setObjectName(QStringLiteral("MetricsForm"));
    setWindowTitle(tr("Metrics"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* inner = new QWidget(this);
    auto* split = new QSplitter(inner);
    split->addWidget(buildEntries());
    split->addWidget(buildTables());
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    auto* box = new QHBoxLayout(inner);
    box->setContentsMargins(Spacing::gap, 0, Spacing::gap, Spacing::gap);
    box->addWidget(split);
    setWidget(inner);
    split->setSizes({180, kWidth});
    form_->show = [this] { showState(); };
    showState();
}

MetricsWindow::~MetricsWindow() = default;

QWidget* MetricsWindow::buildEntries() {
    auto* side = new QWidget(this);
    auto* box = new QVBoxLayout(side);
    box->setContentsMargins(0, 0, 0, 0);
    lblEntity_ = new QLabel(side);
    list_ = new QListView(side);
    list_->setObjectName(QStringLiteral("Entities"));
    found_->setSourceModel(entries_);
    found_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    list_->setModel(found_);
    list_->viewport()->installEventFilter(this);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setUniformItemSizes(true);
    lblEntity_->setBuddy(list_);
    search_ = new SearchField(QStringLiteral("search"), tr("Search"), side);
    search_->setAccessibleName(tr("Search the entries"));
    search_->goToFirst = [this] {
        list_->setCurrentIndex(found_->index(0, 0));
        list_->setFocus();
    };
    switch_ = new QPushButton(side);
    switch_->setObjectName(QStringLiteral("Switch"));
    switch_->setAutoDefault(false);
    box->addWidget(lblEntity_);
    box->addWidget(search_);
    box->addWidget(list_, 1);
    box->addWidget(switch_);
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, &MetricsWindow::clickEntry);
    connect(list_, &QListView::clicked, this, [this](const QModelIndex& entry) {
        if (!counted_) {
            clickEntry(entry);
        }
    });
    connect(search_, &SearchField::textChanged, this,
            [this](const QString& words) { showEntries([&] { found_->setFilterFixedString(words); }); });
    connect(switch_, &QPushButton::clicked, this, [this] {
        search_->clear();
        form_->clickSwitch();
    });
    side->setMinimumWidth(150);
    return side;
}

QWidget* MetricsWindow::buildTables() {
    auto* side = new QWidget(this);
    auto* box = new QVBoxLayout(side);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(kTablesGap);  // the room is for the rows
    addRowOfTools(*box);
    note_ = new QLabel(side);
    note_->setObjectName(QStringLiteral("note"));
    note_->setWordWrap(true);
    box->addWidget(note_);
    inpView_ = addTable(*box, QStringLiteral("InpMetrView"), tr("Metrics"), *inputs_);
    inOutLbl_ = new QLabel(tr("Outputs"), side);
    box->addWidget(inOutLbl_);
    outView_ = addTable(*box, QStringLiteral("OutMetrView"), tr("Metrics of the outputs"), *outputs_);
    outView_->hint = tr("No outputs.");
    addTotals(*box);
    return side;
}

HintTable* MetricsWindow::addTable(QVBoxLayout& box, const QString& name, const QString& words, MetricsModel& model) {
    auto* table = new HintTable(this);
    table->setObjectName(name);
    table->viewport()->installEventFilter(this);
    table->setAccessibleName(words);
    table->setModel(&model);
    dress(*table);
    table->horizontalHeader()->setSectionsClickable(true);
    table->setToolTip(tr("A double click goes to the node"));
    connect(table->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        if (section > 0) {
            form_->lblButLittle(static_cast<std::size_t>(section - 1));
        }
    });
    connect(table, &QTableView::activated, this,
            [this, &model](const QModelIndex& cell) { form_->reveal(model.row(cell.row())); });
    box.addWidget(table, 1);
    return table;
}

/// The totals stand under the columns of the tables, whatever their widths.
void MetricsWindow::addTotals(QVBoxLayout& box) {
    auto* table = new QTableView(this);
    table->setObjectName(QStringLiteral("SumView"));
    table->setAccessibleName(tr("Sums and averages"));
    table->setModel(totals_);
    dress(*table);
    table->horizontalHeader()->hide();
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setFixedHeight(2 * table->verticalHeader()->defaultSectionSize() + 2 * table->frameWidth());
    box.addWidget(table);
    for (HintTable* other : {inpView_, outView_}) {
        connect(other->horizontalHeader(), &QHeaderView::sectionResized, this, [this, table](int section, int, int to) {
            for (QTableView* each : {static_cast<QTableView*>(inpView_), static_cast<QTableView*>(outView_), table}) {
                each->horizontalHeader()->resizeSection(section, to);
            }
        });
        link(*other, *table);
    }
    link(*inpView_, *outView_);
    link(*outView_, *inpView_);
    sumView_ = table;
}

void MetricsWindow::link(QTableView& one, QTableView& other) {
    connect(one.horizontalScrollBar(), &QScrollBar::valueChanged, other.horizontalScrollBar(), &QScrollBar::setValue);
}

// The entry that is chosen already counts anew when it is clicked; another one has counted when it was chosen.
bool MetricsWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        counted_ = false;
    }
    if (event->type() == QEvent::Resize && sumView_ && watched != list_->viewport()) {
        fitNames();
    }
    return QDockWidget::eventFilter(watched, event);
}

/// The names take the width that the numbers leave, in all tables the same.
void MetricsWindow::fitNames() {
    int room = inpView_->viewport()->width();
    if (!outView_->isHidden()) {
        room = std::min(room, outView_->viewport()->width());
    }
    const QHeaderView& heads = *inpView_->horizontalHeader();
    const int names = std::max(kNameWidth, room - (heads.length() - heads.sectionSize(0)));
    for (QTableView* table : {static_cast<QTableView*>(inpView_), static_cast<QTableView*>(outView_), sumView_}) {
        table->horizontalHeader()->resizeSection(0, names);
    }
}

/// While the list changes nobody chooses; the chosen entry stays chosen where it is shown.
void MetricsWindow::showEntries(const std::function<void()>& change) {
    listing_ = true;
    change();
    const QModelIndex chosen = found_->mapFromSource(entries_->index(form_->selected));
    if (chosen.isValid()) {
        list_->setCurrentIndex(chosen);
    } else {
        list_->selectionModel()->clear();
    }
    listing_ = false;
}

void MetricsWindow::clickEntry(const QModelIndex& entry) {
    if (listing_) {
        return;
    }
    counted_ = true;
    form_->clickEntity(found_->mapToSource(entry).row());
}

void MetricsWindow::addRowOfTools(QVBoxLayout& box) {
    auto* row = new QHBoxLayout;
    auto* lblCounter = new QLabel(tr("Transitive &depth"), this);
    counter_ = new QSpinBox(this);
    counter_->setObjectName(QStringLiteral("txtCounter"));
    counter_->setRange(0, 32767);
    lblCounter->setBuddy(counter_);
    row->addWidget(lblCounter);
    row->addWidget(counter_);
    const auto button = [&](const QString& name, const QString& words, auto act) {
        auto* made = new QPushButton(words, this);
        made->setObjectName(name);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        row->addWidget(made);
    };
    button(QStringLiteral("RefreshBut"), tr("&Refresh"), [this] { form_->RefreshBut(); });
    row->addStretch();
    button(QStringLiteral("copy"), tr("&Copy"),
           [this] { QApplication::clipboard()->setText(text(form_->asText('\t'))); });
    button(QStringLiteral("save"), tr("Save as CS&V..."), [this] { form_->saveAsCsv(); });
    connect(counter_, &QSpinBox::valueChanged, this,
            [this](int value) { form_->changeCounter(static_cast<std::int16_t>(value)); });
    box.addLayout(row);
}

void MetricsWindow::showState() {
    lblEntity_->setText(text(form_->lblEntity));
    switch_->setText(text(form_->Switch));
    QStringList names;
    for (const analysis::MetricsForm::Entry& entry : form_->Entities) {
        names.append(text(entry.name));
    }
    showEntries([&] {
        if (names != entries_->stringList()) {
            entries_->setStringList(names);
        }
    });
    note_->setText(text(form_->note));
    note_->setVisible(!form_->note.empty());
    const QSignalBlocker quiet(counter_);
    counter_->setValue(form_->Counter);
    inpView_->hint = text(form_->hint());
    inputs_->refresh();
    outputs_->refresh();
    totals_->refresh();
    inOutLbl_->setVisible(form_->twoLists);
    outView_->setVisible(form_->twoLists);
    // One bar moves all columns.
    inpView_->setHorizontalScrollBarPolicy(form_->twoLists ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    showOrder();
}

void MetricsWindow::showOrder() {
    const int column = form_->isSorted() ? static_cast<int>(form_->sortColumn()) + 1 : -1;
    for (HintTable* table : {inpView_, outView_}) {
        table->horizontalHeader()->setSortIndicatorShown(form_->isSorted());
        table->horizontalHeader()->setSortIndicator(column,
                                                    form_->isAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
}

}  // namespace orvent::qt
