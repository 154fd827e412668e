#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "exchange/document.h"
#include "links/far_end.h"
#include "links/type_indices.h"

namespace orvent::exchange {

using links::TypeIndices;

/// Finds the types of a document. A name that is stored nowhere becomes a gone row. Throws a `Fault`, and changes
/// nothing, when the tables have no room for them.
TypeIndices indicesIn(entities::CatalogueTables& tables, const Document& document);

/// Fills an empty window with a document, by the steps of a load: nodes, edges, and the ends of links that only their
/// other end tells of. Gives the names of nodes whose links lead to nothing; these links are kept as they are.
/// Nothing here can be refused.
std::vector<std::string> fillForm(canvas::DrawForm& form, Document document, const TypeIndices& types);

/// Marks a node as complete or not, as a load does; an activity that has no type yet is not.
void settleReadiness(canvas::LabelsD& node);

/// Whether a link means a member of something that a scenario holds. One to a constant is nothing but itself; what
/// looks like one may lead to a record set.
bool meansAMember(const links::LinkData& link);

/// Writes the mirrors of all links of a node, and tells whether each link leads somewhere.
bool completeLinks(canvas::Canvas& canvas, canvas::LabelsD& node);

}  // namespace orvent::exchange
