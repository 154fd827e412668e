#pragma once

#include <optional>

#include "editors/set_act_prop.h"
#include "zoom/unfolded.h"

namespace orvent::editors {

/// Folds the node of a zoom view while its dialog is open, and unfolds it as it was. A view takes no input meanwhile,
/// so there is one such node at a time.
class ZoomNodes : public NodePreparation {
  public:
    void prepare(canvas::CanvasForm& form, canvas::LabelsD& node) override;
    void refresh(canvas::CanvasForm& form, canvas::LabelsD& node) override;

  private:
    std::optional<zoom::Unfolded> unfolded_;
    canvas::NodeProperties entity_;  ///< as the dialog opened
};

}  // namespace orvent::editors
