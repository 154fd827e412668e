#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "canvas/box.h"
#include "canvas/indexed_table.h"
#include "canvas/line_numbers.h"
#include "canvas/node_kinds.h"
#include "canvas/numbers.h"
#include "canvas/point.h"

namespace orvent::canvas {

class Canvas;
class Graph;

/// The name that a node bears whose name was refused as a duplicate.
inline constexpr const char* kErrorName = "Error_myCode";

/// Width of the strip at the right end of a comment's box in which its text is scrolled, twips.
inline constexpr float kCommentStrip = 200;

/// A node of a canvas: its box (twips, colours with blue in the high byte), its edges and its entity. Every setter of
/// something visible tells the canvas' view at once.
class LabelsD {
  public:
    LabelsD(Graph& graph, NodeNumber index) : graph_(graph), index_(index) {}

    NodeNumber Index() const { return index_; }

    const Box& box() const { return box_; }
    float Left() const { return box_.Left; }
    float Top() const { return box_.Top; }
    float Width() const { return box_.Width; }
    float Height() const { return box_.Height; }
    void setLeft(float value);
    void setTop(float value);
    void setWidth(float value);   ///< raised to 201
    void setHeight(float value);  ///< raised to 152

    /// A place of the picture, relative to the box.
    Point inside(Point at) const { return {at.x - box_.Left, at.y - box_.Top}; }
    /// Whether a place of the picture lies on a comment's text; the right end of its box is a strip for scrolling.
    bool onText(Point at) const { return at.x - box_.Left <= box_.Width - kCommentStrip; }

    /// Places the box by its four values at once, with one update of its edges; the least sizes hold.
    void setBox(const Box& value);

    NodeTypeCode NodeType() const { return nodeType_; }
    void setNodeType(NodeTypeCode value);
    Figure figure() const { return nodeKind(nodeType_).figure; }

    const std::string& KeyName() const { return keyName_; }
    /// Takes the name in `NamesColl`. A taken name is told, and then reads `kErrorName`; a comment or a log takes the
    /// next free number instead, in its caption.
    void setKeyName(const std::string& value);

    const std::string& Caption() const { return caption_; }
    void setCaption(const std::string& value);
    /// Changes what the box shows and leaves its name alone.
    void showCaption(const std::string& value);
    /// The text that the box shows.
    std::string_view shownText() const;

    const std::string& Comment() const;
    void setComment(const std::string& value);

    bool Ready() const { return ready_; }
    void setReady(bool value);

    std::int32_t Color() const { return color_; }
    void setColor(std::int32_t value);

    bool Visible() const { return visible_; }
    void setVisible(bool value);

    const std::string& ToolTipText() const { return toolTipText_; }
    void setToolTipText(const std::string& value);

    std::int16_t MousePointer() const { return mousePointer_; }
    void setMousePointer(std::int16_t value) { mousePointer_ = value; }

    bool Expanded = false;  ///< zoom view: the node shows its children
    std::int32_t ReadyColor = 0;
    std::int32_t NotReadyColor = 0;
    NodeProperties Properties = std::int16_t{0};

    /// The edges that start and that end here, in order of addition; `LinesD::attach` writes them.
    const LineNumbers& StartingLines() const { return lines_[0]; }
    const LineNumbers& EndingLines() const { return lines_[1]; }
    void StartingLinesClear();  ///< detaches all edges that start here
    void EndingLinesClear();

    /// The entity of that kind, or nothing.
    template <class Entity>
    const Entity* entity() const {
        const auto* held = std::get_if<platform::Shared<Entity>>(&Properties);
        return held ? held->get() : nullptr;
    }
    template <class Entity>
    Entity* entity() {
        auto* held = std::get_if<platform::Shared<Entity>>(&Properties);
        return held ? held->get() : nullptr;
    }
    const entities::ActivityProperties* activity() const { return entity<entities::ActivityProperties>(); }
    entities::ActivityProperties* activity() { return entity<entities::ActivityProperties>(); }
    const entities::RecordSetProperties* recordSet() const { return entity<entities::RecordSetProperties>(); }
    entities::RecordSetProperties* recordSet() { return entity<entities::RecordSetProperties>(); }

