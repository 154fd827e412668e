#include "zoom/activity_expansion.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "entities/members.h"
#include "links/members.h"
#include "links/unsynchronize_functions.h"
#include "zoom/part_of.h"
#include "zoom/waiting_functions.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::CanvasSettings;
using canvas::LabelsD;

namespace {

int rowsOf(const FunctionProperties& function) {
    int rows = 0;
    eachList(function, [&rows](const auto& list, NodeKindCode) { rows = std::max(rows, list.count()); });
    return rows + 2;
}

}  // namespace

void ActivityExpansion::expandFunctions() {
    ActivityProperties* activity = owner_.activity();
    if (!activity || (activity->Act_Functions.peek() && activity->Act_Functions->Expanded)) {
        return;
    }
    Act_FunctionsCollection& functions = *activity->Act_Functions;
    for (const FunctionProperties& function : functions) {
        requireAllTypes(view_, function);
    }
    const canvas::NodeNumber active = view_.ActiveLabel;
    const float Width = view_.settings().Width;
    int row = activity->Act_Outputs.count() + activity->Act_Parameters.count() + 1;
    for (int position = 1; position <= functions.Count(); ++position) {
        if (functions.Item(position)->Function_Source == SourceActivityType) {
            showFunction(functions.share(position), owner_.Left(), rowTop(2 * row + 1));
            row += rowsOf(*functions.Item(position));
        }
    }
    for (int position = 1; position <= functions.Count(); ++position) {
        const FunctionProperties& function = *functions.Item(position);
        LabelsD* node = view_.nodeNamed(function.Function_Key);
        if (!node && function.Function_Source != SourceActivityType) {
            showFunction(functions.share(position), owner_.Left() - 5 * Width / 2, rowTop(2 * row + 2));
            row += rowsOf(function);
        } else if (node && function.Function_Source != SourceActivityType) {
            if (awaitedActivity(view_, *node) == &owner_) {
                bringUp(view_, *node);
            }
            tieFunction(*node, functions.share(position));
        }
    }
    functions.Expanded = true;
    view_.ActiveLabel = active;
}

void ActivityExpansion::showFunction(std::shared_ptr<FunctionProperties> function, float left, float top) {
    const CanvasSettings& sizes = view_.settings();
    function->NodeKind = KindFunction;
    function->setParentKeyName(ownerName_);
    LabelsD& node = view_.Labels.AddShown({left, top, sizes.Width, sizes.BigHeight}, function->Function_Name,
                                          canvas::NodeTypeFunction, function->Function_Key, function);
    view_.Lines.addFullLine(owner_.Index(), kFunctionGrab, node.Index(), 2, canvas::EdgeTypePartOf,
                            canvas::AngleVerticalUp, 0);
    grow(node, false);
    Expansion(view_, node).expandFunction();
}

/// Ties a function's node, which stayed without an owner when the activity was collapsed, on to it again.
void ActivityExpansion::tieFunction(LabelsD& node, std::shared_ptr<FunctionProperties> function) {
    auto* free = node.entity<FunctionProperties>();
    if (!free || view_.isNameTaken(free->ParentKeyName())) {
        return;
    }
    Expansion(view_, node, CollapsedOrder::kept).collapseFunction();
    UnSynchronizeFunction(view_, *free, false, nullptr);
    view_.waiting.erase(node.Index());
    view_.Lines.addFullLine(owner_.Index(), kFunctionGrab, node.Index(), 2, canvas::EdgeTypePartOf,
                            canvas::AngleVerticalUp, 0);
    function->setParentKeyName(ownerName_);
    function->NodeKind = KindFunction;
    bindNode(node, std::move(function));
    Expansion(view_, node).expandFunction();
}

void ActivityExpansion::tieWaiting() {
    std::vector<canvas::NodeNumber> nodes;
    for (const auto& [node, activity] : view_.waiting) {
        if (activity == owner_.Index()) {
            nodes.push_back(node);
        }
    }
    std::sort(nodes.begin(), nodes.end());
    for (const canvas::NodeNumber number : nodes) {
        LabelsD* node = view_.Labels.byIndex(number);
        if (node && awaitedActivity(view_, *node) == &owner_) {
            bringUp(view_, *node);
            const std::string key = node->entity<FunctionProperties>()->Function_Key;
            tieFunction(*node, owner_.activity()->Act_Functions->share(key));
        }
    }
}

void ActivityExpansion::collapseFunctions() {
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
    if (order_ == CollapsedOrder::reversed && named_) {
        view_.order.keep(ownerName_, KindFunction, order);
    }
    functions.Clear();
    for (const canvas::EdgeNumber edge : partOfEdges(view_, owner_)) {
        LabelsD& node = *targetOf(view_, edge);
        auto* function = node.entity<FunctionProperties>();
        if (!function || function->NodeKind != KindFunction) {
            continue;
        }
        Expansion(view_, node, order_).collapseFunction();
        if (order_ == CollapsedOrder::kept && view_.bearsName(node)) {
            view_.order.giveBack(node);  // before it is cloned
        }
        if (!functions.AddFunction(view_, node.KeyName(), ownerName_, function->Function_Source)) {
            functions.AddFunctionProps(*function, function->Function_Key, 1);  // its node bears no name
        }
        if (function->Function_Source == SourceActivityType) {
            view_.Labels.Remove(node.Index());
        } else {
            letWait(view_, node, owner_);  // the clone in the collection keeps the owner
            view_.Lines.RemoveFull(edge);
        }
    }
    for (auto& function : former) {
        const std::string key = function->Function_Key;
        if (!functions.Item(key)) {
            functions.append(std::move(function), key);
        }
    }
    if (order_ == CollapsedOrder::kept) {
        functions.reorder(order);
    }
    functions.Expanded = false;
}

void ActivityExpansion::collapseActivity() {
    if (!owner_.activity()) {
        return;
    }
    collapseFunctions();
    for (const NodeKindCode kind : {KindParameter, KindOutput, KindInput}) {
        collapse(kind);
    }
    owner_.Expanded = false;
}

void ActivityExpansion::collapseWhole() {
    collapseActivity();
    collapseRecordSet();
    collapseFunction();
}

}  // namespace orvent::zoom
