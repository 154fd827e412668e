// The way back from the zoom view into the scenario, and of new identifiers the other way.

#include <memory>
#include <utility>
#include <variant>
#include <vector>

#include "links/member_rename.h"
#include "links/members.h"
#include "links/mirror_exchange.h"
#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"
#include "zoom/rename_node.h"
#include "zoom/unfolded.h"
#include "zoom/view_filters.h"
#include "zoom/waiting_functions.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::LabelsD;

namespace {

/// The entities of the design nodes that get new ones. Out of their nodes they are no far ends of each other: what the
/// one holds of the other goes with it.
class Former {
  public:
    explicit Former(ZoomForm& form) {
        form.eachFirstCopy([&](LabelsD&, LabelsD& design) {
            held_.push_back(std::exchange(design.Properties, canvas::NodeProperties()));
        });
    }

    void leave(MirrorExchange& exchange) const {
        for (const canvas::NodeProperties& entity : held_) {
            if (const auto* activity = std::get_if<std::shared_ptr<ActivityProperties>>(&entity)) {
                exchange.leave(**activity);
            } else if (const auto* recordSet = std::get_if<std::shared_ptr<RecordSetProperties>>(&entity)) {
                exchange.leave(**recordSet);
            }
        }
    }

  private:
    std::vector<canvas::NodeProperties> held_;
};

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

/// A second copy shows what the scenario has now.
void renew(LabelsD& copy, const LabelsD& design) {
    if (const ActivityProperties* activity = design.activity()) {
        const std::int16_t place = copy.activity()->ZoomPosition;
        copy.Properties = activity->Clone();
        copy.activity()->ZoomPosition = place;
    } else if (const RecordSetProperties* recordSet = design.recordSet()) {
        const std::int16_t place = copy.recordSet()->ZoomPosition;
        copy.Properties = recordSet->Clone();
        copy.recordSet()->ZoomPosition = place;
    }
    copy.showCaption(design.Caption());
}

void come(MirrorExchange& exchange, LabelsD& node) {
    if (ActivityProperties* activity = node.activity()) {
        exchange.come(*activity);
    } else if (RecordSetProperties* recordSet = node.recordSet()) {
        exchange.come(*recordSet);
    }
}

/// Functions that no activity has do not come into the scenario, and neither may links to them.
template <class Step>
void eachFreeFunction(ZoomForm& form, Step step) {
    for (LabelsD& node : form.Labels) {
        auto* function = node.entity<FunctionProperties>();
        if (function && standsAlone(form, node) && !awaitedActivity(form, node)) {
            step(*function);
        }
    }
}

}  // namespace

void ApplyZoomChanges(ZoomForm& form, bool ReExpand) {
    const platform::Busy busy(form.progress());
    const canvas::ManyChanges many(form);
    const Unfolded unfolded(form);
    bringUpAll(form);
    eachFreeFunction(form, [&](FunctionProperties& free) { UnSynchronizeFunction(form, free, false, nullptr); });
    form.eachPair([&](LabelsD& shown, const LabelsD&) { foldNode(form, shown); });
    // All old entities leave before the first is replaced, and all are replaced before the first is linked again: so
    // the lists of links keep their order, beside the view as well as in it.
    replayRenames(form.ParForm, form.renames);
    MirrorExchange exchange(form.ParForm);
    const Former former(form);
    former.leave(exchange);
    form.eachFirstCopy([&](LabelsD& shown, LabelsD& design) { replace(design, shown); });
    form.eachFirstCopy([&](LabelsD&, LabelsD& design) { come(exchange, design); });
    exchange.finish();
    form.eachPair([&](LabelsD& shown, const LabelsD& design) {
        if (!form.bearsName(shown)) {
            renew(shown, design);
        }
    });
    form.applied();
    if (ReExpand) {
        unfolded.restore(form);
        eachFreeFunction(form, [&](FunctionProperties& free) { SynchronizeFunction(form, free, nullptr); });
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

void copyIds(const ActivityProperties& from, FunctionProperties& function) {
    const auto* functions = from.Act_Functions.peek();
    if (const FunctionProperties* stored = functions ? functions->Item(function.Function_Key) : nullptr) {
        function.FunctionID = stored->FunctionID;
        copyIds(stored->Function_Inputs, function.Function_Inputs, &ParameterProperties::SubNode_ID);
        copyIds(stored->Function_Outputs, function.Function_Outputs, &ParameterProperties::SubNode_ID);
    }
}

void copyIds(const ActivityProperties& from, ActivityProperties& to) {
    to.NodeID = from.NodeID;
    copyIds(from.Act_Inputs, to.Act_Inputs, &AttributeProperties::SubNode_ID);
    copyIds(from.Act_Outputs, to.Act_Outputs, &AttributeProperties::SubNode_ID);
    copyIds(from.Act_Parameters, to.Act_Parameters, &ParameterProperties::SubNode_ID);
    for (FunctionProperties& function : to.Act_Functions) {
        copyIds(from, function);
    }
    if (from.Act_Inputs.peek()) {
        to.Act_Inputs->Changed = from.Act_Inputs.peek()->Changed;
    }
}

}  // namespace

// The nodes of members hold the very objects of the collections, so they have the identifiers at once; those of
// functions that wait for their activity do not.
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
    for (const auto& [node, activity] : form.waiting) {
        LabelsD* function = form.Labels.byIndex(node);
        if (const LabelsD* awaited = function ? awaitedActivity(form, *function) : nullptr) {
            copyIds(*awaited->activity(), *function->entity<FunctionProperties>());
        }
    }
}

}  // namespace orvent::zoom
