#pragma once

#include <QTreeView>
#include <functional>

namespace orvent::qt {

/// The tree of a panel: keys, clicks and drags of its nodes. The panel sets what they do.
class NodeView : public QTreeView {
    Q_OBJECT

  public:
    explicit NodeView(QWidget* panel);

    /// The selected nodes are checked or unchecked, by a key or by the mouse.
    std::function<void(bool byMouse)> checkSelected;
    /// The current node is dragged near the edge.
    std::function<void()> leave;
    std::function<bool()> takesRows;
    std::function<void()> dropRows;

    void setNodes(QAbstractItemModel& nodes);
    void setHint(const QString& hint) { hint_ = hint; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void startDrag(Qt::DropActions actions) override;

  private:
    void tellLeaving();
    bool onBox(const QModelIndex& index, const QPoint& at) const;

    QString hint_;
    bool dragging_ = false;
};

}  // namespace orvent::qt
