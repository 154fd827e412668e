#include "qt/editors/set_act_prop_window.h"

#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>

#include "qt/editors/entity_pictures.h"
#include "qt/editors/row_buttons.h"
#include "qt/forms/fields.h"
#include "qt/forms/node_view.h"
#include "qt/forms/row_view.h"
#include "qt/forms/tree_panel.h"
#include "qt/statements/statement_box.h"
#include "qt/statements/text_box.h"
#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

using editors::SetActProp;

namespace {

constexpr QSize kSize(1000, 680);
constexpr int kAbove = 190;
constexpr const char* kTabs[] = {QT_TR_NOOP("&INPUTS"), QT_TR_NOOP("O&UTPUTS"), QT_TR_NOOP("PARA&METERS"),
                                 QT_TR_NOOP("R&EJECTED")};

QStringList columnsOf(editors::ActList list) {
    const QString name = list == editors::kInputs    ? SetActPropWindow::tr("Input Name")
                         : list == editors::kOutputs ? SetActPropWindow::tr("Output Name")
                                                     : SetActPropWindow::tr("Parameter Name");
    const QString type = list == editors::kInputs    ? SetActPropWindow::tr("Input Type")
                         : list == editors::kOutputs ? SetActPropWindow::tr("Output Type")
                                                     : SetActPropWindow::tr("Parameter Type");
    return {name,
            type,
            SetActPropWindow::tr("Source"),
            SetActPropWindow::tr("Source Type"),
            SetActPropWindow::tr("Target"),
            SetActPropWindow::tr("Target Type")};
}

}  // namespace

SetActPropWindow::SetActPropWindow(SetActProp& logic, WindowSizes& sizes, QWidget* parent)
    : FormWindow(tr("Activity Properties"), logic, parent), logic_(logic), sizes_(sizes) {
    setObjectName(QStringLiteral("SetActProp"));
    auto* above = new QSplitter(this);
    above->setObjectName(QStringLiteral("UpControlContainer"));
    above->addWidget(newDefinition());
    above->addWidget(newStatement());
    auto* middle = new QSplitter(this);
    middle->setObjectName(QStringLiteral("MiddleControlContainer"));
    middle->addWidget(newTrees());
    middle->addWidget(newLists());
    auto* zones = new QSplitter(Qt::Vertical, this);
    zones->setObjectName(QStringLiteral("zones"));
    zones->addWidget(above);
    zones->addWidget(middle);
    for (QSplitter* splitter : {above, middle, zones}) {
        splitter->setChildrenCollapsible(false);
        splitter->setStretchFactor(1, 1);
        splitter->setHandleWidth(Spacing::margin);
    }
    body().addWidget(zones, 1);
    addButtons();
    addTabKeys();
    resize(kSize);
    zones->setSizes({kAbove, kSize.height() - kAbove});
    above->setSizes({420, 540});
    middle->setSizes({340, 620});
    sizes_.give(*this);
    logic_.show = [this] { showState(); };
    logic_.onEnable = [this](bool enabled) { setEnabled(enabled); };
    showState();
    name_->setFocus();
    selectFromStart(*name_);
}

template <class Act>
void SetActPropWindow::act(Act step) {
    step();
    showState();
}

