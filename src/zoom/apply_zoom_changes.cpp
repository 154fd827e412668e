// The way back from the zoom view into the scenario, and of new identifiers the other way.

#include <map>
#include <set>

#include "zoom/expand_collapse.h"
#include "zoom/members.h"
#include "zoom/synchronize_functions.h"
#include "zoom/unsynchronize_functions.h"
#include "zoom/view_filters.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

namespace {

/// What was unfolded of the view, and where it stood.
class Unfolded {
  public:
    explicit Unfolded(const ZoomForm& form) {
        for (const LabelsD& node : form.Labels) {
            if (node.Expanded && (node.activity() || node.recordSet() || node.entity<FunctionProperties>())) {
                expanded_.insert(node.Index());
                expandedNames_.insert(node.KeyName());
            }
            if (form.bearsName(node)) {
                const bool selected = form.SelectedLabels.Item(node.Index()) != nullptr;
                places_[node.KeyName()] = {
                    node.box(), selected ? node.Color() ^ form.settings().SelColor : node.Color(), node.Ready()};
            }
        }
    }

    bool holds(const LabelsD& node) const { return expanded_.count(node.Index()) != 0; }

    /// Expands what was expanded and puts every node back to its place.
    void restore(ZoomForm& form) const {
        for (const NewANDoldIndex& pair : form.New2OldIndex) {
            LabelsD* node = form.Labels.byIndex(pair.NewIndex);
            if (node && holds(*node) && form.bearsName(*node)) {
                ExpandByPlace(form, *node);
            }
        }
        for (LabelsD& node : form.Labels) {
            if (node.entity<FunctionProperties>() && form.bearsName(node) && !expandedNames_.count(node.KeyName())) {
                CollapseFunction(form, node.Index());
            }
        }
        for (LabelsD& node : form.Labels) {
            const auto place = form.bearsName(node) ? places_.find(node.KeyName()) : places_.end();
            if (place != places_.end()) {
                place->second.restore(node);
            }
        }
    }

  private:
    struct Place {
        canvas::Box box;
        std::int32_t color;
        bool ready;

        void restore(LabelsD& node) const {
            if (box != node.box()) {
                node.setBox(box);
            }
            if (color != node.Color()) {
                node.setReady(ready);
            }
        }
    };

    std::set<std::int32_t> expanded_;
    std::set<std::string> expandedNames_;
    std::map<std::string, Place> places_;
};

/// The orders in which an owner's members stand, by the names of its collections.
class MemberOrders {
  public:
    explicit MemberOrders(const LabelsD& node) {
        if (const ActivityProperties* activity = node.activity()) {
            keep("inputs", activity->Act_Inputs);
            keep("outputs", activity->Act_Outputs);
            keep("parameters", activity->Act_Parameters);
            keep("functions", activity->Act_Functions);
            for (const FunctionProperties& function : activity->Act_Functions) {
                keep("in " + function.Function_Key, function.Function_Inputs);
                keep("out " + function.Function_Key, function.Function_Outputs);
            }
        } else if (const RecordSetProperties* recordSet = node.recordSet()) {
            keep("outputs", recordSet->RecordSet_Outputs);
        }
    }

    void restore(LabelsD& node) const {
        if (ActivityProperties* activity = node.activity()) {
            put("inputs", activity->Act_Inputs);
            put("outputs", activity->Act_Outputs);
            put("parameters", activity->Act_Parameters);
            put("functions", activity->Act_Functions);
            for (FunctionProperties& function : activity->Act_Functions) {
                put("in " + function.Function_Key, function.Function_Inputs);
                put("out " + function.Function_Key, function.Function_Outputs);
            }
        } else if (RecordSetProperties* recordSet = node.recordSet()) {
            put("outputs", recordSet->RecordSet_Outputs);
        }
    }

  private:
    template <class List>
    void keep(const std::string& name, const Lazy<List>& list) {
        orders_[name] = keysOf(list);
    }
    template <class List>
    void put(const std::string& name, Lazy<List>& list) const {
        if (const auto order = orders_.find(name); order != orders_.end()) {
            restoreOrder(list, order->second);
        }
    }

