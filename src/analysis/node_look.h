#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/statement_check.h"
#include "canvas/draw_form.h"
#include "entities/name_tables.h"

namespace orvent::analysis {

/// What the problems of a scenario take from one node.
struct NodeLook {
    std::vector<Problem> rows;                        ///< of this node alone
    std::vector<canvas::NodeNumber> feeders;          ///< the nodes from which a link or an edge leads here
    std::vector<canvas::NodeNumber> activityFeeders;  ///< the activities that provide its inputs
    std::vector<canvas::NodeNumber> linked;           ///< those whose links do, in the links' order
    std::vector<StatementCheck::Need> needs;          ///< of its statement
    std::vector<std::string> names;                   ///< of all nodes that its links name, there or not; ascending
    std::string name;                                 ///< its own
    std::size_t face = 0;                             ///< stands for all that the rows of other nodes take from it
    bool inFlow = false;                              ///< an activity or a record set
    bool isSource = false;                            ///< data may begin here
};

/// Who looks asks of these.
struct ProblemSources {
    const entities::CatalogueTables& tables;
    const StatementCheck& statements;
};

/// Looks at one node. It costs a table lookup for each link.
NodeLook lookAt(const canvas::DrawForm& form, const canvas::LabelsD& node, const ProblemSources& sources);

}  // namespace orvent::analysis
