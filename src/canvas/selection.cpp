#include "canvas/selection.h"

#include "canvas/canvas_settings.h"
#include "canvas/graph.h"
#include "canvas/labels.h"
#include "canvas/lines.h"

namespace orvent::canvas {

bool NumberSet::insert(std::int32_t number) {
    if (!positions_.emplace(number, order_.size()).second) {
        return false;
    }
    order_.push_back(number);
    return true;
}

bool NumberSet::erase(std::int32_t number) {
    const auto found = positions_.find(number);
    if (found == positions_.end()) {
        return false;
    }
    order_[found->second] = kGone;
    positions_.erase(found);
    // Most of the places are empty: a crop rectangle that grows and shrinks must not make them more and more.
    if (order_.size() > 2 * positions_.size() + 64) {
        std::erase(order_, kGone);
        for (std::size_t at = 0; at < order_.size(); ++at) {
            positions_[order_[at]] = at;
        }
    }
    return true;
}

void NumberSet::clear() {
    order_.clear();
    positions_.clear();
}

std::vector<std::int32_t> NumberSet::members() const {
    std::vector<std::int32_t> result;
    result.reserve(positions_.size());
    for (const std::int32_t number : order_) {
        if (number != kGone) {
            result.push_back(number);
        }
    }
    return result;
}

void SelectedLabelsCollection::mark(std::int32_t Index) {
    if (LabelsD* node = graph_.nodeAt(Index)) {
        node->setColor((node->Color() ^ graph_.settings().SelColor) & 0xFFFFFF);
    }
}

LabelsD* SelectedLabelsCollection::Add(std::int32_t Index) {
    LabelsD* node = graph_.nodeAt(Index);
    if (!node || !numbers_.insert(Index)) {
        return nullptr;
    }
    mark(Index);
    return node;
}

void SelectedLabelsCollection::Remove(std::int32_t Index) {
    if (numbers_.erase(Index)) {
        mark(Index);
    }
}

void SelectedLabelsCollection::Clear() {
    const std::vector<std::int32_t> marked = numbers_.members();
    numbers_.clear();
    for (const std::int32_t index : marked) {
        mark(index);
    }
}

LabelsD* SelectedLabelsCollection::Item(std::int32_t Index) const {
    return numbers_.contains(Index) ? graph_.nodeAt(Index) : nullptr;
}

LinesD* SelectedLinesCollection::Add(std::int32_t Index) {
    LinesD* edge = graph_.edgeAt(Index);
    if (!edge || !numbers_.insert(Index)) {
        return nullptr;
    }
    edge->setSelected(true);
    return edge;
}

void SelectedLinesCollection::Remove(std::int32_t Index) {
    if (!numbers_.erase(Index)) {
        return;
    }
    if (LinesD* edge = graph_.edgeAt(Index)) {
        edge->setSelected(false);
    }
}

void SelectedLinesCollection::Clear() {
    for (const std::int32_t index : numbers_.members()) {
        Remove(index);
    }
}

LinesD* SelectedLinesCollection::Item(std::int32_t Index) const {
    return numbers_.contains(Index) ? graph_.edgeAt(Index) : nullptr;
}

}  // namespace orvent::canvas
