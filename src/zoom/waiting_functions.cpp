#include "zoom/waiting_functions.h"

#include <utility>

#include "entities/members.h"
#include "zoom/expansion.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

const LabelsD* awaitedActivity(const ZoomView& view, const LabelsD& function) {
    const auto* entity = function.entity<FunctionProperties>();
    const auto found = view.waiting.find(function.Index());
    const LabelsD* owner = entity && found != view.waiting.end() ? view.Labels.byIndex(found->second) : nullptr;
    const auto* functions = owner && owner->activity() ? owner->activity()->Act_Functions.peek() : nullptr;
    return functions && functions->Item(entity->Function_Key) ? owner : nullptr;
}

LabelsD* awaitedActivity(ZoomView& view, const LabelsD& function) {
    return const_cast<LabelsD*>(awaitedActivity(std::as_const(view), function));
}

// Its parameters go on to bear the activity's name, by which record sets know them.
void letWait(ZoomView& view, LabelsD& function, const LabelsD& owner) {
    auto& entity = *function.entity<FunctionProperties>();
    const std::string& activity = ownerNameOf(view, owner);
    entity.setParentKeyName({});
    eachMember(entity, [&](ParameterProperties& parameter) { parameter.ParentFunctionActivity = activity; });
    view.waiting[function.Index()] = owner.Index();
}

void bringUp(ZoomView& view, LabelsD& function) {
    if (LabelsD* owner = awaitedActivity(view, function)) {
        view.order.giveBack(function);
        std::shared_ptr<FunctionProperties> clone = function.entity<FunctionProperties>()->Clone();
        clone->setParentKeyName(owner->activity()->Act_Name);
        Act_FunctionsCollection& functions = *owner->activity()->Act_Functions;
        const std::string key = clone->Function_Key;
        const int position = functions.positionOf(key);
        functions.Remove(position);
        functions.insert(position, std::move(clone), key);
    }
}

void bringUpAll(ZoomView& view) {
    for (const auto& [node, activity] : view.waiting) {
        if (LabelsD* function = view.Labels.byIndex(node)) {
            bringUp(view, *function);
        }
    }
}

}  // namespace orvent::zoom
