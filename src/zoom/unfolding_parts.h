#pragma once

#include <cstdint>
#include <vector>

#include "links/members.h"
#include "zoom/zoom_form.h"

namespace orvent::zoom {

/// The edges by which members are tied to their owner, the last one first.
std::vector<std::int32_t> partOfEdges(const ZoomForm& form, const canvas::LabelsD& owner);

canvas::LabelsD* targetOf(ZoomForm& form, std::int32_t edge);

/// Whether an attribute or a parameter belongs to the owner from which a part-of edge leads to it. One that was drawn
/// between nodes of other kinds, or to what another owner has, means nothing.
bool isMemberOf(const ZoomForm& form, const canvas::LabelsD& node, const canvas::LabelsD& owner);

/// Throws when the catalogue does not have the data type of an item.
template <class List>
void requireTypes(const ZoomForm& form, const entities::Lazy<List>& items) {
    for (const auto& item : items) {
        form.catalogue().dataTypes.name(links::typeOf(item));
    }
}

}  // namespace orvent::zoom
