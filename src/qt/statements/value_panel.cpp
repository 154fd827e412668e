#include "qt/statements/value_panel.h"

#include <QAbstractItemView>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "qt/forms/fields.h"
#include "qt/statements/option_group.h"
#include "qt/theme/theme.h"
#include "statements/ldl_guide.h"

namespace orvent::qt {

namespace {

using statements::LDLForm;
using statements::LDLList;
using statements::LDLRegulatorType;
using statements::LDLVisible;

constexpr int kIndent = 24;  // the text of an option button
constexpr int kArrow = 44;   // what a closed list shows beside its text
constexpr int kWidestAttribute = 225;
constexpr int kWidestChoice = 130;

bool holdsAttributes(const QComboBox& box) {
    return box.objectName().endsWith(QLatin1String("ttributes"));
}

/// A choice list of the panel. A choice in it means the option that it belongs to.
struct ChoiceRow {
    const char* name;
    const char* captionName;
    const char* caption;
    LDLList LDLForm::*list;
    void (LDLForm::*select)(int);
    bool LDLVisible::*visible;
    LDLRegulatorType implied;
};

enum List : std::size_t { Inputs, InputAttributes, RS, RSattributes, DataTypes, LDLvars, LDLSubVars };

constexpr ChoiceRow kChoices[] = {
    {"listInputs", "lblInputs", QT_TR_NOOP("Source"), &LDLForm::listInputs, &LDLForm::selectInput,
     &LDLVisible::listInputs, statements::RegInput},
    {"listInputAttributes", "lblInputAttributes", QT_TR_NOOP("Attribute"), &LDLForm::listInputAttributes,
     &LDLForm::selectInputAttribute, &LDLVisible::listInputs, statements::RegInput},
    {"listRS", "lblSelectRS", statements::kSelectRecordSetCaption, &LDLForm::listRS, &LDLForm::selectRS,
     &LDLVisible::listRS, statements::RegRecordSetField},
    {"listRSattributes", "lblRSattributes", QT_TR_NOOP("Attribute"), &LDLForm::listRSattributes,
     &LDLForm::selectRSattribute, &LDLVisible::listRSattributes, statements::RegRecordSetField},
    {"listDataTypes", "lblDatatype", statements::kSelectDatatypeCaption, &LDLForm::listDataTypes,
     &LDLForm::selectDataType, &LDLVisible::listDataTypes, statements::RegConstant},
    {"listLDLvars", "lblOutput", statements::kSelectRegulatorCaption, &LDLForm::listLDLvars, &LDLForm::selectLDLvar,
     &LDLVisible::listLDLvars, statements::RegUndefined},
    {"listLDLSubVars", "lblLDLSubVars", QT_TR_NOOP("Element"), &LDLForm::listLDLSubVars, &LDLForm::selectLDLSubVar,
     &LDLVisible::listLDLSubVars, statements::RegUndefined},
};

void fill(QComboBox& box, const LDLList& list, const QStringList& items, bool enabled) {
    const QSignalBlocker quiet(box);
    QStringList present;
    for (int row = 0; row < box.count(); ++row) {
        present << box.itemText(row);
    }
    if (items != present) {
        box.clear();
        box.addItems(items);
        const int widest = box.view()->sizeHintForColumn(0);
        box.view()->setMinimumWidth(widest + kIndent);
        // As wide as its names have been, so that it stays whole and keeps its place.
        box.setMinimumWidth(std::max(
            box.minimumWidth(), std::min(widest + kArrow, holdsAttributes(box) ? kWidestAttribute : kWidestChoice)));
    }
    box.setCurrentIndex(list.ListIndex);
    box.setToolTip(box.currentText());
    box.setEnabled(enabled && !list.items.empty());
}

}  // namespace

ValuePanel::ValuePanel(LDLForm& logic, std::function<void()> changed, QWidget* parent)
    : QGroupBox(parent), logic_(logic), changed_(std::move(changed)) {
    setObjectName(QStringLiteral("frameValue"));
    options_ = new OptionGroup(this, [this](int number) {
        logic_.chooseValue(static_cast<LDLRegulatorType>(number));
        changed_();
    });
    const auto cell = [this](List list) { return newChoiceCell(list); };
    QLineEdit* text = newField(QStringLiteral("txtConst"), this);
    text->setMinimumWidth(0);
    QWidget* constant = newFieldCell(text, text, "lblConst", QT_TR_NOOP("Text"), &LDLForm::txtConst,
                                     &LDLVisible::txtConst, statements::RegConstant);
    QLineEdit* name = newFunctionField();
    QWidget* functionName =
        newFieldCell(name, name->parentWidget(), "lblFunctionName", statements::kFunctionNameCaption,
                     &LDLForm::txtFunctionName, &LDLVisible::txtFunctionName, statements::RegUndefined);
    QWidget* const values[] = {newRow({cell(Inputs), cell(InputAttributes)}), newRow({cell(RS), cell(RSattributes)}),
                               newRow({constant, cell(DataTypes)})};

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::margin, Spacing::gap, Spacing::margin, Spacing::gap);
    layout->setSpacing(2);
    std::size_t next = 0;
    for (const statements::LDLValueOption& option : statements::kLDLValueOptions) {
        QRadioButton& button = options_->add(option.type, option.name, option.caption);
        cells_.push_back({&button, &LDLVisible::valueOptions});
        layout->addWidget(&button);
        layout->addWidget(values[next++]);
    }
    layout->addWidget(newRow({functionName}));
    layout->addWidget(newRow({cell(LDLvars), cell(LDLSubVars)}));
    layout->addStretch();
}

