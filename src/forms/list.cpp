#include "forms/list.h"

#include <algorithm>
#include <cassert>

#include "platform/search_near.h"

namespace orvent::forms {

const ListRow* List::Item(int position) const {
    return holds(position) ? rows_[index(position)].get() : nullptr;
}

int List::positionOf(const std::string& Key) const {
    const auto range = byKey_.equal_range(Key);
    int first = 0;
    for (auto entry = range.first; entry != range.second; ++entry) {
        const int place = placeOf(*entry->second);
        first = first == 0 ? place : std::min(first, place);
    }
    return first;
}

int List::placeOf(const Held& row) const {
    const std::size_t at = platform::searchNear(index(row.place), drift_, [&](std::size_t place) {
        return place < rows_.size() && rows_[place].get() == &row;
    });
    if (at != platform::kNowhere) {
        return row.place = static_cast<int>(at) + 1;
    }
    int place = 0;
    for (auto held = rows_.begin(); held != rows_.end(); ++held) {
        (*held)->place = ++place;
    }
    drift_ = 0;
    return row.place;
}

void List::tell(const ListChange& change, const std::function<void()>& act) {
    ListListener* const listener = quiet_ ? nullptr : listener_;
    if (listener) {
        listener->about(change);
    }
    act();
    if (listener) {
        listener->done(change);
    }
}

int List::add(ListRow row, int position) {
    clearHint();
    const int at = holds(position) ? position : Count() + 1;
    tell({ListChange::Kind::inserted, at}, [&] {
        auto held = std::make_unique<Held>(std::move(row));
        held->place = at;
        byKey_.emplace(held->Key, held.get());
        rows_.insert(index(at), std::move(held));
        shiftSelection([at](int each) { return each >= at ? each + 1 : each; });
    });
    return at;
}

void List::unlist(const Held& row) {
    const auto [first, last] = byKey_.equal_range(row.Key);
    byKey_.erase(std::find_if(first, last, [&](const auto& entry) { return entry.second == &row; }));
}

void List::remove(int position) {
    if (!holds(position)) {
        return;
    }
    tell({ListChange::Kind::removed, position}, [&] {
        unlist(*rows_[index(position)]);
        rows_.erase(index(position));
        shiftSelection([position](int each) { return each == position ? 0 : each > position ? each - 1 : each; });
    });
}

void List::move(int from, int to) {
    if (!holds(from) || !holds(to) || from == to) {
        return;
    }
    tell({ListChange::Kind::moved, from, to}, [&] {
        rows_.move(index(from), index(to));
        rows_[index(to)]->place = to;
        shiftSelection([from, to](int each) {
            if (each == from) {
                return to;
            }
            const bool between = each >= std::min(from, to) && each <= std::max(from, to);
            return between ? (from < to ? each - 1 : each + 1) : each;
        });
    });
}

void List::alter(int position, const std::function<void(ListRow&)>& change) {
    if (!holds(position)) {
        return;
    }
    tell({ListChange::Kind::altered, position}, [&] {
        Held& row = *rows_[index(position)];
        unlist(row);
        change(row);
        byKey_.emplace(row.Key, &row);
    });
}

void List::setText(int position, const std::string& text) {
    alter(position, [&text](ListRow& row) { row.Text = text; });
}

void List::Clear() {
    tell({ListChange::Kind::reset}, [this] {
        rows_.clear();
        byKey_.clear();
        selection_.clear();
        current_ = 0;
        hint_.reset();
    });
}

void List::rebuild(const std::function<void()>& changes) {
    assert(!quiet_);
    tell({ListChange::Kind::reset}, [&] {
        quiet_ = true;
        changes();
        quiet_ = false;
    });
}

int List::target(int position, RowMove where) const {
    if (!holds(position)) {
        return 0;
    }
    int to = 1;
    switch (where) {
        case RowMove::top:
            break;
        case RowMove::up:
            to = std::max(1, position - 1);
            break;
        case RowMove::down:
            to = std::min(Count(), position + 1);
            break;
        case RowMove::bottom:
            to = Count();
            break;
    }
    return to == position ? 0 : to;
}

void List::select(int position) {
    select(holds(position) ? std::vector<int>{position} : std::vector<int>{}, position);
}

void List::select(std::vector<int> positions, int current) {
    std::sort(positions.begin(), positions.end());
    std::erase_if(positions, [this](int each) { return !holds(each); });
    const int now = holds(current) ? current : 0;
    if (positions == selection_ && now == current_) {
        return;
    }
    tell({ListChange::Kind::selected, now}, [&] {
        selection_ = std::move(positions);
        current_ = now;
    });
}

void List::shiftSelection(const std::function<int(int)>& where) {
    for (int& each : selection_) {
        each = where(each);
    }
    std::erase(selection_, 0);
    std::sort(selection_.begin(), selection_.end());
    current_ = current_ == 0 ? 0 : where(current_);
}

void List::showHint(std::string text) {
    tell({ListChange::Kind::reset}, [&] { hint_ = std::move(text); });
}

bool List::clearHint() {
    if (!hint_) {
        return false;
    }
    tell({ListChange::Kind::reset}, [this] { hint_.reset(); });
    return true;
}

}  // namespace orvent::forms
