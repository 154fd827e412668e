#pragma once

#include <cstdint>

namespace orvent::canvas {

/// `EdgeType` codes. 2 and 5 stand for no link: in a zoom view they lead to types, and show what is derived.
enum class EdgeTypeCode : std::int32_t {
    EdgeTypeProvider = 0,
    EdgeTypePartOf = 1,
    EdgeTypeReserved = 2,
    EdgeTypeRegulator = 3,
    EdgeTypeDescription = 4,
    EdgeTypeDerived = 5,
};
using enum EdgeTypeCode;

/// `Angle` codes: how the middle point of an edge is found.
enum class AngleCode : std::int32_t {
    AngleNone = 0,
    AngleVerticalUp = 1,
    AngleVerticalDown = 2,
    AngleStraight = 3,
};
using enum AngleCode;

/// `BorderStyle` codes of a line.
enum BorderStyleCode : std::int16_t { BorderSolid = 1, BorderDashed = 2, BorderDotted = 3, BorderDashDot = 4 };

/// How an edge of a kind is drawn.
struct EdgeStyle {
    std::int16_t BorderStyle;
    std::int16_t BorderWidth;
    bool arrow;  ///< an arrow head at the target
};

/// The style of an edge kind; an unknown kind is drawn solid, one wide, without arrow.
EdgeStyle edgeStyle(EdgeTypeCode edgeType);

}  // namespace orvent::canvas
