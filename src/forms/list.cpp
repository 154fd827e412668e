#include "forms/list.h"

#include <algorithm>
#include <cassert>
#include <utility>

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

/// Whether the change waits for the end. One that shifts rows ends what waits, since its places are about to change.
bool List::gather(const ListChange& change) {
    if (!gathered_.empty() && gathered_.front().kind == ListChange::Kind::reset) {
        return true;
    }
    if (change.kind == ListChange::Kind::altered || change.kind == ListChange::Kind::selected) {
        for (ListChange& same : gathered_) {
            if (same.kind == change.kind) {
                same = {same.kind, std::min(same.position, change.position), std::max(same.to, change.to)};
                return true;
            }
        }
        gathered_.push_back(change);
        return true;
    }
    if (!std::exchange(toldOne_, true)) {
        tellGathered();
        return false;
    }
    gathered_ = {{ListChange::Kind::reset}};
    if (listener_) {
        listener_->about(gathered_.front());
    }
    return true;
}

void List::tellGathered() {
    for (const ListChange& change : std::exchange(gathered_, {})) {
        if (listener_) {
            if (change.kind != ListChange::Kind::reset) {
                listener_->about(change);
            }
            listener_->done(change);
        }
    }
}

List::Gathering::~Gathering() {
    if (--list_.gathering_ == 0) {
        list_.toldOne_ = false;
        list_.tellGathered();
    }
}

void List::tell(const ListChange& change, const std::function<void()>& act) {
    const bool waits = quiet_ || (gathering_ > 0 && gather(change));
    ListListener* const listener = waits ? nullptr : listener_;
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
        const std::unique_ptr<Held> gone = rows_.erase(index(position));
        unlist(*gone);
        selection_.erase(gone.get());
        current_ = current_ == gone.get() ? nullptr : current_;
    });
}

void List::move(int from, int to) {
    if (!holds(from) || !holds(to) || from == to) {
        return;
    }
    tell({ListChange::Kind::moved, from, to}, [&] {
        rows_.move(index(from), index(to));
        rows_[index(to)]->place = to;
    });
}

void List::alter(int position, const std::function<void(ListRow&)>& change) {
    if (!holds(position)) {
        return;
    }
    tell({ListChange::Kind::altered, position, position}, [&] {
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
        current_ = nullptr;
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

void List::select(int position) {
    select(holds(position) ? std::vector<int>{position} : std::vector<int>{}, position);
}

void List::select(std::vector<int> positions, int current) {
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    std::erase_if(positions, [this](int each) { return !holds(each); });
    const int now = holds(current) ? current : 0;
    if (positions == selection() && now == selected()) {
        return;
    }
    tell({ListChange::Kind::selected, now}, [&] {
        selection_.clear();
        for (const int each : positions) {
            selection_.insert(rows_[index(each)].get());
        }
        current_ = now > 0 ? rows_[index(now)].get() : nullptr;
    });
}

std::vector<int> List::selection() const {
    std::vector<int> positions;
    positions.reserve(selection_.size());
    for (const Held* row : selection_) {
        positions.push_back(placeOf(*row));
    }
    std::sort(positions.begin(), positions.end());
    return positions;
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
