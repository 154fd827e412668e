#pragma once

#include <QTreeView>

namespace orvent::qt {

class TreePanel;

/// The tree of a `TreePanel`: keys, clicks and drags of its nodes.
class NodeView : public QTreeView {
    Q_OBJECT

  public:
    explicit NodeView(TreePanel& panel);

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

    TreePanel& panel_;
    QString hint_;
    bool dragging_ = false;
};

}  // namespace orvent::qt
