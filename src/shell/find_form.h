#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "analysis/text_search.h"
#include "canvas/canvas_form.h"
#include "platform/letter_case.h"

namespace orvent::shell {

/// What the search asks of the frame.
class FindPorts {
  public:
    virtual ~FindPorts() = default;

    /// What of a canvas is unfinished.
    virtual analysis::Unfinished unfinishedOf(canvas::CanvasForm& form) const = 0;
    /// Selects a node and brings it into view.
    virtual void goTo(canvas::CanvasForm& form, const canvas::LabelsD& node) = 0;
    /// Shows a member in the window of its node.
    virtual void openMember(canvas::CanvasForm& form, canvas::LabelsD& node, const analysis::Place& place) = 0;
};

/// A hit as the list shows it.
struct FindRow {
    std::string place;          ///< the node, and its member
    std::string what;           ///< what is there, and which of its texts: "Input, key"
    std::string text;           ///< a line of it
    platform::TextRange found;  ///< in `text`
};

/// The search in the window in front: a canvas is searched as one types, piece by piece, and what was found is marked
/// in its picture.
class FindForm {
  public:
    FindForm(FindPorts& ports, const entities::CatalogueTables& tables) : ports_(ports), tables_(tables) {}

    /// Set by the window: rows have come at the end, or all of them are others.
    std::function<void(bool others)> onRows;

    const std::string& txtFind() const { return text_; }
    /// Searches as far as it goes at once, and on when the program is idle.
    void txtFind_Change(const std::string& text);
    int Count() const { return static_cast<int>(hits_.size()); }
    FindRow row(int position) const;  ///< 1-based
    int current() const { return current_; }
    /// How much was found, or what stands in the way.
    std::string status() const;

    /// A row becomes the current one, and its node is shown.
    void choose(int position);
    /// The same for the next row, or the one before; beyond the last one comes the first.
    void next(bool back);
    /// Shows the place itself: a member in the window of its node.
    void open(int position);

    /// False: it is closed. Nothing is searched then, and nothing marked.
    void show(bool shown);
    /// Another window is in front, or none.
    void watch(canvas::CanvasForm* form);
    canvas::CanvasForm* watched() const { return form_; }
    /// These have changed; the rows follow when the program is idle.
    void touch(const canvas::Touched& touched);
    void touchAll();
    /// Other things are unfinished than before.
    void followUnfinished();
    /// Goes on. False when there is nothing more to do.
    bool idle();

  private:
    std::unique_ptr<analysis::TextSearch> newSearch() const;
    void begin();
    void searchAnew();
    void take(bool others);
    void mark();
    const analysis::TextHit* hitAt(int position) const;

    FindPorts& ports_;
    const entities::CatalogueTables& tables_;
    canvas::CanvasForm* form_ = nullptr;
    std::string text_;
    bool shown_ = false;
    std::unique_ptr<analysis::TextIndex> index_;
    std::unique_ptr<analysis::TextSearch> search_;
    std::vector<analysis::TextHit> hits_;
    std::vector<analysis::TextHit> renewed_;  ///< takes the place of `hits_` when the search has ended
    bool renews_ = false;
    int current_ = 0;
};

}  // namespace orvent::shell
