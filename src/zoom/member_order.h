#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "entities/nodes.h"

namespace orvent::canvas {
class LabelsD;
}

namespace orvent::zoom {

/// The order of members whose owner was collapsed in the view. Collapsing turns a list round; what the scenario gets,
/// and what a dialog shows, stands as it did before the first collapsing, with what came since at the end.
class MemberOrder {
  public:
    /// A list with these keys is about to be turned round. `owner` is the name of an activity or a record set, or the
    /// key of a function.
    void keep(const std::string& owner, entities::NodeKindCode kind, const std::vector<std::string>& keys);

    /// A member bears another key from now on. A function's own lists go with it.
    void rename(const std::string& owner, entities::NodeKindCode kind, const std::string& former,
                const std::string& now);

    /// A function has other parameters now, or is gone.
    void forgetFunction(const std::string& key);

    /// Turns the lists of a collapsed node back, and those of its functions.
    void giveBack(canvas::LabelsD& node);

  private:
    using List = std::pair<std::string, entities::NodeKindCode>;

    template <class Owner>
    void giveBackAll(Owner& owner, const std::string& name);
    template <class Items>
    void giveBack(entities::Lazy<Items>& items, const std::string& owner, entities::NodeKindCode kind);

    std::map<List, std::vector<std::string>> orders_;
};

}  // namespace orvent::zoom
