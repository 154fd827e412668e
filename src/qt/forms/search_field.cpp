#include "qt/forms/search_field.h"

#include <QKeyEvent>

namespace orvent::qt {

SearchField::SearchField(const QString& name, const QString& placeholder, QWidget* parent) : QLineEdit(parent) {
    setObjectName(name);
    setPlaceholderText(placeholder);
    setClearButtonEnabled(true);
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enters) {
        event->accept();  // or it would press the dialog's button
        if (goToFirst) {
            goToFirst();
        }
    } else if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        event->accept();
        clear();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

}  // namespace orvent::qt
