#include "zoom/unfolded.h"

#include <algorithm>
#include <vector>

#include "zoom/expand_collapse.h"
#include "zoom/members.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

Unfolded::Unfolded(const ZoomForm& form) {
    for (const LabelsD& node : form.Labels) {
        if (node.Expanded && (node.activity() || node.recordSet() || node.entity<FunctionProperties>())) {
            expanded_.insert(node.Index());
            expandedNames_.insert(node.KeyName());
        }
        if (form.bearsName(node)) {
            const bool selected = form.SelectedLabels.Item(node.Index()) != nullptr;
            places_[node.KeyName()] = {node.box(), selected ? node.Color() ^ form.settings().SelColor : node.Color(),
                                       node.Ready()};
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
    for (LabelsD& node : form.Labels) {
        const auto place = form.bearsName(node) ? places_.find(node.KeyName()) : places_.end();
        if (place != places_.end()) {
            place->second.restore(node);
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

/// The orders in which an owner's members stand, by the names of its collections. Members that were renamed in the
/// view are known by the names that they have there.
class MemberOrders {
  public:
    /// The orders of a node of the view itself.
    explicit MemberOrders(const LabelsD& node) : MemberOrders(node, nullptr) {}
    /// Those of a scenario's node, for the view.
    MemberOrders(const LabelsD& design, const ZoomForm& form) : MemberOrders(design, &form) {}

    void restore(LabelsD& node) const {
        if (ActivityProperties* activity = node.activity()) {
            put("inputs", activity->Act_Inputs);
            put("outputs", activity->Act_Outputs);
            put("parameters", activity->Act_Parameters);
            put("functions", activity->Act_Functions);
            for (FunctionProperties& function : activity->Act_Functions) {
                putFunction(function);
            }
        } else if (auto* function = node.entity<FunctionProperties>()) {
            putFunction(*function);
        } else if (RecordSetProperties* recordSet = node.recordSet()) {
            put("outputs", recordSet->RecordSet_Outputs);
        }
    }

  private:
    MemberOrders(const LabelsD& node, const ZoomForm* renames) : renames_(renames) {
        if (const ActivityProperties* activity = node.activity()) {
            keep("inputs", activity->Act_Inputs, activity->Act_Name, KindInput);
            keep("outputs", activity->Act_Outputs, activity->Act_Name, KindOutput);
            keep("parameters", activity->Act_Parameters, activity->Act_Name, KindParameter);
            keep("functions", activity->Act_Functions, {}, KindFunction);
            for (const FunctionProperties& function : activity->Act_Functions) {
                keepFunction(function);
            }
        } else if (const auto* function = node.entity<FunctionProperties>()) {
            keepFunction(*function);
        } else if (const RecordSetProperties* recordSet = node.recordSet()) {
            keep("outputs", recordSet->RecordSet_Outputs, recordSet->RecordSet_Name, KindRecordSetAttribute);
        }
    }

    const std::string& nameNow(const std::string& key) const { return renames_ ? renames_->nameNow(key) : key; }

    void keepFunction(const FunctionProperties& function) {
        const std::string& key = nameNow(function.Function_Key);
        keep("in " + key, function.Function_Inputs, key, KindFunctionInput);
        keep("out " + key, function.Function_Outputs, key, KindFunctionOutput);
    }
    void putFunction(FunctionProperties& function) const {
        put("in " + function.Function_Key, function.Function_Inputs);
        put("out " + function.Function_Key, function.Function_Outputs);
    }

    template <class List>
    void keep(const std::string& name, const Lazy<List>& list, const std::string& owner, NodeKindCode kind) {
        std::vector<std::string> keys = keysOf(list);
        const std::size_t head = wholeKey(owner, kind, "").size();
        for (std::string& key : keys) {
            key = nameNow(wholeKey(owner, kind, key)).substr(head);
        }
        orders_[name] = std::move(keys);
    }
    template <class List>
    void put(const std::string& name, Lazy<List>& list) const {
        if (const auto order = orders_.find(name); order != orders_.end()) {
            restoreOrder(list, order->second);
        }
    }

    const ZoomForm* renames_;
    std::map<std::string, std::vector<std::string>> orders_;
};

}  // namespace

void foldNode(ZoomForm& form, LabelsD& node, const LabelsD* design) {
    const MemberOrders shown(node);
    CollapseWhole(form, node);
    shown.restore(node);
    if (design) {
        MemberOrders(*design, form).restore(node);
    }
}

}  // namespace orvent::zoom
