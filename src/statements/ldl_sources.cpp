#include "statements/ldl_sources.h"

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

LDLsourceColl sourcesOf(const entities::ActivityProperties& activity) {
    LDLsourceColl sources;
    const entities::Act_InputsCollection* inputs = activity.Act_Inputs.peek();
    for (int position = 1; position <= activity.Act_Inputs.count(); ++position) {
        const std::shared_ptr<const entities::AttributeProperties> input = inputs->share(position);
        for (const entities::ProviderProperties& link : input->ProvidedFrom) {
            LDLSource* source = sources.Source(link.Provider_Name);
            if (!source) {
                source = &sources.Add(link.Provider_Name);
                source->SourceType = link.Provider_Type;
            }
            source->Add(input);
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
