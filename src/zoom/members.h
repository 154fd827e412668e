#pragma once

#include <memory>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "canvas/canvas.h"
#include "entities/nodes.h"

namespace orvent::zoom {

/// The entity kind of a collection.
template <class List>
using EntityOf = std::remove_reference_t<decltype(*std::declval<List&>().Item(1))>;

inline const std::string& keyOf(const entities::AttributeProperties& entity) {
    return entity.Key;
}
inline const std::string& keyOf(const entities::ParameterProperties& entity) {
    return entity.Key;
}
inline const std::string& keyOf(const entities::FunctionProperties& entity) {
    return entity.Function_Key;
}

/// Makes the node show that very entity.
template <class Entity>
void bindNode(canvas::LabelsD& node, std::shared_ptr<Entity> entity) {
    if constexpr (requires { entity->LabelIndex; }) {
        entity->LabelIndex = node.Index();
    }
    node.Properties = std::move(entity);
}

/// Adds the entity of a node to a collection at its end, under `key`, and makes the node show the very object that
/// stands there. The key must not be taken.
template <class List>
EntityOf<List>& addMember(canvas::LabelsD& node, List& list, const std::string& key) {
    const EntityOf<List>& shown = *node.entity<EntityOf<List>>();
    if constexpr (requires { list.AddFullAttribute(shown, key, false, 0); }) {
        list.AddFullAttribute(shown, key, false, 0);
    } else if constexpr (requires { list.AddFullParameter(shown, key, false, 0); }) {
        list.AddFullParameter(shown, key, false, 0);
    } else {
        list.AddFunctionProps(shown, key, 0);
    }
    bindNode(node, list.share(list.Count()));
    return *list.Item(list.Count());
}

/// The keys of a collection in its order.
template <class List>
std::vector<std::string> keysOf(const entities::Lazy<List>& list) {
    std::vector<std::string> keys;
    for (const auto& item : list) {
        keys.push_back(keyOf(item));
    }
    return keys;
}

/// Puts the items of a collection into the order of `keys`; those that it does not name follow in the order they had.
/// The items themselves stay the same objects.
template <class List>
void restoreOrder(entities::Lazy<List>& items, const std::vector<std::string>& keys) {
    List* list = items.peek();
    if (!list) {
        return;
    }
    std::vector<std::shared_ptr<EntityOf<List>>> held;
    std::unordered_map<std::string, std::size_t> places;
    for (int position = 1; position <= list->Count(); ++position) {
        places[keyOf(*list->Item(position))] = held.size();
        held.push_back(list->share(position));
    }
    list->Clear();
    const auto append = [&](std::shared_ptr<EntityOf<List>>& item) {
        if (item) {
            const std::string key = keyOf(*item);
            list->append(std::exchange(item, nullptr), key);
        }
    };
    for (const std::string& key : keys) {
        if (const auto place = places.find(key); place != places.end()) {
            append(held[place->second]);
        }
    }
    for (auto& item : held) {
        append(item);
    }
}

}  // namespace orvent::zoom
