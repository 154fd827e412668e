#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "analysis/node_texts.h"
#include "canvas/canvas.h"

namespace orvent::analysis {

/// A scenario as a tree: record sets and activities in the order of the flow, their members, and the far ends of their
/// links. What stands below a row is made when it is first asked for.
class Outline {
  public:
    struct Row {
        Place place;   ///< of a far end: that of the member which has the link
        int link = 0;  ///< 1-based among all links of the member; 0: no far end
        Row* parent = nullptr;
        int position = 0;  ///< among those of its parent, from 0
        bool filled = false;
        std::vector<std::unique_ptr<Row>> rows = {};
    };

    /// What a row says.
    struct Words {
        std::string name;  ///< of a node or a member; "from SOURCE.ID" of a far end
        std::string type;
        std::string what;  ///< "Record set", "Input"
    };

    /// Who shows the rows. Each change is told before and behind it.
    class Listener {
      public:
        virtual ~Listener() = default;
        virtual void aboutToReset() = 0;
        virtual void reset() = 0;
        virtual void aboutToRemove(const Row& parent) = 0;  ///< all rows of it
        virtual void removed() = 0;
        virtual void aboutToInsert(const Row& parent, int count) = 0;
        virtual void inserted(const Row& parent) = 0;
        virtual void altered(const Row& row) = 0;
    };

    /// Both outlive it.
    Outline(const canvas::Canvas& canvas, const entities::CatalogueTables& tables);

    /// Null: nobody shows it.
    void watch(Listener* listener) { listener_ = listener; }

    const std::vector<std::unique_ptr<Row>>& roots() const { return roots_; }
    /// Those below a row.
    const std::vector<std::unique_ptr<Row>>& rowsOf(Row& row) const;
    /// Whether there are any; makes none.
    bool hasRows(const Row& row) const;
    Words wordsOf(const Row& row) const;
    /// The row of a node, or nothing.
    Row* rootOf(canvas::NodeNumber node) const;
    /// Where a far end stands: its member's row, or else that of its node; nothing when it is out of reach.
    Row* targetOf(const Row& row) const;

    /// These have changed, came or went.
    void follow(const canvas::Touched& touched);

  private:
    std::vector<canvas::NodeNumber> order() const;
    void build(const std::vector<canvas::NodeNumber>& order);
    std::vector<std::unique_ptr<Row>> makeRows(Row& parent) const;
    void renew(Row& root);

    const canvas::Canvas& canvas_;
    const entities::CatalogueTables& tables_;
    Listener* listener_ = nullptr;
    std::vector<std::unique_ptr<Row>> roots_;
    std::vector<canvas::NodeNumber> order_;
    std::vector<Row*> byNode_;  ///< by `Index`
};

}  // namespace orvent::analysis