/// Cells side by side; those that are hidden leave their room to the others.
QWidget* ValuePanel::newRow(std::initializer_list<QWidget*> cells) {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setSpacing(Spacing::gap);
    for (QWidget* cell : cells) {
        const auto* choice = cell->findChild<QComboBox*>();
        layout->addWidget(cell, choice && holdsAttributes(*choice) ? 3 : 2);  // they have the longer names
    }
    rows_.push_back({row, cells});
    return row;
}

QWidget* ValuePanel::newCell(const char* captionName, const char* caption, QWidget* control,
                             bool LDLVisible::*visible) {
    auto* whole = new QWidget;
    auto* label = new QLabel(tr(caption), whole);
    label->setObjectName(QLatin1String(captionName));
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setBuddy(control);
    auto* layout = new QVBoxLayout(whole);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(label);
    layout->addWidget(control);
    cells_.push_back({whole, visible});
    return whole;
}

QWidget* ValuePanel::newChoiceCell(std::size_t number) {
    const ChoiceRow& row = kChoices[number];
    QComboBox* box = newChoice(QLatin1String(row.name), this);
    box->setMinimumWidth(0);
    choices_.push_back({box, row.list});
    connect(box, &QComboBox::currentIndexChanged, this, [this, &row](int at) {
        logic_.chooseValue(row.implied);
        std::invoke(row.select, logic_, at);
        changed_();
    });
    return newCell(row.captionName, row.caption, box, row.visible);
}

/// The function's name: one of the catalogue's types, or any other.
QLineEdit* ValuePanel::newFunctionField() {
    QComboBox* names = newChoice(QStringLiteral("functionNames"), this);
    names->setMinimumWidth(0);
    names->setEditable(true);
    names->setInsertPolicy(QComboBox::NoInsert);
    names->setCompleter(nullptr);  // it would put another's letters in the place of those typed
    const entities::NameTable& types = logic_.functionTypes();
    for (const std::int16_t type : types.listed()) {
        const QString name = QString::fromStdString(types.name(type));
        if (!name.startsWith(QLatin1Char('['))) {
            names->addItem(name);
        }
    }
    names->setCurrentIndex(-1);
    names->lineEdit()->setObjectName(QStringLiteral("txtFunctionName"));
    return names->lineEdit();
}

QWidget* ValuePanel::newFieldCell(QLineEdit* box, QWidget* control, const char* captionName, const char* caption,
                                  std::string LDLForm::*text, bool LDLVisible::*visible, LDLRegulatorType implied) {
    fields_.push_back({box, text});
    connect(box, &QLineEdit::textChanged, this, [this, text, implied](const QString& typed) {
        logic_.chooseValue(implied);
        logic_.*text = typed.toStdString();
        changed_();
    });
    return newCell(captionName, caption, control, visible);
}

void ValuePanel::showState() {
    setTitle(QString::fromStdString(logic_.frameValueCaption));
    setVisible(logic_.Visible.frameValue);
    options_->show(logic_.value);
    for (const Cell& cell : cells_) {
        cell.whole->setVisible(logic_.Visible.*cell.visible);
    }
    const int indent = logic_.Visible.valueOptions ? kIndent : 0;
    for (const Row& row : rows_) {
        row.whole->layout()->setContentsMargins(indent, 0, 0, indent == 0 ? 0 : Spacing::gap / 2);
        row.whole->setVisible(
            std::any_of(row.cells.begin(), row.cells.end(), [](const QWidget* cell) { return !cell->isHidden(); }));
    }
    const bool enabled = logic_.valuesEnabled();
    for (QAbstractButton* option : options_->buttons()) {
        option->setEnabled(enabled);
    }
    const statements::LDLGuide guide(logic_);
    for (const Choice& choice : choices_) {
        const LDLList& list = logic_.*choice.list;
        QStringList items;
        for (std::size_t at = 0; at < list.items.size(); ++at) {
            items << QString::fromStdString(
                choice.list == &LDLForm::listInputs ? guide.sourceCaption(static_cast<int>(at)) : list.items[at]);
        }
        fill(*choice.box, list, items, enabled);
    }
    for (const Field& field : fields_) {
        field.box->setEnabled(enabled);
        const QString text = QString::fromStdString(logic_.*field.text);
        if (field.box->text() != text) {
            const QSignalBlocker quiet(field.box);
            field.box->setText(text);
        }
    }
}

}  // namespace orvent::qt
