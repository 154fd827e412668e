#pragma once

#include <QBasicTimer>
#include <QPointer>

#include "canvas/canvas_pointer.h"
#include "canvas/pointed_light.h"
#include "qt/canvas/canvas_view.h"

class QPlainTextEdit;

namespace orvent::qt {

/// What is dragged from the list of types: the key of its row.
inline constexpr const char* kTypeMime = "application/x-orvent-type";

class NameField;
class TintLegend;

/// A canvas that is edited by hand: the view, whose events go to the canvas' gestures.
class CanvasEditor : public CanvasViewWidget {
    Q_OBJECT

  public:
    CanvasEditor(canvas::CanvasForm& form, const Theme& theme, const canvas::PointerPorts& ports,
                 QWidget* parent = nullptr);
    ~CanvasEditor() override;

    /// Pops up a context menu at a place of the picture; the item chosen goes to the gestures.
    void showMenu(const canvas::ContextMenu& menu, canvas::Point at);
    /// Gives up what the mouse is doing.
    void cancelGesture() { pointer_.cancel(); }

    /// Shows the nodes in shades with a legend, or in their own colours again.
    void showTints(canvas::Tints* tints);

    /// Edits what is written in the only selected node.
    void beginTyping();

    /// Where the pointer is in the picture, or nothing while it is elsewhere.
    std::optional<canvas::Point> pointerPlace() const;

  Q_SIGNALS:
    /// The pointer is at a place of the picture, or not over it.
    void pointed(std::optional<canvas::Point> place);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void stateChanged() override;
    void nodeMeant(const canvas::LabelsD& node) override { reveal(node); }

  private:
    canvas::PointerEvent pointerEvent(const QMouseEvent& event, int button) const;
    QString toolTipAt(QPoint place) const;
    void showPointerShape();
    void showFocus();
    void showCommentEditor();
    void placeCommentEditor();
    void showNameField();
    void placeNameField();
    void placeLegend();

    canvas::CanvasPointer pointer_;
    canvas::PointedLight light_;
    TintLegend* legend_ = nullptr;      ///< while there are tints
    QPointer<NameField> name_;          ///< the editor of `NamedNode`, while there is one
    QBasicTimer second_;                ///< runs while a click may become a double click
    QPointer<QPlainTextEdit> comment_;  ///< the editor of `EditedComment`, while there is one
};

}  // namespace orvent::qt
