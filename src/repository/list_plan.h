#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "entities/functions.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// How the stored rows of one list become what the window shows.
///
/// An update leaves the order of rows as it is, and some of their columns. So the rows are handed to the items of the
/// list in their order, and each that gets another one is rewritten. Where that brings the wrong columns, the longest
/// beginning of the list that stands in stored order keeps its rows, and the others are inserted anew. A row that no
/// item gets is removed.
class ListPlan {
  public:
    /// A member or a function of the window.
    struct Item {
        std::int16_t* identifier;
        bool* Changed;
        std::uint64_t told;                                ///< stands for what an update carries
        std::uint64_t kept;                                ///< stands for what only the insert carries
        entities::FunctionProperties* function = nullptr;  ///< whose members' rows go with its own
    };
    struct Row {
        long long id;
        std::uint64_t told, kept;
    };
    struct List {
        std::vector<Item> items;
        std::vector<Row> rows;
        std::vector<std::string_view> drops;  ///< the statements that remove a row
        bool ownRowsOnly;                     ///< a row fits only the item whose identifier it has
        bool* Changed = nullptr;              ///< of the whole list
    };

    explicit ListPlan(List list);
    ListPlan(ListPlan&&) = default;  // the ways refer to the rows
    ListPlan(const ListPlan&) = delete;

    /// How many rows are inserted anew for the sake of order.
    long long anew() const;
    /// Whether the rows are what the list shows.
    bool same() const;

    /// Hands out the rows, marks what must be rewritten, and removes what has no place. Without `inOrder` a list whose
    /// order takes identifiers keeps its rows in stored order.
    void carryOut(StatementCache& repository, bool inOrder) const;

  private:
    struct Way {
        std::vector<const Row*> handed{};  ///< one for each item; null: it is inserted
        std::vector<long long> removed{};
    };
    Way orderedWay() const;
    Way storedWay() const;
    bool rewrites(std::size_t item, const Row* row) const;

    List list_;
    Way ordered_;
    Way stored_;
};

}  // namespace orvent::repository
