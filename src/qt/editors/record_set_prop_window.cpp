#include "qt/editors/record_set_prop_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QSplitter>
#include <QTextEdit>
#include <memory>

#include "qt/editors/entity_pictures.h"
#include "qt/editors/row_buttons.h"
#include "qt/forms/fields.h"
#include "qt/forms/node_view.h"
#include "qt/forms/row_view.h"
#include "qt/forms/tree_panel.h"
#include "qt/statements/statement_box.h"
#include "qt/text.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr QSize kRecordSetSize(900, 660);
constexpr int kStatementHeight = 150;
constexpr int kTypeWidth = 150;  // of the choice for a new column
constexpr int kPatience = 300;   // milliseconds of loading before its progress is shown

}  // namespace

RecordSetPropWindow::RecordSetPropWindow(editors::RecordSetProp& logic, WindowSizes& sizes, QWidget* parent)
    : FormWindow(tr("Record Set Properties"), logic, parent), logic_(logic), sizes_(sizes) {
    setObjectName(QStringLiteral("RecordSetProp"));
    auto* above = newForm();
    name_ = newField(QStringLiteral("txtRecordSetName"), this);
    addField(*above, tr("&NAME:"), name_)->setObjectName(QStringLiteral("lblName"));
    name_->setAccessibleName(tr("NAME:"));
    connect(name_, &QLineEdit::textEdited, this,
            [this](const QString& typed) { act([&] { logic_.txtRecordSetName_Change(typed.toStdString()); }); });
    body().addLayout(above);
    body().addSpacing(Spacing::gap);

    auto* middle = new QSplitter(this);
    middle->setObjectName(QStringLiteral("MiddleControlContainer"));
    middle->addWidget(newDatabases());
    middle->addWidget(newAttributes());
    auto* zones = new QSplitter(Qt::Vertical, this);
    zones->setObjectName(QStringLiteral("zones"));
    zones->addWidget(middle);
    zones->addWidget(newStatement());
    for (QSplitter* splitter : {middle, zones}) {
        splitter->setChildrenCollapsible(false);
        splitter->setHandleWidth(Spacing::margin);
    }
    middle->setStretchFactor(1, 1);
    zones->setStretchFactor(0, 1);
    body().addWidget(zones, 1);
    addAccept(QStringLiteral("OK"), tr("&OK"), [this] {
        const bool closes = logic_.OK();
        if (!closes && name_->text().trimmed().isEmpty()) {
            name_->setFocus();
        }
        return closes;
    });
    addCancel(QStringLiteral("Cancel")).setText(tr("&Cancel"));
    resize(kRecordSetSize);
    middle->setSizes({400, 480});
    zones->setSizes({kRecordSetSize.height() - kStatementHeight, kStatementHeight});
    sizes_.give(*this);
    logic_.show = [this] { showState(); };
    showState();
    name_->setFocus();
    selectFromStart(*name_);
}

void RecordSetPropWindow::act(const std::function<void()>& step) {
    step();
    showState();
}

QPushButton* RecordSetPropWindow::newButton(const char* name, const QString& caption, std::function<void()> step) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, step = std::move(step)] { act(step); });
    return button;
}

QWidget* RecordSetPropWindow::newDatabases() {
    databases_ = new TreePanel(logic_.DBView, entityPicture, tr("DATA&BASES"), QStringLiteral("DBView"), this);
    databases_->setHint(tr("Load a database to choose from its columns"));
    databases_->click = [this](const std::vector<forms::Tree::Node*>& nodes) { act([&] { logic_.NodeClick(nodes); }); };
    databases_->clicked = [this] { list_->setFocus(); };
    databases_->dropRows = [this] { act([&] { logic_.Move2Tree_Click(); }); };
    connect(&databases_->view(), &QWidget::customContextMenuRequested, this, &RecordSetPropWindow::showDatabaseMenu);
    connect(databases_->view().selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { showState(); });
    auto* row = new QWidget(databases_);
    auto* columns = new QHBoxLayout(row);
    columns->setContentsMargins({});
    columns->setSpacing(Spacing::gap);
    columns->addWidget(newButton("butLoadDB", tr("&Load…"), [this] { loadDatabase(); }));
    unload_ = newButton("butUnLoadDB", tr("&Unload"), [this] { unloadDatabase(); });
    columns->addWidget(unload_);
    columns->addStretch();
    databases_->addBelow(row);
    return databases_;
}

