#pragma once

#include <map>
#include <string>
#include <vector>

#include "run/run.h"

namespace orvent::run {

/// How an expectation came out.
struct Verdict {
    canvas::NodeNumber node{};
    entities::Expectation expectation;
    bool met = false;
    std::string words{};  ///< what is the case instead
    Page rows{};          ///< those that should not be there, the first of them
};

/// The expectation as a sentence, such as "At least 3 rows" or "No row where AU_ORDER > 1". A value that is empty, or
/// reads as NULL, stands in quotation marks.
std::string wordsOf(const entities::Expectation& expectation);
/// The same back, whatever the case of its words. Throws a `platform::Fault` for any other line.
entities::Expectation expectationFrom(const std::string& line);

/// What is expected of the nodes of a scenario.
using Expected = std::map<canvas::NodeNumber, std::vector<entities::Expectation>>;
Expected expectedOf(const canvas::DrawForm& form);

/// Holds the rows of a run that has ended against what is expected of its nodes.
std::vector<Verdict> verdicts(Run& run, const Expected& expected);

}  // namespace orvent::run
