#include "qt/editors/in_out_window.h"

#include "qt/forms/fields.h"
#include "qt/text.h"

namespace orvent::qt {

InOutWindow::InOutWindow(editors::InOutProp& logic, QWidget* parent) : FormWindow(text(logic.Caption), logic, parent) {
    setObjectName(QStringLiteral("InOutProp"));
    QLineEdit* name = newField(QStringLiteral("txtInOutName"), this);
    QComboBox* types = newChoice(QStringLiteral("InOutTypes"), this);
    for (const std::string& type : logic.InOutTypes) {
        types->addItem(text(type));
    }
    types->setPlaceholderText(tr("Choose a type"));
    types->setCurrentIndex(logic.TypeIndex);
    QFormLayout* form = newForm();
    addField(*form, tr("&Name"), name);
    addField(*form, tr("&Type"), types);
    body().addLayout(form);
    body().addStretch();
    connect(name, &QLineEdit::textChanged, this,
            [&logic](const QString& typed) { logic.changeName(typed.toStdString()); });
    connect(types, &QComboBox::currentIndexChanged, this, [&logic](int index) { logic.selectType(index); });
    addAccept(QStringLiteral("cmdOK"), tr("&OK"), [&logic, name] {
        const bool closes = logic.cmdOK();
        name->setFocus();
        return closes;
    });
    addCancel(QStringLiteral("cmdCancel"));
    name->setFocus();
}

}  // namespace orvent::qt
