#include "shell/earlier_states.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

#include "shell/kept_facts.h"
#include "shell/state_in_parts.h"

namespace orvent::shell {

namespace {

constexpr const char* kFolder = "earlier";

}  // namespace

/// What is known of an open scenario.
struct EarlierStates::Followed {
    canvas::DrawForm& form;
    const history::ScenarioHistory& history;
    std::string folder;       ///< where its states are
    std::uint32_t times = 0;  ///< how often it had been saved when it was looked at last
    std::size_t steps = 0;    ///< since a state was kept for their number
    std::unique_ptr<StateInParts> next;
};

EarlierStates::EarlierStates(const Services& services) : services_(services) {}

EarlierStates::~EarlierStates() = default;

std::string EarlierStates::folderOf(const canvas::DrawForm& form) const {
    return std::string(kFolder) + "/" + stateKey(services_.source, form);
}

EarlierStates::Followed& EarlierStates::followed(canvas::DrawForm& form, const history::ScenarioHistory& history) {
    std::unique_ptr<Followed>& known = followed_[&form];
    if (!known) {
        known.reset(new Followed{form, history, folderOf(form), form.stored.times, 0, nullptr});
    }
    return *known;
}

void EarlierStates::opened(canvas::DrawForm& form, const history::ScenarioHistory& history) {
    Followed& scenario = followed(form, history);
    scenario.folder = folderOf(form);
    scenario.times = form.stored.times;
    keep(scenario, "Opened");
}

void EarlierStates::note(canvas::DrawForm& form, const history::ScenarioHistory& history, const std::string& words) {
    Followed& scenario = followed(form, history);
    if (scenario.times != form.stored.times) {
        scenario.times = form.stored.times;
        // One that was never saved takes its states along.
        if (std::string folder = folderOf(form); folder != scenario.folder) {
            finish(scenario);
            services_.folder.rename(scenario.folder, folder);
            scenario.folder = std::move(folder);
        }
        keep(scenario, "Saved");
    } else if (!words.empty() && ++scenario.steps == kSteps) {
        scenario.steps = 0;
        keep(scenario, words);
    }
}

void EarlierStates::keep(Followed& scenario, const std::string& words) {
    if (scenario.history.isEmpty()) {
        return;
    }
    finish(scenario);
    try {
        using namespace std::chrono;
        const auto now = duration_cast<milliseconds>(system_clock::now().time_since_epoch());
        auto writer = std::make_unique<history::StateWriter>(services_.source, services_.tables);
        writer->begin(scenario.form, scenario.history.remembered(), {duration_cast<seconds>(now).count(), words});
        char name[48];  // files are listed by it, in order of time
        std::snprintf(name, sizeof name, "/%015lld-%06d-", static_cast<long long>(now.count()), ++files_);
        const std::string file = scenario.folder + name + services_.folder.ownName("state");
        scenario.next = std::make_unique<StateInParts>(services_.folder, file, std::move(writer));
    } catch (const platform::Fault& fault) {
        fail(fault);
    }
}

bool EarlierStates::writePart(Followed& scenario) {
    try {
        const history::Remembered& remembered = scenario.history.remembered();
        if (scenario.next->writePart(remembered,
                                     [](history::StateWriter&) { return history::StateWriter::endAsBegun(); })) {
            scenario.next.reset();
            dropOldest(scenario.folder);
        }
    } catch (const platform::Fault& fault) {
        scenario.next.reset();
        fail(fault);
    }
    return scenario.next != nullptr;
}

void EarlierStates::finish(Followed& scenario) {
    while (scenario.next && writePart(scenario)) {
    }
}

bool EarlierStates::writeOn() {
    bool more = false;
    for (const auto& [form, scenario] : followed_) {
        more = (scenario->next && writePart(*scenario)) || more;
    }
    return more;
}

void EarlierStates::forget(const canvas::DrawForm& form) {
    if (const auto known = followed_.find(&form); known != followed_.end()) {
        finish(*known->second);
        followed_.erase(known);
    }
}

void EarlierStates::fail(const platform::Fault& fault) {
    if (!std::exchange(told_, true)) {
        services_.progress.status("Earlier states are not kept: " + fault.description());
    }
}

void EarlierStates::dropOldest(const std::string& folder) {
    std::vector<std::string> files = services_.folder.list(folder);
    std::ranges::reverse(files);
    std::uintmax_t bytes = 0;
    for (std::size_t at = 0; at < files.size(); ++at) {
        const std::string file = folder + "/" + files[at];
        bytes += services_.folder.size(file);
        if (at >= kMost || (at > 0 && bytes > kMostBytes)) {
            services_.folder.drop(file);
        }
    }
}

std::optional<EarlierStates::Kept> EarlierStates::summaryOf(const std::string& file) const {
    try {
        history::StateSummary summary =
            history::readSummary(services_.folder.reader(file), services_.folder.size(file));
        if (!summary.told.empty()) {
            return Kept{file, std::move(summary.name), std::move(summary.told.front())};
        }
    } catch (const platform::Fault&) {
        // A file that nobody can read is no state.
    }
    return std::nullopt;
}

std::vector<EarlierStates::Kept> EarlierStates::in(const std::string& folder) const {
    std::vector<Kept> states;
    std::vector<std::string> files = services_.folder.list(folder);
    std::ranges::reverse(files);
    for (const std::string& file : files) {
        if (auto state = summaryOf(folder + "/" + file)) {
            states.push_back(std::move(*state));
        }
    }
    return states;
}

std::vector<EarlierStates::Kept> EarlierStates::newest() const {
    std::vector<Kept> states;
    for (const std::string& folder : services_.folder.folders(kFolder)) {
        if (!folder.starts_with(stateKeyHead(services_.source))) {
            continue;
        }
        const std::string path = std::string(kFolder) + "/" + folder;
        std::vector<std::string> files = services_.folder.list(path);
        std::optional<Kept> state;
        for (; !files.empty() && !state; files.pop_back()) {
            state = summaryOf(path + "/" + files.back());
        }
        if (state) {
            states.push_back(std::move(*state));
        }
    }
    std::ranges::sort(states, {}, &Kept::name);
    return states;
}

}  // namespace orvent::shell