QWidget* SetActPropWindow::newDefinition() {
    auto* side = new QWidget(this);
    QFormLayout* form = newForm();
    form->setContentsMargins({});
    side->setLayout(form);
    name_ = newField(QStringLiteral("txtName"), side);
    name_->installEventFilter(this);
    connect(name_, &QLineEdit::textEdited, this,
            [this](const QString& typed) { act([&] { logic_.txtName_Change(typed.toStdString()); }); });
    types_ = newChoice(QStringLiteral("ActTypes"), side);
    types_->setPlaceholderText(tr("Choose a type"));
    types_->setFocusPolicy(Qt::StrongFocus);
    types_->installEventFilter(this);
    connect(types_, &QComboBox::activated, this,
            [this](int row) { act([&] { logic_.ActTypes_Click(types_->itemData(row).toInt()); }); });
    descr_ = new QTextEdit(side);
    descr_->setObjectName(QStringLiteral("txtDescr"));
    descr_->setAcceptRichText(false);
    descr_->setTabChangesFocus(true);
    descr_->setMinimumSize(200, 3 * fontMetrics().lineSpacing());
    connect(descr_, &QTextEdit::textChanged, this, [this] {
        logic_.txtDescr_Change(plainText(*descr_));
        showOK();
    });
    const auto addRow = [&](const char* name, const QString& caption, QWidget* field) {
        addField(*form, caption, field)->setObjectName(QLatin1String(name));
        field->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    };
    addRow("lblActName", tr("ACTIVITY &NAME"), name_);
    addRow("lblActType", tr("ACTIVITY  &TYPE"), types_);
    addRow("lblDescr", tr("&DESCRIPTION"), descr_);
    return side;
}

QWidget* SetActPropWindow::newStatement() {
    auto* side = new QWidget(this);
    side->setObjectName(QStringLiteral("Frame1"));
    auto* caption = new QLabel(tr("E&QUIVALENT LDL  STATEMENT    "), side);
    language_ = new QComboBox(side);
    language_->setObjectName(QStringLiteral("LangSelector"));
    language_->setAccessibleName(tr("Language of the statement"));
    language_->addItems({QStringLiteral("LDL"), QStringLiteral("SQL")});
    refresh_ = new QPushButton(icon(QStringLiteral("ldl")), tr("&Generate…"), side);
    refresh_->setObjectName(QStringLiteral("butRefresh"));
    refresh_->setAutoDefault(false);
    statement_ = new StatementBox(QStringLiteral("txtSQL"), tr("Statement of the activity"), side);
    statement_->edited = [this](const std::string& text) {
        logic_.txtSQL_Change(text);
        showMisfit();
        showOK();
    };
    statement_->box().setMinimumSize(260, 3 * fontMetrics().lineSpacing());
    statement_->tools().addStretch();
    misfit_ = new QLabel(side);
    misfit_->setObjectName(QStringLiteral("misfit"));
    misfit_->setTextFormat(Qt::PlainText);
    misfit_->setForegroundRole(QPalette::PlaceholderText);
    misfit_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long one is cut, and whole in its tip
    caption->setBuddy(&statement_->box());
    connect(language_, &QComboBox::activated, this, [this](int row) {
        act([&] { logic_.LangSelector_Click(row == 0 ? SetActProp::Language::LDL : SetActProp::Language::SQL); });
    });
    connect(refresh_, &QPushButton::clicked, this, [this] { act([&] { logic_.butRefresh_Click(); }); });
    auto* head = new QHBoxLayout;
    head->addWidget(caption);
    head->addStretch();
    head->addWidget(language_);
    head->addWidget(refresh_);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::gap / 2);
    rows->addLayout(head);
    rows->addWidget(misfit_);
    rows->addWidget(statement_, 1);
    setTabOrder(language_, refresh_);
    setTabOrder(refresh_, statement_);
    return side;
}

QWidget* SetActPropWindow::newTrees() {
    trees_ = new QSplitter(Qt::Vertical, this);
    trees_->setObjectName(QStringLiteral("trees"));
    trees_->setChildrenCollapsible(false);
    trees_->setHandleWidth(Spacing::gap);
    trees_->addWidget(newTree(logic_.ActView, tr("GRA&PH"), QStringLiteral("ActView")));
    trees_->addWidget(newTree(logic_.DBView, tr("DATA&BASE"), QStringLiteral("DBView")));
    return trees_;
}

TreePanel* SetActPropWindow::newTree(forms::Tree& tree, const QString& caption, const QString& name) {
    auto* panel = new TreePanel(tree, entityPicture, caption, name, this);
    panel->click = [this](const std::vector<forms::Tree::Node*>& nodes) { act([&] { logic_.NodeClick(nodes); }); };
    panel->clicked = [this] { focusList(); };
    panel->leaves = [this](forms::Tree::Node& node) { act([&] { logic_.DragOut(node); }); };
    panel->dropRows = [this] { act([&] { logic_.Move2Tree_Click(); }); };
    return panel;
}

