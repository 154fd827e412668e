#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "zoom/zoom_form.h"

namespace orvent::zoom {

/// What can be shown of an owner, member by member.
enum class Members { Inputs, Outputs, Parameters, FunctionInputs, FunctionOutputs, RecordSet };

/// One way to expand: how the members of an owner become nodes. All of them are told by one table (unfolding.cpp).
struct ExpansionRow;
const ExpansionRow& expansionRow(Members members);

/// The order in which folded members stand in their collection: that of their edges from the last to the first, or as
/// they stood before.
enum class FoldedOrder { reversed, kept };

/// The grab point of an activity at which its functions hang.
inline constexpr std::int16_t kFunctionGrab = 5;

/// What its members call an owner; a second copy does not bear that name as its `KeyName`.
const std::string& ownerNameOf(const ZoomForm& form, const canvas::LabelsD& owner);

/// The grab point of an owner at which unfolding draws the part-of edge to such a node.
std::int16_t ownerGrabPoint(const canvas::LabelsD& member);

/// Expands and folds the members of one owner, whose name stays the same meanwhile.
class Unfolding {
  public:
    Unfolding(ZoomForm& form, canvas::LabelsD& owner, FoldedOrder order = FoldedOrder::reversed)
        : form_(form),
          owner_(owner),
          order_(order),
          named_(form.bearsName(owner)),
          ownerName_(named_ ? owner.KeyName() : ownerNameOf(form, owner)) {}

    // Both do nothing when the owner has no such members, or when they are in that state already.
    void expand(Members members);
    void collapse(Members members);
    void expandFunctions();
    void collapseFunctions();
    void expandFunction();
    void collapseFunction();
    /// Shows one member alone. Nothing when the owner has no such member, or when it is shown.
    canvas::LabelsD* showAlone(Members members, const std::string& key);
    /// Ties the functions on again that wait for the activity.
    void tieWaiting();
    void collapseActivity();
    /// Whatever the owner is.
    void collapseWhole();

  private:
    template <class List>
    void show(entities::Lazy<List>& items, const ExpansionRow& row, int firstRow);
    template <class Entity>
    canvas::LabelsD& showMember(std::shared_ptr<Entity> entity, const ExpansionRow& row, float top);
    template <class List>
    void fold(entities::Lazy<List>& items, const ExpansionRow& row);
    void showConstants(const canvas::LabelsD& node, const entities::ParameterProperties& parameter,
                       const ExpansionRow& row);
    void showFunction(std::shared_ptr<entities::FunctionProperties> function, float left, float top);
    void tieFunction(canvas::LabelsD& node, std::shared_ptr<entities::FunctionProperties> function);
    float rowTop(int halfRows) const;
    void grow(const canvas::LabelsD& node, bool widens);

    ZoomForm& form_;
    canvas::LabelsD& owner_;
    FoldedOrder order_;
    bool named_;  ///< the owner bears its name, and so do its members
    const std::string& ownerName_;
};

}  // namespace orvent::zoom
