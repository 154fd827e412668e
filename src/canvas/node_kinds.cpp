#include "canvas/node_kinds.h"

#include <algorithm>
#include <array>

namespace orvent::canvas {

using namespace entities;

namespace {

constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kLightYellow = 0xCCFFFF;
constexpr std::int32_t kLightGrey = 0xDDDDDD;
constexpr std::int32_t kRed = 255;
constexpr std::int32_t kBlue = 0xFF0000;
constexpr std::int32_t kBlack = 0;

NodeProperties noEntity(const std::string&, const std::string&, NodeNumber) {
    return std::int16_t{0};
}

template <class Entity>
NodeProperties emptyEntity(const std::string&, const std::string&, NodeNumber) {
    return std::make_shared<Entity>();
}

/// An entity whose only content is its name, in this one or these two fields.
template <class Entity, auto... fields>
NodeProperties namedEntity(const std::string& name, const std::string&, NodeNumber) {
    auto entity = std::make_shared<Entity>();
    ((*entity.*fields = name), ...);
    return entity;
}

NodeProperties constantEntity(const std::string& name, const std::string& caption, NodeNumber index) {
    auto constant = std::make_shared<ParameterProperties>();
    constant->Parameter_Name = name;
    constant->Key = name;
    constant->NodeKind = KindConstant;
    constant->ParentKeyName = caption;
    constant->LabelIndex = index;
    return constant;
}

constexpr NodeProperties (*kAttribute)(const std::string&, const std::string&, NodeNumber) =
    namedEntity<AttributeProperties, &AttributeProperties::Attribute_Name, &AttributeProperties::Key>;
constexpr auto kRecordSet = namedEntity<RecordSetProperties, &RecordSetProperties::RecordSet_Name>;
constexpr auto kFunction =
    namedEntity<FunctionProperties, &FunctionProperties::Function_Name, &FunctionProperties::Function_Key>;
constexpr auto kParameter =
    namedEntity<ParameterProperties, &ParameterProperties::Parameter_Name, &ParameterProperties::Key>;
constexpr auto kActivity = namedEntity<ActivityProperties, &ActivityProperties::Act_Name>;
constexpr auto kFunctionType = emptyEntity<FunctionTypeProperties>;
constexpr auto kComment = emptyEntity<CommentProperties>;

using Sizes = CanvasSettings;
using enum Naming;

// By code, so that a row's place is its code.
// clang-format off
constexpr std::array<NodeKind, 11> kKinds = {{
    {NodeTypeCode{}, "", "", "", "", Figure::plain, kWhite, kBlack, kBlack, true, caption,
     &Sizes::Width, &Sizes::Height, KindFree, noEntity},
    {NodeTypeDataType, "Data type", "", "", "", Figure::tag, kWhite, kBlack, kRed, true, caption,
     &Sizes::Width, &Sizes::Height, KindFree, noEntity},
    {NodeTypeFunctionType, "Function type", "", "", "", Figure::doubleHexagon, kWhite, kBlack, kRed, true, caption,
     &Sizes::Width, &Sizes::Height, KindFree, kFunctionType},
    {NodeTypeConstant, "Constant", "Constant", "Constant", "ConstantM", Figure::octagon, kWhite, kBlack, kRed, true,
     caption, &Sizes::BigHeight, &Sizes::BigHeight, KindFree, constantEntity},
    {NodeTypeAttribute, "Attribute", "Attribute", "Attribute", "AttributeM", Figure::field, kWhite, kWhite, kRed, true,
     own, &Sizes::Width, &Sizes::Height, KindFree, kAttribute},
    {NodeTypeRecordSet, "Record set", "RecordSet", "RecordSet", "RecordSetM", Figure::drum, kWhite, kWhite, kRed, true,
     caption, &Sizes::RecW, &Sizes::RecH, DeletedRecordSet, kRecordSet},
    {NodeTypeFunction, "Function", "Function", "Function", "FunctionM", Figure::hexagon, kWhite, kBlue, kRed, true,
     caption, &Sizes::Width, &Sizes::BigHeight, KindFree, kFunction},
    {NodeTypeParameter, "Parameter", "Parameter", "Parameter", "ParameterM", Figure::pill, kWhite, kWhite, kRed, true,
     own, &Sizes::Width, &Sizes::Height, KindFree, kParameter},
    {NodeTypeActivity, "Activity", "Activity", "Activity", "ActivityM", Figure::funnel, kWhite, kBlack, kRed, true,
     caption, &Sizes::ActW, &Sizes::ActH, DeletedActivity, kActivity},
    {NodeTypeLog, "Log", "Log", "LOG", "LogM", Figure::card, kLightGrey, kBlack, kBlack, false,
     numbered, &Sizes::LogW, &Sizes::LogH, DeletedLog, noEntity},
    {NodeTypeComment, "Comment", "Comment", "Comment", "CommentM", Figure::sheet, kLightYellow, kBlack, kBlack, false,
     numbered, &Sizes::ComW, &Sizes::ComH, DeletedComment, kComment},
}};
// clang-format on

constexpr bool standAtTheirCodes() {
    for (std::size_t at = 0; at < kKinds.size(); ++at) {
        if (static_cast<std::size_t>(kKinds[at].nodeType) != at) {
            return false;
        }
    }
    return true;
}
static_assert(standAtTheirCodes());

}  // namespace

const NodeKind& nodeKind(NodeTypeCode nodeType) {
    const auto at = static_cast<std::size_t>(nodeType);
    return kKinds[at < kKinds.size() ? at : 0];
}

Box placedBox(const NodeKind& kind, const CanvasSettings& sizes, Point at) {
    const float width = sizes.*kind.width;
    const float height = sizes.*kind.height;
    return {std::max(at.x - width / 2, 0.0F), std::max(at.y - height / 2, 0.0F), width, height};
}

}  // namespace orvent::canvas
