#include "history/row_identifiers.h"

#include <unordered_set>

#include "canvas/canvas_state.h"

namespace orvent::history {

StoredRows::StoredRows(const canvas::NodeState& node) {
    eachIdentifier(node.kind, node.entity, [this](entities::NodeKindCode kind, std::string path, std::int16_t id) {
        if (id != 0) {
            rows_.push_back({kind, std::move(path), id});
        }
    });
}

void StoredRows::giveTo(canvas::NodeState& state) const {
    std::unordered_map<std::string, std::int16_t> free;
    std::unordered_set<std::int32_t> stored;
    // A node, a function and a member may have one number.
    const auto keyOf = [](entities::NodeKindCode kind, std::int16_t id) {
        const int table = kind >= entities::DeletedActivity ? 2 : kind == entities::KindFunction ? 1 : 0;
        return std::int32_t{id} * 4 + table;
    };
    for (const Row& row : rows_) {
        stored.insert(keyOf(row.kind, row.id));
        free.emplace(row.path, row.id);
    }
    std::unordered_set<std::int32_t> taken;
    eachIdentifier(state.kind, state.entity, [&](entities::NodeKindCode kind, const std::string&, std::int16_t& id) {
        if (!stored.contains(keyOf(kind, id)) || !taken.insert(keyOf(kind, id)).second) {
            id = 0;
        }
    });
    eachIdentifier(state.kind, state.entity,
                   [&](entities::NodeKindCode kind, const std::string& path, std::int16_t& id) {
                       const auto row = free.find(path);
                       if (id == 0 && row != free.end() && taken.insert(keyOf(kind, row->second)).second) {
                           id = row->second;
                       }
                   });
}

std::vector<canvas::DeletedNode> StoredRows::lackingIn(const canvas::NodeState* state) const {
    std::vector<canvas::DeletedNode> lacking;
    if (!state) {
        if (!rows_.empty() && rows_.front().path.empty()) {
            lacking.push_back({rows_.front().kind, rows_.front().id});
        }
        return lacking;
    }
    std::unordered_set<std::int32_t> there;
    const auto keyOf = [](entities::NodeKindCode kind, std::int16_t id) {
        return std::int32_t{id} * 16 + static_cast<std::int32_t>(kind);
    };
    eachIdentifier(state->kind, state->entity, [&](entities::NodeKindCode kind, const std::string&, std::int16_t id) {
        there.insert(keyOf(kind, id));
    });
    for (const Row& row : rows_) {
        if (!there.contains(keyOf(row.kind, row.id))) {
            lacking.push_back({row.kind, row.id});
        }
    }
    return lacking;
}

}  // namespace orvent::history
