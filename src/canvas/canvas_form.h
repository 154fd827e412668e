#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <variant>

#include "canvas/canvas.h"
#include "canvas/menu_item.h"
#include "canvas/tidy_up.h"

namespace orvent::canvas {

class CanvasRules;
class DrawForm;

/// A line above a canvas: what is amiss, and the button that mends it.
struct Offer {
    std::string words;
    std::string button;
};

/// A figure that is explained below a canvas: a kind of node, or one of edge.
struct LegendEntry {
    std::variant<NodeTypeCode, EdgeTypeCode> kind;
    const char* words;
};

/// A window with a canvas: the design window of a scenario, or a view over a part of one. The frame treats all of them
/// alike; what differs is asked here. Its listeners are told by `formChanged` when caption or `Enabled` change.
class CanvasForm : public Canvas {
  public:
    using Canvas::Canvas;

    WindowKind kind() const { return isZoom() ? WindowKind::zoom : WindowKind::design; }

    /// The design window of its scenario: itself, or the one from which it was opened.
    virtual DrawForm& scenario() = 0;

    /// What gestures and menus mean on its canvas.
    virtual CanvasRules& rules() = 0;

    /// Its own "Save": a design window goes to the repository, another one gives its changes to its scenario first.
    virtual void Save() = 0;

    /// The close request: asks what has to be asked, and does what the answer demands. False: the window stays.
    /// After true its holder drops it.
    virtual bool QueryUnload() = 0;

    /// What the window's title tells behind the caption, for display only.
    virtual std::string titleMark() const { return {}; }

    /// What the window offers above its canvas; taken by its button, or turned down.
    virtual std::optional<Offer> offer() const;
    virtual void answerOffer(bool taken);

    /// A gesture has drawn an edge. The first crooked one is offered to be straightened.
    virtual void edgeDrawn(const LinesD& edge);
    void forgetEdge(const LinesD& edge) override;
    /// Straightens one edge; the selection when that one belongs to it or when there is none.
    void straightenEdges(LinesD* edge);

    /// Tidies up the selected nodes, or all when fewer than two are selected, and offers to put them back until
    /// something changes. False when they stand in order already.
    bool tidyUp();

    /// The figures that the window explains below its canvas.
    virtual std::span<const LegendEntry> legend() const { return {}; }

    /// The window's title.
    const std::string& Caption() const { return caption_; }
    void setCaption(const std::string& value);

    /// False while one of its dialogs, or a view over it, is open: the window takes no input and is not closed.
    bool Enabled() const { return enabled_; }
    void setEnabled(bool value);

  protected:
    /// Tells that something has changed which the window shows beside its canvas.
    void tellForm();

  private:
    std::string caption_;
    EdgeNumber crooked_{};  ///< the edge that is offered to be straightened
    bool straightOffered_ = false;
    std::unique_ptr<PutBack> putBack_;  ///< after tidying up
    bool enabled_ = true;
};

}  // namespace orvent::canvas
