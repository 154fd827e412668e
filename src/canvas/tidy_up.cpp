#include "canvas/tidy_up.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "canvas/canvas_rules.h"
#include "canvas/straighten.h"
#include "layout/flow_layout.h"
#include "layout/note_hosts.h"

namespace orvent::canvas {

namespace {

constexpr float kMargin = 300;  // between the picture's corner and what stands there
// How far from a node a note may stand without an edge and still belong to it: less than parts are brought apart, so
// that what did not belong together does not afterwards.
constexpr double kReachOfNotes = 800;

/// The numbers of all edges at the nodes, ascending.
std::vector<EdgeNumber> edgesAt(const Canvas& canvas, const std::vector<NodeNumber>& nodes) {
    std::vector<EdgeNumber> numbers;
    for (const NodeNumber index : nodes) {
        if (const LabelsD* node = canvas.Labels.byIndex(index)) {
            numbers.insert(numbers.end(), node->StartingLines().begin(), node->StartingLines().end());
            numbers.insert(numbers.end(), node->EndingLines().begin(), node->EndingLines().end());
        }
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    std::erase_if(numbers, [&canvas](EdgeNumber number) { return !canvas.Lines.byIndex(number); });
    return numbers;
}

/// The nodes as a plain graph, in the order of their numbers.
layout::FlowGraph sketch(const Canvas& canvas, const std::vector<NodeNumber>& nodes) {
    layout::FlowGraph graph;
    std::vector<layout::Area> areas;
    std::vector<bool> notes;
    std::unordered_map<NodeNumber, std::int32_t> places;
    for (const NodeNumber index : nodes) {
        const LabelsD& node = *canvas.Labels.byIndex(index);
        const Box& box = node.box();
        places.emplace(index, static_cast<std::int32_t>(places.size()));
        graph.nodes.push_back({box.Width, box.Height});
        areas.push_back({box.Left, box.Top, box.right(), box.bottom()});
        notes.push_back(node.NodeType() == NodeTypeComment || node.NodeType() == NodeTypeLog);
    }
    layout::NoteHosts hosts(std::move(areas), notes);
    for (const EdgeNumber number : edgesAt(canvas, nodes)) {
        const LinesD& edge = *canvas.Lines.byIndex(number);
        const auto from = places.find(edge.FromLabel()), to = places.find(edge.ToLabel());
        if (from == places.end() || to == places.end()) {
            continue;
        }
        if (notes[static_cast<std::size_t>(from->second)] || notes[static_cast<std::size_t>(to->second)]) {
            hosts.join(from->second, to->second);
        } else if (edge.EdgeType() == EdgeTypeProvider || edge.EdgeType() == EdgeTypeRegulator) {
            graph.arcs.push_back({from->second, to->second});
        }
    }
    graph.besides = hosts.find(kReachOfNotes);
    return graph;
}

/// The left upper corner of all that the nodes take, on the grid.
Point cornerOf(const Canvas& canvas, const std::vector<NodeNumber>& nodes) {
    Point corner{0, 0};
    for (const NodeNumber index : nodes) {
        const Box& box = canvas.Labels.byIndex(index)->box();
        const bool first = index == nodes.front();
        corner = first ? Point{box.Left, box.Top} : Point{std::min(corner.x, box.Left), std::min(corner.y, box.Top)};
    }
    return {std::max(SnapToGrid(corner.x), 0.0F), std::max(SnapToGrid(corner.y), 0.0F)};
}

}  // namespace

FormerPlaces::FormerPlaces(const Canvas& canvas, const std::vector<NodeNumber>& nodes) {
    for (const NodeNumber index : nodes) {
        if (const LabelsD* node = canvas.Labels.byIndex(index)) {
            nodes_.emplace_back(index, node->box());
        }
    }
    for (const EdgeNumber number : edgesAt(canvas, nodes)) {
        const LinesD& edge = *canvas.Lines.byIndex(number);
        edges_.push_back({number,
                          edge.FromGrabbingPoint(),
                          edge.ToGrabbingPoint(),
                          edge.Angle(),
                          {edge.Xm(), edge.Ym()},
                          edge.middlePlaced()});
    }
}

void FormerPlaces::putBack(Canvas& canvas) const {
    const ManyChanges many(canvas);
    for (const auto& [index, box] : nodes_) {
        if (LabelsD* node = canvas.Labels.byIndex(index); node && node->box() != box) {
            node->setBox(box);
        }
    }
    for (const Edge& former : edges_) {
        if (LinesD* edge = canvas.Lines.byIndex(former.index)) {
            edge->setGrabPoint(EdgeEnd::start, former.from);
            edge->setGrabPoint(EdgeEnd::end, former.to);
            edge->setAngle(former.angle);
            former.middlePlaced ? edge->placeMiddle(former.middle) : edge->setMiddle(former.middle);
        }
    }
}

PutBack::PutBack(Canvas& canvas, FormerPlaces places, std::function<void()> closed)
    : canvas_(canvas),
      places_(std::move(places)),
      closed_(std::move(closed)),
      changes_(canvas.changes()),
      subscription_(canvas.listen(*this)) {}

void PutBack::look() {
    if (!isOpen() && !std::exchange(told_, true)) {
        closed_();
    }
}

std::vector<NodeNumber> nodesToTidy(const Canvas& canvas) {
    std::vector<NodeNumber> nodes;
    const bool all = canvas.SelectedLabels.Count() < 2;
    for (const LabelsD& node : canvas.Labels) {
        if (node.Visible() && (all || canvas.SelectedLabels.Item(node.Index()))) {
            nodes.push_back(node.Index());
        }
    }
    return nodes;
}

void tidyUp(Canvas& canvas, const std::vector<NodeNumber>& nodes, bool all) {
    const Point corner = all ? Point{kMargin, kMargin} : cornerOf(canvas, nodes);
    const std::vector<layout::Place> places = layout::layOut(sketch(canvas, nodes));
    {
        const ManyChanges many(canvas);
        for (std::size_t at = 0; at < nodes.size(); ++at) {
            LabelsD& node = *canvas.Labels.byIndex(nodes[at]);
            const Box box{corner.x + static_cast<float>(places[at].left), corner.y + static_cast<float>(places[at].top),
                          node.Width(), node.Height()};
            if (box != node.box()) {
                node.setBox(box);
            }
        }
        for (const EdgeNumber number : edgesAt(canvas, nodes)) {
            if (LinesD& edge = *canvas.Lines.byIndex(number); edge.Visible()) {
                straighten(canvas, edge);
            }
        }
    }
    canvas.growPicture();
}

}  // namespace orvent::canvas
