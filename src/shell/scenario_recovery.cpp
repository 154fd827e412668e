#include "shell/scenario_recovery.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "shell/state_in_parts.h"

namespace orvent::shell {

namespace {

constexpr std::size_t kLeastJournal = 1U << 20U;  // bytes behind the whole before it is written anew
constexpr std::size_t kJournalToWhole = 2;
constexpr std::size_t kMostTold = 100;     // of the last steps
constexpr std::size_t kMostAtOnce = 1000;  // changed nodes; more of them are a whole

}  // namespace

/// The file of one scenario. A whole is written beside it, and takes its place when all of it is there.
struct ScenarioRecovery::Kept : private canvas::CanvasListener {
    Kept(ScenarioRecovery& recovery, canvas::DrawForm& scenario)
        : owner(recovery), form(scenario), subscription(scenario.listen(*this)) {}

    void formChanged() override { owner.noteStanding(*this); }

    bool takesSteps() const { return !file.empty() && !lags && times == form.stored.times; }

    ScenarioRecovery& owner;
    canvas::DrawForm& form;
    const history::ScenarioHistory* history = nullptr;
    std::vector<history::Told> told;               ///< since it was stored
    std::string file;                              ///< its name while there is one
    std::unique_ptr<history::StateWriter> writer;  ///< of that file
    std::size_t whole = 0, journal = 0;            ///< bytes
    bool lags = false;                             ///< a step was too large for it: the next whole has it
    std::uint32_t times = 0;                       ///< how often the window had been saved as the file was written

    std::unique_ptr<StateInParts> next;  ///< a whole that is being written
    std::uint32_t nextTimes = 0;
    canvas::Touched meanwhile;  ///< what has changed since it was begun
    canvas::CanvasSubscription subscription;
};

ScenarioRecovery::ScenarioRecovery(const Services& services) : services_(services) {}

ScenarioRecovery::~ScenarioRecovery() = default;

ScenarioRecovery::Kept& ScenarioRecovery::keptOf(canvas::DrawForm& form) {
    std::unique_ptr<Kept>& kept = kept_[&form];
    if (!kept) {
        kept = std::make_unique<Kept>(*this, form);
    }
    return *kept;
}

void ScenarioRecovery::note(canvas::DrawForm& form, const history::ScenarioHistory& history,
                            const canvas::Touched& changed, const std::string& words) {
    if (history.isStored()) {
        forget(form);
        return;
    }
    Kept& kept = keptOf(form);
    kept.history = &history;
    const history::Told told{std::time(nullptr), words};
    if (!words.empty()) {
        kept.told.push_back(told);
        if (kept.told.size() > kMostTold) {
            kept.told.erase(kept.told.begin());
        }
    }
    try {
        write(kept, history, changed, told);
    } catch (const platform::Fault& fault) {
        fail(kept, fault.description());
    }
}

void ScenarioRecovery::write(Kept& kept, const history::ScenarioHistory& history, const canvas::Touched& changed,
                             const history::Told& told) {
    if (kept.next) {
        kept.meanwhile.add(changed);
        if (kept.nextTimes != kept.form.stored.times) {
            beginWhole(kept);  // the identifiers are others now
        }
    }
    kept.lags = kept.lags || changed.nodes.size() > kMostAtOnce;
    if (kept.takesSteps() && !changed.empty()) {
        const std::string step = kept.writer->step(kept.form, history.remembered(), changed, told);
        services_.folder.append(kept.file, step);
        kept.journal += step.size();
    }
    const bool isLong = kept.journal > std::max(kLeastJournal, kJournalToWhole * kept.whole);
    if (!kept.next && (!kept.takesSteps() || isLong)) {
        beginWhole(kept);
    }
}

void ScenarioRecovery::keepWhole(canvas::DrawForm& form, const history::ScenarioHistory& history) {
    Kept& kept = keptOf(form);
    kept.history = &history;
    try {
        if (!kept.next && !kept.takesSteps()) {
            beginWhole(kept);
        }
        while (kept.next) {
            writePart(kept);
        }
    } catch (const platform::Fault& fault) {
        fail(kept, fault.description());
    }
}

void ScenarioRecovery::beginWhole(Kept& kept) {
    kept.next.reset();
    auto writer = std::make_unique<history::StateWriter>(services_.source, services_.tables);
    writer->begin(kept.form, kept.history->remembered());
    kept.next = std::make_unique<StateInParts>(
        services_.folder, services_.folder.ownName("scenario" + kept.form.Tag + ".state"), std::move(writer));
    kept.nextTimes = kept.form.stored.times;
    kept.meanwhile.clear();
}

void ScenarioRecovery::writePart(Kept& kept) {
    const history::Remembered& remembered = kept.history->remembered();
    const bool whole = kept.next->writePart(remembered, [&](history::StateWriter& writer) {
        return writer.end(kept.form, remembered, kept.meanwhile, kept.told);
    });
    if (whole) {
        kept.file = kept.next->file();
        kept.whole = kept.next->size();
        kept.writer = kept.next->takeWriter();
        kept.next.reset();
        kept.journal = 0;
        kept.lags = false;
        kept.times = kept.nextTimes;
    }
}

bool ScenarioRecovery::writeOn() {
    bool more = false;
    for (const auto& [form, kept] : kept_) {
        if (kept->next) {
            try {
                writePart(*kept);
            } catch (const platform::Fault& fault) {
                fail(*kept, fault.description());
            }
            more = more || kept->next != nullptr;
        }
    }
    return more;
}

/// A save has begun, or has given the scenario its identifier: who brings it back has to know. When it has ended, the
/// file goes or is written anew as soon as the program is idle.
void ScenarioRecovery::noteStanding(Kept& kept) {
    if (kept.file.empty()) {
        return;
    }
    try {
        const bool broken = kept.form.stored.broken || kept.times != kept.form.stored.times;
        if (const std::string standing = kept.writer->standing(kept.form, broken); !standing.empty()) {
            services_.folder.append(kept.file, standing);
        }
    } catch (const platform::Fault& fault) {
        fail(kept, fault.description());
    }
}

void ScenarioRecovery::fail(Kept& kept, const std::string& why) {
    giveUp(kept);
    if (!std::exchange(told_, true)) {
        services_.progress.status("Unsaved work is not kept for a crash: " + why);
    }
}

void ScenarioRecovery::giveUp(Kept& kept) {
    kept.next.reset();
    if (!kept.file.empty()) {
        services_.folder.drop(std::exchange(kept.file, {}));
    }
}

void ScenarioRecovery::forget(const canvas::DrawForm& form) {
    const auto kept = kept_.find(&form);
    if (kept != kept_.end()) {
        giveUp(*kept->second);
        kept_.erase(kept);
    }
}

void ScenarioRecovery::goOn(canvas::DrawForm& form, std::vector<history::Told> told) {
    keptOf(form).told = std::move(told);
}

}  // namespace orvent::shell
