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
    {unreadable, "syntax", "Statements that are no rules", "Nothing can be derived by a text that is no rules.",
     "Correct it at the place that is told, or have it made anew."},
    {spelling, "spelling", "Names with one spelling",
     "In statements names differ neither by the case of their first letter nor, as constants, by case at all.",
     "Give one of them another name or value."},
    {pairing, "pairing", "Outputs that get another input", "Outputs pair with inputs by position in the statement.",
     "Move the output to the place of its input, or link it with the input that it gets."},
    {columns, "columns", "Predicates with other columns", "A predicate has the columns of what it stands for.",
     "Give it as many arguments as there are columns."},
    {undefined, "undefined", "Predicates that nothing defines",
     "A rule that reads what nothing defines derives nothing.", "Correct the name, or add what it means."},
    {unbound, "unbound", "Variables without a value",
     "What a rule derives or compares must get a value by a predicate or an equality of its body.",
     "Correct the name of the variable, or add what gives it a value."},
    {unknownOperator, "operator", "Unknown operators", "The operators are =, !=, <>, <, >, <= and >=.",
     "Use one of them."},
    {unknownFunction, "function", "Functions that only the source may know",
     "A function that is in no catalogue is called by its name at the data source.",
     "Give it a function type of the catalogue, or see that the source has it."},
    {constantType, "constant", "Constants of another type", "The constant is no value of the type of its column.",
     "Correct the constant, or compare another column."},
    {neverHolds, "never", "Rules that can never hold", "No row fulfils all conditions of the rule.",
     "Correct one of the conditions."},
    {recursion, "recursion", "Statements that run in a circle", "The statement needs what it derives for itself.",
     "Break the circle by another predicate."},
    {negatedCycle, "negation", "Statements that deny themselves",
     "What is derived depends on its own absence, or on an aggregate over itself.",
     "Break the circle by another predicate, or keep the data in a record set between."},
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
