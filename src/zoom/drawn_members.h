#pragma once

#include <string>
#include <vector>

#include "zoom/unfolding.h"

namespace orvent::zoom {

/// What was drawn at an activity while its list is folded: such members have nodes of their own, and folding the
/// activity leaves them. A dialog that gives the activity another record takes the nodes off the view, for they would
/// go on showing what was replaced.
class DrawnMembers {
  public:
    /// Takes the nodes of a folded activity off; its functions wait.
    DrawnMembers(ZoomForm& form, canvas::LabelsD& owner);

    /// Shows those again that the activity still has.
    void restore(ZoomForm& form, canvas::LabelsD& owner) const;

  private:
    struct Member {
        Members list;
        std::string key;
        canvas::Box box;
    };
    std::vector<Member> members_;
};

}  // namespace orvent::zoom
