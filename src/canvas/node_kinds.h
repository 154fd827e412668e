#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "canvas/box.h"
#include "canvas/canvas_settings.h"
#include "canvas/numbers.h"
#include "canvas/point.h"
#include "entities/key_grammar.h"
#include "entities/nodes.h"
#include "platform/shared.h"

namespace orvent::canvas {

/// `NodeType` codes. 1 and 2 stand for type records.
enum class NodeTypeCode : std::int32_t {
    NodeTypeDataType = 1,
    NodeTypeFunctionType = 2,
    NodeTypeConstant = 3,
    NodeTypeAttribute = 4,
    NodeTypeRecordSet = 5,
    NodeTypeFunction = 6,
    NodeTypeParameter = 7,
    NodeTypeActivity = 8,
    NodeTypeLog = 9,
    NodeTypeComment = 10,
};
using enum NodeTypeCode;

/// What a node stands for: an entity, or a plain number (a log's repository identifier).
using NodeProperties =
    std::variant<std::int16_t, platform::Shared<entities::ActivityProperties>,
                 platform::Shared<entities::RecordSetProperties>, platform::Shared<entities::CommentProperties>,
                 platform::Shared<entities::AttributeProperties>, platform::Shared<entities::ParameterProperties>,
                 platform::Shared<entities::FunctionProperties>, platform::Shared<entities::FunctionTypeProperties>>;

/// The figures of boxes; the view knows how each is drawn.
enum class Figure { plain, field, tag, octagon, hexagon, doubleHexagon, pill, drum, funnel, card, sheet };

/// How a node comes by its name.
enum class Naming {
    caption,   ///< it bears its caption, and a taken one is told
    own,       ///< its name is a whole key beside the caption
    numbered,  ///< a taken name gives way to the next free number
};

/// What is settled for a kind of node. Colours have blue in the high byte.
struct NodeKind {
    NodeTypeCode nodeType;
    std::string_view title;  ///< what people call it
    std::string_view tool;   ///< the key of the tool that places it, empty for none
    std::string_view word;   ///< from which the default names are made
    std::string_view menu;   ///< its context menu, empty for none
    Figure figure;
    std::int32_t backColor;  ///< of a new box
    std::int32_t readyColor;
    std::int32_t notReadyColor;
    bool showsReadiness;
    Naming naming;
    float CanvasSettings::*width;  ///< of a box that its tool places
    float CanvasSettings::*height;
    entities::NodeKindCode
        deleted;  ///< as what a whole node stands among the rows to delete, `KindFree` for the others
    NodeProperties (*newEntity)(const std::string& name, const std::string& caption, NodeNumber index);
};

/// The row of a kind. A code that no name stands for is a plain box without an entity.
const NodeKind& nodeKind(NodeTypeCode nodeType);

/// The box of a new node whose tool was pressed at that place: around it, within the picture.
Box placedBox(const NodeKind& kind, const CanvasSettings& sizes, Point at);

}  // namespace orvent::canvas
