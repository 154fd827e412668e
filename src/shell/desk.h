#pragma once

#include <optional>

#include "canvas/canvas_form.h"
#include "canvas/context_menus.h"
#include "canvas/fit_to_names.h"
#include "canvas/node_notes.h"
#include "canvas/tints.h"

namespace orvent::shell {

/// How a window shows its picture; the model stays as it is.
enum class ViewChange { larger, smaller, actualSize, fit };

/// What the whole picture of a canvas is painted on: a page of the printer that the user chooses, or the same shown
/// first.
enum class PictureTarget { printer, preview };

/// The windows with a canvas on screen, whatever their kind.
class Desk : public canvas::NameMeasure {
  public:
    /// Makes the window of a form, shows it and makes it the active child.
    virtual void show(canvas::CanvasForm& form) = 0;
    /// Takes the window away. The form is gone after the call.
    virtual void drop(canvas::CanvasForm& form) = 0;
    /// The form of the active child window, or nothing.
    virtual canvas::CanvasForm* active() = 0;

    virtual void changeView(canvas::CanvasForm& form, ViewChange change) = 0;
    /// Brings the window forward and scrolls so far that the node is seen.
    virtual void reveal(canvas::CanvasForm& form, const canvas::LabelsD& node) = 0;
    /// The middle of the part of the picture that the window shows.
    virtual canvas::Point middleOf(const canvas::CanvasForm& form) const = 0;
    /// Gives the window the keyboard, and edits what is written in its only selected node.
    virtual void beginTyping(canvas::CanvasForm& form) = 0;
    /// Brings a new window forward with its whole picture, or, where that would be too small to read, with the node in
    /// the middle.
    virtual void present(canvas::CanvasForm& form, const canvas::LabelsD& node) = 0;
    /// Shows the nodes in shades, which last as long as they are shown, or in their own colours again for nothing. To
    /// be called again when the shades were counted anew.
    virtual void showTints(canvas::CanvasForm& form, canvas::Tints* tints) = 0;
    /// Shows notes at the nodes as long as they are shown, or none for nothing. To be called again when they are
    /// others.
    virtual void showNotes(canvas::CanvasForm& form, const canvas::NodeNotes* notes) = 0;
    /// Pops a context menu up at a place of the picture.
    virtual void showMenu(canvas::CanvasForm& form, const canvas::ContextMenu& menu, canvas::Point at) = 0;
    /// Where the pointer is in the picture of that window, or nothing while it is elsewhere.
    virtual std::optional<canvas::Point> pointerIn(const canvas::CanvasForm& form) const = 0;
    /// Paints the whole picture, with the shades that its window shows. A dialog that is cancelled or a printer that
    /// fails is not told.
    virtual void paint(canvas::CanvasForm& form, PictureTarget target) = 0;
};

}  // namespace orvent::shell
