#include "editors/function_nodes.h"

#include <vector>

#include "links/unsynchronize_functions.h"
#include "zoom/expansion.h"
#include "zoom/member_ties.h"
#include "zoom/waiting_functions.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;

namespace {

bool joins(const canvas::LinesD& edge, canvas::NodeNumber one, canvas::NodeNumber other) {
    return (edge.FromLabel() == one && edge.ToLabel() == other) || (edge.FromLabel() == other && edge.ToLabel() == one);
}

void removeEdges(canvas::Canvas& form, const LabelsD& one, const LabelsD& other) {
    std::vector<canvas::EdgeNumber> ties;
    for (const canvas::LineNumbers* lines : {&one.StartingLines(), &one.EndingLines()}) {
        for (const canvas::EdgeNumber line : *lines) {
            const canvas::LinesD* edge = form.Lines.byIndex(line);
            if (edge && joins(*edge, one.Index(), other.Index())) {
                ties.push_back(line);
            }
        }
    }
    for (const canvas::EdgeNumber line : ties) {
        form.Lines.RemoveFull(line);
    }
}

}  // namespace

LabelsD* functionNode(canvas::Canvas& form, const std::string& key) {
    LabelsD* node = form.nodeNamed(key);
    return node && node->entity<FunctionProperties>() ? node : nullptr;
}

const LabelsD* ownerOfFunction(const canvas::Canvas& form, const LabelsD& node) {
    if (const auto* zoom = dynamic_cast<const zoom::ZoomView*>(&form)) {
        if (const LabelsD* awaited = zoom::awaitedActivity(*zoom, node)) {
            return awaited;
        }
    }
    const LabelsD* owner = form.nodeNamed(node.entity<FunctionProperties>()->ParentKeyName());
    return owner && owner->activity() ? owner : nullptr;
}

// In a view the activity is collapsed, and a function's node waits for it with a record of its own.
void bindFunctionNode(canvas::CanvasForm& form, LabelsD& node, LabelsD& activity,
                      const std::shared_ptr<FunctionProperties>& function) {
    auto* zoom = dynamic_cast<zoom::ZoomView*>(&form);
    if (!zoom) {
        node.Properties = function;
        return;
    }
    zoom::Expansion(*zoom, node, zoom::CollapsedOrder::kept).collapseFunction();
    links::UnSynchronizeFunction(form, *node.entity<FunctionProperties>(), false, nullptr);
    node.Properties = function->Clone();
    letWait(*zoom, node, activity);
}

void freeFunctionNode(canvas::CanvasForm& form, LabelsD& node, LabelsD& activity) {
    removeEdges(form, node, activity);
    FunctionProperties& freed = *node.entity<FunctionProperties>();
    zoom::forgetRows(freed);
    if (auto* zoom = dynamic_cast<zoom::ZoomView*>(&form)) {
        zoom->waiting.erase(node.Index());
        DetachFunction(*zoom, node, &activity);
        return;
    }
    links::UnSynchronizeFunction(form, freed, true, nullptr);
    freed.setParentKeyName({});
    freed.Function_Source = SourceNone;
}

}  // namespace orvent::editors
