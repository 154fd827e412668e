#pragma once

#include <cstdint>
#include <vector>

#include "zoom/zoom_form.h"

namespace orvent::zoom {

/// The edges by which members are tied to their owner, the last one first.
std::vector<std::int32_t> partOfEdges(const ZoomForm& form, const canvas::LabelsD& owner);

canvas::LabelsD* targetOf(ZoomForm& form, std::int32_t edge);

inline std::int16_t typeOf(const entities::AttributeProperties& entity) {
    return entity.Attribute_Type;
}
inline std::int16_t typeOf(const entities::ParameterProperties& entity) {
    return entity.Parameter_Type;
}

/// Throws when the catalogue does not have the data type of an item.
template <class List>
void requireTypes(const ZoomForm& form, const entities::Lazy<List>& items) {
    for (const auto& item : items) {
        form.catalogue().dataTypes.name(typeOf(item));
    }
}

}  // namespace orvent::zoom
