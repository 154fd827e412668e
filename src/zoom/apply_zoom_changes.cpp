// The way back from the zoom view into the scenario, and of new identifiers the other way.

#include <memory>
#include <utility>
#include <variant>
#include <vector>

#include "entities/members.h"
#include "links/member_rename.h"
#include "links/members.h"
#include "links/mirror_exchange.h"
#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"
#include "zoom/build_view.h"
#include "zoom/expanded_state.h"
#include "zoom/rename_node.h"
#include "zoom/view_filters.h"
#include "zoom/waiting_functions.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::LabelsD;

namespace {

/// The entities of the design nodes that get new ones. Out of their nodes they are no far ends of each other: what the
/// one holds of the other goes with it.
class Former {
  public:
    explicit Former(ZoomView& view) {
        view.eachFirstCopy([&](LabelsD&, LabelsD& design) {
            held_.push_back(std::exchange(design.Properties, canvas::NodeProperties()));
        });
    }

    void leave(MirrorExchange& exchange) {
        for (canvas::NodeProperties& entity : held_) {
            if (auto* activity = std::get_if<platform::Shared<ActivityProperties>>(&entity)) {
                exchange.leave(**activity);
            } else if (auto* recordSet = std::get_if<platform::Shared<RecordSetProperties>>(&entity)) {
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
void eachFreeFunction(ZoomView& view, Step step) {
    for (LabelsD& node : view.Labels) {
        auto* function = node.entity<FunctionProperties>();
        if (function && standsAlone(view, node) && !awaitedActivity(view, node)) {
            step(*function);
        }
    }
}

}  // namespace

void ApplyZoomChanges(ZoomView& view, bool ReExpand) {
    const platform::Busy busy(view.progress());
    const canvas::ManyChanges many(view);
    const ExpandedState expanded(view);
    bringUpAll(view);
    eachFreeFunction(view, [&](FunctionProperties& free) { UnSynchronizeFunction(view, free, false, nullptr); });
    view.eachPair([&](LabelsD& shown, const LabelsD&) { CollapseForAWhile(view, shown); });
    // All old entities leave before the first is replaced, and all are replaced before the first is linked again: so
    // the lists of links keep their order, beside the view as well as in it.
    replayRenames(view.ParForm(), view.renames);
    MirrorExchange exchange(view.ParForm());
    Former former(view);
    former.leave(exchange);
    view.eachFirstCopy([&](LabelsD& shown, LabelsD& design) { replace(design, shown); });
    view.eachFirstCopy([&](LabelsD&, LabelsD& design) { come(exchange, design); });
    exchange.finish();
    view.eachPair([&](LabelsD& shown, const LabelsD& design) {
        if (!view.bearsName(shown)) {
            renew(shown, design);
        }
    });
    view.applied();
    if (ReExpand) {
        expanded.restore(view);
        eachFreeFunction(view, [&](FunctionProperties& free) { SynchronizeFunction(view, free, nullptr); });
    }
    refreshFilters(view);
}

namespace {

/// Copies the identifiers of an owner's own members to those of the same key of another one of its kind.
template <class Owner>
void copyMemberIds(const Owner& from, Owner& to) {
    eachList(to, [&](auto& list, NodeKindCode kind) {
        using Member = std::remove_cvref_t<decltype(*list.peek()->Item(1))>;
        const auto* source = listOf<Member>(from, kind);
        for (Member& member : list) {
            const Member* stored = source ? source->Item(member.Key) : nullptr;
            member.SubNode_ID = stored ? stored->SubNode_ID : member.SubNode_ID;
        }
    });
}

void copyIds(const ActivityProperties& from, FunctionProperties& function) {
    const auto* functions = from.Act_Functions.peek();
    if (const FunctionProperties* stored = functions ? functions->Item(function.Function_Key) : nullptr) {
        function.FunctionID = stored->FunctionID;
        copyMemberIds(*stored, function);
    }
}

void copyIds(const ActivityProperties& from, ActivityProperties& to) {
    to.NodeID = from.NodeID;
    copyMemberIds(from, to);
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
void RefreshZoomIdentities(ZoomView& view) {
    view.eachFirstCopy([](LabelsD& shown, LabelsD& design) {
        if (shown.activity() && design.activity()) {
            copyIds(*design.activity(), *shown.activity());
        } else if (shown.recordSet() && design.recordSet()) {
            shown.recordSet()->NodeID = design.recordSet()->NodeID;
            copyMemberIds(std::as_const(*design.recordSet()), *shown.recordSet());
        }
    });
    for (const auto& [node, activity] : view.waiting) {
        LabelsD* function = view.Labels.byIndex(node);
        if (const LabelsD* awaited = function ? awaitedActivity(view, *function) : nullptr) {
            copyIds(*awaited->activity(), *function->entity<FunctionProperties>());
        }
    }
}

}  // namespace orvent::zoom
