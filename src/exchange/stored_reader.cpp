#include "exchange/stored_reader.h"

#include "exchange/stored_rows.h"

namespace orvent::exchange {

namespace {

StoredState::Rows readRows(const ValueReader& in, JsonTree::Place at, const canvas::NodeProperties& entity) {
    in.object(at, keySet({Key::ids, Key::changed, Key::inputsChanged}));
    StoredState::Rows rows;
    const JsonTree::Place ids = in.required(at, Key::ids);
    in.each(ids, [&](JsonTree::Place each) { rows.ids.push_back(in.small(each)); });
    if (const std::size_t needed = rowCount(entity); rows.ids.size() != needed) {
        in.tree().refuse(
            ids, "expected " + std::to_string(needed) + " identifiers, found " + std::to_string(rows.ids.size()));
    }
    in.eachOf(at, Key::changed, [&](JsonTree::Place each) {
        rows.changed.push_back(
            static_cast<std::int16_t>(in.integer(each, 0, static_cast<std::int64_t>(rows.ids.size()) - 1)));
    });
    const JsonTree::Place inputs = in.tree().member(at, Key::inputsChanged);
    rows.inputsChanged = inputs != JsonTree::kNowhere && in.boolean(inputs);
    return rows;
}

}  // namespace

StoredState readStored(const ValueReader& in, JsonTree::Place at, const Document& document) {
    in.object(at, keySet({Key::scenario, Key::changed, Key::mark, Key::rows, Key::nodes, Key::deleted}));
    StoredState stored;
    stored.scenario = in.small(in.required(at, Key::scenario));
    stored.changed = in.boolean(in.required(at, Key::changed));
    stored.mark = in.mark(in.required(at, Key::mark));
    in.eachOf(at, Key::rows, [&](JsonTree::Place each) {
        in.object(each, keySet({Key::id, Key::mark}));
        stored.marks.emplace_back(in.small(in.required(each, Key::id)), in.mark(in.required(each, Key::mark)));
    });
    const JsonTree::Place nodes = in.required(at, Key::nodes);
    in.each(nodes, [&](JsonTree::Place each) {
        const std::size_t number = stored.nodes.size();
        if (number == document.nodes.size()) {
            in.tree().refuse(each, "there is no such node");
        }
        stored.nodes.push_back(readRows(in, each, document.nodes[number].entity));
    });
    if (stored.nodes.size() != document.nodes.size()) {
        in.tree().refuse(nodes, "expected " + std::to_string(document.nodes.size()) + " of them");
    }
    in.eachOf(at, Key::deleted, [&](JsonTree::Place each) {
        in.object(each, keySet({Key::kind, Key::id}));
        stored.deleted.push_back(
            {in.code<entities::NodeKindCode>(in.required(each, Key::kind)), in.small(in.required(each, Key::id))});
    });
    return stored;
}

}  // namespace orvent::exchange
