#include "shell/scenario_histories.h"

namespace orvent::shell {

ScenarioHistories::ScenarioHistories(ScenarioListeners& scenarios, HistoryPorts& ports, ScenarioRecovery& recovery,
                                     EarlierStates& earlier, KeptFacts& facts)
    : subscription_(scenarios.add(*this)), ports_(ports), recovery_(recovery), earlier_(earlier), facts_(facts) {}

ScenarioHistories::~ScenarioHistories() = default;

ScenarioHistories::Saving::Saving(ScenarioHistories& histories, canvas::DrawForm& form)
    : histories_(histories), form_(form) {
    if (const history::ScenarioHistory* history = histories_.of(form_)) {
        histories_.recovery_.keepWhole(form_, *history);
    }
}

/// What was saved is noticed when the command has ended; here nothing was.
ScenarioHistories::Saving::~Saving() {
    const history::ScenarioHistory* history = histories_.of(form_);
    if (history && !history->waits() && history->isStored()) {
        histories_.recovery_.forget(form_);
    }
}

void ScenarioHistories::scenarioOpened(canvas::DrawForm& form) {
    histories_[&form] = std::make_unique<history::ScenarioHistory>(form);
}

void ScenarioHistories::scenarioClosed(canvas::DrawForm& form) {
    recovery_.forget(form);
    earlier_.forget(form);
    facts_.forget(form);
    histories_.erase(&form);
}

const history::ScenarioHistory* ScenarioHistories::of(const canvas::DrawForm& form) const {
    const auto place = histories_.find(&form);
    return place == histories_.end() ? nullptr : place->second.get();
}

void ScenarioHistories::note(canvas::DrawForm& form, history::ScenarioHistory& history, const std::string& words) {
    const canvas::Touched changed = history.takeChanged();
    ports_.changed(form, changed);
    recovery_.note(form, history, changed, words);
}

void ScenarioHistories::settle(const std::string& words) {
    for (const auto& [form, history] : histories_) {
        if (ports_.isWhole(*form)) {
            settleNow(*form, words);
        }
    }
}

void ScenarioHistories::settleNow(canvas::DrawForm& form, const std::string& words, bool dialogOpen) {
    const auto place = histories_.find(&form);
    if (place == histories_.end()) {
        return;
    }
    const bool waits = place->second->waits();
    const history::ScenarioHistory::Step* step = place->second->settle(words, dialogOpen);
    if (step) {
        ports_.historyChanged(form);
    }
    if (waits) {
        const std::string told = step ? step->words : std::string();
        note(form, *place->second, told);
        earlier_.note(form, *place->second, told);
        facts_.note(form);
    }
}

bool ScenarioHistories::idle() {
    if (running_ > 0) {
        return false;
    }
    settle();
    const bool more = recovery_.writeOn();
    return earlier_.writeOn() || more;
}

void ScenarioHistories::touchAll(canvas::DrawForm& form) {
    histories_.at(&form)->touchAll();
}

void ScenarioHistories::beginFilled() {
    for (const auto& [form, history] : histories_) {
        if (history->steps().empty() && history->isEmpty()) {
            beginAnew(*form);
        }
    }
}

void ScenarioHistories::beginAnew(canvas::DrawForm& form) {
    history::ScenarioHistory& history = *histories_.at(&form);
    history.beginAnew();
    note(form, history, {});
    earlier_.opened(form, history);
    facts_.opened(form);
    ports_.historyChanged(form);
}

bool ScenarioHistories::canStep(const canvas::DrawForm* form, bool back) const {
    const history::ScenarioHistory* history = form ? of(*form) : nullptr;
    return history && ports_.whyNotNow(*form).empty() && (back ? history->canGoBack() : history->canGoForward());
}

void ScenarioHistories::step(canvas::DrawForm& form, bool back) {
    settle();
    if (canStep(&form, back)) {
        const std::size_t position = of(form)->position();
        goTo(form, back ? position - 1 : position + 1);
    }
}

void ScenarioHistories::goTo(canvas::DrawForm& form, std::size_t line) {
    if (ports_.whyNotNow(form).empty()) {
        history::ScenarioHistory& history = *histories_.at(&form);
        const bool back = line < history.position();
        history.goTo(line);
        note(form, history, back ? "Step Back" : "Step Forward");
        ports_.historyChanged(form);
    }
}

HistoryLines ScenarioHistories::linesOf(const canvas::DrawForm& form) const {
    HistoryLines shown;
    if (const history::ScenarioHistory* history = of(form)) {
        shown.lines.emplace_back(history->hasDropped() ? "Earlier steps are forgotten" : "As it was opened");
        for (const history::ScenarioHistory::Step& step : history->steps()) {
            shown.lines.push_back(step.words);
        }
        shown.present = history->position();
        shown.reason = ports_.whyNotNow(form);
    }
    return shown;
}

}  // namespace orvent::shell
