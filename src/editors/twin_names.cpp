#include "editors/twin_names.h"

#include <algorithm>

namespace orvent::editors {

void TwinNames::warn(forms::List& list, const std::string& key, const std::string& other) {
    const int row = list.positionOf(key);
    const forms::ListRow* shown = list.Item(row);
    const std::string words = other.empty() ? std::string() : "The row " + other + " has this name, too.";
    if (shown && shown->Warning != words) {
        list.alter(row, [&words](forms::ListRow& altered) { altered.Warning = words; });
    }
}

void TwinNames::reset(forms::List& list) {
    keys_.clear();
    for (const forms::ListRow& row : list.rows()) {
        keys_[row.Text].push_back(row.Key);
    }
    for (int at = 1; at <= list.Count(); ++at) {
        const forms::ListRow& row = *list.Item(at);
        const std::vector<std::string>& twins = keys_[row.Text];
        if (twins.size() > 1 || !row.Warning.empty()) {
            warn(list, row.Key, twins.size() < 2 ? std::string() : twins.front() == row.Key ? twins[1] : twins.front());
        }
    }
}

void TwinNames::came(forms::List& list, const std::string& key, const std::string& text) {
    std::vector<std::string>& twins = keys_[text];
    twins.push_back(key);
    if (twins.size() == 2) {
        warn(list, twins.front(), key);
    }
    warn(list, key, twins.size() > 1 ? twins.front() : std::string());
}

void TwinNames::went(forms::List& list, const std::string& key, const std::string& text) {
    const auto entry = keys_.find(text);
    if (entry == keys_.end()) {
        return;
    }
    std::vector<std::string>& twins = entry->second;
    const auto place = std::find(twins.begin(), twins.end(), key);
    const bool named = place - twins.begin() < 2;  // others' warnings name the first two alone
    if (place != twins.end()) {
        twins.erase(place);
    }
    if (twins.empty()) {
        keys_.erase(entry);
    } else if (named) {
        const std::string first = twins.front();
        for (const std::string& twin : twins) {
            warn(list, twin, twins.size() < 2 ? std::string() : twin == first ? twins[1] : first);
        }
    }
}

}  // namespace orvent::editors
