#include "shell/kept_facts.h"

#include <cstdio>

#include "exchange/facts_text.h"
#include "platform/fault.h"

namespace orvent::shell {

namespace {

std::string factsFile(const std::string& source, const canvas::DrawForm& form) {
    return "facts/" + stateKey(source, form);
}

std::string hexOf(std::string_view text) {
    std::uint64_t sum = 0xCBF29CE484222325U;
    for (const char letter : text) {
        sum = (sum ^ static_cast<unsigned char>(letter)) * 0x100000001B3U;
    }
    char hex[17];
    std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(sum));
    return hex;
}

}  // namespace

std::string stateKeyHead(const std::string& source) {
    return hexOf(source);
}

std::string stateKey(const std::string& source, const canvas::DrawForm& form) {
    const std::string which = form.ScenarioID != 0 ? "#" + std::to_string(form.ScenarioID) : "'" + form.ScenarioName();
    return hexOf(source) + "-" + hexOf(which);
}

std::map<std::string, entities::NodeFacts> fillFacts(canvas::DrawForm& form, const platform::StateFolder& folder,
                                                     const std::string& source) {
    const std::string file = factsFile(source, form);
    if (folder.size(file) == 0) {
        return {};
    }
    exchange::KeptScenario kept = exchange::readFactsDocument(folder.read(file));
    form.KeepDuplicates = form.KeepDuplicates || kept.keepDuplicates;
    for (const canvas::LabelsD& node : form.Labels) {
        if (auto its = kept.nodes.extract(node.Caption()); !its.empty()) {
            form.facts[node.Index()] = std::move(its.mapped());
        }
    }
    return std::move(kept.nodes);
}

KeptFacts::Followed& KeptFacts::followed(const canvas::DrawForm& form) {
    const auto [place, isNew] = followed_.try_emplace(&form);
    if (isNew) {
        place->second = {factsFile(source_, form), form.stored.times, {}};
    }
    return place->second;
}

void KeptFacts::opened(canvas::DrawForm& form) {
    followed_.erase(&form);
    Followed& scenario = followed(form);
    if (!form.facts.empty() || form.KeepDuplicates) {
        keep(form);
        return;
    }
    try {
        scenario.others = fillFacts(form, folder_, source_);
    } catch (const platform::Fault& fault) {
        progress_.status("The rows given by hand cannot be read: " + fault.description());
    }
}

void KeptFacts::note(const canvas::DrawForm& form) {
    Followed& scenario = followed(form);
    if (scenario.times == form.stored.times) {
        return;
    }
    scenario.times = form.stored.times;
    std::string file = factsFile(source_, form);
    if (file != scenario.file) {
        std::swap(file, scenario.file);
        folder_.drop(file);
    }
    keep(form);
}

void KeptFacts::keep(const canvas::DrawForm& form) {
    const Followed& scenario = followed(form);
    exchange::KeptScenario kept{form.KeepDuplicates, scenario.others};
    for (const auto& [number, facts] : form.facts) {
        const canvas::LabelsD* node = form.Labels.byIndex(number);
        if (node && !facts.isEmpty()) {
            kept.nodes[node->Caption()] = facts;
        }
    }
    if (kept.isEmpty()) {
        folder_.drop(scenario.file);
        return;
    }
    try {
        folder_.begin(scenario.file);
        folder_.goOn(scenario.file, exchange::factsDocument(kept));
        folder_.end(scenario.file);
    } catch (const platform::Fault& fault) {
        progress_.status("The rows given by hand are not kept: " + fault.description());
    }
}

void KeptFacts::forget(const canvas::DrawForm& form) {
    const auto known = followed_.find(&form);
    if (known != followed_.end()) {
        if (form.ScenarioID == 0) {
            folder_.drop(known->second.file);
        }
        followed_.erase(known);
    }
}

}  // namespace orvent::shell
