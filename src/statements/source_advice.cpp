#include "statements/source_advice.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <limits>
#include <unordered_map>
#include <unordered_set>

#include "platform/text.h"
#include "statements/ldl_sources.h"
#include "statements/no_place.h"

namespace orvent::statements {

namespace {

constexpr int kAny = std::numeric_limits<int>::max();

/// The last source that a template names, such as 2 for "a_in1, a_in2"; 0 when it names none, `kAny` when a loop counts
/// them.
int placesIn(const std::string& lowered) {
    const std::string before = "a_in";
    int last = 0;
    for (std::size_t at = lowered.find(before); at != kNone; at = lowered.find(before, at + 1)) {
        std::size_t digit = at + before.size();
        if (digit < lowered.size() && lowered[digit] == '$') {
            return kAny;
        }
        int number = 0;
        for (; digit < lowered.size() && std::isdigit(static_cast<unsigned char>(lowered[digit])) && number < 10000;
             ++digit) {
            number = number * 10 + (lowered[digit] - '0');
        }
        last = std::max(last, number);
    }
    return last;
}

/// The activities that provide inputs directly.
template <class Act>
void eachFeeder(const entities::ActivityProperties& activity, const Act& act) {
    for (const entities::AttributeProperties& input : activity.Act_Inputs) {
        for (const entities::ProviderProperties& link : input.ProvidedFrom) {
            if (link.Provider_Type == entities::LinkActivity) {
                act(link.Provider_Name);
            }
        }
    }
}

}  // namespace

std::optional<Advice> circleThrough(const canvas::Canvas& form, const entities::ActivityProperties& activity) {
    // While a dialog is open its links have no other end, so the circle is closed by what the activity itself feeds.
    std::unordered_set<std::string> fed;
    for (const entities::AttributeProperties& output : activity.Act_Outputs) {
        for (const entities::ProviderProperties& link : output.ProviderFor) {
            fed.insert(link.Provider_Name);
        }
    }
    std::unordered_map<std::string, std::string> leadsTo;  // the next activity on the way down
    std::deque<std::string> waiting;
    const auto meet = [&](const std::string& feeder, const std::string& next) {
        if (leadsTo.emplace(feeder, next).second) {
            waiting.push_back(feeder);
        }
    };
    eachFeeder(activity, [&](const std::string& feeder) { meet(feeder, activity.Act_Name); });
    for (; !waiting.empty(); waiting.pop_front()) {
        const std::string name = waiting.front();
        const canvas::LabelsD* node = form.nodeNamed(name);
        const entities::ActivityProperties* upstream = node ? node->activity() : nullptr;
        if (name == activity.Act_Name || (upstream && fed.contains(name))) {
            std::string way = activity.Act_Name;
            for (std::string at = name; at != activity.Act_Name; at = leadsTo.at(at)) {
                way += ", " + at;
            }
            return Advice{"The data runs in a circle: " + way + ", " + activity.Act_Name + ".", {}};
        }
        if (upstream) {
            eachFeeder(*upstream, [&](const std::string& feeder) { meet(feeder, name); });
        }
    }
    return std::nullopt;
}

std::optional<Advice> sourceLeftOut(const entities::ActivityProperties& activity,
                                    const std::function<std::string()>& templateText) {
    const LDLsourceColl sources = sourcesOf(activity);
    if (sources.Count() < 2 || !platform::trimmed(activity.Act_LDL).empty()) {
        return std::nullopt;
    }
    const int places = placesIn(platform::lowerCase(templateText()));
    if (places == 0 || sources.Count() <= places) {
        return std::nullopt;
    }
    std::string names;
    for (int at = places + 1; at <= sources.Count(); ++at) {
        names += (names.empty() ? "" : ", ") + sources.Source(at)->Source;
    }
    return Advice{"The template of its type has room for " +
                      (places == 1 ? std::string("one source") : std::to_string(places) + " sources") +
                      ", and leaves out " + names + ".",
                  {}};
}

std::unordered_set<std::string> activitiesInCircles(const canvas::Canvas& form) {
    std::unordered_map<std::string, std::vector<std::string>> feeds, fedBy;
    std::unordered_set<std::string> left;
    std::deque<std::string> waiting;
    for (const canvas::LabelsD& node : form.Labels) {
        if (const entities::ActivityProperties* activity = node.activity()) {
            left.insert(activity->Act_Name);
            waiting.push_back(activity->Act_Name);
            eachFeeder(*activity, [&](const std::string& feeder) {
                feeds[feeder].push_back(activity->Act_Name);
                fedBy[activity->Act_Name].push_back(feeder);
            });
        }
    }
    // Who feeds none, or is fed by none, is in no circle; those beside it may then be in none, too.
    const auto ends = [&left](const std::vector<std::string>& names) {
        return std::none_of(names.begin(), names.end(),
                            [&left](const std::string& name) { return left.contains(name); });
    };
    for (; !waiting.empty(); waiting.pop_front()) {
        const std::string& name = waiting.front();
        if (left.contains(name) && (ends(feeds[name]) || ends(fedBy[name]))) {
            left.erase(name);
            waiting.insert(waiting.end(), feeds[name].begin(), feeds[name].end());
            waiting.insert(waiting.end(), fedBy[name].begin(), fedBy[name].end());
        }
    }
    return left;
}

}  // namespace orvent::statements
