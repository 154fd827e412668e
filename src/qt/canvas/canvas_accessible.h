#pragma once

#include <QAccessibleWidget>
#include <unordered_map>

#include "canvas/lines.h"

namespace orvent::qt {

class CanvasViewWidget;

/// What assistive tools are told of a canvas: its nodes are the first children and its edges the others, each with its
/// name, what it is, where it stands and its state.
class CanvasAccessible : public QAccessibleWidget {
  public:
    explicit CanvasAccessible(CanvasViewWidget& view);
    ~CanvasAccessible() override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;

    /// The child that stands for a node, and for an edge.
    QAccessibleInterface* ofNode(canvas::NodeNumber number) const;
    QAccessibleInterface* ofEdge(canvas::EdgeNumber number) const;

  private:
    CanvasViewWidget& view_;
    // Of the children that were asked for.
    mutable std::unordered_map<canvas::NodeNumber, QAccessible::Id> nodes_;
    mutable std::unordered_map<canvas::EdgeNumber, QAccessible::Id> edges_;
};

/// Makes the toolkit ask for these. To be called once.
void installCanvasAccessible();

/// Tells that the keyboard is at another node of the view, if anybody listens.
void tellAccessibleFocus(CanvasViewWidget& view);

}  // namespace orvent::qt
