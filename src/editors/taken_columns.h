#pragma once

#include <string>

#include "canvas/canvas.h"
#include "entities/nodes.h"

namespace orvent::editors {

/// A grab point of an activity: where control comes in.
inline constexpr std::int16_t kControlPoint = 5;

/// What a node gives to others: the outputs of an activity, or the columns of a record set. Null for other nodes, and
/// where there are none.
const entities::AttributeCollection* givenBy(const canvas::LabelsD& node);

/// The key by which links name a column of the source.
std::string keyAt(const canvas::LabelsD& source, const entities::AttributeProperties& column);

/// The input of an activity that reads a column of another node, as a drag onto its list makes it, and the output
/// behind it. What is new bears the bare name of the column where `shortNames` is true and that is free. Gives the key
/// of both; an input that is there already stays as it is.
std::string takeInput(canvas::Canvas& form, canvas::LabelsD& activity, const canvas::LabelsD& source,
                      const entities::AttributeProperties& column, bool shortNames);

/// The members of a node, or their links, have changed.
void tellMembers(canvas::Canvas& form, const canvas::LabelsD& node);

}  // namespace orvent::editors
