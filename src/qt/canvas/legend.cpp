#include "qt/canvas/legend.h"

#include <QPainter>

#include "qt/canvas/edge_painter.h"
#include "qt/canvas/node_painter.h"

namespace orvent::qt {

namespace {

constexpr QSize kFigure(34, 14);  // pixels
constexpr int kRow = 22;
constexpr int kLegendMargin = 4;  // above the first row and below the last one
constexpr float kTwips = static_cast<float>(kTwipsPerPixel);
constexpr std::int32_t kPaper = 0xFFFFFF;  // a node that is ready

canvas::Box boxAt(double left, double width) {
    return {static_cast<float>(left) * kTwips, 0, static_cast<float>(width) * kTwips,
            static_cast<float>(kFigure.height()) * kTwips};
}

}  // namespace

struct Legend::Entry {
    canvas::NodeNumber node = canvas::kNoNode;
    canvas::EdgeNumber edge = canvas::kNoEdge;
    QString words;
};

Legend::Legend(canvas::CanvasForm& form, const Theme& theme, QWidget* parent)
    : QWidget(parent), form_(form), theme_(theme) {
    setObjectName(QStringLiteral("legend"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(&theme_, &Theme::changed, this, qOverload<>(&QWidget::update));
    hide();  // until there are figures
}

Legend::~Legend() = default;

void Legend::refresh() {
    const auto figures = form_.legend();
    if (figures.size() == entries_.size()) {
        return;
    }
    entries_.clear();
    figures_ = std::make_unique<canvas::Canvas>(canvas::CanvasServices{form_.messages(), form_.settings()});
    for (const canvas::LegendEntry& figure : figures) {
        Entry entry;
        entry.words = tr(figure.words);
        if (const auto* nodeType = std::get_if<canvas::NodeTypeCode>(&figure.kind)) {
            canvas::LabelsD& node =
                figures_->Labels.Add(boxAt(0, kFigure.width()), std::to_string(entries_.size()), *nodeType);
            node.setColor(kPaper);
            node.showCaption("");
            entry.node = node.Index();
        } else {
            // From one box that is not painted to another; the ends of the edge touch them.
            const auto end = [&](double left) {
                const std::string name = "end " + std::to_string(figures_->Labels.Count());
                return figures_->Labels.Add(boxAt(left, 10), name, canvas::NodeTypeAttribute).Index();
            };
            const auto edgeType = std::get<canvas::EdgeTypeCode>(figure.kind);
            entry.edge =
                figures_->Lines.addFullLine(end(-10), 3, end(kFigure.width()), 1, edgeType, canvas::AngleStraight, 0)
                    ->Index();
        }
        entries_.push_back(entry);
    }
    setVisible(!entries_.empty());
    takeRows();
    update();
}

int Legend::entryWidth() const {
    int widest = 0;
    for (const Entry& entry : entries_) {
        widest = std::max(widest, fontMetrics().horizontalAdvance(entry.words));
    }
    return kFigure.width() + Spacing::gap + widest + Spacing::section;
}

int Legend::columns() const {
    return std::max(1, (width() - 2 * Spacing::gap + Spacing::section) / entryWidth());
}

// A layout that reckons with heights by width would hold the window open for all rows one below the other.
void Legend::takeRows() {
    const int count = static_cast<int>(entries_.size());
    setFixedHeight(count == 0 ? 0 : (count + columns() - 1) / columns() * kRow + 2 * kLegendMargin);
}

void Legend::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    takeRows();
}

void Legend::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), theme_.canvas().background);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(QPointF(0, 0.5), QPointF(width(), 0.5));
    const int across = columns();
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        const int column = static_cast<int>(at) % across, row = static_cast<int>(at) / across;
        const QRect place(Spacing::gap + column * entryWidth(), kLegendMargin + row * kRow, entryWidth(), kRow);
        paintFigure(painter, entries_[at], QPointF(place.left(), place.center().y() - kFigure.height() / 2));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setFont(font());
        painter.drawText(place.adjusted(kFigure.width() + Spacing::gap, 0, 0, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                         entries_[at].words);
    }
}

void Legend::paintFigure(QPainter& painter, const Entry& entry, QPointF corner) const {
    const Transform transform{1, -corner};
    const PaintContext context{painter, transform, theme_.canvas(), devicePixelRatioF(), Detail::full};
    if (const canvas::LabelsD* node = figures_->Labels.byIndex(entry.node)) {
        NodePainter(font()).paint(context, *node, {});
    } else if (const canvas::LinesD* edge = figures_->Lines.byIndex(entry.edge)) {
        EdgePainter edges(context, *figures_, QRectF(rect()));
        edges.add(*edge);
        edges.paint();
    }
}

}  // namespace orvent::qt
