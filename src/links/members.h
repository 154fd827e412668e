#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "canvas/canvas.h"
#include "entities/nodes.h"

namespace orvent::links {

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

// What attributes and parameters have alike under two names. `Entity` is const or not.

template <class Entity>
auto& nameOf(Entity& entity) {
    if constexpr (requires { entity.Attribute_Name; }) {
        return entity.Attribute_Name;
    } else {
        return entity.Parameter_Name;
    }
}

template <class Entity>
auto& typeOf(Entity& entity) {
    if constexpr (requires { entity.Attribute_Type; }) {
        return entity.Attribute_Type;
    } else {
        return entity.Parameter_Type;
    }
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

}  // namespace orvent::links
