#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "canvas/canvas.h"
#include "canvas/rename.h"
#include "entities/nodes.h"

namespace orvent::links {

using canvas::Rename;
using canvas::Renames;

/// An activity or a record set bears another name, its members and their links with it, and the far ends know them by
/// it. Its node has its new caption already.
void renameOwner(canvas::Canvas& Form, entities::ActivityProperties& activity, const std::string& former,
                 const std::string& now);
void renameOwner(canvas::Canvas& Form, entities::RecordSetProperties& recordSet, const std::string& former,
                 const std::string& now);

/// Attributes of a record set bear other keys, all at one time, as `keys` has them under the former ones; what reads
/// them follows. Gives what was renamed beyond the record set.
Renames renameMembers(canvas::Canvas& Form, entities::RecordSetProperties& recordSet,
                      const std::unordered_map<std::string, std::string>& keys);

/// The links of a record that stands outside of the canvas follow what was renamed there.
void followRenames(entities::ActivityProperties& activity, const Renames& renames);
void followRenames(entities::RecordSetProperties& recordSet, const Renames& renames);

/// Renames in the scenario what was renamed in a view of it since it was applied last, in the same order.
void replayRenames(canvas::Canvas& Form, const Renames& renames);

}  // namespace orvent::links
