#include "zoom/expand_collapse.h"

#include "zoom/unfolding.h"

namespace orvent::zoom {

using canvas::LabelsD;

namespace {

/// Runs a step on a node with the wait pointer shown; nothing when there is no such node.
template <class Step>
void onNode(ZoomForm& form, std::int32_t index, Step step) {
    const platform::Busy busy(form.progress());
    if (LabelsD* node = form.Labels.byIndex(index)) {
        step(*node, Unfolding(form, *node));
    }
}

void expand(ZoomForm& form, std::int32_t index, Members members) {
    onNode(form, index, [&](LabelsD&, Unfolding unfolding) { unfolding.expand(members); });
}

void collapse(ZoomForm& form, std::int32_t index, Members members) {
    onNode(form, index, [&](LabelsD&, Unfolding unfolding) { unfolding.collapse(members); });
}

void expandActivity(LabelsD& node, Unfolding unfolding) {
    if (!node.activity()) {
        return;
    }
    for (const Members members : {Members::Inputs, Members::Outputs, Members::Parameters}) {
        unfolding.expand(members);
    }
    unfolding.expandFunctions();
    node.Expanded = true;
}

}  // namespace

void ExpandActivity(ZoomForm& form, std::int32_t node) {
    onNode(form, node, expandActivity);
}
void CollapseActivity(ZoomForm& form, std::int32_t node) {
    onNode(form, node, [](LabelsD&, Unfolding unfolding) { unfolding.collapseActivity(); });
}

void ExpandInputs(ZoomForm& form, std::int32_t node) {
    expand(form, node, Members::Inputs);
}
void ExpandOutputs(ZoomForm& form, std::int32_t node) {
    expand(form, node, Members::Outputs);
}
void ExpandParameters(ZoomForm& form, std::int32_t node) {
    expand(form, node, Members::Parameters);
}
void ExpandFunctions(ZoomForm& form, std::int32_t node) {
    onNode(form, node, [](LabelsD&, Unfolding unfolding) { unfolding.expandFunctions(); });
}
void ExpandFunction(ZoomForm& form, std::int32_t node) {
    onNode(form, node, [](LabelsD&, Unfolding unfolding) { unfolding.expandFunction(); });
}
void ExpandRecordSet(ZoomForm& form, std::int32_t node) {
    expand(form, node, Members::RecordSet);
}

void CollapseInputs(ZoomForm& form, std::int32_t node) {
    collapse(form, node, Members::Inputs);
}
void CollapseOutputs(ZoomForm& form, std::int32_t node) {
    collapse(form, node, Members::Outputs);
}
void CollapseParameters(ZoomForm& form, std::int32_t node) {
    collapse(form, node, Members::Parameters);
}
void CollapseFunctions(ZoomForm& form, std::int32_t node) {
    onNode(form, node, [](LabelsD&, Unfolding unfolding) { unfolding.collapseFunctions(); });
}
void CollapseFunction(ZoomForm& form, std::int32_t node) {
    onNode(form, node, [](LabelsD&, Unfolding unfolding) { unfolding.collapseFunction(); });
}
void CollapseRecordSet(ZoomForm& form, std::int32_t node) {
    collapse(form, node, Members::RecordSet);
}

void ExpandByPlace(ZoomForm& form, LabelsD& node) {
    const auto* activity = node.activity();
    if (!activity) {
        ExpandRecordSet(form, node.Index());
        return;
    }
    switch (static_cast<ZoomPlace>(activity->ZoomPosition)) {
        case ZoomPlace::Providers:
            ExpandOutputs(form, node.Index());
            break;
        case ZoomPlace::Consumers:
            ExpandInputs(form, node.Index());
            break;
        default:
            ExpandActivity(form, node.Index());
            break;
    }
    node.Expanded = true;
}

void CollapseWhole(ZoomForm& form, LabelsD& node) {
    onNode(form, node.Index(), [](LabelsD&, Unfolding unfolding) { unfolding.collapseWhole(); });
}

}  // namespace orvent::zoom
