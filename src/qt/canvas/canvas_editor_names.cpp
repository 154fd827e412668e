// How the name of a node is edited in its box.

#include <QApplication>
#include <algorithm>
#include <utility>

#include "qt/canvas/canvas_editor.h"
#include "qt/canvas/name_field.h"
#include "qt/text.h"

namespace orvent::qt {

void CanvasEditor::timerEvent(QTimerEvent* event) {
    if (event->timerId() != second_.timerId()) {
        CanvasViewWidget::timerEvent(event);
        return;
    }
    second_.stop();
    if (hasFocus() && pointer_.state() == canvas::PointerState::idle) {
        pointer_.beginNaming();
    }
}

void CanvasEditor::showNameField() {
    const canvas::LabelsD* node = shownCanvas().Labels.byIndex(state().NamedNode);
    if (!node && name_) {
        NameField* former = std::exchange(name_, nullptr);
        if (former->hasFocus()) {
            setFocus();
        }
        former->hide();
        former->deleteLater();  // it may be its own event that ends it
    } else if (node && !name_) {
        name_ = new NameField(
            text(state().NodeName),
            {[this](const QString& name) { pointer_.takeName(name.toStdString()); }, [this] { pointer_.endEditing(); }},
            viewport());
        connect(name_, &QLineEdit::textChanged, this, &CanvasEditor::placeNameField);
        placeNameField();
        name_->show();
        name_->setFocus();
    } else {
        placeNameField();
    }
}

/// Over the node's box, and as wide as the name needs.
void CanvasEditor::placeNameField() {
    const canvas::LabelsD* node = shownCanvas().Labels.byIndex(state().NamedNode);
    if (node && name_) {
        constexpr int least = 96, around = 24;
        const QRect box = transform().toPixels(boxOf(*node)).toAlignedRect();
        const int letters = name_->fontMetrics().horizontalAdvance(name_->text()) + around;
        QRect place(0, 0, std::min(std::max({least, box.width(), letters}), viewport()->width()),
                    name_->sizeHint().height());
        place.moveCenter(box.center());
        place.moveLeft(std::clamp(place.left(), 0, std::max(0, viewport()->width() - place.width())));
        name_->setGeometry(place);
    }
}

}  // namespace orvent::qt
