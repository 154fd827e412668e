#include "shell/recovery_form.h"

#include <algorithm>

#include "history/kept_state.h"
#include "platform/text.h"
#include "shell/local_time.h"

namespace orvent::shell {

namespace {

constexpr std::size_t kToldWords = 3;  // of the last changes

/// "5 changes, the last: Moved A; Deleted 3 nodes; Added B".
std::string changesOf(const std::vector<history::Told>& told) {
    if (told.empty()) {
        return "never saved";
    }
    std::string words = told.size() == 1 ? "1 change: " : std::to_string(told.size()) + " changes, the last: ";
    const std::size_t first = told.size() - std::min(told.size(), kToldWords);
    for (std::size_t at = first; at < told.size(); ++at) {
        words += (at > first ? "; " : "") + told[at].words;
    }
    return words;
}

}  // namespace

RecoveryForm::RecoveryForm(platform::StateFolder& folder, const std::vector<std::string>& files, BringBack bringBack)
    : folder_(folder), bringBack_(std::move(bringBack)) {
    for (const std::string& file : files) {
        Row row{file, file, {}, {}, false};
        try {
            const history::StateSummary summary = history::readSummary(folder.reader(file), folder.size(file));
            row.name = summary.name;
            row.when = localTime(summary.told.empty() ? 0 : summary.told.back().time);
            row.changes = changesOf(summary.told);
            row.readable = true;
        } catch (const platform::Fault& fault) {
            row.changes = "cannot be read: " + fault.description();
        }
        rows_.push_back(std::move(row));
    }
}

std::string RecoveryForm::words() const {
    const auto count = std::ranges::count(rows_, true, &Row::readable);
    return "ORVENT II did not end properly. " + std::to_string(count) +
           (count == 1 ? " scenario can be brought back." : " scenarios can be brought back.");
}

void RecoveryForm::remove(const std::vector<std::size_t>& places, const std::function<bool(const Row&)>& goes) {
    std::vector<std::size_t> gone;
    for (const std::size_t place : places) {
        if (place < rows_.size() && goes(rows_[place])) {
            gone.push_back(place);
        }
    }
    std::ranges::sort(gone, std::greater<>());
    for (const std::size_t place : gone) {
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
    }
}

void RecoveryForm::cmdBringBack_Click(const std::vector<std::size_t>& places) {
    remove(places, [this](const Row& row) { return row.readable && bringBack_(row.file); });
}

void RecoveryForm::cmdDiscard_Click(const std::vector<std::size_t>& places) {
    remove(places, [this](const Row& row) {
        folder_.drop(row.file);
        return true;
    });
}

}  // namespace orvent::shell
