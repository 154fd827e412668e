#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "links/members.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

// What hangs at an owner of the view: an activity, a record set or a function with the nodes of its members.

/// What its members call an owner; a second copy does not bear that name as its `KeyName`.
const std::string& ownerNameOf(const ZoomView& view, const canvas::LabelsD& owner);

/// Whether an attribute, parameter or function has no owner, or one that is gone.
bool isFree(const canvas::Canvas& canvas, const std::string& owner);

/// The edges by which members are tied to their owner, the last one first.
std::vector<canvas::EdgeNumber> partOfEdges(const ZoomView& view, const canvas::LabelsD& owner);

canvas::LabelsD* targetOf(ZoomView& view, canvas::EdgeNumber edge);

/// Whether an attribute or a parameter belongs to the owner from which a part-of edge leads to it. One that was drawn
/// between nodes of other kinds, or to what another owner has, means nothing.
bool isMemberOf(const ZoomView& view, const canvas::LabelsD& node, const canvas::LabelsD& owner);

/// Throws when the catalogue does not have the data type of an item.
template <class List>
void requireTypes(const ZoomView& view, const entities::Lazy<List>& items) {
    for (const auto& item : items) {
        view.catalogue().dataTypes.name(links::typeOf(item));
    }
}

}  // namespace orvent::zoom
