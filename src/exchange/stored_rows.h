#pragma once

#include "canvas/labels.h"
#include "entities/members.h"

namespace orvent::exchange {

/// Runs `step(identifier, changed)` for the row of a node and those of its members, in the order in which a document
/// names them; `changed` is null where there is no such mark. `Properties` is const or not.
template <class Properties, class Step>
void eachRow(Properties& properties, Step step) {
    const auto members = [&step](auto& owner) {
        entities::eachList(owner, [&step](auto& list, entities::NodeKindCode) {
            for (auto& member : list) {
                step(member.SubNode_ID, &member.Changed);
            }
        });
    };
    if (auto* activity = std::get_if<platform::Shared<entities::ActivityProperties>>(&properties)) {
        step((*activity)->NodeID, &(*activity)->Changed);
        members(**activity);
        for (auto& function : (*activity)->Act_Functions) {
            step(function.FunctionID, &function.Changed);
            members(function);
        }
    } else if (auto* recordSet = std::get_if<platform::Shared<entities::RecordSetProperties>>(&properties)) {
        step((*recordSet)->NodeID, &(*recordSet)->Changed);
        members(**recordSet);
    } else if (auto* comment = std::get_if<platform::Shared<entities::CommentProperties>>(&properties)) {
        step((*comment)->NodeID, &(*comment)->Changed);
    } else if (auto* number = std::get_if<std::int16_t>(&properties)) {
        step(*number, static_cast<bool*>(nullptr));
    }
}

/// How many rows a node stands for.
inline std::size_t rowCount(const canvas::NodeProperties& properties) {
    std::size_t count = 0;
    eachRow(properties, [&count](const auto&, const auto*) { ++count; });
    return count;
}

}  // namespace orvent::exchange
