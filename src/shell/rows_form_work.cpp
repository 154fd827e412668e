// What the rows have done in a thread of its own.

#include <utility>

#include "shell/rows_form.h"
#include "shell/rows_state.h"

namespace orvent::shell {

namespace {

constexpr std::chrono::milliseconds kPiece(40);   ///< of steps, before anybody looks at what has come of them
constexpr std::chrono::milliseconds kMissed(20);  ///< a driver may miss a cancel at the very beginning of a statement
constexpr std::chrono::milliseconds kAtOnce(50);  ///< so long the program may not answer

}  // namespace

/// Begins what is to be done next for the scenario in front, and takes it where that is short; whether there was any.
bool RowsForm::goOn() {
    State* its = state();
    if (working_ || !its || !its->run) {
        return false;
    }
    const bool pages = !wanted_.empty();
    if (!pages && !its->running) {
        return false;
    }
    working_ = its;
    piece_ = pages ? Piece::pages : Piece::steps;
    its->run->resume();
    pages ? startPages(*its) : startSteps(*its);
    if ((pages || !worker_.tellsEnd()) && worker_.wait(kAtOnce)) {
        take();
    }
    return true;
}

/// Nobody waits for a source that does not answer.
void RowsForm::startOpening(State& its) {
    working_ = &its;
    piece_ = Piece::opening;
    worker_.start([run = its.next] { run->open(); });
    if (worker_.wait(kAtOnce)) {
        take();
    }
}

void RowsForm::takeOpened(State& its) {
    const bool wanted = &its != leaving_.get() && !its.cancelled;
    try {
        worker_.rethrow();
        if (wanted) {
            begin(its);
        }
    } catch (const platform::Fault& fault) {
        if (wanted) {
            its.run = nullptr;
            its.fault = fault.description();
        }
    }
    leaving_.reset();
    fill();
}

void RowsForm::startSteps(State& its) {
    worker_.start([this, run = its.run, expected = its.expected] {
        const auto end = std::chrono::steady_clock::now() + kPiece;
        more_ = true;
        while (more_ && !run->isCancelled() && std::chrono::steady_clock::now() < end) {
            more_ = run->step();
        }
        if (!more_) {
            verdicts_ = run::verdicts(*run, expected);
            more_ = run->isCancelled();  // then these are none
        }
    });
}

void RowsForm::startPages(State& its) {
    const bool sample = its.run == &its.sample;
    worker_.start([this, sample, run = its.run, wanted = std::exchange(wanted_, {})] {
        brought_.clear();
        for (const Wanted& each : wanted) {
            Brought& brought = brought_.emplace_back(Brought{each, {}, {}, {}, {}});
            try {
                brought.page = run->page(each.predicate, run::kShownRows);
            } catch (const platform::Fault& fault) {
                brought.fault = fault.description();
            }
            try {
                brought.held = run->heldBefore(each.predicate);
            } catch (const platform::Fault& fault) {
                brought.heldFault = fault.description();
            }
        }
        if (sample) {
            connections_.closeAll();
        }
    });
}

/// Takes over what a piece that has ended has brought.
void RowsForm::take() {
    State& its = *working_;
    const Piece piece = std::exchange(piece_, Piece::none);
    const bool dropped = std::exchange(outdated_, false);
    if (piece == Piece::opening) {
        working_ = nullptr;
        takeOpened(its);
        return;
    }
    its.see();
    if (piece == Piece::pages && !dropped && &its == state()) {
        takePages();
        showTables();
    }
    working_ = nullptr;
    bool ended = piece == Piece::steps && !more_ && its.running;
    if (ended) {
        its.verdicts = std::move(verdicts_);
    }
    try {
        worker_.rethrow();
    } catch (const platform::Fault& fault) {
        ended = true;
        its.fault = fault.description();
    }
    its.running = its.running && !ended;
    if (ended) {
        fill();
    }
}

/// Breaks off what works; false when that does not end in this time.
bool RowsForm::stop(std::chrono::milliseconds most) {
    if (working_ && piece_ == Piece::opening) {  // nothing breaks into that
        if (!worker_.isBusy()) {
            take();
        }
        return !working_;
    }
    const auto end = std::chrono::steady_clock::now() + most;
    while (working_ && std::chrono::steady_clock::now() < end) {
        outdated_ = true;
        working_->run->cancel();
        if (worker_.wait(kMissed)) {
            take();
        }
    }
    return !working_;
}

bool RowsForm::idle() {
    follow();
    bool changed = false;
    if (working_ && !worker_.tellsEnd()) {
        worker_.wait(kAtOnce);
    }
    if (working_ && !worker_.isBusy()) {
        take();
        changed = true;
    }
    changed = goOn() || changed;
    if (changed) {
        tell();
    }
    const State* its = state();
    return working_ ? !worker_.tellsEnd() : its && its->run && (its->running || !wanted_.empty());
}

}  // namespace orvent::shell
