#include "qt/editors/item_window.h"

#include "qt/forms/fields.h"
#include "qt/text.h"

namespace orvent::qt {

ItemWindow::ItemWindow(editors::ItemProp& logic, QWidget* parent)
    : FormWindow(text(logic.words.caption), logic, parent) {
    setObjectName(text(logic.words.window));
    QLineEdit* name = newField(text(logic.words.nameField), this);
    name->setText(text(logic.txtName));
    QFormLayout* form = newForm();
    addField(*form, tr("&Name"), name);
    addField(*form, tr("&Type"), newTypeField(logic));
    body().addLayout(form);
    body().addStretch();
    connect(name, &QLineEdit::textChanged, this,
            [&logic](const QString& typed) { logic.changeName(typed.toStdString()); });
    addAccept(QStringLiteral("OK"), tr("&OK"), [&logic, name] {
        const bool closes = logic.OK_Click();
        name->setFocus();
        return closes;
    });
    addCancel(QStringLiteral("Cancel"));
    selectFromStart(*name);
    name->setFocus();
}

QWidget* ItemWindow::newTypeField(editors::ItemProp& logic) {
    if (!logic.TypesInUse) {
        QLineEdit* shown = newField(QStringLiteral("txtType"), this);
        shown->setReadOnly(true);
        shown->setText(text(logic.txtType));
        shown->setToolTip(tr("The type is settled by what this item belongs to."));
        return shown;
    }
    QComboBox* types = newChoice(text(logic.words.typeList), this);
    types->setPlaceholderText(tr("Choose a type"));
    for (const std::string& type : logic.Types) {
        types->addItem(text(type));
    }
    types->setCurrentIndex(logic.TypeIndex < types->count() ? logic.TypeIndex : -1);
    connect(types, &QComboBox::currentIndexChanged, this, [&logic](int index) { logic.selectType(index); });
    return types;
}

}  // namespace orvent::qt
