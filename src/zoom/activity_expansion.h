#pragma once

#include <memory>

#include "zoom/expansion.h"

namespace orvent::zoom {

/// Expands and collapses an activity: besides its members its functions, which are nodes with members of their own. One
/// that was drawn by itself waits for the activity while that is collapsed.
class ActivityExpansion : public Expansion {
  public:
    using Expansion::Expansion;

    void expandFunctions();
    void collapseFunctions();
    /// Ties the functions on again that wait for the activity.
    void tieWaiting();
    void collapseActivity();
    /// Whatever the owner is.
    void collapseWhole();

  private:
    void showFunction(std::shared_ptr<entities::FunctionProperties> function, float left, float top);
    void tieFunction(canvas::LabelsD& node, std::shared_ptr<entities::FunctionProperties> function);
};

}  // namespace orvent::zoom
