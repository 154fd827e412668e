#pragma once

#include <type_traits>

#include "entities/nodes.h"

namespace orvent::entities {

// The members of an owner, list by list. `Owner` is an activity, a record set or a function, const or not. The lists
// are walked in one order everywhere: inputs, outputs, parameters; an activity's functions come behind them.

/// Runs `visit(list, kind)` for each list of the owner's own members; the list is a `Lazy`, `kind` that of its items.
template <class Owner, class Visit>
void eachList(Owner& owner, Visit visit) {
    if constexpr (requires { owner.Act_Inputs; }) {
        visit(owner.Act_Inputs, KindInput);
        visit(owner.Act_Outputs, KindOutput);
        visit(owner.Act_Parameters, KindParameter);
    } else if constexpr (requires { owner.Function_Inputs; }) {
        visit(owner.Function_Inputs, KindFunctionInput);
        visit(owner.Function_Outputs, KindFunctionOutput);
    } else {
        visit(owner.RecordSet_Outputs, KindRecordSetAttribute);
    }
}

/// Runs `visit(list, kind)` for the list of one kind. False when the owner has no such list.
template <class Owner, class Visit>
bool withList(Owner& owner, NodeKindCode kind, Visit visit) {
    bool found = false;
    eachList(owner, [&](auto& list, NodeKindCode its) {
        if (its == kind) {
            found = true;
            visit(list, kind);
        }
    });
    return found;
}

/// The owner's list of that kind as a collection of `Entity`, nothing when it has none, or none of such items. Of an
/// owner that may be changed the list is there afterwards.
template <class Entity, class Owner>
auto* listOf(Owner& owner, NodeKindCode kind) {
    using Collection = EntityCollection<Entity>;
    std::conditional_t<std::is_const_v<Owner>, const Collection, Collection>* found = nullptr;
    withList(owner, kind, [&](auto& list, NodeKindCode) {
        if constexpr (std::is_base_of_v<Collection, std::remove_cvref_t<decltype(*list.peek())>>) {
            if constexpr (std::is_const_v<Owner>) {
                found = list.peek();
            } else {
                found = &*list;
            }
        }
    });
    return found;
}

/// Runs `visit(list, kind)` for each list of members of an owner and of its functions.
template <class Owner, class Visit>
void eachListDeep(Owner& owner, Visit visit) {
    eachList(owner, visit);
    if constexpr (requires { owner.Act_Functions; }) {
        for (auto& function : owner.Act_Functions) {
            eachList(function, visit);
        }
    }
}

/// Runs `visit(member)` for each attribute and parameter of an owner and of its functions.
template <class Owner, class Visit>
void eachMember(Owner& owner, Visit visit) {
    eachListDeep(owner, [&](auto& list, NodeKindCode) {
        for (auto& member : list) {
            visit(member);
        }
    });
}

}  // namespace orvent::entities
