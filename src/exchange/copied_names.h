#pragma once

#include <functional>
#include <string>
#include <vector>

#include "canvas/draw_form.h"

namespace orvent::exchange {

/// A statement that could not follow the new names of a copy, and why.
struct UncertainStatement {
    std::string activity, why;
    bool operator==(const UncertainStatement&) const = default;
};

/// The name, or the first of it with "_2", "_3" ... behind that is not taken.
std::string freeCopyName(const std::string& name, const std::function<bool(const std::string&)>& isTaken);

/// Gives the nodes of a copy, and the functions that they have for themselves, names that are free in the window that
/// is to take them. Members, links and statements within the copy follow; statements that cannot are told, and stay.
std::vector<UncertainStatement> giveFreeNames(canvas::DrawForm& copy, const canvas::DrawForm& target);

}  // namespace orvent::exchange
