#include "zoom/expanded_state.h"

#include <string_view>

#include "zoom/activity_expansion.h"
#include "zoom/expand_collapse.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

ExpandedState::ExpandedState(const ZoomView& view) : strokes_(view) {
    places_.reserve(static_cast<std::size_t>(view.Labels.Count()));
    for (const LabelsD& node : view.Labels) {
        if (node.Expanded && (node.activity() || node.recordSet() || node.entity<FunctionProperties>())) {
            expanded_.insert(node.Index());
            expandedNames_.insert(node.KeyName());
        }
        if (view.bearsName(node)) {
            const bool selected = view.SelectedLabels.Item(node.Index()) != nullptr;
            names_ += node.KeyName();
            places_.push_back({names_.size(), node.box(),
                               selected ? node.Color() ^ view.settings().SelColor : node.Color(), node.Ready()});
        }
    }
}

void ExpandedState::restore(ZoomView& view) const {
    for (const NewANDoldIndex& pair : view.New2OldIndex) {
        LabelsD* node = view.Labels.byIndex(pair.NewIndex);
        if (node && expanded_.count(node->Index())) {
            ExpandByPlace(view, *node);
        }
    }
    for (LabelsD& node : view.Labels) {
        if (node.entity<FunctionProperties>() && view.bearsName(node) && !expandedNames_.count(node.KeyName())) {
            CollapseForAWhile(view, node);
        }
    }
    // Most nodes come back in the order in which they stood, so they are found without looking their names up.
    std::size_t next = 0, start = 0;
    const auto name = [&] { return std::string_view(names_).substr(start, places_[next].nameEnd - start); };
    for (LabelsD& node : view.Labels) {
        if (next < places_.size() && name() == node.KeyName()) {
            places_[next].restore(node);
            start = places_[next++].nameEnd;
        }
    }
    for (; next < places_.size(); start = places_[next++].nameEnd) {
        if (LabelsD* node = view.nodeNamed(std::string(name()))) {
            places_[next].restore(*node);
        }
    }
    strokes_.restore(view);
}

void ExpandedState::Place::restore(LabelsD& node) const {
    if (box != node.box()) {
        node.setBox(box);
    }
    if (color != node.Color()) {
        node.setReady(ready);
    }
}

void CollapseForAWhile(ZoomView& view, LabelsD& node) {
    const platform::Busy busy(view.progress());
    ActivityExpansion(view, node, CollapsedOrder::kept).collapseWhole();
    if (view.bearsName(node)) {
        view.order.giveBack(node);
    }
}

}  // namespace orvent::zoom
