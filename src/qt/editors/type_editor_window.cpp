#include "qt/editors/type_editor_window.h"

#include <QButtonGroup>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTextEdit>

#include "qt/editors/template_colouring.h"
#include "qt/forms/fields.h"
#include "qt/forms/program_header.h"
#include "qt/statements/keyword_colouring.h"
#include "qt/statements/text_box.h"
#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

using editors::TypeEditor;
using editors::TypeKind;

namespace {

struct OptionRow {
    const char* name;
    const char* caption;
    const char* first;
    const char* second;
    int TypeEditor::*option;
};

constexpr OptionRow kOptions[] = {
    {"RsNoOption", QT_TR_NOOP("Schemata:"), "1", "2", &TypeEditor::RsNoOption},
    {"ProvSemOption", QT_TR_NOOP("Data Provider:"), "DELETE", "SELECT", &TypeEditor::ProvSemOption},
    {"ConsSemOption", QT_TR_NOOP("Data Consumer:"), "OVERWRITE", "APPEND", &TypeEditor::ConsSemOption},
};

constexpr QSize kSizes[] = {{560, 400}, {780, 520}, {960, 620}};  // by kind

/// The letters that lead to Add, by `TypeListRole`: its own short word has too few, and long ones no room.
constexpr char kAddLetters[] = {'p', 'P', 'u', 'F'};
/// Those of Remove, by column; Edit is grey while there is something to remove.
constexpr char kRemoveLetters[] = {'R', 'v', 'e'};

QListWidget* newList(const QString& name, QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    list->setAccessibleName(name);
    list->setUniformItemSizes(true);
    list->setIconSize({Spacing::icon, Spacing::icon});
    return list;
}

QTextEdit* newBox(const char* name, const QString& what, QWidget* parent) {
    auto* box = new QTextEdit(parent);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(what);
    box->setAcceptRichText(false);
    box->setTabChangesFocus(true);
    return box;
}

/// On a narrow screen a button needs no more than its words.
void mayShrink(QPushButton& button) {
    const QString words = button.text().remove(QLatin1Char('&'));
    button.setMinimumWidth(button.fontMetrics().horizontalAdvance(words) + 2 * Spacing::gap);
}

}  // namespace

TypeEditorWindow::TypeEditorWindow(TypeEditor& logic, WindowSizes& sizes, QWidget* parent)
    : FormWindow(tr("Types"), logic, parent), logic_(logic), sizes_(sizes) {
    setObjectName(QLatin1String(logic.words.window));
    auto* sides = new QSplitter(this);
    sides->setObjectName(QStringLiteral("sides"));
    sides->setChildrenCollapsible(false);
    sides->setHandleWidth(Spacing::margin);
    sides->addWidget(newTypesSide());
    sides->addWidget(newEditSide());
    sides->setStretchFactor(1, 1);
    body().addWidget(sides, 1);
    ok_ = &addAccept(QStringLiteral("But_OK"), tr("&OK"), [this] { return logic_.But_OK(); });
    resize(kSizes[static_cast<std::size_t>(logic.kind)]);
    sizes_.give(*this);
    showState();
    types_->setFocus();
}

QPushButton* TypeEditorWindow::newButton(const char* name, const QString& caption, Event handler) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, handler] { act(handler); });
    return button;
}

QWidget* TypeEditorWindow::newTypesSide() {
    auto* side = new QWidget(this);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    types_ = newList(QLatin1String(logic_.words.types), side);
    types_->setMinimumWidth(200);
    connect(types_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!showing_) {
            logic_.selectType(row + 1);
            showState();
        }
    });
    connect(types_, &QListWidget::itemDoubleClicked, this, [this] { act(&TypeEditor::But_EDIT); });
    rows->addWidget(types_, 1);
    new_ = newButton("But_NEW", tr("&New"), &TypeEditor::But_NEW);
    edit_ = newButton("But_EDIT", tr("&Edit"), &TypeEditor::But_EDIT);
    delete_ = newButton("But_DELETE", tr("&Delete"), &TypeEditor::But_DELETE);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Spacing::gap);
    for (QPushButton* button : {new_, edit_, delete_}) {
        mayShrink(*button);
        buttons->addWidget(button);
    }
    rows->addLayout(buttons);
    return side;
}

