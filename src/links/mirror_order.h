#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "canvas/canvas.h"
#include "entities/nodes.h"

namespace orvent::links {

/// The order of the links in the lists that mirror those of an entity, noted before the entity is unsynchronised.
/// Synchronising writes mirrors behind what is there, so without it a dialog that is opened and left would give the
/// entity's neighbours another order, of their providers above all.
class MirrorOrder {
  public:
    /// `InDialog` as `SynchronizeActivity` takes it.
    MirrorOrder(canvas::Canvas& Form, entities::ActivityProperties& activity, entities::ActivityProperties* InDialog);
    MirrorOrder(canvas::Canvas& Form, entities::RecordSetProperties& recordSet);

    /// Puts the mirrors back in their order once the entity, or what took its place, is synchronised again. Mirrors
    /// that are new come last.
    void restore(canvas::Canvas& Form, entities::ActivityProperties& activity, entities::ActivityProperties* InDialog);
    void restore(canvas::Canvas& Form, entities::RecordSetProperties& recordSet);

  private:
    /// A list is only an address here and never read through it: it may be gone when the order comes back.
    std::unordered_map<const void*, std::vector<std::string>> orders_;
};

}  // namespace orvent::links
