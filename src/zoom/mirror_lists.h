#pragma once

#include <type_traits>

#include "zoom/far_end.h"

namespace orvent::zoom {

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

}  // namespace orvent::zoom
