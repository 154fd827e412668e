#include "canvas/canvas_state.h"

#include <unordered_set>
#include <utility>

namespace orvent::canvas {

namespace {

std::vector<EdgeNumber> numbersOf(const LineNumbers& lines) {
    return {lines.begin(), lines.end()};
}

Readiness readinessOf(const Canvas& canvas, const LabelsD& node) {
    if (node.Ready()) {
        return Readiness::ready;
    }
    const bool selected = canvas.SelectedLabels.Item(node.Index()) != nullptr;
    const std::int32_t plain = (selected ? node.Color() ^ canvas.settings().SelColor : node.Color()) & 0xFFFFFF;
    return plain == (node.NotReadyColor & 0xFFFFFF) ? Readiness::notReady : Readiness::untold;
}

}  // namespace

NodeState stateOf(const Canvas& canvas, const LabelsD& node) {
    NodeState state;
    state.index = node.Index();
    state.kind = node.NodeType();
    state.box = node.box();
    state.keyName = node.KeyName();
    state.caption = node.Caption();
    state.holdsKeyName = canvas.NamesColl.Item(state.keyName) == node.Index();
    state.holdsCaption = canvas.NamesColl.Item(state.caption) == node.Index();
    state.readiness = readinessOf(canvas, node);
    const auto finished = [&canvas](const LineNumbers& lines) {
        std::vector<EdgeNumber> numbers = numbersOf(lines);
        std::erase_if(numbers, [&canvas](EdgeNumber line) { return !stateOf(canvas.Lines.byIndex(line)).exists(); });
        return numbers;
    };
    state.starting = finished(node.StartingLines());
    state.ending = finished(node.EndingLines());
    return state;
}

EdgeState stateOf(const LinesD* edge) {
    if (!edge || !isGiven(edge->FromLabel()) || !isGiven(edge->ToLabel())) {
        return {};
    }
    return {edge->FromLabel(),        edge->ToLabel(),      edge->FromGrabbingPoint(),
            edge->ToGrabbingPoint(),  edge->EdgeType(),     edge->Angle(),
            {edge->Xm(), edge->Ym()}, edge->middlePlaced(), edge->Color()};
}

/// Writes nodes and edges as they were; the only one who writes a node's lists of edges besides the edges themselves.
class CanvasRestorer {
  public:
    explicit CanvasRestorer(Canvas& canvas) : canvas_(canvas) {}

    void run(CanvasChange& change) {
        const ManyChanges many(canvas_);
        for (const CanvasChange::Edge& edge : change.edges) {
            if (!edge.state.exists()) {
                canvas_.Lines.RemoveFull(edge.index);
            }
        }
        releaseEdges(change);
        for (const NodeNumber node : change.goingNodes) {
            canvas_.Labels.Remove(node);
        }
        makeNodes(change);
        makeEdges(change);
        for (const NodeState& node : change.nodes) {
            setLines(*canvas_.Labels.byIndex(node.index), node);
        }
        for (const CanvasChange::Edge& edge : change.edges) {
            if (edge.state.exists()) {
                setEdge(*canvas_.Lines.byIndex(edge.index), edge.state);
            }
        }
    }

  private:
    /// An edge that leads to another node from now on does not go with the one that goes: at its far end it stays in
    /// its place, and nothing may be told of that end.
    void releaseEdges(const CanvasChange& change) {
        std::unordered_set<EdgeNumber> staying;
        for (const CanvasChange::Edge& edge : change.edges) {
            if (edge.state.exists()) {
                staying.insert(edge.index);
            }
        }
        for (const NodeNumber node : change.goingNodes) {
            LabelsD* going = canvas_.Labels.byIndex(node);
            for (const EdgeEnd end : {EdgeEnd::start, EdgeEnd::end}) {
                for (const EdgeNumber number : going ? numbersOf(going->linesAt(end)) : std::vector<EdgeNumber>()) {
                    if (staying.contains(number)) {
                        going->linesAt(end).Remove(number);
                    }
                }
            }
        }
    }

    void makeNodes(CanvasChange& change) {
        for (const NodeState& node : change.nodes) {  // names may go round among them
            if (LabelsD* known = canvas_.Labels.byIndex(node.index)) {
                known->releaseNames();
            }
        }
        std::vector<const NodeState*> coming;
        for (const NodeState& node : change.nodes) {
            if (!canvas_.Labels.byIndex(node.index)) {
                coming.push_back(&node);
            }
        }
        if (!coming.empty()) {
            for (const NodeState* node : coming) {
                canvas_.Labels.restore(node->index, node->box, node->kind);
            }
            canvas_.Labels.arrange();
        }
        for (NodeState& node : change.nodes) {
            setNode(*canvas_.Labels.byIndex(node.index), node);
        }
    }

    void setNode(LabelsD& node, NodeState& state) {
        for (const auto& [holds, name] :
             {std::pair(state.holdsKeyName, &state.keyName), std::pair(state.holdsCaption, &state.caption)}) {
            if (holds) {
                canvas_.NamesColl.Add(state.index, *name);
            }
        }
        node.setNodeType(state.kind);
        node.keyName_ = state.keyName;
        node.caption_ = state.caption;
        node.Properties = std::move(state.entity);
        node.setBox(state.box);
        if (state.readiness == Readiness::untold) {
            node.ready_ = false;
            node.setColor(nodeKind(state.kind).backColor);
        } else {
            node.setReady(state.readiness == Readiness::ready);
        }
    }

    void makeEdges(const CanvasChange& change) {
        std::vector<const CanvasChange::Edge*> coming;
        for (const CanvasChange::Edge& edge : change.edges) {
            if (edge.state.exists() && !canvas_.Lines.byIndex(edge.index)) {
                coming.push_back(&edge);
            }
        }
        if (!coming.empty()) {
            for (const CanvasChange::Edge* edge : coming) {
                canvas_.Lines.restore(edge->index, edge->state.kind);
            }
            canvas_.Lines.arrange();
        }
    }

    static void setLines(LabelsD& node, const NodeState& state) {
        for (const auto& [which, numbers] :
             {std::pair(EdgeEnd::start, &state.starting), std::pair(EdgeEnd::end, &state.ending)}) {
            LineNumbers lines;
            for (const EdgeNumber number : *numbers) {
                lines.Add(number);
            }
            node.linesAt(which) = std::move(lines);
        }
    }

    void setEdge(LinesD& edge, const EdgeState& state) {
        edge.edgeType_ = state.kind;
        edge.takeStyle();
        edge.take(EdgeEnd::start, *canvas_.Labels.byIndex(state.from), state.fromPoint);
        edge.take(EdgeEnd::end, *canvas_.Labels.byIndex(state.to), state.toPoint);
        edge.angle_ = state.angle;
        if (state.angle >= AngleNone && state.angle <= AngleStraight) {
            edge.middleHandle_ = state.angle == AngleNone;
        }
        edge.middle_ = state.middle;
        edge.middlePlaced_ = state.middlePlaced;
        edge.color_ = state.color;
        edge.changed();
    }

    Canvas& canvas_;
};

void restore(Canvas& canvas, CanvasChange change) {
    CanvasRestorer(canvas).run(change);
    canvas.growPicture();
}

}  // namespace orvent::canvas
