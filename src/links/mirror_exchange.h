#pragma once

#include <unordered_map>

#include "canvas/canvas.h"
#include "entities/nodes.h"

namespace orvent::links {

/// Puts other records of activities and record sets into the graph in the place of those that are there. A mirror that
/// the new record's links need as well stays where it stands, so the lists at the far ends keep their order; new ones
/// come last, and what nobody needs goes.
class MirrorExchange {
  public:
    explicit MirrorExchange(canvas::Canvas& Form) : form_(Form) {}

    // First all that leave, which must live until `finish`, and then all that come. What bears another name or key than
    // before has to be renamed before it leaves.
    void leave(entities::ActivityProperties& activity);
    void leave(entities::RecordSetProperties& recordSet);
    void come(entities::ActivityProperties& activity);
    void come(entities::RecordSetProperties& recordSet);
    void finish();

  private:
    /// Mirrors that were left, each with the list in which it stands. They may go before `finish`, the lists may not.
    template <class Link>
    using Mirrors = std::unordered_map<const Link*, entities::LinkCollection<Link>*>;

    template <class Owner>
    void gather(Owner& owner);
    template <class Owner>
    void write(Owner& owner);
    Mirrors<entities::ProviderProperties>& left(const entities::ProviderProperties&) { return providers_; }
    Mirrors<entities::RegulatorProperties>& left(const entities::RegulatorProperties&) { return regulators_; }

    canvas::Canvas& form_;
    Mirrors<entities::ProviderProperties> providers_;
    Mirrors<entities::RegulatorProperties> regulators_;
};

}  // namespace orvent::links
