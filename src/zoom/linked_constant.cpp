#include "zoom/linked_constant.h"

#include "canvas/owners.h"
#include "entities/link_types.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

bool isLinkedConstant(const ZoomView& view, const std::string& name) {
    bool linked = false;
    const auto look = [&](const auto& member) {
        for (const RegulatorProperties& link : member.RegulatedFrom) {
            const bool toConstant = link.Regulator_type == LinkConstant || link.Regulator_type == LinkConstantFunction;
            linked = linked || (toConstant && link.Regulator_Key() == name);
        }
    };
    for (const LabelsD& node : view.Labels) {
        canvas::withOwner(node, [&](const auto& owner) { eachMember(owner, look); });
    }
    return linked;
}

}  // namespace orvent::zoom
