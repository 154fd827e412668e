#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "canvas/canvas_form.h"
#include "canvas/node_tip.h"
#include "canvas/pointer_event.h"
#include "canvas/pointer_gesture.h"
#include "canvas/pointer_hover.h"
#include "canvas/pointer_menus.h"
#include "canvas/pointer_targets.h"
#include "canvas/second_click.h"
#include "canvas/selection_keys.h"
#include "canvas/view_state.h"

namespace orvent::canvas {

/// The gestures of a canvas: which change of the graph or of the selection a press, a move and a release mean, by the
/// tool in use. The window forwards its events, one call each, and paints what the canvas then says: nodes, edges and
/// the edge being drawn (a member of `Lines` without a target); and above them what stands in its view's state:
/// `Grabber` (while `GrabberVisible`), `CroppingRect`, `ResizeLabel`, `DragOutline` and the editors of `EditedComment`
/// and `NamedNode`.
///
/// While a button is held, events belong to the element where it was pressed, wherever the pointer is. At most one
/// gesture is under way; a node or an edge that goes in the middle of it ends it and leaves nothing behind.
///
/// The window's logic, the view's state and the ports outlive it. Make one for each view.
class CanvasPointer : private CanvasListener {
  public:
    CanvasPointer(CanvasForm& form, ViewState& view, const PointerPorts& ports);
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
    bool keyDown(int keyCode, bool ctrl = false);

    /// An item of a context menu was chosen; `name` is the item's own.
    void choose(std::string_view name) {
        cancel();
        menus_.choose(name);
    }

    /// How an item of the menu opened last stands.
    ItemState stateOf(const ContextItem& item) const { return menus_.stateOf(item); }

    /// The text in the editor of `EditedComment` changed. Nothing while no comment is edited.
    void editComment(const std::string& text);
    /// The editor was left.
    void endEditing();

    /// Edits the name of the only selected node in its box. False where there is none that can be named there.
    bool beginNaming();
    /// Edits what is written in the only selected node, in its box: the text of a comment, or else the name.
    void beginTyping();
    /// Something from the list of types is dragged over the picture. False where it cannot be dropped, which is told.
    bool dragOver(const std::string& key, const Hit& hit);
    void drop(const std::string& key, const Hit& hit, Point at);
    /// The editor of `NamedNode` gives its text: the node takes it as its name, and the editor ends. When it is
    /// refused, an editor begins with it.
    void takeName(const std::string& name);
    /// Whether the last press and release were a click on the only selected node, with the arrow: unless a double
    /// click follows, its name is meant.
    bool clickedAgain() const { return second_.isOne(); }

    /// Gives up the gesture under way: Escape, a change of tool, the window is deactivated or closed, a command of the
    /// frame is about to run. Graph and markers are as before the gesture, and so is the selection that a crop changed;
    /// the text of a comment stays as edited. The next release means nothing.
    void cancel();

    /// What is told of a node.
    NodeTip tipOf(const LabelsD& node) const {
        NodeTip tip = canvas::tipOf(node, ports_.windows.typeOf(node));
        tip.beyond = canvas_.beyondOf(node);
        return tip;
    }

    /// The window took the focus.
    void focused() { ports_.tools.canvasFocused(canvas_); }

    /// The tool resizes what it presses.
    bool resizes() const { return ports_.tools.DrawMode() == "Resize"; }

    PointerState state() const { return gesture_ ? gesture_->state() : PointerState::idle; }

  private:
    void nodeGoes(const LabelsD& node) override;
    void edgeGoes(const LinesD& edge) override;

    // Presses, by the element.
    void pressPicture(const PointerEvent& event);
    void pressNode(LabelsD& node, const PointerEvent& event);
    void pressEdge(LinesD& edge, const PointerEvent& event);

    template <class Kind, class... Start>
    void begin(Start&&... start) {
        tool_ = ports_.tools.DrawMode();
        gesture_ = std::make_unique<Kind>(canvas_, std::forward<Start>(start)...);
    }
    void hover(const PointerEvent& event);
    void dropIfToolChanged();
    bool deleteSelected();

    // Keys.
    bool escape();
    bool arrow(int keyCode, bool ctrl);
    bool enter();
    bool joinFrom(const LabelsD& node, EdgeTypeCode edgeType);

    CanvasForm& canvas_;
    ViewState& view_;
    PointerPorts ports_;
    PointerTargets targets_;
    PointerHover hover_;
    PointerMenus menus_;
    SelectionKeys keys_;
    CanvasSubscription subscription_;
    std::unique_ptr<Gesture> gesture_;  ///< under way, or nothing
    std::string tool_;                  ///< with which it began
    bool captures_ = false;             ///< the left button is held, and events belong to where it was pressed
    SecondClick second_;
    std::string whyNot_;  ///< told last of what is dragged
};

}  // namespace orvent::canvas
