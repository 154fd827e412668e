// Making and removing the nodes of a canvas.

#include <utility>

#include "canvas/canvas.h"

namespace orvent::canvas {

namespace {

NodeProperties cloned(const NodeProperties& properties) {
    return std::visit(
        [](const auto& held) -> NodeProperties {
            if constexpr (requires { held->Clone(); }) {
                return held->Clone();
            } else if constexpr (requires { held.get(); }) {
                return NodeProperties(std::remove_cvref_t<decltype(held)>());  // types belong to their own view
            } else {
                return held;
            }
        },
        properties);
}

}  // namespace

LabelsD& LabelsCollection::Add(const Box& box, const std::string& Caption, NodeTypeCode NodeType,
                               const std::string& KeyName) {
    return show(make(box, Caption, NodeType, KeyName));
}

LabelsD& LabelsCollection::make(const Box& box, const std::string& Caption, NodeTypeCode NodeType,
                                const std::string& KeyName) {
    LabelsD& node = beginNode(box, NodeType);
    node.setCaption(Caption);
    if (!KeyName.empty()) {
        node.setKeyName(KeyName);
    } else if (nodeKind(NodeType).naming == Naming::own) {
        node.setKeyName(Caption);
    }
    finishNode(node, nodeKind(NodeType).newEntity(node.KeyName(), Caption, node.Index()));
    return node;
}

LabelsD& LabelsCollection::AddShown(const Box& box, const std::string& Caption, NodeTypeCode NodeType,
                                    const std::string& KeyName, NodeProperties entity) {
    LabelsD& node = beginNode(box, NodeType);
    const bool named = !KeyName.empty() && canvas_.NamesColl.Add(node.Index(), KeyName) != kNoNode;
    node.keyName_ = named ? KeyName : kErrorName;
    node.caption_ = Caption;
    finishNode(node, std::move(entity));
    return show(node);
}

LabelsD& LabelsCollection::beginNode(const Box& box, NodeTypeCode NodeType) {
    const NodeNumber index = canvas_.LabelsNo = numberAfter(canvas_.LabelsNo);
    canvas_.ActiveLabel = index;
    LabelsD& node = append(index, std::make_unique<LabelsD>(static_cast<Graph&>(canvas_), index));
    node.setNodeType(NodeType);
    node.setBox(box);
    return node;
}

void LabelsCollection::finishNode(LabelsD& node, NodeProperties entity) {
    const NodeKind& kind = nodeKind(node.NodeType());
    node.setColor(kind.backColor);
    node.ReadyColor = kind.readyColor;
    node.NotReadyColor = kind.notReadyColor;
    node.Expanded = node.NodeType() == NodeTypeConstant;
    node.Properties = std::move(entity);
    node.setVisible(true);
}

LabelsD& LabelsCollection::show(LabelsD& node) {
    node.told_ = true;
    node.tell();
    return node;
}

LabelsD& LabelsCollection::restore(NodeNumber index, const Box& box, NodeTypeCode NodeType) {
    LabelsD& node = append(index, std::make_unique<LabelsD>(static_cast<Graph&>(canvas_), index));
    node.setNodeType(NodeType);
    node.setBox(box);
    finishNode(node, std::int16_t{0});
    node.told_ = true;
    return node;
}

LabelsD& LabelsCollection::addLabel(const LabelsD& Label) {
    LabelsD& node = make(Label.box(), Label.Caption(), Label.NodeType());
    node.setColor(Label.Color());
    node.Properties = cloned(Label.Properties);
    node.setReady(Label.Ready());
    return show(node);
}

std::unique_ptr<LabelsD> LabelsCollection::Remove(NodeNumber index) {
    LabelsD* node = byIndex(index);
    if (!node) {
        return nullptr;
    }
    // The node's own lists are taken first, so that only the far ends are searched for each edge.
    for (LineNumbers& list : node->lines_) {
        for (const EdgeNumber line : std::exchange(list, LineNumbers())) {
            canvas_.Lines.RemoveFull(line);
        }
    }
    node->releaseNames();
    canvas_.forgetNode(*node);
    std::unique_ptr<LabelsD> gone = take(index);
    canvas_.listeners().tell([&gone](CanvasListener& listener) { listener.nodeRemoved(*gone); });
    return gone;
}

void LabelsCollection::Clear() {
    while (const LabelsD* last = at(Count())) {
        Remove(last->Index());
    }
}

}  // namespace orvent::canvas
