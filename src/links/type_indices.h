#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "canvas/labels.h"

namespace orvent::links {

/// The tables of the catalogue.
enum class TypeTable { data, functions, activities };

/// Runs `visit(table, type)` for each type that the entity of a node has; it may be changed.
void eachType(canvas::NodeProperties& entity, const std::function<void(TypeTable, std::int16_t&)>& visit);

/// The indices in a run's tables of types that something else names by numbers of its own, from 0 on.
struct TypeIndices {
    std::vector<std::int16_t> data, functions, activities;

    const std::vector<std::int16_t>& of(TypeTable table) const {
        return table == TypeTable::data ? data : table == TypeTable::functions ? functions : activities;
    }
};

/// Lets the entity of a node name its types by the run's tables. A number for which there is no index stays.
void nameTypes(canvas::NodeProperties& entity, const TypeIndices& types);

}  // namespace orvent::links
