#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "canvas/canvas_form.h"
#include "editors/set_act_prop.h"

namespace orvent::editors {

/// Gives all selected nodes a type, a width or a height at once: on a design window the activities one of theirs, in a
/// zoom view attributes, parameters and constants a data type. Those that cannot have it are told together.
class SelectionProp : public forms::Editor {
  public:
    SelectionProp(const EditorServices& services, canvas::CanvasForm& form);

    std::string Caption;             ///< how many nodes are meant
    std::vector<std::string> Types;  ///< the first one leaves each node its own
    int Type = 0;
    // Pixels; what all have alike as the dialog opens, or nothing. That, and nothing, leaves each node its own.
    std::string txtWidth, txtHeight;

  protected:
    bool apply() override;

  private:
    bool takeSizes(std::optional<float>& width, std::optional<float>& height) const;  ///< as twips
    bool giveTypes(std::int16_t type, std::vector<std::string>& refused);
    bool giveDataType(canvas::LabelsD& node, std::int16_t type);

    EditorServices services_;
    canvas::CanvasForm& form_;
    std::vector<canvas::NodeNumber> nodes_;
    std::string openedWidth_, openedHeight_;
    std::vector<std::int16_t> indices_;  ///< of the types behind the first
};

}  // namespace orvent::editors
