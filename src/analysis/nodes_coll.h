#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>

#include "canvas/numbers.h"

namespace orvent::analysis {

/// One node in an ordering of a scenario's nodes. All three are counted or numbered per canvas and never stored, so
/// they are 32-bit: a large scenario has more upstream edges than 16 bits can count.
struct NodesData {
    std::int32_t FlowID = 0;        ///< position in the flow order
    std::int32_t TransClosure = 0;  ///< number of edges upstream of the node
    canvas::NodeNumber Index{};     ///< the node's `Index`
};

/// Nodes in descending order of `FlowID` or `TransClosure`, whichever add is used; a node goes behind those of equal
/// value. Adding takes logarithmic time, for it happens once for each node of a scenario.
class NodesColl {
    using Order = std::multimap<std::int32_t, NodesData, std::greater<>>;

    class Iterator {
      public:
        explicit Iterator(Order::const_iterator at) : at_(at) {}
        const NodesData& operator*() const { return at_->second; }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return at_ != other.at_; }

      private:
        Order::const_iterator at_;
    };

  public:
    /// `sKey` is the decimal text of `Index`. A key that is there already is a `Fault`.
    void AddByFlowID(canvas::NodeNumber Index, std::int32_t TransClosure, std::int32_t FlowID, const std::string& sKey);
    void AddByClosure(canvas::NodeNumber Index, std::int32_t TransClosure, std::int32_t FlowID,
                      const std::string& sKey);

    int Count() const { return static_cast<int>(order_.size()); }
    const NodesData* Item(const std::string& sKey) const;  ///< nothing when unknown
    const NodesData* Item(int position) const;             ///< 1-based, found by a walk; nothing when out of bounds
    void Remove(const std::string& sKey);

    Iterator begin() const { return Iterator(order_.begin()); }
    Iterator end() const { return Iterator(order_.end()); }

  private:
    void add(std::int32_t value, const NodesData& node, const std::string& sKey);

    Order order_;
    std::unordered_map<std::string, Order::iterator> keys_;
};

}  // namespace orvent::analysis