QWidget* TypeEditorWindow::newEditSide() {
    title_ = new QGroupBox(this);
    title_->setObjectName(QStringLiteral("title"));
    auto* rows = new QVBoxLayout(title_);
    editArea_ = new QWidget(title_);
    auto* inner = new QVBoxLayout(editArea_);
    inner->setContentsMargins({});
    if (logic_.kind != TypeKind::activity) {
        inner->addWidget(newDefinition());
    } else {
        auto* pages = new QTabWidget(editArea_);
        pages->setAccessibleName(tr("Pages of the type"));
        pages->addTab(newDefinition(), tr("Definition"));
        sql_ = newBox("txtSQL", tr("SQL template"), this);
        sqlColouring_ = new KeywordColouring(*sql_);
        ldl_ = newBox("txtLDL", tr("LDL template"), this);
        new TemplateColouring(*ldl_);
        variables_ = newList(QStringLiteral("variables"), this);
        variables_->setAccessibleName(tr("Variables of the template"));
        variables_->setSelectionMode(QAbstractItemView::NoSelection);
        variables_->setToolTip(tr("The variables that the template names, as they are found while you type"));
        pages->addTab(newTextPage(sql_, nullptr), tr("SQL Template"));
        pages->addTab(newTextPage(ldl_, variables_), tr("LDL Template"));
        connect(sql_, &QTextEdit::textChanged, this, [this] { logic_.changeSQL(plainText(*sql_)); });
        connect(ldl_, &QTextEdit::textChanged, this, [this] {
            logic_.changeLDL(plainText(*ldl_));
            showLists();
        });
        inner->addWidget(pages);
    }
    rows->addWidget(editArea_, 1);
    usedBy_ = newHint(QString(), title_);
    usedBy_->setObjectName(QStringLiteral("usedBy"));
    usedBy_->setTextFormat(Qt::PlainText);
    usedBy_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    rows->addWidget(usedBy_);
    save_ = newButton("But_SAVE", tr("&Save"), &TypeEditor::But_SAVE);
    cancel_ = newButton("But_Cancel", tr("&Cancel"), &TypeEditor::But_Cancel);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Spacing::gap);
    buttons->addStretch();
    buttons->addWidget(save_);
    buttons->addWidget(cancel_);
    rows->addLayout(buttons);
    return title_;
}

QWidget* TypeEditorWindow::newTextPage(QTextEdit* box, QWidget* beside) {
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    if (!beside) {
        return box;
    }
    auto* page = new QSplitter(this);
    page->setObjectName(QStringLiteral("template"));
    page->setChildrenCollapsible(false);
    page->setHandleWidth(Spacing::margin);
    page->addWidget(box);
    page->addWidget(beside);
    page->setStretchFactor(0, 3);
    page->setStretchFactor(1, 1);
    return page;
}

QWidget* TypeEditorWindow::newDefinition() {
    auto* page = new QWidget(this);
    auto* rows = new QVBoxLayout(page);
    if (logic_.kind != TypeKind::activity) {
        rows->setContentsMargins({});  // no page's frame around it
    }
    QFormLayout* form = newForm();
    name_ = newField(QLatin1String(logic_.words.nameField), page);
    addField(*form, tr("Na&me"), name_);
    connect(name_, &QLineEdit::textEdited, this,
            [this](const QString& typed) { logic_.changeName(typed.toStdString()); });
    if (*logic_.words.descrField) {
        descr_ = newBox(logic_.words.descrField, tr("Description"), page);
        descr_->setFixedHeight(4 * fontMetrics().lineSpacing());
        addField(*form, tr("Descr&iption"), descr_);
        connect(descr_, &QTextEdit::textChanged, this, [this] { logic_.changeDescr(plainText(*descr_)); });
    }
    rows->addLayout(form);
    if (logic_.kind == TypeKind::activity) {
        rows->addWidget(newOptions(page));
    }
    if (logic_.lists.empty()) {
        rows->addStretch();
    } else {
        rows->addWidget(newLists(page), 1);
    }
    return page;
}

