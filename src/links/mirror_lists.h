#pragma once

#include <type_traits>

#include "entities/members.h"
#include "links/far_end.h"

namespace orvent::links {

/// The list of the far end that holds the mirrors, or nothing.
template <class Link>
entities::Lazy<entities::LinkCollection<Link>>* mirrorsOf(const FarEnd& far, Direction direction) {
    if constexpr (std::is_same_v<Link, entities::ProviderProperties>) {
        if (far.attribute) {
            return direction == Direction::ProvidedFrom ? &far.attribute->ProviderFor : &far.attribute->ProvidedFrom;
        }
        return nullptr;
    } else {
        const bool regulated = direction == Direction::RegulatedFrom;
        if (far.attribute) {
            return regulated ? &far.attribute->RegulatorFor : &far.attribute->RegulatedFrom;
        }
        if (far.parameter) {
            return regulated ? &far.parameter->RegulatorFor : &far.parameter->RegulatedFrom;
        }
        return nullptr;
    }
}

/// The link lists of an attribute or a parameter in the fixed order: `step(direction, links)`.
template <class Entity, class Step>
void eachLinkList(Entity& entity, Step step) {
    if constexpr (requires { entity.ProvidedFrom; }) {
        step(Direction::ProvidedFrom, entity.ProvidedFrom);
        step(Direction::ProviderFor, entity.ProviderFor);
    }
    step(Direction::RegulatedFrom, entity.RegulatedFrom);
    step(Direction::RegulatorFor, entity.RegulatorFor);
}

/// What a link and its mirror have to do with each other.
struct MirrorEnds {
    Direction direction;
    NearEnd near;
    FarEnd far;
};

/// Runs `step(link, mirrors, ends)` for each link of an attribute or a parameter whose far end is within reach; a
/// mirror of the link stands, or would stand, in `mirrors`. Mirrors go into lists of the opposite direction, so the
/// list that is walked stays as it is even when a link leads back to its holder. `InDialog` as in `findFarEnd`.
template <class Entity, class Step>
void eachMirrorList(canvas::Canvas& Form, Entity& entity, entities::ActivityProperties* InDialog, Step step) {
    const NearEnd near(entity);
    eachLinkList(entity, [&](Direction direction, auto& links) {
        for (auto& link : links) {
            using Link = std::remove_cvref_t<decltype(link)>;
            const FarEnd far = findFarEnd(Form, direction, near, {link.name(), link.type(), link.key()}, InDialog);
            if (auto* mirrors = mirrorsOf<Link>(far, direction)) {
                step(link, *mirrors, MirrorEnds{direction, near, far});
            }
        }
    });
}

// What may have links, of an owner or of a member alone: `step(attribute or parameter)`.

template <class Owner, class Step>
void eachLinked(Owner& owner, Step step) {
    entities::eachMember(owner, step);
}
template <class Step>
void eachLinked(entities::AttributeProperties& attribute, Step step) {
    step(attribute);
}
template <class Step>
void eachLinked(entities::ParameterProperties& parameter, Step step) {
    step(parameter);
}

}  // namespace orvent::links
