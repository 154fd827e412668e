#include "editors/scenario_names.h"

#include <algorithm>

#include "zoom/zoom_view.h"

namespace orvent::editors {

bool isTakenBeyond(canvas::CanvasForm& form, const canvas::LabelsD& node, const std::string& name) {
    const auto* zoom = dynamic_cast<const zoom::ZoomView*>(&form);
    const canvas::LabelsD* taker = zoom ? zoom->ParForm().nodeNamed(name) : nullptr;
    if (!taker) {
        return false;
    }
    // Until the view is applied the scenario has the node itself under its former name.
    return std::none_of(zoom->New2OldIndex.begin(), zoom->New2OldIndex.end(), [&](const auto& pair) {
        return pair.NewIndex == node.Index() && pair.OldIndex == taker->Index();
    });
}

}  // namespace orvent::editors
