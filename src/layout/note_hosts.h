#pragma once

#include <cstdint>
#include <vector>

#include "layout/nearest_box.h"

namespace orvent::layout {

/// Finds the nodes that notes stay with: one that an edge joins them with, also by way of other notes, or else the
/// nearest one within reach.
class NoteHosts {
  public:
    /// All nodes by number: where they stand, and whether they are notes.
    NoteHosts(std::vector<Area> areas, std::vector<bool> notes);

    /// An edge joins two nodes, at least one of them a note.
    void join(std::int32_t one, std::int32_t other);

    /// Of each node the one that it stays with, -1 for none. To be called once.
    std::vector<std::int32_t> find(double reach);

  private:
    bool isNote(std::int32_t node) const { return notes_[static_cast<std::size_t>(node)]; }
    bool hasPlace(std::int32_t node) const { return placed_[static_cast<std::size_t>(node)]; }
    const Area& area(std::int32_t node) const { return areas_[static_cast<std::size_t>(node)]; }
    std::int32_t& host(std::int32_t note) { return hosts_[static_cast<std::size_t>(note)]; }
    NearestBox nearest(const std::vector<std::int32_t>& nodes) const;
    void place(std::int32_t note, std::int32_t host);
    void placeNearest(std::vector<std::int32_t>& placed, std::vector<std::int32_t>& free, double reach, bool patient);

    std::vector<Area> areas_;
    std::vector<bool> notes_;
    std::vector<std::vector<std::int32_t>> joined_;  // of each note the notes that edges join it with
    std::vector<std::int32_t> hosts_;
    std::vector<bool> placed_;  // nodes, and notes that stay with one
};

}  // namespace orvent::layout
