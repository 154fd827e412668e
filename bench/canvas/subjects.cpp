#include "bench/canvas/subjects.h"

#include <QGraphicsItem>
#include <QScrollBar>

namespace orvent::bench {

void Reference::showNode(canvas::NodeNumber number) {
    view_.resetTransform();
    view_.centerOn(view_.box(number));
}

void Reference::zoomTo(double scale, canvas::NodeNumber number) {
    view_.setTransform(QTransform::fromScale(scale, scale));
    view_.centerOn(view_.box(number));
}

QPoint Reference::pixelOf(canvas::NodeNumber number) {
    return view_.mapFromScene(view_.box(number)->sceneBoundingRect().center());
}

void Ours::showNode(canvas::NodeNumber number) {
    view_.setScale(1);
    const QPoint by = pixelOf(number) - view_.viewport()->rect().center();
    view_.horizontalScrollBar()->setValue(view_.horizontalScrollBar()->value() + by.x());
    view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->value() + by.y());
}

QPoint Ours::pixelOf(canvas::NodeNumber number) {
    return view_.transform().toPixels(qt::boxOf(*form_.Labels.byIndex(number))).center().toPoint();
}

bool Ours::hits(QPoint pixel) {
    return view_.hitAt(pixel).element != canvas::Element::picture;
}

void Ours::selectAll() {
    form_.SelectedLabels.Clear();
    for (const canvas::LabelsD& node : form_.Labels) {
        form_.SelectedLabels.Add(node.Index());
    }
}

}  // namespace orvent::bench
