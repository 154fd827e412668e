#include "zoom/plain_relationships.h"

#include "zoom/zoom_form.h"

namespace orvent::zoom {

using namespace entities;

namespace {

template <class Links>
void dropLinks(Lazy<Links>& held, std::int32_t edge) {
    Links* links = held.peek();
    for (int position = links ? links->Count() : 0; position > 0; --position) {
        if (links->Item(position)->LineIndex == edge) {
            links->Remove(position);
        }
    }
}

void dropLinks(canvas::LabelsD* node, std::int32_t edge) {
    if (auto* attribute = node ? node->entity<AttributeProperties>() : nullptr) {
        dropLinks(attribute->ProvidedFrom, edge);
        dropLinks(attribute->ProviderFor, edge);
        dropLinks(attribute->RegulatedFrom, edge);
        dropLinks(attribute->RegulatorFor, edge);
    } else if (auto* parameter = node ? node->entity<ParameterProperties>() : nullptr) {
        dropLinks(parameter->RegulatedFrom, edge);
        dropLinks(parameter->RegulatorFor, edge);
    }
}

}  // namespace

void PlainRelationships::create(ZoomForm& form, std::int32_t edge) {
    form.Lines.RemoveFull(edge);
    form.messages().tell("This Relationship Is Not Valid!", "", platform::Icon::warning);
}

void PlainRelationships::remove(ZoomForm& form, std::int32_t edge) {
    if (const canvas::LinesD* line = form.Lines.byIndex(edge)) {
        dropLinks(form.Labels.byIndex(line->FromLabel()), edge);
        dropLinks(form.Labels.byIndex(line->ToLabel()), edge);
    }
}

void PlainRelationships::detachFunction(ZoomForm&, canvas::LabelsD& function, canvas::LabelsD* activity) {
    auto* held = function.entity<FunctionProperties>();
    ActivityProperties* owner = activity ? activity->activity() : nullptr;
    if (held && owner && owner->Act_Functions.peek()) {
        owner->Act_Functions.peek()->Remove(held->Function_Key);
    }
}

bool PlainRelationships::mayRelate(const ZoomForm&, canvas::EdgeTypeCode, const canvas::LabelsD&,
                                   const canvas::LabelsD&) const {
    return false;
}

}  // namespace orvent::zoom
