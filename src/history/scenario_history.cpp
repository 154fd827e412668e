#include "history/scenario_history.h"

#include <algorithm>
#include <utility>

namespace orvent::history {

ScenarioHistory::ScenarioHistory(canvas::DrawForm& form) : form_(form) {
    beginAnew();
}

void ScenarioHistory::beginAnew() {
    form_.touched.emplace();
    steps_.clear();
    position_ = 0;
    bytes_ = 0;
    all_ = dropped_ = false;
    remembered_.take(form_);
    selection_ = selection();
    saves_ = form_.stored.times;
    scenario_ = form_.ScenarioID;
    beganUnsaved_ = form_.stored.changed;
    inherited_.clear();
    for (const canvas::DeletedNode& row : *form_.DeletedNodes) {
        inherited_.push_back(row);
    }
    if (scenario_ != 0) {
        remembered_.stored();
    } else {
        remembered_.nothingStored();
    }
}

ScenarioHistory::Selection ScenarioHistory::selection() const {
    return {form_.SelectedLabels.members(), form_.SelectedLines.members()};
}

bool ScenarioHistory::isEmpty() const {
    return !remembered_.nodes().eachOther({}, [](std::size_t) { return true; });
}

bool ScenarioHistory::waits() const {
    return all_ || !form_.touched->empty() || saves_ != form_.stored.times || scenario_ != form_.ScenarioID;
}

Difference ScenarioHistory::look(bool dialogOpen) {
    const bool stored = saves_ != form_.stored.times || scenario_ != form_.ScenarioID;
    Difference difference = std::exchange(all_, false) || stored
                                ? remembered_.updateAll(form_)
                                : remembered_.update(form_, *form_.touched, dialogOpen);
    form_.touched->clear();
    if (stored) {
        noticeStore();
    }
    return difference;
}

/// What is stored of the scenario is another thing than before.
void ScenarioHistory::noticeStore() {
    if (saves_ != form_.stored.times) {
        remembered_.stored();
        beganUnsaved_ = false;
        inherited_.clear();
    } else if (form_.ScenarioID == 0) {
        remembered_.nothingStored();
    }
    saves_ = form_.stored.times;
    scenario_ = form_.ScenarioID;
}

const ScenarioHistory::Step* ScenarioHistory::settle(const std::string& words, bool dialogOpen) {
    Selection now = selection();
    if (!waits()) {
        selection_ = std::move(now);
        return nullptr;
    }
    Difference difference = look(dialogOpen);
    Selection before = std::exchange(selection_, now);
    if (difference.empty()) {
        return nullptr;
    }
    if (difference.isReadinessAlone()) {
        if (position_ > 0) {
            steps_[position_ - 1].difference.goOn(difference);
        }
        return nullptr;
    }
    for (std::size_t ahead = position_; ahead < steps_.size(); ++ahead) {
        bytes_ -= steps_[ahead].bytes;
    }
    steps_.resize(position_);
    std::string told = words.empty()         ? wordsOf(difference, remembered_)
                       : words.back() == ' ' ? wordsOf(difference, remembered_, words)
                                             : words;
    Step step{std::move(told), std::move(difference), std::move(before), std::move(now), 0};
    step.bytes = step.difference.bytes() + sizeof(Step) +
                 sizeof(std::int32_t) * (step.before.nodes.size() + step.before.edges.size() + step.after.nodes.size() +
                                         step.after.edges.size());
    bytes_ += step.bytes;
    steps_.push_back(std::move(step));
    position_ = steps_.size();
    dropOldest();
    return steps_.empty() ? nullptr : &steps_.back();
}

void ScenarioHistory::dropOldest() {
    std::size_t dropped = 0;
    while (dropped + 1 < steps_.size() && (steps_.size() - dropped > kMostSteps || bytes_ > kMostBytes)) {
        bytes_ -= steps_[dropped++].bytes;
    }
    dropped_ = dropped_ || dropped > 0;
    steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(dropped));
    position_ -= dropped;
}

void ScenarioHistory::goTo(std::size_t position) {
    settle();
    position = std::min(position, steps_.size());
    if (position == position_) {
        return;
    }
    const canvas::ManyChanges together(form_);
    form_.ClearCrop();
    form_.SelectedLines.Clear();
    while (position_ > position) {
        const Step& step = steps_[--position_];
        remembered_.bring(form_, step.difference, true);
        selection_ = step.before;
    }
    while (position_ < position) {
        const Step& step = steps_[position_++];
        remembered_.bring(form_, step.difference, false);
        selection_ = step.after;
    }
    select(selection_);
    afterMove();
}

void ScenarioHistory::select(const Selection& selection) {
    for (const canvas::NodeNumber node : selection.nodes) {
        form_.SelectedLabels.Add(node);
    }
    for (const canvas::EdgeNumber edge : selection.edges) {
        form_.SelectedLines.Add(edge);
    }
    selection_ = this->selection();
}

/// The rows to delete are those that are stored and not here any more. What was noted and still holds keeps its place.
void ScenarioHistory::afterMove() {
    form_.touched->clear();
    std::vector<canvas::DeletedNode> rows = remembered_.rowsToDelete();
    rows.insert(rows.begin(), inherited_.begin(), inherited_.end());
    const auto listed = [](const canvas::DeletedNode& one) {
        return [&one](const canvas::DeletedNode& other) {
            return one.NodeID == other.NodeID && one.NodeKind == other.NodeKind;
        };
    };
    for (int at = form_.DeletedNodes->Count(); at >= 1; --at) {
        const auto row = std::ranges::find_if(rows, listed(*form_.DeletedNodes->Item(at)));
        if (row == rows.end()) {
            form_.DeletedNodes->Remove(at);
        } else {
            rows.erase(row);
        }
    }
    for (const canvas::DeletedNode& row : rows) {
        form_.DeletedNodes->Add(row.NodeID, row.NodeKind);
    }
    form_.stored.changed = !isStored();
    form_.tellStored();
}

}  // namespace orvent::history