    std::map<std::string, std::vector<std::string>> orders_;
};

/// Folds all of the view's design nodes. The members have the design's order then, those that only the view has at the
/// end.
void foldAll(ZoomForm& form) {
    for (const NewANDoldIndex& pair : form.New2OldIndex) {
        LabelsD* node = form.Labels.byIndex(pair.NewIndex);
        const LabelsD* design = form.ParForm.Labels.byIndex(pair.OldIndex);
        if (!node || !design) {
            continue;
        }
        const MemberOrders shown(*node), wanted(*design);
        CollapseWhole(form, *node);
        shown.restore(*node);
        wanted.restore(*node);
    }
}

void release(canvas::DrawForm& design, LabelsD& node) {
    if (ActivityProperties* activity = node.activity()) {
        UnSynchronizeActivity(design, *activity, false, nullptr);
    } else if (RecordSetProperties* recordSet = node.recordSet()) {
        UnSynchronizeRecordSet(design, *recordSet, false, nullptr);
    }
}

/// Puts a clone of the view's entity into the design node, whose caption follows the entity's name.
void replace(LabelsD& design, const LabelsD& shown) {
    if (const ActivityProperties* activity = shown.activity()) {
        design.Properties = activity->Clone();
    } else if (const RecordSetProperties* recordSet = shown.recordSet()) {
        design.Properties = recordSet->Clone();
    }
    const std::string& name = design.activity() ? design.activity()->Act_Name : design.recordSet()->RecordSet_Name;
    if (design.Caption() != name) {
        design.setCaption(name);
    }
}

void link(canvas::DrawForm& design, LabelsD& node) {
    if (ActivityProperties* activity = node.activity()) {
        SynchronizeActivity(design, *activity, nullptr);
    } else if (RecordSetProperties* recordSet = node.recordSet()) {
        SynchronizeRecordSet(design, *recordSet);
    }
}

}  // namespace

void ApplyZoomChanges(ZoomForm& form, bool ReExpand) {
    const platform::Busy busy(form.progress());
    const Unfolded unfolded(form);
    foldAll(form);
    // All old entities are unlinked before the first is replaced, and all are replaced before the first is linked
    // again: so the lists of links keep their order.
    form.eachFirstCopy([&](LabelsD&, LabelsD& design) { release(form.ParForm, design); });
    form.eachFirstCopy([&](LabelsD& shown, LabelsD& design) { replace(design, shown); });
    form.eachFirstCopy([&](LabelsD&, LabelsD& design) { link(form.ParForm, design); });
    form.applied();
    if (ReExpand) {
        unfolded.restore(form);
    }
    refreshFilters(form);
}

namespace {

/// Copies a field of the items of one collection to those of the same key of another.
template <class List, class Id>
void copyIds(const Lazy<List>& from, Lazy<List>& to, Id id) {
    const List* source = from.peek();
    List* target = to.peek();
    if (!source || !target) {
        return;
    }
    for (auto& item : *target) {
        if (const auto* stored = source->Item(keyOf(item))) {
            item.*id = stored->*id;
        }
    }
}

void copyIds(const ActivityProperties& from, ActivityProperties& to) {
    to.NodeID = from.NodeID;
    copyIds(from.Act_Inputs, to.Act_Inputs, &AttributeProperties::SubNode_ID);
    copyIds(from.Act_Outputs, to.Act_Outputs, &AttributeProperties::SubNode_ID);
    copyIds(from.Act_Parameters, to.Act_Parameters, &ParameterProperties::SubNode_ID);
    copyIds(from.Act_Functions, to.Act_Functions, &FunctionProperties::FunctionID);
    for (FunctionProperties& function : to.Act_Functions) {
        const FunctionProperties* stored =
            from.Act_Functions.peek() ? from.Act_Functions.peek()->Item(function.Function_Key) : nullptr;
        if (stored) {
            copyIds(stored->Function_Inputs, function.Function_Inputs, &ParameterProperties::SubNode_ID);
            copyIds(stored->Function_Outputs, function.Function_Outputs, &ParameterProperties::SubNode_ID);
        }
    }
    if (from.Act_Inputs.peek()) {
        to.Act_Inputs->Changed = from.Act_Inputs.peek()->Changed;
    }
}

}  // namespace

// The nodes of members hold the very objects of the collections, so they have the identifiers at once.
void RefreshZoomIdentities(ZoomForm& form) {
    form.eachFirstCopy([](LabelsD& shown, LabelsD& design) {
        if (shown.activity() && design.activity()) {
            copyIds(*design.activity(), *shown.activity());
        } else if (shown.recordSet() && design.recordSet()) {
            shown.recordSet()->NodeID = design.recordSet()->NodeID;
            copyIds(design.recordSet()->RecordSet_Outputs, shown.recordSet()->RecordSet_Outputs,
                    &AttributeProperties::SubNode_ID);
        }
    });
}

}  // namespace orvent::zoom
