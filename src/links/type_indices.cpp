#include "links/type_indices.h"

#include "links/members.h"

namespace orvent::links {

void eachType(canvas::NodeProperties& entity, const std::function<void(TypeTable, std::int16_t&)>& visit) {
    const auto members = [&visit](auto& owner) {
        entities::eachMember(owner, [&visit](auto& member) { visit(TypeTable::data, typeOf(member)); });
    };
    if (auto* activity = std::get_if<platform::Shared<entities::ActivityProperties>>(&entity)) {
        visit(TypeTable::activities, (*activity)->Act_Type);
        members(**activity);
        for (entities::FunctionProperties& function : (*activity)->Act_Functions) {
            visit(TypeTable::functions, function.Function_Type);
        }
    } else if (auto* recordSet = std::get_if<platform::Shared<entities::RecordSetProperties>>(&entity)) {
        members(**recordSet);
    }
}

void nameTypes(canvas::NodeProperties& entity, const TypeIndices& types) {
    eachType(entity, [&types](TypeTable table, std::int16_t& type) {
        const std::vector<std::int16_t>& indices = types.of(table);
        if (type >= 0 && static_cast<std::size_t>(type) < indices.size()) {
            type = indices[static_cast<std::size_t>(type)];
        }
    });
}

}  // namespace orvent::links
