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

/// Expands and folds the members of one owner.
class Unfolding {
  public:
    Unfolding(ZoomForm& form, canvas::LabelsD& owner) : form_(form), owner_(owner) {}

    // Both do nothing when the owner has no such members, or when they are in that state already.
    void expand(Members members);
    void collapse(Members members);
    void expandFunctions();
    void collapseFunctions();
    void expandFunction();
    void collapseFunction();

  private:
    template <class List>
    void show(entities::Lazy<List>& items, const ExpansionRow& row, int firstRow);
    template <class Entity>
    void showMember(std::shared_ptr<Entity> entity, const ExpansionRow& row, float top);
    template <class List>
    void fold(entities::Lazy<List>& items, const ExpansionRow& row);
    void showConstants(const canvas::LabelsD& node, const entities::ParameterProperties& parameter,
                       const ExpansionRow& row);
    void showFunction(std::shared_ptr<entities::FunctionProperties> function, float left, float top);
    void tieFunction(canvas::LabelsD& node, std::shared_ptr<entities::FunctionProperties> function);
    float rowTop(int halfRows) const;
    void grow(const canvas::LabelsD& node, bool widens);

    /// The owner's name, which a second copy does not bear as its `KeyName`.
    const std::string& ownerName() const;

    ZoomForm& form_;
    canvas::LabelsD& owner_;
};

}  // namespace orvent::zoom