QWidget* TypeEditorWindow::newOptions(QWidget* parent) {
    auto* area = new QWidget(parent);
    auto* grid = new QGridLayout(area);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(Spacing::margin);
    int row = 0;
    for (const OptionRow& option : kOptions) {
        grid->addWidget(new QLabel(tr(option.caption), area), row, 0);
        auto* group = new QButtonGroup(area);
        group->setObjectName(QLatin1String(option.name));
        const char* const captions[] = {option.first, option.second};
        for (int at = 0; at < 2; ++at) {
            auto* button = new QRadioButton(QLatin1String(captions[at]), area);
            button->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(option.name)).arg(at));
            button->setAccessibleName(tr(option.caption) + QLatin1Char(' ') + button->text());
            group->addButton(button, at);
            grid->addWidget(button, row, at + 1);
        }
        connect(group, &QButtonGroup::idClicked, this,
                [this, which = option.option](int id) { logic_.choose(which, id); });
        options_.push_back({option.option, group});
        ++row;
    }
    grid->setColumnStretch(3, 1);
    return area;
}

QWidget* TypeEditorWindow::newLists(QWidget* parent) {
    auto* area = new QWidget(parent);
    auto* columns = new QHBoxLayout(area);
    columns->setContentsMargins({});
    columns->setSpacing(Spacing::margin);
    for (std::size_t at = 0; at < logic_.lists.size(); ++at) {
        const editors::TypeListWords& words = logic_.words.lists[at];
        auto* column = new QVBoxLayout;
        const QLatin1Char letter(kAddLetters[static_cast<std::size_t>(words.role)]);
        auto* caption = new QLabel(withLetter(tr(words.caption), letter), area);
        column->addWidget(caption);
        LineList line{newList(QLatin1String(words.list), area), new QPushButton(tr("Add…"), area),
                      new QPushButton(withLetter(tr("Remove"), QLatin1Char(kRemoveLetters[at])), area)};
        caption->setBuddy(line.add);
        line.lines->setAccessibleName(tr(words.caption));
        line.lines->setMinimumHeight(70);
        line.add->setObjectName(QLatin1String(words.add));
        line.add->setAccessibleName(tr("Add to %1").arg(tr(words.caption)));
        line.remove->setObjectName(QLatin1String(words.remove));
        line.remove->setAccessibleName(tr("Remove from %1").arg(tr(words.caption)));
        auto* buttons = new QHBoxLayout;
        for (QPushButton* button : {line.add, line.remove}) {
            button->setAutoDefault(false);
            mayShrink(*button);
            buttons->addWidget(button);
        }
        connect(line.lines, &QListWidget::currentRowChanged, this, [this, at](int row) {
            if (!showing_) {
                logic_.lists[at].select(row + 1);
                showButtons();
            }
        });
        connect(line.add, &QPushButton::clicked, this, [this, at] {
            logic_.add(at);
            showState();
        });
        connect(line.remove, &QPushButton::clicked, this, [this, at] {
            logic_.remove(at);
            showState();
        });
        column->addWidget(line.lines, 1);
        column->addLayout(buttons);
        columns->addLayout(column);
        lists_.push_back(line);
    }
    return area;
}

void TypeEditorWindow::done(int result) {
    sizes_.keep(*this);
    FormWindow::done(result);
}

void TypeEditorWindow::mousePressEvent(QMouseEvent* event) {
    const QRect button(delete_->mapTo(this, QPoint()), delete_->size());
    if (!delete_->isEnabled() && button.contains(event->position().toPoint())) {
        logic_.pressDisabledDelete();
    }
    FormWindow::mousePressEvent(event);
}

void TypeEditorWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) {
        for (std::size_t at = 0; at < lists_.size(); ++at) {
            if (focusWidget() == lists_[at].lines) {
                lists_[at].remove->click();
            }
        }
    } else if (event->key() == Qt::Key_F2 && focusWidget() == types_) {
        edit_->click();
    } else {
        FormWindow::keyPressEvent(event);
    }
}

}  // namespace orvent::qt
