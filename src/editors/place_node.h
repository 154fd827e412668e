#pragma once

#include <cstdint>

#include "canvas/draw_form.h"
#include "editors/set_act_prop.h"

namespace orvent::editors {

/// What can be placed on a design window in one go: an activity of a type, or another node that a tool places.
struct Placement {
    canvas::NodeTypeCode kind = canvas::NodeTypeActivity;
    std::int16_t type = -1;  ///< of an activity, its index in the catalogue

    bool isActivity() const { return kind == canvas::NodeTypeActivity; }
};

/// Where a node is placed.
struct Spot {
    canvas::Point at;
    canvas::LinesD* edge = nullptr;  ///< between whose ends an activity comes
    bool findsRoom = false;          ///< the node goes aside from what it would cover
};

/// Makes the node around a place, and selects it alone. An activity has its type and its members then, as its dialog
/// sets them. Null when its type could not be read, which was told.
canvas::LabelsD* placeNode(const EditorServices& services, canvas::DrawForm& form, const Placement& placement,
                           const Spot& spot);

/// Gives an activity a type as its dialog does. False when the type could not be read, which was told.
bool giveType(const EditorServices& services, canvas::CanvasForm& form, canvas::LabelsD& activity, std::int16_t type);

}  // namespace orvent::editors
