#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "analysis/budgeted_walk.h"
#include "canvas/canvas.h"
#include "entities/attributes.h"

namespace orvent::analysis {

/// Walks along the links of attributes in one direction, through the parameters that carry a regulation on. A link to
/// what does not exist counts, and leads nowhere.
class AttributeWalks {
  public:
    enum class Direction { In, Out };

    AttributeWalks(const canvas::Canvas& form, Direction direction) : form_(form), direction_(direction) {}

    /// Makes known an attribute from which walks will begin, with all that it leads to. All are made known before the
    /// first is counted, or counting begins anew.
    void include(const entities::AttributeProperties& attribute);

    /// The number of distinct links that a walk from the attribute meets with that budget.
    std::int32_t count(const entities::AttributeProperties& attribute, std::int32_t budget);

    /// The number of direct dependencies of the attribute, those through its parameters included.
    std::int64_t local(const entities::AttributeProperties& attribute) const;

  private:
    std::int32_t vertexOf(const entities::AttributeProperties* attribute);
    void addSteps(const entities::AttributeProperties& attribute);
    void addRegulations(const entities::AttributeProperties& attribute);
    std::int32_t textOf(const std::string& words) {
        return texts_.try_emplace(words, static_cast<std::int32_t>(texts_.size())).first->second;
    }

    const canvas::Canvas& form_;
    Direction direction_;
    WalkGraph graph_;
    std::vector<const entities::AttributeProperties*> attributes_;  ///< by vertex
    std::unordered_map<const entities::AttributeProperties*, std::int32_t> vertices_;
    std::unordered_map<std::string, std::int32_t> texts_;
    std::unique_ptr<BudgetedWalk> walk_;
};

}  // namespace orvent::analysis
