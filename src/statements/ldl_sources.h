#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "entities/nodes.h"

namespace orvent::statements {

/// One source of an activity's inputs: a node that provides some of them. The items are those inputs, keyed by `Key`,
/// in the order of the activity's inputs.
class LDLSource : public entities::KeyedCollection<const entities::AttributeProperties,
                                                   std::shared_ptr<const entities::AttributeProperties>> {
  public:
    entities::LinkType SourceType =
        entities::LinkUnset;  ///< type of the link by which it was first met; `LinkRecordSet`, else an activity
    std::string Source;       ///< name of the providing node

    /// Adds the attribute unless it is there already.
    void Add(std::shared_ptr<const entities::AttributeProperties> attribute);
};

/// The sources of one activity, keyed by `Source`. The position of a source is its number k in names such as "N_INk".
class LDLsourceColl : public entities::KeyedCollection<LDLSource> {
  public:
    /// A new source of that name, or the one there is.
    LDLSource& Add(const std::string& name);

    /// By key or by 1-based position; nothing when unknown.
    const LDLSource* Source(const std::string& key) const { return Item(key); }
    const LDLSource* Source(int position) const { return Item(position); }
    LDLSource* Source(const std::string& key) { return Item(key); }
};

/// A source of an activity and the inputs that it provides, in the order of the activity's inputs.
struct SourceInputs {
    const std::string* name;
    entities::LinkType type;  ///< as in `LDLSource`
    std::vector<int> inputs;  ///< their positions, from 1
};

/// The sources of the activity in order of first appearance. An input without a provider belongs to none.
std::vector<SourceInputs> sourceInputsOf(const entities::ActivityProperties& activity);

/// The same as collections.
LDLsourceColl sourcesOf(const entities::ActivityProperties& activity);

/// The attribute at a 0-based position of the record set that the canvas shows under that name, or nothing.
const entities::AttributeProperties* fieldAt(const canvas::Canvas& form, const std::string& recordSet, int position);

}  // namespace orvent::statements
