#pragma once

#include "canvas/labels.h"
#include "entities/members.h"

namespace orvent::canvas {

/// Runs `visit(owner)` on what a node holds that may have members: an activity, a record set or a function. `Node` is
/// const or not. False for a node of another kind.
template <class Node, class Visit>
bool withOwner(Node& node, Visit visit) {
    const auto onto = [&](auto* owner) {
        if (owner) {
            visit(*owner);
        }
        return owner != nullptr;
    };
    return onto(node.activity()) || onto(node.recordSet()) ||
           onto(node.template entity<entities::FunctionProperties>());
}

/// The list of that kind of what a node holds, as a collection of `Entity`, or nothing.
template <class Entity>
entities::EntityCollection<Entity>* listOf(LabelsD& node, entities::NodeKindCode kind) {
    entities::EntityCollection<Entity>* found = nullptr;
    withOwner(node, [&](auto& owner) { found = entities::listOf<Entity>(owner, kind); });
    return found;
}

}  // namespace orvent::canvas
