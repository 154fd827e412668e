#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/canvas_form.h"
#include "canvas/canvas_host.h"
#include "canvas/canvas_rules.h"
#include "canvas/deletion.h"

namespace orvent::canvas {

/// What lies topmost under the pointer. The view finds it; a visible handle lies above a node.
enum class Element { picture, node, handle, outside };

struct Hit {
    Element element = Element::picture;
    std::int32_t number = 0;  ///< the node's `Index`, or the handle's number (`StartBox`, `MidBox`, `EndBox`)
    std::int32_t below = 0;   ///< the node under the handle, 0 for none

    bool operator==(const Hit&) const = default;
};

/// Codes of the mouse buttons; held buttons are added up.
enum MouseButton : int { NoButton = 0, LeftButton = 1, RightButton = 2 };

/// One event of the mouse. `hit` is what lies under the pointer now, also while a button is held; `outside` is what is
/// not part of the canvas' window.
struct PointerEvent {
    Hit hit;
    Point at;               ///< twips on the picture
    int button = NoButton;  ///< press, release: the button that changed; move: the buttons held
    bool ctrl = false;
};

/// What a canvas is doing with the pointer.
enum class PointerState { idle, drawing, pending, draggingNode, draggingHandle, resizing, cropping, editing };

/// What the gestures of a canvas lean on. All of it outlives the `CanvasPointer`.
struct PointerPorts {
    ToolState& tools;
    CanvasWindows& windows;
    EntityLinks& links;
};

/// Codes of the keys of a canvas. The arrows move the selection from node to node, and Escape gives up the gesture.
enum KeyCode : int { EscapeKey = 27, LeftKey = 37, UpKey = 38, RightKey = 39, DownKey = 40, DeleteKey = 46 };

/// The gestures of a canvas: which change of the graph or of the selection a press, a move and a release mean, by the
/// tool in use. The window forwards its events, one call each, and paints what the canvas then says: nodes, edges
/// and, above them, `Grabber` (while `GrabberVisible`), `CroppingRect`, `ResizeLabel`, `DragOutline`, the edge being
/// drawn (`drawnEdge`, a member of `Lines` without a target) and the editor of `EditedComment`. A change of those is
/// told by `markersChanged()`; a change of `PicForm` is told the same way.
///
/// While a button is held, events belong to the element where it was pressed, wherever the pointer is. At most one
/// gesture is under way; a node or an edge that goes in the middle of it ends it and leaves nothing behind.
///
/// The window's logic and the ports outlive it. Make one for each window, beside the view.
class CanvasPointer : private CanvasListener {
  public:
    CanvasPointer(CanvasForm& form, const PointerPorts& ports);
    ~CanvasPointer() override;
    CanvasPointer(const CanvasPointer&) = delete;
    CanvasPointer& operator=(const CanvasPointer&) = delete;

    // One call for each event of the window. A double click is told after the press, move and release before it.
    void press(const PointerEvent& event);
    void move(const PointerEvent& event);
    void release(const PointerEvent& event);
    void doubleClick(const PointerEvent& event);

    /// True when the key means something to the canvas. `DeleteKey` does not while a button is held or a comment is
    /// edited.
    bool keyDown(int keyCode);

    /// An item of a context menu was chosen; `name` is the item's own.
    void choose(std::string_view name);

    /// How an item of the menu opened last stands.
    ItemState stateOf(const ContextItem& item) const;

    /// The text in the editor of `EditedComment` changed. Nothing while no comment is edited.
    void editComment(const std::string& text);
    /// The editor was left.
    void endEditing();

    /// Gives up the gesture under way: Escape, a change of tool, the window is deactivated or closed, a command of the
    /// frame is about to run. Graph and markers are as before the gesture, and so is the selection that a crop changed;
    /// the text of a comment stays as edited. The next release means nothing.
    void cancel();

    /// The window took the focus.
    void focused();

    PointerState state() const { return state_; }
    /// The edge that is being drawn, -1 for none. Its end handle is not to be shown.
    std::int32_t drawnEdge() const { return drawnEdge_; }
    /// Number of the handle that is being dragged, 0 for none; `DragOutline` is where it would go.
    std::int32_t draggedHandle() const { return state_ == PointerState::draggingHandle ? captured_.number : 0; }

  private:
    void nodeGoes(const LabelsD& node) override;
    void edgeGoes(const LinesD& edge) override;
    bool gestureNeeds(std::int32_t node) const;

    // Presses, by the element.
    void pressPicture(const PointerEvent& event);
    void pressNode(LabelsD& node, const PointerEvent& event);
    void pressNodeMenu(LabelsD& node, const PointerEvent& event);
    void pressHandle(LinesD& edge, const PointerEvent& event);
    void showMenu(std::string_view name, Point at);

    // Moves without a button, by the element.
    void hover(const PointerEvent& event);
    void hoverPicture();
    void hoverNode(LabelsD& node, Point inside);
    void hoverHandle(LinesD& edge);
    void leaveNode();
    void leaveEdge();
    void showGrabber(LabelsD& node, Point inside);
    void hideGrabber();

    // Drawing an edge.
    void beginEdge(LabelsD& source, Point inside, EdgeTypeCode edgeType);
    void followEdge(Point at);
    void setCorner(Point at);
    void decideEdge(LabelsD* target);
    std::int32_t takeDrawnEdge();

    // Moving a node, and a handle of an edge.
    void beginMove(Point inside);
    void dropNode(const PointerEvent& event);
    void dropHandle(const PointerEvent& event);
    void dropEnd(LinesD& edge, HandlePart part, LabelsD& target, Point inside);
    void drag(Point corner, float width, float height, Point at);

    // Resizing a node.
    void beginResize(const LabelsD& node, Point inside);
    void followResize(const LabelsD& node, Point inside);
    void dropResize(LabelsD& node);

    // The crop rectangle.
    void beginCrop(Point at);
    void followCrop(Point at);

    void follow(const PointerEvent& event);
    void begin(PointerState state);
    void end();
    void dropIfToolChanged();
    bool deleteSelected();
    void restoreMenuTargets();
    void runAction(const ContextItem& item);
    Hit meant(const Hit& hit) const;
    LabelsD* nodeAt(const Hit& hit) const;
    LinesD* edgeAt(const Hit& hit) const;

    CanvasForm& canvas_;
    PointerPorts ports_;
    CanvasSubscription subscription_;
    PointerState state_ = PointerState::idle;
    bool captures_ = false;  ///< the left button is held, and events belong to `captured_`
    Hit captured_;
    Point pressedAt_;
    std::string tool_;  ///< with which the gesture began
    std::int32_t drawnEdge_ = -1;
    std::int32_t grabNode_ = -1;                 ///< the node over which `GrabMark` was found
    std::int32_t menuNode_ = -1;                 ///< `ActiveLabel` as the last menu was opened
    std::int32_t menuEdge_ = -1;                 ///< `ActiveEdge`, likewise
    std::vector<std::int32_t> formerSelection_;  ///< of nodes, as a crop began
};

}  // namespace orvent::canvas
