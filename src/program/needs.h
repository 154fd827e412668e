#pragma once

#include <vector>

#include "program/activity_program.h"

namespace orvent::program {

/// An activity without whose outputs a statement cannot give its own.
struct Need {
    canvas::NodeNumber activity;
    bool whole;  ///< they must be whole before: a "not" or an aggregate stands between

    auto operator<=>(const Need&) const = default;
};

/// The activities of whose outputs those of a node are derived by the sound rules of its statement; ascending, each
/// once.
std::vector<Need> needsOf(const canvas::Canvas& form, const canvas::LabelsD& node, const ActivityProgram& statement);

}  // namespace orvent::program
