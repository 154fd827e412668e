#include "repository/list_plan.h"

#include <algorithm>
#include <unordered_map>

#include "repository/new_row.h"
#include "repository/stored_identity.h"

namespace orvent::repository {

ListPlan::ListPlan(List list) : list_(std::move(list)), ordered_(orderedWay()), stored_(storedWay()) {}

ListPlan::Way ListPlan::orderedWay() const {
    Way way;
    for (const Row& row : list_.rows) {
        const std::size_t next = way.handed.size();
        const Item* item = next < list_.items.size() ? &list_.items[next] : nullptr;
        if (item && fits(row.id) && row.kept == item->kept && (!list_.ownRowsOnly || row.id == *item->identifier)) {
            way.handed.push_back(&row);
        } else {
            way.removed.push_back(row.id);
        }
    }
    way.handed.resize(list_.items.size());
    return way;
}

ListPlan::Way ListPlan::storedWay() const {
    std::unordered_map<long long, const Row*> rows;
    for (const Row& row : list_.rows) {
        rows.emplace(row.id, &row);
    }
    Way way;
    for (const Item& item : list_.items) {
        const auto row = rows.find(*item.identifier);
        way.handed.push_back(row == rows.end() ? nullptr : row->second);
        if (row != rows.end()) {
            rows.erase(row);
        }
    }
    for (const Row& row : list_.rows) {
        if (rows.contains(row.id)) {
            way.removed.push_back(row.id);
        }
    }
    return way;
}

long long ListPlan::anew() const {
    return std::ranges::count(ordered_.handed, nullptr) - std::ranges::count(stored_.handed, nullptr);
}

bool ListPlan::rewrites(std::size_t item, const Row* row) const {
    return row && (row->id != *list_.items[item].identifier || row->told != list_.items[item].told);
}

bool ListPlan::same() const {
    for (std::size_t item = 0; item < list_.items.size(); ++item) {
        if (!ordered_.handed[item] || rewrites(item, ordered_.handed[item])) {
            return false;
        }
    }
    return ordered_.removed.empty();
}

void ListPlan::carryOut(StatementCache& repository, bool inOrder) const {
    const Way& way = inOrder || anew() <= 0 ? ordered_ : stored_;
    // First in memory: a row whose removal is interrupted then belongs to nothing.
    bool changed = false;
    for (std::size_t at = 0; at < list_.items.size(); ++at) {
        const Item& item = list_.items[at];
        const Row* row = way.handed[at];
        changed = changed || !row || rewrites(at, row);
        *item.Changed = *item.Changed || rewrites(at, row);
        if (row) {
            *item.identifier = static_cast<std::int16_t>(row->id);
        } else if (item.function) {
            forgetStoredRows(*item.function);
        } else {
            *item.identifier = 0;
        }
    }
    if (list_.Changed && changed) {
        *list_.Changed = true;
    }
    for (const long long id : way.removed) {
        for (const std::string_view drop : list_.drops) {
            repository.run(drop, id);
        }
    }
}

}  // namespace orvent::repository
