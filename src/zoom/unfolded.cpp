#include "zoom/unfolded.h"

#include <string_view>

#include "zoom/expand_collapse.h"
#include "zoom/unfolding.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

Unfolded::Unfolded(const ZoomForm& form) : strokes_(form) {
    places_.reserve(static_cast<std::size_t>(form.Labels.Count()));
    for (const LabelsD& node : form.Labels) {
        if (node.Expanded && (node.activity() || node.recordSet() || node.entity<FunctionProperties>())) {
            expanded_.insert(node.Index());
            expandedNames_.insert(node.KeyName());
        }
        if (form.bearsName(node)) {
            const bool selected = form.SelectedLabels.Item(node.Index()) != nullptr;
            names_ += node.KeyName();
            places_.push_back({names_.size(), node.box(),
                               selected ? node.Color() ^ form.settings().SelColor : node.Color(), node.Ready()});
        }
    }
}

void Unfolded::restore(ZoomForm& form) const {
    for (const NewANDoldIndex& pair : form.New2OldIndex) {
        LabelsD* node = form.Labels.byIndex(pair.NewIndex);
        if (node && expanded_.count(node->Index())) {
            ExpandByPlace(form, *node);
        }
    }
    for (LabelsD& node : form.Labels) {
        if (node.entity<FunctionProperties>() && form.bearsName(node) && !expandedNames_.count(node.KeyName())) {
            foldNode(form, node);
        }
    }
    // Most nodes come back in the order in which they stood, so they are found without looking their names up.
    std::size_t next = 0, start = 0;
    const auto name = [&] { return std::string_view(names_).substr(start, places_[next].nameEnd - start); };
    for (LabelsD& node : form.Labels) {
        if (next < places_.size() && name() == node.KeyName()) {
            places_[next].restore(node);
            start = places_[next++].nameEnd;
        }
    }
    for (; next < places_.size(); start = places_[next++].nameEnd) {
        if (LabelsD* node = form.nodeNamed(std::string(name()))) {
            places_[next].restore(*node);
        }
    }
    strokes_.restore(form);
}

void Unfolded::Place::restore(LabelsD& node) const {
    if (box != node.box()) {
        node.setBox(box);
    }
    if (color != node.Color()) {
        node.setReady(ready);
    }
}

void foldNode(ZoomForm& form, LabelsD& node) {
    const platform::Busy busy(form.progress());
    Unfolding(form, node, FoldedOrder::kept).collapseWhole();
    if (form.bearsName(node)) {
        form.order.giveBack(node);
    }
}

}  // namespace orvent::zoom
