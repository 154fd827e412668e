// An activity's functions as nodes of their own.

#include <algorithm>
#include <utility>
#include <vector>

#include "links/members.h"
#include "links/unsynchronize_functions.h"
#include "zoom/unfolding.h"
#include "zoom/unfolding_parts.h"
#include "zoom/waiting_functions.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::CanvasSettings;
using canvas::LabelsD;

namespace {

int rowsOf(const FunctionProperties& function) {
    return std::max(function.Function_Inputs.count(), function.Function_Outputs.count()) + 2;
}

}  // namespace

std::vector<std::int32_t> partOfEdges(const ZoomForm& form, const LabelsD& owner) {
    std::vector<std::int32_t> edges;
    for (const std::int32_t number : owner.StartingLines()) {
        const canvas::LinesD* edge = form.Lines.byIndex(number);
        if (edge && edge->EdgeType() == canvas::EdgeTypePartOf) {
            edges.push_back(number);
        }
    }
    std::reverse(edges.begin(), edges.end());
    return edges;
}

LabelsD* targetOf(ZoomForm& form, std::int32_t edge) {
    return form.Labels.byIndex(form.Lines.byIndex(edge)->ToLabel());
}

void Unfolding::expandFunctions() {
    ActivityProperties* activity = owner_.activity();
    if (!activity || (activity->Act_Functions.peek() && activity->Act_Functions->Expanded)) {
        return;
    }
    Act_FunctionsCollection& functions = *activity->Act_Functions;
    for (const FunctionProperties& function : functions) {
        requireTypes(form_, function.Function_Inputs);
        requireTypes(form_, function.Function_Outputs);
    }
    const std::int32_t active = form_.ActiveLabel;
    const float Width = form_.settings().Width;
    int row = activity->Act_Outputs.count() + activity->Act_Parameters.count() + 1;
    for (int position = 1; position <= functions.Count(); ++position) {
        if (functions.Item(position)->Function_Source == kSourceActivityType) {
            showFunction(functions.share(position), owner_.Left(), rowTop(2 * row + 1));
            row += rowsOf(*functions.Item(position));
        }
    }
    for (int position = 1; position <= functions.Count(); ++position) {
        const FunctionProperties& function = *functions.Item(position);
        LabelsD* node = form_.nodeNamed(function.Function_Key);
        if (!node && function.Function_Source != kSourceActivityType) {
            showFunction(functions.share(position), owner_.Left() - 5 * Width / 2, rowTop(2 * row + 2));
            row += rowsOf(function);
        } else if (node && function.Function_Source != kSourceActivityType) {
            if (awaitedActivity(form_, *node) == &owner_) {
                bringUp(form_, *node);
            }
            tieFunction(*node, functions.share(position));
        }
    }
    functions.Expanded = true;
    form_.ActiveLabel = active;
}

void Unfolding::showFunction(std::shared_ptr<FunctionProperties> function, float left, float top) {
    const CanvasSettings& sizes = form_.settings();
    function->NodeKind = KindFunction;
    function->setParentKeyName(ownerName_);
    LabelsD& node = form_.Labels.AddShown({left, top, sizes.Width, sizes.BigHeight}, function->Function_Name,
                                          canvas::NodeTypeFunction, function->Function_Key, function);
    form_.Lines.addFullLine(owner_.Index(), kFunctionGrab, node.Index(), 2, canvas::EdgeTypePartOf,
                            canvas::AngleVerticalUp, 0);
    grow(node, false);
    Unfolding(form_, node).expandFunction();
}

/// Ties a function's node, which stayed without an owner when the activity was folded, on to it again.
void Unfolding::tieFunction(LabelsD& node, std::shared_ptr<FunctionProperties> function) {
    auto* free = node.entity<FunctionProperties>();
    if (!free || form_.isNameTaken(free->ParentKeyName())) {
        return;
    }
    Unfolding(form_, node, FoldedOrder::kept).collapseFunction();
    UnSynchronizeFunction(form_, *free, false, nullptr);
    form_.waiting.erase(node.Index());
    form_.Lines.addFullLine(owner_.Index(), kFunctionGrab, node.Index(), 2, canvas::EdgeTypePartOf,
                            canvas::AngleVerticalUp, 0);
    function->setParentKeyName(ownerName_);
    function->NodeKind = KindFunction;
    bindNode(node, std::move(function));
    Unfolding(form_, node).expandFunction();
}

void Unfolding::tieWaiting() {
    std::vector<std::int32_t> nodes;
    for (const auto& [node, activity] : form_.waiting) {
        if (activity == owner_.Index()) {
            nodes.push_back(node);
        }
    }
    std::sort(nodes.begin(), nodes.end());
    for (const std::int32_t number : nodes) {
        LabelsD* node = form_.Labels.byIndex(number);
        if (node && awaitedActivity(form_, *node) == &owner_) {
            bringUp(form_, *node);
            const std::string key = node->entity<FunctionProperties>()->Function_Key;
            tieFunction(*node, owner_.activity()->Act_Functions->share(key));
        }
    }
}

void Unfolding::expandFunction() {
    const auto* function = owner_.entity<FunctionProperties>();
    if (!function || owner_.Expanded) {
        return;
    }
    requireTypes(form_, function->Function_Inputs);
    requireTypes(form_, function->Function_Outputs);
    expand(Members::FunctionInputs);
    expand(Members::FunctionOutputs);
    owner_.Expanded = true;
}

void Unfolding::collapseFunction() {
    if (owner_.entity<FunctionProperties>() && owner_.Expanded) {
        collapse(Members::FunctionInputs);
        collapse(Members::FunctionOutputs);
        owner_.Expanded = false;
    }
}

void Unfolding::collapseFunctions() {
    ActivityProperties* activity = owner_.activity();
    if (!activity || !activity->Act_Functions.peek() || !activity->Act_Functions->Expanded) {
        return;
    }
    Act_FunctionsCollection& functions = *activity->Act_Functions;
    const std::vector<std::string> order = keysOf(activity->Act_Functions);
    std::vector<std::shared_ptr<FunctionProperties>> former;
    for (int position = 1; position <= functions.Count(); ++position) {
        former.push_back(functions.share(position));
    }
    if (order_ == FoldedOrder::reversed && named_) {
        form_.order.keep(ownerName_, KindFunction, order);
    }
    functions.Clear();
    for (const std::int32_t edge : partOfEdges(form_, owner_)) {
        LabelsD& node = *targetOf(form_, edge);
        auto* function = node.entity<FunctionProperties>();
        if (!function || function->NodeKind != KindFunction) {
            continue;
        }
        Unfolding(form_, node, order_).collapseFunction();
        if (order_ == FoldedOrder::kept && form_.bearsName(node)) {
            form_.order.giveBack(node);  // before it is cloned
        }
        if (!functions.AddFunction(form_, node.KeyName(), ownerName_, function->Function_Source)) {
            functions.AddFunctionProps(*function, function->Function_Key, 1);  // its node bears no name
        }
        if (function->Function_Source == kSourceActivityType) {
            form_.Labels.Remove(node.Index());
        } else {
            letWait(form_, node, owner_);  // the clone in the collection keeps the owner
            form_.Lines.RemoveFull(edge);
        }
    }
    for (auto& function : former) {
        const std::string key = function->Function_Key;
        if (!functions.Item(key)) {
            functions.append(std::move(function), key);
        }
    }
    if (order_ == FoldedOrder::kept) {
        functions.reorder(order);
    }
    functions.Expanded = false;
}

}  // namespace orvent::zoom
