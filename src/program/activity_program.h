#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "entities/name_tables.h"
#include "program/finding.h"
#include "program/types.h"
#include "rules/syntax.h"

namespace orvent::program {

/// A column of a predicate.
struct Column {
    std::string name;
    std::int16_t type = -1;  ///< data type, -1 when nothing tells

    bool operator==(const Column&) const = default;
};

/// What a statement derives beside its outputs.
struct Helper {
    std::string name;
    std::vector<Column> columns;
};

/// The statement of an activity as rules. The tag of an atom is a `reference`, that of a constant its data type.
struct ActivityProgram {
    std::vector<rules::Rule> rules;
    std::vector<bool> sound;  ///< of each rule: no finding takes its meaning
    std::vector<Helper> helpers;
    std::vector<Finding> findings;
    std::vector<canvas::NodeNumber> reads;  ///< record sets and activities that it reads by their names, ascending
    std::vector<std::string> asked;         ///< names of nodes, there or not, that it may mean
    bool plain = true;                      ///< no other node's text but theirs has to do with it
};

/// What a check needs beside the activity.
struct ProgramSources {
    const canvas::Canvas& form;
    const entities::CatalogueTables& catalogue;
    const Types& types;
};

/// Reads and checks the statement of an activity that stands on the canvas. One without a text has no rules and no
/// findings.
ActivityProgram activityProgram(const ProgramSources& sources, const canvas::LabelsD& node);

}  // namespace orvent::program
