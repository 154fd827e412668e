#pragma once

#include <string>
#include <vector>

#include "zoom/expansion.h"

namespace orvent::zoom {

/// What was drawn at an activity while its list is collapsed: such members have nodes of their own, and collapsing the
/// activity leaves them. A dialog that gives the activity another record takes the nodes off the view, for they would
/// go on showing what was replaced.
class DrawnMembers {
  public:
    /// Takes the nodes of a collapsed activity off; its functions wait.
    DrawnMembers(ZoomView& view, canvas::LabelsD& owner);

    /// Shows those again that the activity still has.
    void restore(ZoomView& view, canvas::LabelsD& owner) const;

  private:
    struct Member {
        entities::NodeKindCode kind;
        std::string key;
        canvas::Box box;
    };
    std::vector<Member> members_;
};

}  // namespace orvent::zoom
