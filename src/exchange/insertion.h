#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "exchange/copied_names.h"

namespace orvent::exchange {

/// What came into a window, and is selected there now.
struct Inserted {
    std::vector<canvas::NodeNumber> nodes;      ///< empty when the user has cancelled
    std::vector<UncertainStatement> uncertain;  ///< to be listed as unfinished
    std::string words;                          ///< what is to be told, in one message; empty when there is nothing
};

/// An edge of a window that a copy gets, too, at a node of the copy.
struct IncomingEdge {
    const canvas::LinesD* edge;
    canvas::NodeNumber to;
};

struct CopyRules {
    std::optional<canvas::Point> middle;  ///< where the copy goes; a step beside when there is none
    bool keepsSources = false;            ///< links from providers and regulators outside are kept
    std::vector<std::string> leadingOut;  ///< the nodes whose links may lead out of the copy
    std::vector<IncomingEdge> incoming;
};

/// Brings all nodes of a copy, whose links within it are whole, into a window, with free names, and selects them. The
/// copy is empty of entities then.
Inserted insertCopy(canvas::DrawForm& form, canvas::DrawForm& copy, const CopyRules& rules);

}  // namespace orvent::exchange
