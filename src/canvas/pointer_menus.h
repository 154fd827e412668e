#pragma once

#include <cstdint>
#include <string_view>

#include "canvas/canvas_form.h"
#include "canvas/canvas_host.h"
#include "canvas/canvas_rules.h"
#include "canvas/deletion.h"

namespace orvent::canvas {

/// What the gestures of a canvas lean on. All of it outlives the `CanvasPointer`.
struct PointerPorts {
    ToolState& tools;
    CanvasWindows& windows;
    EntityLinks& links;
};

/// The context menus of a canvas: which one belongs to what was pressed, and what its items do. It keeps for what the
/// last one was opened, since the pointer may touch other elements on its way to the item.
class PointerMenus {
  public:
    PointerMenus(CanvasForm& canvas, const PointerPorts& ports) : canvas_(canvas), ports_(ports) {}

    /// The right button was pressed on a node, or on an edge.
    void pressNode(LabelsD& node, Point at);
    void pressEdge(LinesD& edge, Point at);
    /// Opens the menu of the node selected last, or else of the edge. False when nothing is selected.
    bool openSelected();

    /// An item was chosen; `name` is the item's own.
    void choose(std::string_view name);
    /// How an item of the menu opened last stands.
    ItemState stateOf(const ContextItem& item) const;

  private:
    void show(std::string_view name, Point at);
    void restoreTargets();
    void run(const ContextItem& item);
    void showLinks(const LinesD& edge);

    CanvasForm& canvas_;
    PointerPorts ports_;
    NodeNumber node_ = kNoNode;  ///< `ActiveLabel` as the last menu was opened
    EdgeNumber edge_ = kNoEdge;  ///< `ActiveEdge`, likewise
};

}  // namespace orvent::canvas