QWidget* RecordSetPropWindow::newAttributes() {
    auto* side = new QWidget(this);
    rowButtons_ = new RowButtons(side);
    rowButtons_->move = [this](forms::RowMove where) {
        act([&] { logic_.MoveRow_Click(where); });
        list_->setFocus();
    };
    rowButtons_->remove = [this] { act([&] { logic_.Move2Tree_Click(); }); };
    rowButtons_->removeAll = [this] { act([&] { logic_.MoveAll2Tree_Click(); }); };
    auto* model = new ListModel(logic_.AttList, {tr("Attribute Name"), tr("Attribute Type")}, entityPicture, this);
    model->setColour(editors::kListColours[editors::kInputs]);
    if (logic_.ListItemEditM()) {
        model->rename = [this](int row, const std::string& label) {
            const bool taken = logic_.AfterLabelEdit(row, label);
            showState();
            return taken;
        };
    }
    model->takesNodes = [](const std::vector<std::string>&) { return true; };
    model->dropNodes = [this](const std::vector<std::string>& keys, int place) {
        act([&] { logic_.Drop(keys, place); });
        list_->setFocus();
    };
    model->dropRows = [this](const std::vector<int>& rows, int place) { act([&] { logic_.MoveRows(rows, place); }); };
    list_ = new RowView(*model, QStringLiteral("AttList"), side);
    list_->setAccessibleName(tr("ATTRIBUTES"));
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);  // names need the room more than types do
    list_->fitColumn(1);
    list_->removeRows = rowButtons_->remove;
    list_->moveRows = rowButtons_->move;
    connect(list_, &QWidget::customContextMenuRequested, this, &RecordSetPropWindow::showListMenu);
    auto* label = new QLabel(tr("&ATTRIBUTES"), side);
    label->setBuddy(list_);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(Spacing::gap / 2);
    rows->addWidget(label);
    rows->addWidget(list_, 1);
    rows->addLayout(newOwnColumns());
    auto* columns = new QHBoxLayout(side);
    columns->setContentsMargins({});
    columns->setSpacing(Spacing::gap);
    columns->addWidget(rowButtons_);
    columns->addLayout(rows, 1);
    return side;
}

/// What no database has yet is named here.
QLayout* RecordSetPropWindow::newOwnColumns() {
    column_ = newField(QStringLiteral("txtColumnName"), this);
    column_->setPlaceholderText(tr("Name of a new column"));
    column_->setAccessibleName(column_->placeholderText());
    column_->setMinimumWidth(0);
    column_->installEventFilter(this);
    connect(column_, &QLineEdit::textEdited, this,
            [this](const QString& typed) { logic_.txtColumnName = typed.toStdString(); });
    columnType_ = newChoice(QStringLiteral("ColumnTypes"), this);
    columnType_->setPlaceholderText(tr("Its type"));
    columnType_->setAccessibleName(columnType_->placeholderText());
    columnType_->setMinimumWidth(kTypeWidth);
    connect(columnType_, &QComboBox::activated, this, [this](int index) { logic_.ColumnType = index; });
    auto* grid = new QGridLayout;
    grid->setSpacing(Spacing::gap);
    grid->setColumnStretch(0, 1);
    grid->addWidget(column_, 0, 0);
    grid->addWidget(columnType_, 0, 1);
    grid->addWidget(newButton("butTakeOver", tr("&Take Over…"), [this] { logic_.TakeOver_Click(); }), 1, 0,
                    Qt::AlignLeft);
    grid->addWidget(newButton("butAddColumn", tr("A&dd Column"), [this] { addColumn(); }), 1, 1);
    return grid;
}

void RecordSetPropWindow::addColumn() {
    const bool added = logic_.AddColumn_Click();
    QWidget& next = !added && logic_.ColumnType < 0 && !logic_.txtColumnName.empty()
                        ? static_cast<QWidget&>(*columnType_)
                        : static_cast<QWidget&>(*column_);
    next.setFocus();
}

/// Enter behind the name of a column adds it.
bool RecordSetPropWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == column_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !column_->text().isEmpty()) {
            act([this] { addColumn(); });
            return true;
        }
    }
    return FormWindow::eventFilter(watched, event);
}

QWidget* RecordSetPropWindow::newStatement() {
    statement_ = new StatementBox(QStringLiteral("txtSQL"), tr("SELECT of the record set"), this);
    statement_->edited = [this](const std::string& text) { logic_.txtSQL_Change(text); };
    inUse_ = new QCheckBox(tr("&SQL Sentence"), statement_);
    inUse_->setObjectName(QStringLiteral("SQLOption"));
    inUse_->setToolTip(tr("The statement is in use"));
    connect(inUse_, &QCheckBox::clicked, this, [this](bool on) { act([&] { logic_.SQLOption_Click(on); }); });
    statement_->tools().insertWidget(0, inUse_);
    statement_->tools().insertWidget(
        1, newButton("SQLAuto", tr("C&REATE SQL SENTENCE"), [this] { logic_.SQLAuto_Click(); }));
    statement_->tools().insertStretch(2);
    return statement_;
}

