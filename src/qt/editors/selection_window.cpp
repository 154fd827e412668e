#include "qt/editors/selection_window.h"

#include "qt/forms/fields.h"
#include "qt/text.h"

namespace orvent::qt {

SelectionWindow::SelectionWindow(editors::SelectionProp& logic, QWidget* parent)
    : FormWindow(tr("Type And Size"), logic, parent) {
    setObjectName(QStringLiteral("SelectionProp"));
    auto* caption = new QLabel(text(logic.Caption), this);
    body().addWidget(caption);
    QComboBox* types = newChoice(QStringLiteral("Types"), this);
    for (const std::string& type : logic.Types) {
        types->addItem(text(type));
    }
    QLineEdit* width = newField(QStringLiteral("txtWidth"), this);
    QLineEdit* height = newField(QStringLiteral("txtHeight"), this);
    QFormLayout* form = newForm();
    addField(*form, tr("&Type"), types);
    addField(*form, tr("&Width (px)"), width);
    addField(*form, tr("&Height (px)"), height);
    body().addLayout(form);
    body().addStretch();
    for (QLineEdit* field : {width, height}) {
        field->setPlaceholderText(tr("as they are"));
        field->setToolTip(tr("Pixels at actual size, as in the Options"));
    }
    width->setText(text(logic.txtWidth));
    height->setText(text(logic.txtHeight));
    connect(types, &QComboBox::currentIndexChanged, this, [&logic](int index) { logic.Type = index; });
    connect(width, &QLineEdit::textChanged, this,
            [&logic](const QString& typed) { logic.txtWidth = typed.toStdString(); });
    connect(height, &QLineEdit::textChanged, this,
            [&logic](const QString& typed) { logic.txtHeight = typed.toStdString(); });
    addOK(QStringLiteral("cmdOK"), tr("&OK"));
    addCancel(QStringLiteral("cmdCancel"));
    types->setFocus();
}

}  // namespace orvent::qt
