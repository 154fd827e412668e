#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "canvas/canvas_form.h"
#include "canvas/context_menus.h"
#include "canvas/pointer_event.h"

namespace orvent::canvas {

/// The pressed tool, and what the tool bars have to know of a canvas.
class ToolState {
  public:
    virtual ~ToolState() = default;

    /// Key of the tool that is pressed ("Move", "Provider", "RecordSet", ...), empty while none ever was.
    virtual const std::string& DrawMode() const = 0;

    /// A part of this canvas took the focus: the tools of its kind are switched on. Called at every press, so it costs
    /// nothing when they are on already.
    virtual void canvasFocused(const Canvas& canvas) = 0;

    /// Presses the tool of that key, or the one of that letter ('A' to 'Z'). False when there is none that is enabled.
    virtual bool pressTool(std::string_view key) = 0;
    virtual bool pressLetter(char letter) = 0;

    /// Tells for a moment why a gesture left nothing.
    virtual void hint(std::string_view words) = 0;

    /// The pointer moves over the picture: a palette that was torn off a moment ago is placed at the pointer, once.
    virtual void pictureReached() = 0;
};

/// What a canvas asks to be shown on its behalf; `form` is always the window with the canvas. A dialog may be modal or
/// not; the canvas does nothing after the call.
class CanvasWindows {
  public:
    virtual ~CanvasWindows() = default;

    /// The dialog of the node's kind: `RecordSetProp`, `SetActProp`, ...
    virtual void openProperties(CanvasForm& form, LabelsD& node) = 0;

    /// The zoom view of an activity that has a type.
    virtual void openZoom(CanvasForm& form, LabelsD& activity) = 0;

    /// The template wizard on an activity.
    virtual void openTemplateWizard(CanvasForm& form, LabelsD& activity) = 0;

    /// The catalogue's name of the node's type: that of an activity or a function, or the data type of an attribute or
    /// a parameter. Empty for other nodes, and while no type is chosen that the catalogue holds.
    virtual std::string typeOf(const LabelsD& node) const = 0;

    /// Closes a window as by its own close button: it may ask, and it may stay.
    virtual void close(CanvasForm& form) = 0;

    /// Scrolls so far that the node is seen.
    virtual void reveal(CanvasForm& form, const LabelsD& node) = 0;

    /// What is edited when a node is named in its box; nothing where its name cannot be edited there.
    virtual std::optional<std::string> nameInPlace(CanvasForm& form, const LabelsD& node) = 0;
    /// Gives a node another name. False when that was refused, which was told; then nothing has changed.
    virtual bool rename(CanvasForm& form, LabelsD& node, const std::string& name) = 0;

    /// Why what was dragged here from the list of types cannot be dropped at that place, empty when it can. `key` is
    /// what the list calls it.
    virtual std::string whyNotPlaced(const CanvasForm& form, const std::string& key, const Hit& hit) const = 0;
    /// Drops it: a node comes, alone selected, and its name is edited.
    virtual void place(CanvasForm& form, const std::string& key, const Hit& hit, Point at) = 0;

    /// Does with the selected nodes what the Edit menu would.
    virtual void edit(CanvasForm& form, EditAction action) = 0;

    /// Pops a menu up at a place of the picture. It comes back at once; the chosen item's name goes to
    /// `CanvasPointer::choose`.
    virtual void showMenu(CanvasForm& form, const ContextMenu& menu, Point at) = 0;
};

}  // namespace orvent::canvas
