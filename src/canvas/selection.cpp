#include "canvas/selection.h"

#include "canvas/canvas_settings.h"
#include "canvas/graph.h"
#include "canvas/labels.h"
#include "canvas/lines.h"

namespace orvent::canvas {

template <class Number>
bool NumberSet<Number>::insert(Number number) {
    if (!positions_.emplace(number, order_.size()).second) {
        return false;
    }
    order_.push_back(number);
    return true;
}

template <class Number>
bool NumberSet<Number>::erase(Number number) {
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

template <class Number>
void NumberSet<Number>::clear() {
    order_.clear();
    positions_.clear();
}

template <class Number>
std::vector<Number> NumberSet<Number>::members() const {
    std::vector<Number> result;
    result.reserve(positions_.size());
    for (const Number number : order_) {
        if (number != kGone) {
            result.push_back(number);
        }
    }
    return result;
}

template class NumberSet<NodeNumber>;
template class NumberSet<EdgeNumber>;

void SelectedLabelsCollection::mark(NodeNumber Index) {
    if (LabelsD* node = graph_.nodeAt(Index)) {
        node->setColor((node->Color() ^ graph_.settings().SelColor) & 0xFFFFFF);
    }
}

LabelsD* SelectedLabelsCollection::Add(NodeNumber Index) {
    LabelsD* node = graph_.nodeAt(Index);
    if (!node || !numbers_.insert(Index)) {
        return nullptr;
    }
    mark(Index);
    return node;
}

void SelectedLabelsCollection::Remove(NodeNumber Index) {
    if (numbers_.erase(Index)) {
        mark(Index);
    }
}

void SelectedLabelsCollection::Clear() {
    const std::vector<NodeNumber> marked = numbers_.members();
    numbers_.clear();
    for (const NodeNumber index : marked) {
        mark(index);
    }
}

LabelsD* SelectedLabelsCollection::Item(NodeNumber Index) const {
    return numbers_.contains(Index) ? graph_.nodeAt(Index) : nullptr;
}

LinesD* SelectedLinesCollection::Add(EdgeNumber Index) {
    LinesD* edge = graph_.edgeAt(Index);
    if (!edge || !numbers_.insert(Index)) {
        return nullptr;
    }
    edge->setSelected(true);
    return edge;
}

void SelectedLinesCollection::Remove(EdgeNumber Index) {
    if (!numbers_.erase(Index)) {
        return;
    }
    if (LinesD* edge = graph_.edgeAt(Index)) {
        edge->setSelected(false);
    }
}

void SelectedLinesCollection::Clear() {
    for (const EdgeNumber index : numbers_.members()) {
        Remove(index);
    }
}

LinesD* SelectedLinesCollection::Item(EdgeNumber Index) const {
    return numbers_.contains(Index) ? graph_.edgeAt(Index) : nullptr;
}

}  // namespace orvent::canvas
