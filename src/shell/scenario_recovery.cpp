#include "shell/scenario_recovery.h"

#include <algorithm>
#include <ctime>
#include <utility>

namespace orvent::shell {

namespace {

constexpr std::size_t kLeastJournal = 1U << 20U;  // bytes behind the whole before it is written anew
constexpr std::size_t kJournalToWhole = 2;
constexpr std::size_t kMostTold = 100;  // of the last steps

}  // namespace

/// The file of one scenario.
struct ScenarioRecovery::Kept : private canvas::CanvasListener {
    Kept(ScenarioRecovery& recovery, canvas::DrawForm& scenario)
        : owner(recovery),
          form(scenario),
          writer(recovery.services_.source, recovery.services_.tables),
          subscription(scenario.listen(*this)) {}

    void formChanged() override { owner.noteStanding(*this); }

    ScenarioRecovery& owner;
    canvas::DrawForm& form;
    history::StateWriter writer;
    std::vector<history::StateWriter::Told> told;  ///< since it was stored
    std::string file;                              ///< its name while there is one
    std::size_t whole = 0, journal = 0;            ///< bytes
    std::uint32_t times = 0;                       ///< how often the window had been saved as the file was written
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
    const history::StateWriter::Told told{std::time(nullptr), words};
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
                             const history::StateWriter::Told& told) {
    const bool long_ = kept.journal > std::max(kLeastJournal, kJournalToWhole * kept.whole);
    if (!kept.file.empty() && !long_ && kept.times == kept.form.stored.times) {
        if (!changed.empty()) {
            const std::string step = kept.writer.step(kept.form, history.remembered(), changed, told);
            services_.folder.append(kept.file, step);
            kept.journal += step.size();
        }
        return;
    }
    const std::string file = services_.folder.ownName("scenario" + kept.form.Tag + ".state");
    const std::string whole = kept.writer.whole(kept.form, history.remembered(), kept.told);
    services_.folder.put(file, whole);
    kept.file = file;
    kept.whole = whole.size();
    kept.journal = 0;
    kept.times = kept.form.stored.times;
}

/// A save has begun, or has given the scenario its identifier: who brings it back has to know. When it has ended, the
/// file goes or is written anew as soon as the program is idle.
void ScenarioRecovery::noteStanding(Kept& kept) {
    if (kept.file.empty()) {
        return;
    }
    try {
        const bool broken = kept.form.stored.broken || kept.times != kept.form.stored.times;
        if (const std::string standing = kept.writer.standing(kept.form, broken); !standing.empty()) {
            services_.folder.append(kept.file, standing);
        }
    } catch (const platform::Fault& fault) {
        fail(kept, fault.description());
    }
}

void ScenarioRecovery::fail(Kept& kept, const std::string& why) {
    if (!kept.file.empty()) {
        services_.folder.drop(std::exchange(kept.file, {}));
    }
    if (!std::exchange(told_, true)) {
        services_.progress.status("Unsaved work is not kept for a crash: " + why);
    }
}

void ScenarioRecovery::forget(const canvas::DrawForm& form) {
    const auto kept = kept_.find(&form);
    if (kept != kept_.end()) {
        if (!kept->second->file.empty()) {
            services_.folder.drop(kept->second->file);
        }
        kept_.erase(kept);
    }
}

void ScenarioRecovery::goOn(canvas::DrawForm& form, std::vector<history::StateWriter::Told> told) {
    keptOf(form).told = std::move(told);
}

}  // namespace orvent::shell