    /// A share in the entity, whatever its kind; nothing for a plain number.
    std::shared_ptr<const void> entityShare();

    /// The identifier of the node's own row in the repository, or nothing for a kind that is never a row.
    const std::int16_t* rowIdentifier() const;
    std::int16_t* rowIdentifier();

    /// Where an edge attaches: a place 50 twips outside the box. Four points in the middle of the sides from the left
    /// clockwise; an activity has two inputs on the left (1, 2), the right end (4) and two points above and below.
    Point GrabPoint(int GrabbingPoint) const;

    /// The image of the arrow head at a grab point ("ArrowR", ...), empty for an unknown number.
    std::string_view LineArrowDirection(int GrabbingPoint) const;

    /// The grab point meant by a pointer at `x`, `y` inside the box. Stores it in the canvas' `GrabbingPoint`, and
    /// gives its place.
    Point DrawRect(float x, float y);

  private:
    friend class LabelsCollection;
    friend class LinesD;
    friend class CanvasRestorer;

    void tell();
    void tellLook();
    LineNumbers& linesAt(EdgeEnd which) { return lines_[static_cast<std::size_t>(which)]; }
    void detachAll(EdgeEnd which);
    void takeName(const std::string& value);
    void moved();
    void takeNumberedName(std::string_view word, const std::string& taken);
    void releaseNames();

    Graph& graph_;
    NodeNumber index_;
    NodeTypeCode nodeType_{};
    Box box_;
    std::int32_t color_ = 0;
    std::int16_t mousePointer_ = 0;
    bool ready_ = false;
    bool visible_ = false;
    bool told_ = false;  ///< false while the node is being made
    std::array<LineNumbers, 2> lines_;
    std::string keyName_;
    std::string caption_;
    std::string toolTipText_;
};

/// The nodes of one canvas, in order of creation.
class LabelsCollection : public IndexedTable<LabelsD, NodeNumber> {
  public:
    explicit LabelsCollection(Canvas& canvas) : canvas_(canvas) {}

    /// A new node with an empty entity of its kind. An empty `KeyName` takes the caption as name.
    LabelsD& Add(const Box& box, const std::string& Caption, NodeTypeCode NodeType, const std::string& KeyName = {});

    /// A new node for an entity that exists already. An empty or a taken `KeyName` leaves it without a name, silently:
    /// `KeyName` reads `kErrorName` then.
    LabelsD& AddShown(const Box& box, const std::string& Caption, NodeTypeCode NodeType, const std::string& KeyName,
                      NodeProperties entity);

    /// A node under the `Index` that it had; nothing is found until `arrange` has put it in its place. Nobody is told.
    LabelsD& restore(NodeNumber index, const Box& box, NodeTypeCode NodeType);
    using IndexedTable::arrange;

    /// A copy of a node of another canvas; its entity is a clone.
    LabelsD& addLabel(const LabelsD& Label);

    /// Removes the node with all its edges, and drops it from the selection. Hands it back, nothing when there is none.
    std::unique_ptr<LabelsD> Remove(NodeNumber index);

    /// Removes all nodes, the last one first.
    void Clear();

  private:
    /// A new node that nobody is told of yet; `show` tells.
    LabelsD& make(const Box& box, const std::string& Caption, NodeTypeCode NodeType, const std::string& KeyName = {});
    LabelsD& beginNode(const Box& box, NodeTypeCode NodeType);
    void finishNode(LabelsD& node, NodeProperties entity);
    static LabelsD& show(LabelsD& node);

    Canvas& canvas_;
};

}  // namespace orvent::canvas
