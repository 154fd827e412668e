#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

#include "canvas/edge_kinds.h"
#include "canvas/indexed_table.h"
#include "canvas/line_numbers.h"
#include "canvas/numbers.h"
#include "canvas/point.h"

namespace orvent::canvas {

class Canvas;
class Graph;
class LabelsD;

/// Width and height of an edge's handle, twips.
inline constexpr float kHandleSize = 90;

/// An edge of a canvas: two straight segments that meet at a middle point, with three handles. Places in twips.
class LinesD {
  public:
    LinesD(Graph& graph, EdgeNumber index) : graph_(graph), index_(index) {}

    EdgeNumber Index() const { return index_; }

    float X1() const { return start().place.x; }
    float Y1() const { return start().place.y; }
    float X2() const { return end().place.x; }
    float Y2() const { return end().place.y; }
    float Xm() const { return middle_.x; }
    float Ym() const { return middle_.y; }
    void setStart(Point value);   ///< `X1`, `Y1`; applies `Angle` again
    void setEnd(Point value);     ///< `X2`, `Y2`; applies `Angle` again
    void setMiddle(Point value);  ///< `Xm`, `Ym`
    /// The middle point goes where a hand puts it, and stays there when nodes move.
    void placeMiddle(Point value);
    /// Puts the middle point back to the centre, unless a hand or an angle has placed it.
    void centreMiddle();

    EdgeTypeCode EdgeType() const { return edgeType_; }

    AngleCode Angle() const { return angle_; }
    /// Sets the middle point by the angle kind; a code without a name is stored and changes nothing.
    void setAngle(AngleCode value);
    /// A hand, or the corner of an angle, has placed the middle point: it stays when nodes move.
    bool middlePlaced() const { return middlePlaced_; }
    /// Only at `AngleNone` can the middle handle be taken.
    bool middleHandleVisible() const { return middleHandle_; }

    NodeNumber FromLabel() const { return start().label; }  ///< `Index` of the source
    NodeNumber ToLabel() const { return end().label; }      ///< `Index` of the target, 0 while there is none
    std::int16_t FromGrabbingPoint() const { return start().grabPoint; }
    std::int16_t ToGrabbingPoint() const { return end().grabPoint; }

    /// Leads one end to a grab point of a node: the edge leaves the list of the node where that end was and enters the
    /// list of this one, and its end and its arrow head follow. Only a node that lets go of all its edges writes its
    /// lists itself.
    void attach(EdgeEnd which, LabelsD& node, std::int16_t grabPoint);
    /// Leads one end to another grab point of the node where it is.
    void setGrabPoint(EdgeEnd which, std::int16_t grabPoint);
    /// Takes one end from its node; its place stays.
    void detach(EdgeEnd which);
    /// The image of the end handle, empty when the edge has no arrow head.
    std::string_view arrowImage() const { return arrow_; }
    /// The image of the start handle: the mark of a part-of edge, else empty.
    std::string_view startImage() const {
        return edgeType_ == EdgeTypePartOf ? std::string_view("PartOfStart") : std::string_view();
    }

    /// Numbers of the three handles.
    HandleNumber StartBox() const { return handleOf(index_, HandlePart::start); }
    HandleNumber MidBox() const { return handleOf(index_, HandlePart::middle); }
    HandleNumber EndBox() const { return handleOf(index_, HandlePart::end); }

    std::int16_t BorderStyle = BorderSolid;
    std::int16_t BorderWidth = 1;
    bool Visible() const { return visible_; }
    void setVisible(bool value);
    bool HighLighted() const { return highLighted_; }
    void setHighLighted(bool value);
    bool Selected() const { return selected_; }
    void setSelected(bool value);
    std::int32_t Color() const { return color_; }

  private:
    friend class LinesCollection;
    friend class CanvasRestorer;

    struct End {
        NodeNumber label{};
        std::int16_t grabPoint = 0;
        Point place;
    };

    const End& start() const { return ends_[0]; }
    const End& end() const { return ends_[1]; }
    End& at(EdgeEnd which) { return ends_[static_cast<std::size_t>(which)]; }
    void lead(EdgeEnd which, LabelsD& node, std::int16_t grabPoint);
    void take(EdgeEnd which, const LabelsD& node, std::int16_t grabPoint);
    void leave(EdgeEnd which);
    void takeStyle();
    void takeAngle(AngleCode value);
    void applyAngle(AngleCode former);
    void changed();
    void lookChanged();

    Graph& graph_;
    EdgeNumber index_;
    std::array<End, 2> ends_;
    Point middle_;
    EdgeTypeCode edgeType_ = EdgeTypeProvider;
    AngleCode angle_ = AngleNone;
    bool middleHandle_ = true;
    bool middlePlaced_ = false;  ///< by hand, or left at the corner of an angle
    std::int32_t color_ = 0;
    bool visible_ = true;
    bool highLighted_ = false;
    bool selected_ = false;
    bool told_ = false;  ///< false while the edge is being made
    std::string_view arrow_;
};

/// The edges of one canvas, in order of creation.
class LinesCollection : public IndexedTable<LinesD, EdgeNumber> {
  public:
    explicit LinesCollection(Canvas& canvas) : canvas_(canvas) {}

    /// A new edge that is being drawn from a node: it has no target yet, and the lists of the nodes do not name it
    /// before its ends are attached.
    LinesD& Add(Point start, Point middle, Point end, NodeNumber FromLabel, EdgeTypeCode EdgeType,
                std::int16_t FromGrabbingPoint = 0);

    /// A finished edge between two nodes. Nothing is made when one of them does not exist.
    LinesD* addFullLine(NodeNumber FromLabel, std::int16_t FromGrabbingPoint, NodeNumber ToLabel,
                        std::int16_t ToGrabbingPoint, EdgeTypeCode EdgeType, AngleCode Angle, std::int32_t Color);

    /// An edge without ends under the `Index` that it had, as for nodes.
    LinesD& restore(EdgeNumber index, EdgeTypeCode EdgeType);
    using IndexedTable::arrange;

    /// The oldest edge of that kind from one node to another, or nothing; with `andRemove` it is removed instead, and
    /// the result is nothing.
    LinesD* FindConnectingLine(NodeNumber FromLabel, NodeNumber ToLabel, EdgeTypeCode LineType, bool andRemove);

    /// Drops the edge and leaves the lists of its nodes alone. Hands it back, nothing when there is none.
    std::unique_ptr<LinesD> Remove(EdgeNumber index);

    /// Drops the edge from the lists of its nodes, too. Hands it back; it still tells where its ends were.
    std::unique_ptr<LinesD> RemoveFull(EdgeNumber index);

    void Clear();

  private:
    /// A new edge that nobody is told of yet; `show` tells.
    LinesD& make(EdgeTypeCode EdgeType);
    static LinesD& show(LinesD& edge);
    Canvas& canvas_;
};

}  // namespace orvent::canvas
