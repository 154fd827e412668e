#include "zoom/linked_constant.h"

#include "entities/link_types.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

namespace {

template <class List>
bool hasConstant(const List& parameters, const std::string& name) {
    for (const ParameterProperties& parameter : parameters) {
        for (const RegulatorProperties& link : parameter.RegulatedFrom) {
            const bool toConstant = link.Regulator_type == LinkConstant || link.Regulator_type == LinkConstantFunction;
            if (toConstant && link.Regulator_Key() == name) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

bool isLinkedConstant(const ZoomForm& form, const std::string& name) {
    for (const LabelsD& node : form.Labels) {
        const auto* function = node.entity<FunctionProperties>();
        const ActivityProperties* activity = node.activity();
        if ((function && hasConstant(function->Function_Inputs, name)) ||
            (activity && hasConstant(activity->Act_Parameters, name))) {
            return true;
        }
        if (activity) {
            for (const FunctionProperties& owned : activity->Act_Functions) {
                if (hasConstant(owned.Function_Inputs, name)) {
                    return true;
                }
            }
        }
    }
    return false;
}

}  // namespace orvent::zoom