QWidget* SetActPropWindow::newLists() {
    auto* side = new QWidget(this);
    rowButtons_ = new RowButtons(side);
    rowButtons_->move = [this](forms::RowMove where) {
        act([&] { logic_.MoveRow_Click(where); });
        focusList();
    };
    rowButtons_->remove = [this] { act([&] { logic_.Move2Tree_Click(); }); };
    rowButtons_->removeAll = [this] { act([&] { logic_.MoveAll2Tree_Click(); }); };
    tabs_ = new QTabWidget(side);
    tabs_->setObjectName(QStringLiteral("TabStrip1"));
    tabs_->setAccessibleName(tr("Members of the activity"));
    tabs_->setDocumentMode(true);
    tabs_->tabBar()->setDrawBase(false);
    for (const editors::ActList list : editors::kActLists) {
        tabs_->addTab(newList(list, kTabs[tabOf(list)]), tr(kTabs[tabOf(list)]));
    }
    tabs_->addTab(newLog(), tr(kTabs[SetActProp::kLogTab]));
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
        if (!showing_) {
            act([&] { logic_.TabStrip1_Click(tab); });
        }
    });
    sourceNote_ = new QLabel(side);
    sourceNote_->setObjectName(QStringLiteral("sourceNote"));
    sourceNote_->setWordWrap(true);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(Spacing::gap / 2);
    rows->addWidget(tabs_, 1);
    rows->addWidget(sourceNote_);
    auto* columns = new QHBoxLayout(side);
    columns->setContentsMargins({});
    columns->setSpacing(Spacing::gap);
    columns->addWidget(rowButtons_);
    columns->addLayout(rows, 1);
    return side;
}

RowView* SetActPropWindow::newList(editors::ActList at, const char* caption) {
    auto* model = new ListModel(logic_.AttList[at], columnsOf(at), entityPicture, this);
    model->setColour(editors::kListColours[at]);
    model->rename = [this](int row, const std::string& label) {
        const bool taken = logic_.AfterLabelEdit(row, label);
        showState();
        return taken;
    };
    model->takesNodes = [this](const std::vector<std::string>& keys) { return logic_.takes(keys); };
    model->dropNodes = [this](const std::vector<std::string>& keys, int place) {
        act([&] { logic_.Drop(keys, place); });
        focusList();
    };
    model->dropRows = [this](const std::vector<int>& rows, int place) { act([&] { logic_.MoveRows(rows, place); }); };
    lists_[at] = new RowView(*model, QStringLiteral("AttList(%1)").arg(tabOf(at)), this);
    lists_[at]->setAccessibleName(tr(caption).remove(QLatin1Char('&')));
    lists_[at]->removeRows = rowButtons_->remove;
    lists_[at]->moveRows = rowButtons_->move;
    connect(lists_[at], &QWidget::customContextMenuRequested, this,
            [this, list = lists_[at]](const QPoint& place) { showMenu(*list, place); });
    return lists_[at];
}

void SetActPropWindow::focusList() {
    lists_[logic_.SelectedList]->setFocus();
}

QWidget* SetActPropWindow::newLog() {
    auto* page = new QWidget(this);
    page->setObjectName(QStringLiteral("RejectedPanel"));
    log_ = newField(QStringLiteral("txtRejected"), page);
    log_->setAccessibleName(tr("LOG FILE"));
    connect(log_, &QLineEdit::textEdited, this,
            [this](const QString& typed) { act([&] { logic_.txtRejected_Change(typed.toStdString()); }); });
    auto* browse = new QPushButton(tr("B&rowse…"), page);
    browse->setObjectName(QStringLiteral("RejectedFileOpen"));
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, [this] { act([&] { logic_.RejectedFileOpen_Click(); }); });
    auto* label = new QLabel(tr("&LOG FILE"), page);
    label->setObjectName(QStringLiteral("lblRejected"));
    label->setBuddy(log_);
    auto* line = new QHBoxLayout;
    line->setSpacing(Spacing::gap);
    line->addWidget(log_, 1);
    line->addWidget(browse);
    auto* rows = new QVBoxLayout(page);
    rows->addWidget(label);
    rows->addLayout(line);
    rows->addStretch();
    return page;
}

