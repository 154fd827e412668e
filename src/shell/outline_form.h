#pragma once

#include <functional>
#include <memory>
#include <string>

#include "analysis/outline.h"
#include "canvas/draw_form.h"

namespace orvent::shell {

/// What the outline asks of the frame.
class OutlinePorts {
  public:
    virtual ~OutlinePorts() = default;

    /// Selects a node of the scenario in front and brings it into view.
    virtual void showNode(canvas::NodeNumber node) = 0;
    /// Opens the window of a node, with a member of it selected.
    virtual void openPlace(const analysis::Place& place) = 0;
    /// Whether a node can be given another name now.
    virtual bool mayRename(const analysis::Place& place) const = 0;
    /// Gives it another name. False when that was refused, which was told.
    virtual bool rename(const analysis::Place& place, const std::string& name) = 0;
};

/// The outline of the scenario in front: it follows the selection and sets it.
class OutlineForm {
  public:
    using Row = analysis::Outline::Row;

    OutlineForm(OutlinePorts& ports, const entities::CatalogueTables& tables) : ports_(ports), tables_(tables) {}

    // Set by the window.
    std::function<void()> onOutline;  ///< there is another outline, or none
    std::function<void()> onFollow;   ///< another node may be selected

    /// Nothing while it is closed, and when no scenario is in front.
    analysis::Outline* outline() const { return outline_.get(); }

    /// A row became the current one: its node is shown.
    void choose(const Row& row);
    /// Opens the window of a node, or of a member's node. Of a far end gives the row where it stands.
    Row* open(const Row& row);
    bool mayRename(const Row& row) const;
    bool rename(const Row& row, const std::string& name);
    /// The row of the only selected node, or nothing.
    Row* selected() const;

    /// False: it is closed.
    void show(bool shown);
    /// Another scenario is in front, or none.
    void watch(canvas::DrawForm* form);
    canvas::DrawForm* watched() const { return form_; }
    void touch(const canvas::Touched& touched);
    void follow() const {
        if (outline_ && onFollow) {
            onFollow();
        }
    }

  private:
    void renew();

    OutlinePorts& ports_;
    const entities::CatalogueTables& tables_;
    canvas::DrawForm* form_ = nullptr;
    bool shown_ = false;
    std::unique_ptr<analysis::Outline> outline_;
};

}  // namespace orvent::shell
