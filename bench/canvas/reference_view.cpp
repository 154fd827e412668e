#include "bench/canvas/reference_view.h"

#include <QGraphicsItem>
#include <QPainter>
#include <cmath>
#include <vector>

namespace orvent::bench {

namespace {

constexpr qreal kTwipsPerPixel = 15;
constexpr qreal kArrow = 9;

class LineItem : public QGraphicsItem {
  public:
    LineItem(QGraphicsItem& from, QGraphicsItem& to) : from_(from), to_(to) { adjust(); }

    void adjust() {
        prepareGeometryChange();
        const QRectF from = from_.sceneBoundingRect();
        const QRectF to = to_.sceneBoundingRect();
        line_ = QLineF(from.right(), from.center().y(), to.left(), to.center().y());
    }
    QRectF boundingRect() const override {
        return QRectF(line_.p1(), line_.p2()).normalized().adjusted(-kArrow, -kArrow, kArrow, kArrow);
    }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override {
        painter->setPen(QPen(Qt::black, 2));
        painter->drawLine(line_);
        const QPointF along = line_.unitVector().p2() - line_.p1();
        const QPointF base = line_.p2() - along * kArrow;
        const QPointF side = QPointF(-along.y(), along.x()) * (kArrow / 2);
        painter->setPen(Qt::NoPen);
        painter->setBrush(Qt::black);
        painter->drawPolygon(QPolygonF({line_.p2(), base + side, base - side}));
    }

  private:
    QGraphicsItem& from_;
    QGraphicsItem& to_;
    QLineF line_;
};

class BoxItem : public QGraphicsItem {
  public:
    BoxItem(const canvas::LabelsD& node)
        : size_(node.Width() / kTwipsPerPixel, node.Height() / kTwipsPerPixel),
          caption_(QString::fromStdString(node.Caption())) {
        setPos(node.Left() / kTwipsPerPixel, node.Top() / kTwipsPerPixel);
        setFlags(ItemIsMovable | ItemIsSelectable | ItemSendsGeometryChanges);
        setZValue(1);
    }

    void addLine(LineItem* line) { lines_.push_back(line); }
    QRectF boundingRect() const override { return QRectF(QPointF(0, 0), size_).adjusted(-1, -1, 1, 1); }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override {
        const QRectF box(QPointF(0, 0), size_);
        painter->setPen(QPen(isSelected() ? Qt::blue : Qt::darkGray, 1));
        painter->setBrush(isSelected() ? QColor(255, 127, 0) : QColor(Qt::white));
        painter->drawRoundedRect(box, 4, 4);
        painter->setPen(Qt::black);
        painter->drawText(box, Qt::AlignCenter, caption_);
    }

  protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override {
        if (change == ItemPositionHasChanged) {
            for (LineItem* line : lines_) {
                line->adjust();
            }
        }
        return QGraphicsItem::itemChange(change, value);
    }

  private:
    QSizeF size_;
    QString caption_;
    std::vector<LineItem*> lines_;
};

}  // namespace

ReferenceView::ReferenceView(const canvas::Canvas& form, QWidget* parent) : QGraphicsView(parent) {
    setFrameShape(QFrame::NoFrame);
    setRenderHint(QPainter::Antialiasing);
    setViewportUpdateMode(MinimalViewportUpdate);
    scene_.setItemIndexMethod(QGraphicsScene::BspTreeIndex);
    std::unordered_map<canvas::NodeNumber, BoxItem*> made;
    for (const canvas::LabelsD& node : form.Labels) {
        BoxItem* box = new BoxItem(node);
        scene_.addItem(box);
        made.emplace(node.Index(), box);
        boxes_.emplace(node.Index(), box);
    }
    for (const canvas::LinesD& edge : form.Lines) {
        BoxItem* from = made.at(edge.FromLabel());
        BoxItem* to = made.at(edge.ToLabel());
        LineItem* line = new LineItem(*from, *to);
        from->addLine(line);
        to->addLine(line);
        scene_.addItem(line);
    }
    setScene(&scene_);
}

void ReferenceView::selectAll() {
    scene_.clearSelection();
    for (const auto& [number, box] : boxes_) {
        box->setSelected(true);
    }
}

}  // namespace orvent::bench
