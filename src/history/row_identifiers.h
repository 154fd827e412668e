#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "canvas/deleted_nodes.h"
#include "canvas/labels.h"
#include "entities/members.h"

namespace orvent::history {

/// Runs `step(kind, path, identifier)` for the row of a node and those of its members and functions. The path names a
/// row within its node. `Properties` is const or not.
template <class Properties, class Step>
void eachIdentifier(canvas::NodeTypeCode type, Properties& properties, Step step) {
    const entities::NodeKindCode whole = canvas::nodeKind(type).deleted;
    const auto members = [&step](auto& owner, const std::string& path) {
        entities::eachList(owner, [&](auto& list, entities::NodeKindCode kind) {
            const std::string head = path + static_cast<char>('0' + static_cast<int>(kind));
            for (auto& member : list) {
                step(kind, head + member.Key, member.SubNode_ID);
            }
        });
    };
    if (auto* activity = std::get_if<platform::Shared<entities::ActivityProperties>>(&properties)) {
        step(whole, std::string(), (*activity)->NodeID);
        members(**activity, {});
        for (auto& function : (*activity)->Act_Functions) {
            const std::string path = "f" + function.Function_Key;
            step(entities::KindFunction, path, function.FunctionID);
            members(function, path + '\n');
        }
    } else if (auto* recordSet = std::get_if<platform::Shared<entities::RecordSetProperties>>(&properties)) {
        step(whole, std::string(), (*recordSet)->NodeID);
        members(**recordSet, {});
    } else if (auto* comment = std::get_if<platform::Shared<entities::CommentProperties>>(&properties)) {
        step(whole, std::string(), (*comment)->NodeID);
    } else if (auto* number = std::get_if<std::int16_t>(&properties)) {
        step(whole, std::string(), *number);
    }
}

/// The rows that are stored for one node.
class StoredRows {
  public:
    explicit StoredRows(const canvas::NodeState& node);

    /// Gives the records of a state the identifiers that are stored for them: its own where a row has it, that of the
    /// row under the same path where its own is none of them, else 0.
    void giveTo(canvas::NodeState& state) const;

    /// The rows that a state of the node lacks; of a node that does not exist only its own.
    std::vector<canvas::DeletedNode> lackingIn(const canvas::NodeState* state) const;

  private:
    struct Row {
        entities::NodeKindCode kind;
        std::string path;
        std::int16_t id;
    };
    std::vector<Row> rows_;
};

}  // namespace orvent::history