/// What is there when the user has enough of it stays.
void RecordSetPropWindow::loadDatabase() {
    std::unique_ptr<QProgressDialog> progress;
    logic_.LoadDB([&](std::size_t done, std::size_t total) {
        if (!progress) {
            progress = std::make_unique<QProgressDialog>(QString(), tr("&Cancel"), 0, 0, this);
            progress->setObjectName(QStringLiteral("loading"));
            progress->setWindowTitle(tr("Load Database"));
            progress->setWindowModality(Qt::WindowModal);
            progress->setMinimumDuration(kPatience);
            progress->setAutoReset(false);
        }
        progress->setMaximum(static_cast<int>(total));
        progress->setLabelText(tr("%1 of %2 tables").arg(done).arg(total));
        progress->setValue(static_cast<int>(done));
        return !progress->wasCanceled();
    });
}

void RecordSetPropWindow::unloadDatabase() {
    if (forms::Tree::Node* node = databases_->current()) {
        logic_.UnLoadDB_Click(*node);
    }
}

void RecordSetPropWindow::showDatabaseMenu(const QPoint& at) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("DBMenu"));
    menu.addAction(tr("&Load Database…"), this, [this] { act([this] { loadDatabase(); }); })
        ->setObjectName(QStringLiteral("LoadDB"));
    QAction* unload = menu.addAction(tr("&Unload Database"), this, [this] { act([this] { unloadDatabase(); }); });
    unload->setObjectName(QStringLiteral("UnLoadDB"));
    unload->setEnabled(unload_->isEnabled());
    menu.exec(databases_->view().viewport()->mapToGlobal(at));
}

void RecordSetPropWindow::showListMenu(const QPoint& at) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("ListItemM"));
    menu.setToolTipsVisible(true);
    const bool row = logic_.AttList.selected() > 0;
    const auto add = [&](const char* name, const QString& caption, const QString& why, std::function<void()> step) {
        QAction* item = menu.addAction(caption, this, [this, step = std::move(step)] { act(step); });
        item->setObjectName(QLatin1String(name));
        item->setEnabled(why.isEmpty());
        item->setToolTip(why);
        return item;
    };
    const QString noRow = row ? QString() : tr("Choose a row first");
    const QString noRows = logic_.ListButtons() ? QString() : tr("The list has no rows");
    const QString noEdit = logic_.ListItemEditM() ? noRow : tr("Names are not edited over a zoom");
    add("ListItemRemoveM", tr("&Remove"), noRow, [this] { logic_.Move2Tree_Click(); })->setShortcut(Qt::Key_Delete);
    add("ListItemEditM", tr("&Edit Name"), noEdit, [this] { list_->editLabel(); })->setShortcut(Qt::Key_F2);
    menu.addSeparator();
    add("ListItemCutFullNamesM", tr("&Cut Full Names"), noRows, [this] { logic_.CutFullNames_Click(); });
    add("ListItemRestoreFullNamesM", tr("Re&store Full Names"), noRows, [this] { logic_.RestoreFullNames_Click(); });
    menu.exec(list_->viewport()->mapToGlobal(at));
}

void RecordSetPropWindow::showState() {
    if (name_->text() != text(logic_.txtRecordSetName)) {
        name_->setText(text(logic_.txtRecordSetName));
    }
    name_->setToolTip(name_->text());  // a long one is cut
    if (column_->text() != text(logic_.txtColumnName)) {
        column_->setText(text(logic_.txtColumnName));
    }
    if (columnType_->count() != static_cast<int>(logic_.ColumnTypes.size())) {
        columnType_->clear();
        for (const std::string& type : logic_.ColumnTypes) {
            columnType_->addItem(text(type));
        }
    }
    columnType_->setCurrentIndex(logic_.ColumnType);
    setWindowTitle(tr("%1 — Record Set Properties").arg(name_->text()));
    rowButtons_->showState(logic_.ListButtons() ? QString() : tr("The list has no rows"));
    inUse_->setChecked(logic_.SQLOption);
    statement_->showText(logic_.txtSQL);
    statement_->box().setEnabled(logic_.SQLOption);
    const forms::Tree::Node* node = databases_->current();
    unload_->setEnabled(node && !node->parent());
    unload_->setToolTip(unload_->isEnabled() ? QString() : tr("Choose a loaded database in the tree first"));
}

void RecordSetPropWindow::done(int result) {
    sizes_.keep(*this);
    FormWindow::done(result);
    if (logic_.hasEnded()) {
        logic_.show = {};
    }
}

}  // namespace orvent::qt
