#pragma once

#include <cstdint>
#include <string_view>

#include "canvas/indexed_table.h"
#include "canvas/point.h"

namespace orvent::canvas {

class Canvas;

/// `EdgeType` codes. 2 and 5 have styles only: 5 draws derived edges of the zoom view.
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

/// Width and height of an edge's handle, twips.
inline constexpr float kHandleSize = 90;

/// The parts of an edge that have a handle.
enum class HandlePart { start = 0, middle = 1, end = 2 };

/// The edge to which a handle belongs, and which of its handles it is.
constexpr std::int32_t edgeOfHandle(std::int32_t handle) {
    return (handle + 2) / 3;
}
constexpr HandlePart partOfHandle(std::int32_t handle) {
    return static_cast<HandlePart>((handle + 2) % 3);
}

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

/// An edge of a canvas: two straight segments that meet at a middle point, with three handles. Places in twips.
class LinesD {
  public:
    LinesD(Canvas& canvas, std::int32_t index) : canvas_(canvas), index_(index) {}

    std::int32_t Index() const { return index_; }

    float X1() const { return start_.x; }
    float Y1() const { return start_.y; }
    float X2() const { return end_.x; }
    float Y2() const { return end_.y; }
    float Xm() const { return middle_.x; }
    float Ym() const { return middle_.y; }
    void setStart(Point value);   ///< `X1`, `Y1`; applies `Angle` again
    void setEnd(Point value);     ///< `X2`, `Y2`; applies `Angle` again
    void setMiddle(Point value);  ///< `Xm`, `Ym`

    EdgeTypeCode EdgeType() const { return edgeType_; }
    void setEdgeType(EdgeTypeCode value);

    AngleCode Angle() const { return angle_; }
    /// Sets the middle point by the angle kind; another value than 0 to 3 is stored and changes nothing.
    void setAngle(AngleCode value);
    /// Only at `AngleNone` can the middle handle be taken.
    bool middleHandleVisible() const { return angle_ < AngleVerticalUp || angle_ > AngleStraight; }

    std::int32_t FromLabel = 0;
    std::int32_t ToLabel = 0;
    std::int16_t FromGrabbingPoint = 0;
    std::int16_t ToGrabbingPoint() const { return toGrabbingPoint_; }
    void setToGrabbingPoint(std::int16_t value);
    /// The image of the end handle, empty when the edge has no arrow head.
    std::string_view arrowImage() const { return arrow_; }

    /// The image of the start handle: the mark of a part-of edge, else empty.
    std::string_view startImage() const {
        return edgeType_ == EdgeTypePartOf ? std::string_view("PartOfStart") : std::string_view();
    }

    /// Numbers of the three handles.
    std::int32_t StartBox() const { return 3 * index_ - 2; }
    std::int32_t MidBox() const { return 3 * index_ - 1; }
    std::int32_t EndBox() const { return 3 * index_; }

    std::int16_t BorderStyle = BorderSolid;
    std::int16_t BorderWidth = 1;

    bool Visible() const { return visible_; }
    void setVisible(bool value);
    bool HighLighted() const { return highLighted_; }
    void setHighLighted(bool value);
    bool Selected() const { return selected_; }
    void setSelected(bool value);
    std::int32_t Color() const { return color_; }
    void setColor(std::int32_t value);

  private:
    friend class LinesCollection;

    void applyAngle(AngleCode former);
    void changed();

    Canvas& canvas_;
    std::int32_t index_;
    Point start_, middle_, end_;
    EdgeTypeCode edgeType_ = EdgeTypeProvider;
    AngleCode angle_ = AngleNone;
    std::int32_t color_ = 0;
    std::int16_t toGrabbingPoint_ = 0;
    bool visible_ = true;
    bool highLighted_ = false;
    bool selected_ = false;
    bool told_ = false;  ///< false while the edge is being made
    std::string_view arrow_;
};

/// The edges of one canvas, in order of creation.
class LinesCollection : public IndexedTable<LinesD> {
  public:
    explicit LinesCollection(Canvas& canvas) : canvas_(canvas) {}

    /// A new edge that starts at a node; it has no target yet.
    LinesD& Add(Point start, Point middle, Point end, std::int32_t FromLabel, EdgeTypeCode EdgeType);

    /// A finished edge between two nodes. Nothing is made when one of them does not exist.
    LinesD* addFullLine(std::int32_t FromLabel, std::int16_t FromGrabbingPoint, std::int32_t ToLabel,
                        std::int16_t ToGrabbingPoint, EdgeTypeCode EdgeType, AngleCode Angle, std::int32_t Color);

    /// The oldest edge of that kind from one node to another, or nothing; with `andRemove` it is removed instead, and
    /// the result is nothing.
    LinesD* FindConnectingLine(std::int32_t FromLabel, std::int32_t ToLabel, EdgeTypeCode LineType, bool andRemove);

    /// Drops the edge and leaves the lists of its nodes alone.
    void Remove(std::int32_t index);

    /// Drops the edge from the lists of its nodes, too.
    void RemoveFull(std::int32_t index);

    void Clear();

  private:
    /// A new edge that nobody is told of yet; `show` tells.
    LinesD& make(Point start, Point middle, Point end, std::int32_t FromLabel, EdgeTypeCode EdgeType);
    static LinesD& show(LinesD& edge);

    Canvas& canvas_;
};

}  // namespace orvent::canvas
