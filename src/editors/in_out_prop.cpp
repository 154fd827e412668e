#include "editors/in_out_prop.h"

#include <array>

#include "forms/name_check.h"

namespace orvent::editors {

InOutProp::InOutProp(platform::MessageBox& messages, const entities::CatalogueTables& catalogue,
                     const std::string& kind, forms::List& target)
    : Editor(messages), Caption(kind + "'s PROPERTIES"), target_(target) {
    const bool function = kind == "FUNCTION";
    item_ = function ? "A FUNCTION OR A PARAMETER " : "AN OUTPUT ";
    const entities::NameTable& types = function ? catalogue.functionTypes : catalogue.dataTypes;
    indices_ = types.listed();
    for (const std::int16_t index : indices_) {
        InOutTypes.push_back(types.name(index));
    }
}

bool InOutProp::apply() {
    if (TypeIndex < 0 || TypeIndex >= static_cast<int>(InOutTypes.size())) {
        messages().tell("PLEASE SELECT A DATATYPE", {}, platform::Icon::warning);
        return false;
    }
    const std::string nameless = "PLEASE GIVE THE " + item_ + "'s NAME!";
    const std::array<forms::NameRule, 2> rules = {
        {{forms::NameFault::empty, nameless}, {forms::NameFault::dot, "DOTS ARE NOT ALLLOWED IN NAMES"}}};
    if (!forms::checkName(txtInOutName, rules, messages())) {
        return false;
    }
    const auto chosen = static_cast<std::size_t>(TypeIndex);
    target_.add(inOutRow(txtInOutName, indices_[chosen], InOutTypes[chosen]));
    added = true;
    return true;
}

forms::ListRow inOutRow(const std::string& name, std::int16_t type, const std::string& typeName) {
    return {.Key = name, .Text = name + "(" + typeName + ")", .Tag = type};
}

}  // namespace orvent::editors
