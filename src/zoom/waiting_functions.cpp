#include "zoom/waiting_functions.h"

#include <utility>

#include "zoom/unfolding.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

const LabelsD* awaitedActivity(const ZoomForm& form, const LabelsD& function) {
    const auto* entity = function.entity<FunctionProperties>();
    const auto found = form.waiting.find(function.Index());
    const LabelsD* owner = entity && found != form.waiting.end() ? form.Labels.byIndex(found->second) : nullptr;
    const auto* functions = owner && owner->activity() ? owner->activity()->Act_Functions.peek() : nullptr;
    return functions && functions->Item(entity->Function_Key) ? owner : nullptr;
}

LabelsD* awaitedActivity(ZoomForm& form, const LabelsD& function) {
    return const_cast<LabelsD*>(awaitedActivity(std::as_const(form), function));
}

// Its parameters go on to bear the activity's name, by which record sets know them.
void letWait(ZoomForm& form, LabelsD& function, const LabelsD& owner) {
    auto& entity = *function.entity<FunctionProperties>();
    const std::string& activity = ownerNameOf(form, owner);
    entity.setParentKeyName({});
    for (auto* parameters : {&entity.Function_Inputs, &entity.Function_Outputs}) {
        for (ParameterProperties& parameter : *parameters) {
            parameter.ParentFunctionActivity = activity;
        }
    }
    form.waiting[function.Index()] = owner.Index();
}

void bringUp(ZoomForm& form, LabelsD& function) {
    if (LabelsD* owner = awaitedActivity(form, function)) {
        form.order.giveBack(function);
        std::shared_ptr<FunctionProperties> clone = function.entity<FunctionProperties>()->Clone();
        clone->setParentKeyName(owner->activity()->Act_Name);
        Act_FunctionsCollection& functions = *owner->activity()->Act_Functions;
        const std::string key = clone->Function_Key;
        const int position = functions.positionOf(key);
        functions.Remove(position);
        functions.insert(position, std::move(clone), key);
    }
}

void bringUpAll(ZoomForm& form) {
    for (const auto& [node, activity] : form.waiting) {
        if (LabelsD* function = form.Labels.byIndex(node)) {
            bringUp(form, *function);
        }
    }
}

}  // namespace orvent::zoom
