#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "links/far_end.h"

namespace orvent::exchange {

/// What of a canvas is written.
struct Extract {
    std::string name;
    std::vector<const canvas::LabelsD*> nodes;
    std::vector<const canvas::LinesD*> edges;  ///< only such as join these nodes
    /// What is kept of the nodes beside the scenario; nothing when it is null.
    const std::map<canvas::NodeNumber, entities::NodeFacts>* facts = nullptr;
    bool keepDuplicates = false;  ///< as the canvas has it
    /// Whether a link of one of the nodes is written; all are when it is empty.
    std::function<bool(links::Direction, const links::NearEnd&, const links::LinkData&)> keeps;

    static Extract all(const canvas::DrawForm& form);
};

}  // namespace orvent::exchange
