#include "bench/canvas/subjects.h"

#include <QGraphicsItem>
#include <QScrollBar>

namespace orvent::bench {

void Reference::showNode(std::int32_t number) {
    view_.resetTransform();
    view_.centerOn(view_.box(number));
}

void Reference::zoomTo(double scale, std::int32_t number) {
    view_.setTransform(QTransform::fromScale(scale, scale));
    view_.centerOn(view_.box(number));
}

QPoint Reference::pixelOf(std::int32_t number) {
    return view_.mapFromScene(view_.box(number)->sceneBoundingRect().center());
}

void Ours::showNode(std::int32_t number) {
    view_.setScale(1);
    const QPoint by = pixelOf(number) - view_.viewport()->rect().center();
    view_.horizontalScrollBar()->setValue(view_.horizontalScrollBar()->value() + by.x());
    view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->value() + by.y());
}

QPoint Ours::pixelOf(std::int32_t number) {
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
