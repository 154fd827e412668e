#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "zoom/part_of.h"

namespace orvent::zoom {

/// How the members of one kind become nodes. All of them are told by one table (expansion.cpp).
struct ExpansionRow;

/// The order in which collapsed members stand in their collection: that of their edges from the last to the first, or
/// as they stood before.
enum class CollapsedOrder { reversed, kept };

/// The grab point of an activity at which its functions hang.
inline constexpr std::int16_t kFunctionGrab = 5;

/// The grab point of an owner at which expanding draws the part-of edge to such a node.
std::int16_t ownerGrabPoint(const canvas::LabelsD& member);

/// Throws a `Fault` for a data type of a function's members that the catalogue does not have.
void requireAllTypes(const ZoomView& view, const entities::FunctionProperties& function);

/// Expands and collapses the members of one owner, whose name stays the same meanwhile.
class Expansion {
  public:
    Expansion(ZoomView& view, canvas::LabelsD& owner, CollapsedOrder order = CollapsedOrder::reversed)
        : view_(view),
          owner_(owner),
          order_(order),
          named_(view.bearsName(owner)),
          ownerName_(named_ ? owner.KeyName() : ownerNameOf(view, owner)) {}

    // Both do nothing when the owner has no such members, or when they are in that state already.
    void expand(entities::NodeKindCode kind);
    void collapse(entities::NodeKindCode kind);
    void expandRecordSet();
    void collapseRecordSet();
    void expandFunction();
    void collapseFunction();
    /// Shows one member alone. Nothing when the owner has no such member, or when it is shown.
    canvas::LabelsD* showAlone(entities::NodeKindCode kind, const std::string& key);

  protected:
    float rowTop(int halfRows) const;
    void grow(const canvas::LabelsD& node, bool widens);

    ZoomView& view_;
    canvas::LabelsD& owner_;
    CollapsedOrder order_;
    bool named_;  ///< the owner bears its name, and so do its members
    const std::string& ownerName_;

  private:
    template <class List>
    void show(entities::Lazy<List>& items, const ExpansionRow& row, int firstRow);
    template <class Entity>
    canvas::LabelsD& showMember(std::shared_ptr<Entity> entity, const ExpansionRow& row, float top);
    template <class List>
    void takeBack(entities::Lazy<List>& items, const ExpansionRow& row);
    void showConstants(const canvas::LabelsD& node, const entities::ParameterProperties& parameter,
                       const ExpansionRow& row);
};

}  // namespace orvent::zoom
