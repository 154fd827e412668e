#include "analysis/nodes_coll.h"

#include <iterator>

#include "platform/fault.h"

namespace orvent::analysis {

void NodesColl::add(std::int32_t value, const NodesData& node, const std::string& sKey) {
    if (keys_.contains(sKey)) {
        throw platform::Fault("The node is in this order already: " + sKey);
    }
    keys_.emplace(sKey, order_.emplace(value, node));
}

void NodesColl::AddByFlowID(canvas::NodeNumber Index, std::int32_t TransClosure, std::int32_t FlowID,
                            const std::string& sKey) {
    add(FlowID, {FlowID, TransClosure, Index}, sKey);
}

void NodesColl::AddByClosure(canvas::NodeNumber Index, std::int32_t TransClosure, std::int32_t FlowID,
                             const std::string& sKey) {
    add(TransClosure, {FlowID, TransClosure, Index}, sKey);
}

const NodesData* NodesColl::Item(const std::string& sKey) const {
    const auto found = keys_.find(sKey);
    return found == keys_.end() ? nullptr : &found->second->second;
}

const NodesData* NodesColl::Item(int position) const {
    return position >= 1 && position <= Count() ? &std::next(order_.begin(), position - 1)->second : nullptr;
}

void NodesColl::Remove(const std::string& sKey) {
    const auto found = keys_.find(sKey);
    if (found != keys_.end()) {
        order_.erase(found->second);
        keys_.erase(found);
    }
}

}  // namespace orvent::analysis
