#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/problem_kinds.h"
#include "canvas/canvas.h"

namespace orvent::analysis {

/// What the problems of a scenario ask of those who know statements.
class StatementCheck {
  public:
    virtual ~StatementCheck() = default;

    struct Fault {
        ProblemKind kind;
        std::string words;
    };
    /// What is wrong with an activity's statement; nothing when it is whole and fits.
    virtual std::optional<Fault> faultOf(const entities::ActivityProperties& activity) const = 0;
    /// An activity without whose outputs a statement cannot give its own.
    struct Need {
        canvas::NodeNumber activity;
        bool whole;  ///< they must be whole before

        bool operator==(const Need&) const = default;
    };
    /// What the program of a scenario tells of one node.
    struct ProgramLook {
        std::vector<Fault> faults;
        std::vector<std::string> reads;  ///< nodes that its statement reads by their names
        std::vector<std::string> asked;  ///< names, of nodes or not, by which it would be another look
        std::vector<Need> needs;         ///< ascending
    };
    virtual ProgramLook programOf(const canvas::Canvas& form, const canvas::LabelsD& node) const = 0;
    /// What is told of a circle of activities along that way when one of them needs another one whole.
    virtual std::string deniedCircle(const std::string& way) const = 0;
    /// The way of the data from an activity back to itself, in words; empty when there is none.
    virtual std::string circleThrough(const canvas::Canvas& form,
                                      const entities::ActivityProperties& activity) const = 0;
};

}  // namespace orvent::analysis
