#pragma once

#include <unordered_map>

#include "editors/set_act_prop.h"
#include "zoom/drawn_members.h"
#include "zoom/expanded_state.h"

namespace orvent::editors {

/// Collapses the node of a zoom view while its dialog is open, and expands it as it was. A view takes no input
/// meanwhile, so there is one such node of each at a time.
class ZoomNodes : public NodePreparation {
  public:
    void prepare(canvas::CanvasForm& form, canvas::LabelsD& node) override;
    void refresh(canvas::CanvasForm& form, canvas::LabelsD& node) override;

  private:
    struct Collapsed {
        zoom::ExpandedState before;
        zoom::DrawnMembers drawn;
        std::shared_ptr<const void> entity;  ///< as the dialog opened
    };
    std::unordered_map<const canvas::CanvasForm*, Collapsed> collapsed_;
};

}  // namespace orvent::editors
