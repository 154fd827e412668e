#pragma once

#include <cstdint>
#include <string>

#include "canvas/pointer_menus.h"

namespace orvent::canvas {

/// Codes of the keys of a canvas; those of the letters are 'A' to 'Z'. The arrows move the selection from node to node,
/// with Ctrl they move the selected nodes. Escape gives up the gesture, or else presses the tool "Arrow". A letter
/// presses a tool. Enter places a node, or draws an edge from the selected node to the one selected at the next
/// Enter; with another tool it opens the dialog of the one selected node. F2 edits
/// the name of that in its box.
enum KeyCode : int {
    EnterKey = 13,
    EscapeKey = 27,
    LeftKey = 37,
    UpKey = 38,
    RightKey = 39,
    DownKey = 40,
    DeleteKey = 46,
    MenuKey = 93,
    RenameKey = 113
};

/// What keys do to the selected nodes of a canvas, and how they place a node. It knows nothing of gestures; whoever
/// calls it has ended the one under way.
class SelectionKeys {
  public:
    SelectionKeys(CanvasForm& canvas, const PointerPorts& ports) : canvas_(canvas), ports_(ports) {}

    static bool isArrow(int keyCode);
    /// The selection goes to the next node, or with `ctrl` the selected nodes move; what is meant then is revealed.
    void arrow(int keyCode, bool ctrl);
    /// Places a node of the tool as near to `middle` as there is room, and selects it.
    void placeNear(Point middle);
    /// The dialog of the one selected node. False when there is not exactly one.
    bool openSelected();
    void deleteSelected();

    /// The one selected node. Nothing when there is not exactly one.
    LabelsD* onlySelected() const { return canvas_.SelectedLabels.Count() == 1 ? selectedNode() : nullptr; }
    /// The node selected last, or nothing.
    LabelsD* selectedNode() const;

  private:
    CanvasForm& canvas_;
    PointerPorts ports_;
};

}  // namespace orvent::canvas
