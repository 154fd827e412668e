// Making and removing the nodes of a canvas.

#include <array>
#include <utility>

#include "canvas/canvas.h"

namespace orvent::canvas {

namespace {

constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kLightYellow = 0xCCFFFF;
constexpr std::int32_t kLightGrey = 0xDDDDDD;
constexpr std::int32_t kRed = 255;
constexpr std::int32_t kBlue = 0xFF0000;
constexpr std::int32_t kBlack = 0;

/// What is settled for each kind of node: the fill of a new box, and the colours of readiness.
struct KindRow {
    std::int32_t backColor;
    std::int32_t readyColor;
    std::int32_t notReadyColor;
};

constexpr std::array<KindRow, 11> kKinds = {{
    {kWhite, kBlack, kBlack},
    {kWhite, kBlack, kRed},         // data type
    {kWhite, kBlack, kRed},         // function type
    {kWhite, kBlack, kRed},         // constant
    {kWhite, kWhite, kRed},         // attribute
    {kWhite, kWhite, kRed},         // record set
    {kWhite, kBlue, kRed},          // function
    {kWhite, kWhite, kRed},         // parameter
    {kWhite, kBlack, kRed},         // activity
    {kLightGrey, kBlack, kBlack},   // log
    {kLightYellow, kBlack, kBlack}  // comment
}};

const KindRow& kindRow(NodeTypeCode nodeType) {
    const auto at = static_cast<std::size_t>(nodeType);
    return at < kKinds.size() ? kKinds[at] : kKinds[0];
}

NodeProperties newEntity(NodeTypeCode nodeType, const std::string& name, const std::string& caption,
                         std::int32_t index) {
    using namespace entities;
    switch (nodeType) {
        case NodeTypeFunctionType:
            return std::make_shared<FunctionTypeProperties>();
        case NodeTypeConstant: {
            auto constant = std::make_shared<ParameterProperties>();
            constant->Parameter_Name = name;
            constant->Key = name;
            constant->NodeKind = KindConstant;
            constant->ParentKeyName = caption;
            constant->LabelIndex = index;
            return constant;
        }
        case NodeTypeAttribute: {
            auto attribute = std::make_shared<AttributeProperties>();
            attribute->Attribute_Name = name;
            attribute->Key = name;
            return attribute;
        }
        case NodeTypeRecordSet: {
            auto recordSet = std::make_shared<RecordSetProperties>();
            recordSet->RecordSet_Name = name;
            return recordSet;
        }
        case NodeTypeFunction: {
            auto function = std::make_shared<FunctionProperties>();
            function->Function_Name = name;
            function->Function_Key = name;
            return function;
        }
        case NodeTypeParameter: {
            auto parameter = std::make_shared<ParameterProperties>();
            parameter->Parameter_Name = name;
            parameter->Key = name;
            return parameter;
        }
        case NodeTypeActivity: {
            auto activity = std::make_shared<ActivityProperties>();
            activity->Act_Name = name;
            return activity;
        }
        case NodeTypeComment:
            return std::make_shared<CommentProperties>();
        default:
            return std::int16_t{0};
    }
}

NodeProperties cloned(const NodeProperties& properties) {
    return std::visit(
        [](const auto& held) -> NodeProperties {
            if constexpr (requires { held->Clone(); }) {
                return held->Clone();
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
    } else if (NodeType == NodeTypeAttribute || NodeType == NodeTypeParameter) {
        node.setKeyName(Caption);
    }
    finishNode(node, newEntity(NodeType, node.KeyName(), Caption, node.Index()));
    return node;
}

LabelsD& LabelsCollection::AddShown(const Box& box, const std::string& Caption, NodeTypeCode NodeType,
                                    const std::string& KeyName, NodeProperties entity) {
    LabelsD& node = beginNode(box, NodeType);
    const bool named = !KeyName.empty() && canvas_.NamesColl.Add(node.Index(), KeyName) != -1;
    node.keyName_ = named ? KeyName : kErrorName;
    node.caption_ = Caption;
    finishNode(node, std::move(entity));
    return show(node);
}

LabelsD& LabelsCollection::beginNode(const Box& box, NodeTypeCode NodeType) {
    const std::int32_t index = ++canvas_.LabelsNo;
    canvas_.ActiveLabel = index;
    LabelsD& node = append(index, std::make_unique<LabelsD>(canvas_, index));
    node.setNodeType(NodeType);
    node.setBox(box);
    return node;
}

void LabelsCollection::finishNode(LabelsD& node, NodeProperties entity) {
    const KindRow& kind = kindRow(node.NodeType());
    node.setColor(kind.backColor);
    node.ReadyColor = kind.readyColor;
    node.NotReadyColor = kind.notReadyColor;
    node.Expanded = node.NodeType() == NodeTypeConstant;
    node.Properties = std::move(entity);
    node.setVisible(true);
    raisePicture(node);
}

LabelsD& LabelsCollection::show(LabelsD& node) {
    node.told_ = true;
    node.tell();
    return node;
}

LabelsD& LabelsCollection::addLabel(const LabelsD& Label) {
    LabelsD& node = make(Label.box(), Label.Caption(), Label.NodeType());
    node.setColor(Label.Color());
    node.Properties = cloned(Label.Properties);
    node.setReady(Label.Ready());
    return show(node);
}

void LabelsCollection::raisePicture(const LabelsD& node) {
    const float bottom = node.box().bottom();
    if (canvas_.isZoom() && bottom >= canvas_.BiggestHeight) {
        canvas_.BiggestHeight = bottom + 3 * canvas_.settings().BigHeight;
    }
}

std::unique_ptr<LabelsD> LabelsCollection::Remove(std::int32_t index) {
    LabelsD* node = byIndex(index);
    if (!node) {
        return nullptr;
    }
    // The node's own lists are taken first, so that only the far ends are searched for each edge.
    for (LineNumbers& list : node->lines_) {
        for (const std::int32_t line : std::exchange(list, LineNumbers())) {
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
