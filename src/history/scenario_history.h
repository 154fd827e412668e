#pragma once

#include <functional>
#include <string>
#include <vector>

#include "history/remembered.h"

namespace orvent::history {

/// What was done to a scenario since its window was opened, step by step. It can be gone back over, and forward again;
/// a new step drops those that lie ahead. What the next save has to delete is never remembered but follows from what is
/// stored of this scenario now.
class ScenarioHistory {
  public:
    static constexpr std::size_t kMostSteps = 200;
    static constexpr std::size_t kMostBytes = 100U << 20U;  ///< of all steps; older ones are dropped beyond

    /// What is selected.
    struct Selection {
        std::vector<canvas::NodeNumber> nodes;
        std::vector<canvas::EdgeNumber> edges;
        bool operator==(const Selection&) const = default;
    };
    /// One command or gesture that has changed the scenario.
    struct Step {
        std::string words;
        Difference difference;
        Selection before, after;
        std::size_t bytes = 0;
    };

    /// Begins with the window as it is, which gathers what is touched from now on.
    explicit ScenarioHistory(canvas::DrawForm& form);
    ScenarioHistory(const ScenarioHistory&) = delete;
    ScenarioHistory& operator=(const ScenarioHistory&) = delete;

    /// A command or gesture has ended. Gives the new step when it has changed the scenario, else nothing. Without words
    /// of its own the step is told by what it has changed; words that end with a blank are a verb for nodes that came.
    /// Readiness alone is no step: it belongs to the one before; what a dialog makes of it while it is open does not
    /// count.
    const Step* settle(const std::string& words = {}, bool dialogOpen = false);

    /// Something may have changed that the canvas does not tell: the next `settle` looks at all of the window.
    void touchAll() { all_ = true; }
    /// Whether `settle` has something to look at.
    bool waits() const;

    /// The window was filled: what it shows is the beginning, and is what is stored, unless something is unsaved.
    void beginAnew();

    const std::vector<Step>& steps() const { return steps_; }
    /// How many of the steps the scenario has behind it; the others lie ahead.
    std::size_t position() const { return position_; }
    /// Whether steps were dropped for their number or size.
    bool hasDropped() const { return dropped_; }
    /// Whether the scenario had no node when it was looked at last.
    bool isEmpty() const;
    bool canGoBack() const { return position_ > 0; }
    bool canGoForward() const { return position_ < steps_.size(); }
    /// Brings the scenario to where `position` steps lie behind it.
    void goTo(std::size_t position);

    const Remembered& remembered() const { return remembered_; }
    canvas::Touched takeChanged() { return remembered_.takeChanged(); }
    /// Whether all of the scenario is stored.
    bool isStored() const { return !beganUnsaved_ && !form_.stored.forced && remembered_.isStored(); }
    /// How many bytes of memory the steps take.
    std::size_t bytes() const { return bytes_; }

  private:
    Selection selection() const;
    void select(const Selection& selection);
    Difference look(bool dialogOpen);
    void noticeStore();
    void afterMove();
    void dropOldest();

    canvas::DrawForm& form_;
    Remembered remembered_;
    std::vector<Step> steps_;
    std::size_t position_ = 0;
    std::size_t bytes_ = 0;
    Selection selection_;                         ///< as it was when the window was looked at last
    std::vector<canvas::DeletedNode> inherited_;  ///< rows to delete of which no state is remembered
    bool all_ = false;
    bool beganUnsaved_ = false;
    bool dropped_ = false;
    std::uint32_t saves_ = 0;
    std::int16_t scenario_ = 0;
};

/// What a difference is, in words: "Deleted 3 nodes", "Moved Activity1".
std::string wordsOf(const Difference& difference, const Remembered& remembered, const std::string& verb = "Added ");

}  // namespace orvent::history
