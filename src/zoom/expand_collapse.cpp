#include "zoom/expand_collapse.h"

#include "zoom/activity_expansion.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

namespace {

/// Runs a step on a node with the wait pointer shown; nothing when there is no such node.
template <class Step>
void onNode(ZoomView& view, canvas::NodeNumber index, Step step) {
    const platform::Busy busy(view.progress());
    if (LabelsD* node = view.Labels.byIndex(index)) {
        step(*node, ActivityExpansion(view, *node));
    }
}

void expand(ZoomView& view, canvas::NodeNumber index, NodeKindCode kind) {
    onNode(view, index, [&](LabelsD&, ActivityExpansion expansion) { expansion.expand(kind); });
}

void collapse(ZoomView& view, canvas::NodeNumber index, NodeKindCode kind) {
    onNode(view, index, [&](LabelsD&, ActivityExpansion expansion) { expansion.collapse(kind); });
}

void expandActivity(LabelsD& node, ActivityExpansion expansion) {
    if (!node.activity()) {
        return;
    }
    for (const NodeKindCode kind : {KindInput, KindOutput, KindParameter}) {
        expansion.expand(kind);
    }
    expansion.expandFunctions();
    node.Expanded = true;
}

}  // namespace

void ExpandActivity(ZoomView& view, canvas::NodeNumber node) {
    onNode(view, node, expandActivity);
}
void CollapseActivity(ZoomView& view, canvas::NodeNumber node) {
    onNode(view, node, [](LabelsD&, ActivityExpansion expansion) { expansion.collapseActivity(); });
}

void ExpandInputs(ZoomView& view, canvas::NodeNumber node) {
    expand(view, node, KindInput);
}
void ExpandOutputs(ZoomView& view, canvas::NodeNumber node) {
    expand(view, node, KindOutput);
}
void ExpandParameters(ZoomView& view, canvas::NodeNumber node) {
    expand(view, node, KindParameter);
}
void ExpandFunctions(ZoomView& view, canvas::NodeNumber node) {
    onNode(view, node, [](LabelsD&, ActivityExpansion expansion) { expansion.expandFunctions(); });
}
void ExpandFunction(ZoomView& view, canvas::NodeNumber node) {
    onNode(view, node, [](LabelsD&, ActivityExpansion expansion) { expansion.expandFunction(); });
}
void ExpandRecordSet(ZoomView& view, canvas::NodeNumber node) {
    onNode(view, node, [](LabelsD&, ActivityExpansion expansion) { expansion.expandRecordSet(); });
}

void CollapseInputs(ZoomView& view, canvas::NodeNumber node) {
    collapse(view, node, KindInput);
}
void CollapseOutputs(ZoomView& view, canvas::NodeNumber node) {
    collapse(view, node, KindOutput);
}
void CollapseParameters(ZoomView& view, canvas::NodeNumber node) {
    collapse(view, node, KindParameter);
}
void CollapseFunctions(ZoomView& view, canvas::NodeNumber node) {
    onNode(view, node, [](LabelsD&, ActivityExpansion expansion) { expansion.collapseFunctions(); });
}
void CollapseFunction(ZoomView& view, canvas::NodeNumber node) {
    onNode(view, node, [](LabelsD&, ActivityExpansion expansion) { expansion.collapseFunction(); });
}
void CollapseRecordSet(ZoomView& view, canvas::NodeNumber node) {
    onNode(view, node, [](LabelsD&, ActivityExpansion expansion) { expansion.collapseRecordSet(); });
}

void ExpandByPlace(ZoomView& view, LabelsD& node) {
    const auto* activity = node.activity();
    if (!activity) {
        ExpandRecordSet(view, node.Index());
        return;
    }
    switch (static_cast<ZoomPlace>(activity->ZoomPosition)) {
        case ZoomPlace::Providers:
            ExpandOutputs(view, node.Index());
            break;
        case ZoomPlace::Consumers:
            ExpandInputs(view, node.Index());
            break;
        default:
            ExpandActivity(view, node.Index());
            break;
    }
    node.Expanded = true;
}

void CollapseWhole(ZoomView& view, LabelsD& node) {
    onNode(view, node.Index(), [](LabelsD&, ActivityExpansion expansion) { expansion.collapseWhole(); });
}

}  // namespace orvent::zoom
