// What is dragged from the list of types and dropped on the picture.

#include <QDragMoveEvent>
#include <QMimeData>

#include "qt/canvas/canvas_editor.h"

namespace orvent::qt {

namespace {

bool holdsType(const QDropEvent& event) {
    return event.mimeData()->hasFormat(QLatin1String(kTypeMime));
}

std::string typeIn(const QDropEvent& event) {
    return event.mimeData()->data(QLatin1String(kTypeMime)).toStdString();
}

}  // namespace

/// Files go on to the frame.
void CanvasEditor::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(holdsType(*event));
}

void CanvasEditor::dragMoveEvent(QDragMoveEvent* event) {
    const canvas::Hit hit = hitAt(event->position());
    const bool mayDrop = holdsType(*event) && pointer_.dragOver(typeIn(*event), hit);
    event->setAccepted(mayDrop);
    showPointedEdge(mayDrop && !canvas::isGiven(hit.node) ? shownCanvas().Lines.byIndex(hit.edge) : nullptr);
}

void CanvasEditor::dragLeaveEvent(QDragLeaveEvent*) {
    showPointedEdge(nullptr);
}

void CanvasEditor::dropEvent(QDropEvent* event) {
    showPointedEdge(nullptr);
    event->setAccepted(holdsType(*event));
    if (event->isAccepted()) {
        pointer_.drop(typeIn(*event), hitAt(event->position()), transform().toTwips(event->position()));
    }
}

void CanvasEditor::beginTyping() {
    setFocus();
    pointer_.beginTyping();
}

}  // namespace orvent::qt
