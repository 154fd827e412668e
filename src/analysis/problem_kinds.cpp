#include "analysis/problem_kinds.h"

#include <algorithm>

namespace orvent::analysis {

namespace {

using enum ProblemKind;

constexpr std::array<ProblemWords, kProblemKinds> kWords = {{
    {notReady, "not-ready", "Nodes that are not ready", "A node that is not ready lacks what its window asks for.",
     "Open it and give what it lacks."},
    {noType, "no-type", "Activities without a type", "No save writes an activity without a type.",
     "Open it and choose its ACTIVITY TYPE."},
    {goneType, "gone-type", "Types that are gone", "The catalogue has no type of this name any more.",
     "Choose another type, or add the type to the catalogue again."},
    {statement, "statement", "Statements that are not whole",
     "The program of the scenario has no rule for an activity without a whole statement.",
     "Have the statement made by Create LDL, or in the activity's window."},
    {doubtful, "doubtful", "Statements that may mean others",
     "The statement is a copy, and its names may be those of "
     "the original.",
     "Read it; then confirm it in the list behind Create LDL, or have it made anew."},
    {outdated, "outdated", "Statements older than their activity",
     "The activity was changed behind its statement, which tells of what it was.", "Have the statement made anew."},
    {noProvider, "no-provider", "Inputs without a provider", "An input that nobody provides has no value.",
     "Give it a provider in the activity's window or in the zoom, or remove it."},
    {otherType, "data-type", "Providers and consumers of other data types",
     "The value changes its data type on the way.", "Give both ends the same data type, or convert the value between."},
    {unread, "unread", "Outputs that nobody reads", "An output that nobody reads leads nowhere.",
     "Read it in another node, or remove it."},
    {noRegulator, "no-regulator", "Parameters without a regulator",
     "What a type asks for as parameter or function input has no value.", "Join it with a column or a constant."},
    {noInputs, "no-inputs", "Functions without inputs", "A function without inputs gives the same for every row.",
     "Give its type the inputs, or remove the function."},
    {noLinks, "edge", "Edges without links", "The edge shows a flow, but no attribute is provided along it.",
     "Provide the attributes, or delete the edge; Consistency deletes all of these."},
    {noEdge, "no-edge", "Links without an edge", "Attributes are provided, but the picture shows no flow.",
     "Draw the edge; Consistency draws all of these."},
    {circle, "circle", "Circles of data", "No activity of a circle can be the first to run.",
     "Break the circle, or keep the data in a record set between."},
    {unreachable, "unreachable", "Nodes that no source reaches",
     "No way leads here from a record set that begins a flow.", "Join it with what it reads."},
}};

static_assert(std::all_of(kWords.begin(), kWords.end(),
                          [](const ProblemWords& row) {
                              return &row - kWords.data() == static_cast<std::ptrdiff_t>(row.kind);
                          }),
              "a kind is not in its own row");

}  // namespace

const std::array<ProblemWords, kProblemKinds>& problemWords() {
    return kWords;
}

}  // namespace orvent::analysis
