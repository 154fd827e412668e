#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "canvas/canvas.h"
#include "canvas/context_menus.h"

namespace orvent::canvas {

/// What a gesture means on one kind of canvas. The gestures themselves are the same on the design and the zoom window;
/// these answers are what differs.
class CanvasRules {
  public:
    virtual ~CanvasRules() = default;

    /// A press with a tool at a place that was snapped to the grid: makes the node that the tool stands for. Gives the
    /// node when its dialog is to be opened, and nothing otherwise.
    virtual LabelsD* placeNode(Canvas& canvas, std::string_view tool, Point at) = 0;

    /// Whether the tool places nodes on this canvas.
    virtual bool places(std::string_view tool) const = 0;

    /// The `EdgeType` that the tool draws, or nothing when it is no edge tool of this canvas.
    virtual std::optional<EdgeTypeCode> edgeTypeOf(std::string_view tool) const = 0;

    /// Whether an edge of that kind may start at the node.
    virtual bool mayStart(EdgeTypeCode edgeType, const LabelsD& source) const = 0;

    /// Whether an edge of that kind from one node to the other would stay. While one is drawn, this is asked of every
    /// node, and those at which it cannot end are dimmed.
    virtual bool mayRelate(const Canvas& canvas, EdgeTypeCode edgeType, const LabelsD& from,
                           const LabelsD& to) const = 0;

    /// An end of the edge (`atStart`: its source) was dropped on a node that is neither of its ends. False: the edge
    /// stays as it is. Where it may move, what stands behind it is given up here; `edgeCompleted` follows.
    virtual bool mayRedirect(Canvas& canvas, LinesD& edge, bool atStart, const LabelsD& target) = 0;

    /// An edge was drawn, or one of its ends was moved to another node. It goes with a message when its two ends do not
    /// suit; the reference is dead then.
    virtual void edgeCompleted(Canvas& canvas, LinesD& edge) = 0;

    /// Nodes or edges were deleted: what is shown of the graph besides follows.
    virtual void edited(Canvas&) {}

    /// The middle handle was dropped on one of the edge's own end nodes.
    virtual void middleOnOwnEnd(LinesD& edge) = 0;

    /// Whether a selected edge may be deleted; what stands behind the edge is given up here.
    virtual bool releaseEdge(Canvas& canvas, LinesD& edge) = 0;

    /// Whether a node of this canvas may be deleted; when it may, it goes at once.
    virtual bool mayDelete(Canvas& canvas, const LabelsD& node) = 0;

    /// A function's node is about to be deleted: gives up what stands behind it. False: it stays.
    virtual bool releaseFunction(Canvas& canvas, LabelsD& node) = 0;

    /// The context menus of this canvas, `EdgesM` among them.
    virtual std::span<const ContextMenu> menus() const = 0;

    /// Shows the members of a node as nodes of their own, or folds them. False: the whole window is to be closed
    /// instead.
    virtual bool toggleExpanded(Canvas& canvas, LabelsD& node) = 0;

    /// What is lit while the pointer rests on a node. Empty: nothing is dimmed.
    virtual Light pathOf(const Canvas&, const LabelsD&) const { return {}; }

    /// Whether an item can be chosen for the node on which its menu opens (nothing for a menu of edges), and its check
    /// mark.
    virtual ItemState stateOf(const Canvas&, const ContextItem& item, const LabelsD* node) const {
        return item.action == MenuAction::expanded ? ItemState{true, node && node->Expanded} : ItemState{};
    }
};

/// The rules of the design window.
class DesignRules : public CanvasRules {
  public:
    LabelsD* placeNode(Canvas& canvas, std::string_view tool, Point at) override;
    bool places(std::string_view tool) const override;
    std::optional<EdgeTypeCode> edgeTypeOf(std::string_view tool) const override;
    bool mayStart(EdgeTypeCode edgeType, const LabelsD& source) const override;
    bool mayRelate(const Canvas& canvas, EdgeTypeCode edgeType, const LabelsD& from, const LabelsD& to) const override;
    bool mayRedirect(Canvas& canvas, LinesD& edge, bool atStart, const LabelsD& target) override;
    void edgeCompleted(Canvas& canvas, LinesD& edge) override { CheckRelationship(canvas, edge); }
    void middleOnOwnEnd(LinesD& edge) override;
    bool releaseEdge(Canvas& canvas, LinesD& edge) override;
    bool mayDelete(Canvas& canvas, const LabelsD& node) override;
    bool releaseFunction(Canvas& canvas, LabelsD& node) override;
    std::span<const ContextMenu> menus() const override { return designMenus(); }
    bool toggleExpanded(Canvas& canvas, LabelsD& node) override;

    /// Removes the edge, with a message, when nodes of these kinds may not be joined by it. True when it is valid.
    static bool CheckRelationship(Canvas& canvas, LinesD& edge);
};

/// The next default name made of a word and a counter. A loaded scenario may hold names that were given by default, so
/// taken ones are passed over.
std::string freeName(const Canvas& canvas, std::string_view word, std::int32_t& counter);

/// `v` on the grid of 100 twips on which tools place nodes; ties go to the even multiple.
float SnapToGrid(float v);

}  // namespace orvent::canvas
