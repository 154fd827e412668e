#include "layout/note_hosts.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvent::layout {

namespace {

constexpr int kMostWaits = 8;

}  // namespace

NoteHosts::NoteHosts(std::vector<Area> areas, std::vector<bool> notes)
    : areas_(std::move(areas)), notes_(std::move(notes)), joined_(areas_.size()), hosts_(areas_.size(), -1) {
    placed_ = notes_;
    placed_.flip();
}

void NoteHosts::join(std::int32_t one, std::int32_t other) {
    if (isNote(one) && isNote(other)) {
        joined_[static_cast<std::size_t>(one)].push_back(other);
        joined_[static_cast<std::size_t>(other)].push_back(one);
    } else if (std::int32_t& its = host(isNote(one) ? one : other); its < 0) {
        its = isNote(one) ? other : one;  // the first one, if there are several
    }
}

std::vector<std::int32_t> NoteHosts::find(double reach) {
    const auto count = static_cast<std::int32_t>(areas_.size());
    for (std::int32_t note = 0; note < count; ++note) {
        if (host(note) >= 0 && !hasPlace(note)) {
            place(note, host(note));
        }
    }
    std::vector<std::int32_t> placed, free;
    for (std::int32_t node = 0; node < count; ++node) {
        (hasPlace(node) ? placed : free).push_back(node);
    }
    bool patient = true;
    for (int round = 1; !free.empty() && round <= 2 * kMostWaits; ++round) {
        const std::size_t former = free.size();
        placeNearest(placed, free, reach, patient);
        if (free.size() == former && !patient) {
            break;
        }
        patient = free.size() != former && round < kMostWaits;
    }
    for (const std::int32_t note : free) {
        if (!hasPlace(note)) {
            place(note, -1);  // notes that are joined stay together
        }
    }
    return std::move(hosts_);
}

/// The note stays with that node, and all that are joined with it by way of notes alone.
void NoteHosts::place(std::int32_t note, std::int32_t its) {
    host(note) = its;
    placed_[static_cast<std::size_t>(note)] = true;
    for (std::vector<std::int32_t> open{note}; !open.empty();) {
        const std::int32_t from = open.back();
        open.pop_back();
        for (const std::int32_t other : joined_[static_cast<std::size_t>(from)]) {
            if (!hasPlace(other) && host(other) < 0) {
                host(other) = from;
                placed_[static_cast<std::size_t>(other)] = true;
                open.push_back(other);
            }
        }
    }
}

/// Places what is near to something that has a place. A note to which another free one is nearer waits for that, so
/// that a column of notes stays together.
void NoteHosts::placeNearest(std::vector<std::int32_t>& placed, std::vector<std::int32_t>& free, double reach,
                             bool patient) {
    const NearestBox hosts = nearest(placed), others = nearest(free);
    for (std::size_t at = 0; at < free.size(); ++at) {
        const std::int32_t note = free[at];
        const std::optional<std::size_t> found = hasPlace(note) ? std::nullopt : hosts.to(area(note), reach);
        if (!found) {
            continue;
        }
        const double way = apart(area(placed[*found]), area(note));
        const std::optional<std::size_t> nearer = patient ? others.to(area(note), way, at) : std::nullopt;
        if (!nearer || apart(area(free[*nearer]), area(note)) >= way) {
            place(note, placed[*found]);
        }
    }
    const auto mid =
        std::stable_partition(free.begin(), free.end(), [this](std::int32_t note) { return !hasPlace(note); });
    placed.insert(placed.end(), mid, free.end());
    free.erase(mid, free.end());
}

NearestBox NoteHosts::nearest(const std::vector<std::int32_t>& nodes) const {
    std::vector<Area> areas;
    std::transform(nodes.begin(), nodes.end(), std::back_inserter(areas),
                   [this](std::int32_t node) { return area(node); });
    return NearestBox(std::move(areas));
}

}  // namespace orvent::layout