void SetActPropWindow::addButtons() {
    addSideButton(QStringLiteral("Apply"), tr("&APPLY"), [this] { act([&] { logic_.Apply(); }); });
    ok_ = &addOK(QStringLiteral("OK"), tr("&OK"));
    addCancel(QStringLiteral("Cancel")).setText(tr("&CANCEL"));
}

void SetActPropWindow::addTabKeys() {
    const auto turn = [this](const QKeySequence& keys, int by) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, by] { tabs_->setCurrentIndex((tabs_->currentIndex() + by) % tabs_->count()); });
    };
    turn(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
    turn(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), tabs_->count() - 1);
}

void SetActPropWindow::showMenu(RowView& list, const QPoint& at) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("AttListM"));
    menu.setToolTipsVisible(true);
    const forms::ListRow* row = logic_.frontList().Item(logic_.frontList().selected());
    const auto add = [&](const char* name, const QString& caption, const QString& why, auto step) {
        QAction* item = menu.addAction(caption, this, [this, step] { act(step); });
        item->setObjectName(QLatin1String(name));
        item->setEnabled(why.isEmpty());
        item->setToolTip(why);
        return item;
    };
    const QString noRow = row ? QString() : tr("Choose a row first");
    const QString noEdit = row && !row->Editable ? tr("A function keeps its own name") : noRow;
    const QString noRows = logic_.ListButtons() ? QString() : tr("The list has no rows");
    add("ItemSendParamM", tr("Send To &Parameter"), text(logic_.whyNotSent(false)),
        [this] { logic_.ItemSendParamM_Click(); });
    add("ItemSendOutputM", tr("Send To &Output"), text(logic_.whyNotSent(true)),
        [this] { logic_.ItemSendOutputM_Click(); });
    menu.addSeparator();
    add("ItemEditM", tr("&Edit Name"), noEdit, [&list] { list.editLabel(); })->setShortcut(Qt::Key_F2);
    add("ItemDeleteM", tr("&Delete"), noRow, [this] { logic_.Move2Tree_Click(); })->setShortcut(Qt::Key_Delete);
    menu.addSeparator();
    QAction* details = add("ShowDetailsM", tr("&Show Details"), {}, [this] { logic_.ShowDetailsM_Click(); });
    details->setCheckable(true);
    details->setChecked(logic_.ReportView);
    add("CutFullNamesM", tr("&Cut Full Names"), noRows, [this] { logic_.CutFullNamesM_Click(); });
    add("RestoreNamesM", tr("&Restore Names"), noRows, [this] { logic_.RestoreNamesM_Click(); });
    add("RefreshHeadersM", tr("Re&fresh Headers"), noRows, [this] { logic_.RefreshHeadersM_Click(); });
    menu.exec(list.viewport()->mapToGlobal(at));
}

/// The rest of the program goes on beside it: types may have come or changed their names.
bool SetActPropWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        showState();
    }
    return FormWindow::event(event);
}

bool SetActPropWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == name_ && event->type() == QEvent::FocusOut && isVisible() && !going_) {
        // Another window in front, or a menu, does not leave the box.
        const Qt::FocusReason reason = static_cast<QFocusEvent&>(*event).reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            logic_.txtName_Leave();
        }
    }
    // The wheel turns the page, not the type: another type would replace members.
    if (watched == types_ && event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    return FormWindow::eventFilter(watched, event);
}

void SetActPropWindow::done(int result) {
    going_ = true;
    sizes_.keep(*this);
    FormWindow::done(result);
    going_ = !isVisible();
    if (logic_.hasEnded()) {
        logic_.show = {};
        logic_.onEnable = {};
    }
}

}  // namespace orvent::qt
