#include "statements/ldl_sources.h"

#include <string_view>
#include <unordered_map>
#include <utility>

namespace orvent::statements {

void LDLSource::Add(std::shared_ptr<const entities::AttributeProperties> attribute) {
    const std::string& key = attribute->Key;
    if (!Item(key)) {
        append(attribute, key);
    }
}

LDLSource& LDLsourceColl::Add(const std::string& name) {
    if (LDLSource* known = Item(name)) {
        return *known;
    }
    auto source = std::make_unique<LDLSource>();
    source->Source = name;
    return append(std::move(source), name);
}

std::vector<SourceInputs> sourceInputsOf(const entities::ActivityProperties& activity) {
    std::vector<SourceInputs> sources;
    std::unordered_map<std::string_view, std::size_t> places;
    std::size_t place = 0;  // of the source that was met last
    int position = 0;
    for (const entities::AttributeProperties& input : activity.Act_Inputs) {
        ++position;
        for (const entities::ProviderProperties& link : input.ProvidedFrom) {
            if (sources.empty() || *sources[place].name != link.Provider_Name) {
                place = places.emplace(link.Provider_Name, sources.size()).first->second;
            }
            if (place == sources.size()) {
                sources.push_back({&link.Provider_Name, link.Provider_Type, {}});
            }
            std::vector<int>& inputs = sources[place].inputs;
            if (inputs.empty() || inputs.back() != position) {
                inputs.push_back(position);
            }
        }
    }
    return sources;
}

LDLsourceColl sourcesOf(const entities::ActivityProperties& activity) {
    LDLsourceColl sources;
    for (const SourceInputs& one : sourceInputsOf(activity)) {
        LDLSource& source = sources.Add(*one.name);
        source.SourceType = one.type;
        for (const int position : one.inputs) {
            source.Add(activity.Act_Inputs.peek()->share(position));
        }
    }
    return sources;
}

const entities::AttributeProperties* fieldAt(const canvas::Canvas& form, const std::string& recordSet, int position) {
    const canvas::LabelsD* node = form.nodeNamed(recordSet);
    const entities::RecordSetProperties* held = node ? node->recordSet() : nullptr;
    const entities::RecordSet_OutputsCollection* attributes = held ? held->RecordSet_Outputs.peek() : nullptr;
    return attributes ? attributes->Item(position + 1) : nullptr;
}

}  // namespace orvent::statements
