#include "qt/canvas/name_field.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <utility>

namespace orvent::qt {

NameField::NameField(const QString& name, Ends ends, QWidget* parent)
    : QLineEdit(name, parent), ends_(std::move(ends)) {
    setObjectName(QStringLiteral("nameEditor"));
    setAccessibleName(tr("Name"));
    setAlignment(Qt::AlignHCenter);
    selectAll();
}

void NameField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        give();
    } else if (event->key() == Qt::Key_Escape) {
        ended_ = true;
        ends_.left();
    } else {
        QLineEdit::keyPressEvent(event);
        event->accept();  // no key that is not its own goes on to the canvas
    }
}

void NameField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) {  // its own menu takes the focus for a moment only
        give();
    }
}

void NameField::give() {
    if (!std::exchange(ended_, true)) {
        ends_.given(text());
    }
}

}  // namespace orvent::qt
