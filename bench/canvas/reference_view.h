#pragma once

#include <QGraphicsView>
#include <unordered_map>

#include "canvas/canvas.h"

namespace orvent::bench {

/// What a Qt programmer would write first to show a graph: a scene with an item for each box and each edge.
class ReferenceView : public QGraphicsView {
  public:
    ReferenceView(const canvas::Canvas& form, QWidget* parent);

    /// The item of the node with that number.
    QGraphicsItem* box(canvas::NodeNumber number) const { return boxes_.at(number); }
    void selectAll();

  private:
    QGraphicsScene scene_;
    std::unordered_map<canvas::NodeNumber, QGraphicsItem*> boxes_;
};

}  // namespace orvent::bench
