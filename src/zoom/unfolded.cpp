#include "zoom/unfolded.h"

#include <algorithm>
#include <vector>

#include "zoom/expand_collapse.h"
#include "zoom/members.h"
#include "zoom/unfolding.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

Unfolded::Unfolded(const ZoomForm& form) {
    places_.reserve(static_cast<std::size_t>(form.Labels.Count()));
    for (const LabelsD& node : form.Labels) {
        if (node.Expanded && (node.activity() || node.recordSet() || node.entity<FunctionProperties>())) {
            expanded_.insert(node.Index());
            expandedNames_.insert(node.KeyName());
        }
        if (form.bearsName(node)) {
            const bool selected = form.SelectedLabels.Item(node.Index()) != nullptr;
            places_.push_back({node.KeyName(), node.box(),
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
    for (const Place& place : places_) {
        if (LabelsD* node = form.nodeNamed(place.name)) {
            place.restore(*node);
        }
    }
}

void Unfolded::Place::restore(LabelsD& node) const {
    if (box != node.box()) {
        node.setBox(box);
    }
    if (color != node.Color()) {
        node.setReady(ready);
    }
}

namespace {

/// Puts the members of the view's nodes into the order of the scenario's; those that only the view has come last.
/// Members that were renamed in the view are known by the names that they have there.
class ScenarioOrder {
  public:
    explicit ScenarioOrder(const ZoomForm& form) : form_(form) {}

    void restore(LabelsD& node, const LabelsD& design) const {
        if (ActivityProperties* activity = node.activity(); activity && design.activity()) {
            restore(*activity, *design.activity());
        } else if (RecordSetProperties* recordSet = node.recordSet(); recordSet && design.recordSet()) {
            const RecordSetProperties& former = *design.recordSet();
            restore(recordSet->RecordSet_Outputs, former.RecordSet_Outputs, former.RecordSet_Name,
                    KindRecordSetAttribute);
        }
    }

  private:
    void restore(ActivityProperties& activity, const ActivityProperties& former) const {
        restore(activity.Act_Inputs, former.Act_Inputs, former.Act_Name, KindInput);
        restore(activity.Act_Outputs, former.Act_Outputs, former.Act_Name, KindOutput);
        restore(activity.Act_Parameters, former.Act_Parameters, former.Act_Name, KindParameter);
        restore(activity.Act_Functions, former.Act_Functions, {}, KindFunction);
        Act_FunctionsCollection* functions = activity.Act_Functions.peek();
        for (const FunctionProperties& function : former.Act_Functions) {
            const std::string& key = form_.nameNow(function.Function_Key);
            if (FunctionProperties* shown = functions ? functions->Item(key) : nullptr) {
                restore(shown->Function_Inputs, function.Function_Inputs, key, KindFunctionInput);
                restore(shown->Function_Outputs, function.Function_Outputs, key, KindFunctionOutput);
            }
        }
    }

    template <class List>
    void restore(Lazy<List>& list, const Lazy<List>& former, const std::string& owner, NodeKindCode kind) const {
        if (!form_.anyRenamed()) {
            restoreOrder(list, former);
            return;
        }
        std::vector<std::string> keys = keysOf(former);
        const std::size_t head = wholeKey(owner, kind, "").size();
        for (std::string& key : keys) {
            key = form_.nameNow(wholeKey(owner, kind, key)).substr(head);
        }
        if (List* shown = list.peek()) {
            shown->reorder(keys);
        }
    }

    const ZoomForm& form_;
};

}  // namespace

void foldNode(ZoomForm& form, LabelsD& node, const LabelsD* design) {
    const platform::Busy busy(form.progress());
    Unfolding(form, node, FoldedOrder::kept).collapseWhole();
    if (design) {
        ScenarioOrder(form).restore(node, *design);
    }
}

}  // namespace orvent::zoom
