#include "zoom/unfolding.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "entities/link_types.h"
#include "links/member_links.h"
#include "links/members.h"
#include "zoom/member_ties.h"
#include "zoom/relationship_matrix.h"
#include "zoom/typed_name.h"
#include "zoom/unfolding_parts.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::CanvasSettings;
using canvas::LabelsD;

struct ExpansionRow {
    canvas::NodeTypeCode nodeType;
    NodeKindCode kind;
    std::int16_t fromGrab;
    bool widens;         ///< the picture grows to the right with them
    LinkType constants;  ///< links of this type show constants beside the member, `LinkUnset` for none
    float (*left)(const LabelsD& owner, const CanvasSettings& sizes);
};

namespace {

bool isCentral(const LabelsD& owner) {
    const ActivityProperties* activity = owner.activity();
    return activity && activity->ZoomPosition == static_cast<std::int16_t>(ZoomPlace::Central);
}

float leftOfOwner(const LabelsD& owner, const CanvasSettings& sizes) {
    return owner.Left() - sizes.Width - (isCentral(owner) ? sizes.WDist : 0);
}
float rightOfOwner(const LabelsD& owner, const CanvasSettings& sizes) {
    return owner.Left() + owner.Width() + (isCentral(owner) ? sizes.WDist : 0);
}
float belowOwner(const LabelsD& owner, const CanvasSettings&) {
    return owner.Left();
}
float leftHalf(const LabelsD& owner, const CanvasSettings& sizes) {
    return owner.Left() - sizes.Width / 2 - 10;
}
float rightHalf(const LabelsD& owner, const CanvasSettings& sizes) {
    return owner.Left() + owner.Width() - sizes.Width / 2 + 10;
}

// In the order of `Members`.
constexpr std::array<ExpansionRow, 6> kExpansions = {{
    {canvas::NodeTypeAttribute, KindInput, 1, false, LinkUnset, leftOfOwner},
    {canvas::NodeTypeAttribute, KindOutput, 4, true, LinkUnset, rightOfOwner},
    {canvas::NodeTypeParameter, KindParameter, 5, false, LinkConstant, belowOwner},
    {canvas::NodeTypeParameter, KindFunctionInput, 4, false, LinkConstantFunction, leftHalf},
    {canvas::NodeTypeParameter, KindFunctionOutput, 4, true, LinkUnset, rightHalf},
    {canvas::NodeTypeAttribute, KindRecordSetAttribute, 4, true, LinkUnset, belowOwner},
}};

/// Whether a collection holds these very items and no other ones, the last one first.
template <class List>
bool holdsReversed(const List& list, const std::vector<std::shared_ptr<EntityOf<List>>>& items) {
    bool holds = static_cast<std::size_t>(list.Count()) == items.size();
    for (int at = 1; holds && at <= list.Count(); ++at) {
        holds = list.Item(at) == items[items.size() - static_cast<std::size_t>(at)].get();
    }
    return holds;
}

/// Sees that a collection holds these very items, and puts them into their order; a member without a node comes last.
template <class List>
void refill(List& list, const std::vector<std::shared_ptr<EntityOf<List>>>& items, FoldedOrder order) {
    if (!holdsReversed(list, items)) {
        for (const auto& item : items) {
            const std::string& key = keyOf(*item);
            if (list.Item(key) != item.get()) {
                list.Remove(key);
                list.append(item, key);
            }
        }
    }
    if (order == FoldedOrder::reversed) {
        std::vector<std::string> keys;
        keys.reserve(items.size());
        for (const auto& item : items) {
            keys.push_back(keyOf(*item));
        }
        list.reorder(keys);
    }
}

}  // namespace

const ExpansionRow& expansionRow(Members members) {
    return kExpansions[static_cast<std::size_t>(members)];
}

const std::string& ownerNameOf(const ZoomForm& form, const LabelsD& owner) {
    const ActivityProperties* activity = owner.activity();
    const RecordSetProperties* recordSet = owner.recordSet();
    const auto* function = owner.entity<FunctionProperties>();
    if (form.bearsName(owner) || !(activity || recordSet || function)) {
        return owner.KeyName();
    }
    return activity ? activity->Act_Name : recordSet ? recordSet->RecordSet_Name : function->Function_Key;
}

bool isMemberOf(const ZoomForm& form, const LabelsD& node, const LabelsD& owner) {
    const RelationEnd end(node);
    return end.present() && end.kind() != KindFree && end.kind() != KindConstant &&
           (end.parentKeyName() == ownerNameOf(form, owner) || isFree(form, end.parentKeyName()));
}

std::int16_t ownerGrabPoint(const LabelsD& member) {
    const RelationEnd end(member);
    const auto row = std::find_if(kExpansions.begin(), kExpansions.end(),
                                  [&](const ExpansionRow& each) { return end.present() && each.kind == end.kind(); });
    return row == kExpansions.end() ? kFunctionGrab : row->fromGrab;
}

float Unfolding::rowTop(int halfRows) const {
    return owner_.Top() + owner_.Height() + static_cast<float>(halfRows) * form_.settings().HDist;
}

void Unfolding::grow(const LabelsD& node, bool widens) {
    const float bottom = node.box().bottom();
    const float right = node.box().right();
    const float height = form_.PicForm.Height(), width = form_.PicForm.Width();
    form_.PicForm.setSize(widens && right > width ? right + node.Width() : width,
                          bottom > height ? bottom + 3 * form_.settings().BigHeight : height);
}

void Unfolding::expand(Members members) {
    const ExpansionRow& row = expansionRow(members);
    ActivityProperties* activity = owner_.activity();
    FunctionProperties* function = owner_.entity<FunctionProperties>();
    RecordSetProperties* recordSet = owner_.recordSet();
    const auto ofActivity = [&](auto& items, int firstRow) {
        if (!items->Expanded) {
            show(items, row, firstRow);
            items->Expanded = true;
        }
    };
    if (members == Members::Inputs && activity) {
        ofActivity(activity->Act_Inputs, 0);
    } else if (members == Members::Outputs && activity) {
        ofActivity(activity->Act_Outputs, 0);
    } else if (members == Members::Parameters && activity) {
        ofActivity(activity->Act_Parameters, activity->Act_Outputs.count());
    } else if (members == Members::FunctionInputs && function && !owner_.Expanded) {
        show(function->Function_Inputs, row, 0);
    } else if (members == Members::FunctionOutputs && function && !owner_.Expanded) {
        show(function->Function_Outputs, row, 0);
    } else if (members == Members::RecordSet && recordSet && !owner_.Expanded) {
        show(recordSet->RecordSet_Outputs, row, 0);
        owner_.Expanded = true;
    }
}

template <class List>
void Unfolding::show(Lazy<List>& items, const ExpansionRow& row, int firstRow) {
    List* list = items.peek();
    if (!list) {
        return;
    }
    requireTypes(form_, items);
    const std::int32_t active = form_.ActiveLabel;
    for (int position = 1; position <= list->Count(); ++position) {
        if (NearEnd(*list->Item(position)).labelIn(form_)) {
            continue;  // it was drawn at its owner while the others were folded
        }
        showMember(list->share(position), row, rowTop(2 * (firstRow + position - 1) + 1));
    }
    form_.ActiveLabel = active;
}

LabelsD* Unfolding::showAlone(Members members, const std::string& key) {
    ActivityProperties* activity = owner_.activity();
    const auto show = [&](auto& items) -> LabelsD* {
        auto entity = items->share(key);
        if (!entity || NearEnd(*entity).labelIn(form_)) {
            return nullptr;
        }
        return &showMember(entity, expansionRow(members), rowTop(2 * items->positionOf(key) - 1));
    };
    if (!activity) {
        return nullptr;
    }
    switch (members) {
        case Members::Inputs:
            return show(activity->Act_Inputs);
        case Members::Outputs:
            return show(activity->Act_Outputs);
        case Members::Parameters:
            return show(activity->Act_Parameters);
        default:
            return nullptr;
    }
}

template <class Entity>
LabelsD& Unfolding::showMember(std::shared_ptr<Entity> entity, const ExpansionRow& row, float top) {
    const CanvasSettings& sizes = form_.settings();
    Entity& shown = *entity;
    shown.ParentKeyName = ownerName_;
    shown.NodeKind = row.kind;
    LabelsD& node =
        form_.Labels.AddShown({row.left(owner_, sizes), top, sizes.Width, sizes.Height}, nameOf(shown), row.nodeType,
                              named_ ? wholeKey(ownerName_, row.kind, shown.Key) : std::string(), std::int16_t{0});
    node.setToolTipText(typedName(form_, nameOf(shown), typeOf(shown)));
    form_.Lines.addFullLine(owner_.Index(), row.fromGrab, node.Index(), 2, canvas::EdgeTypePartOf,
                            canvas::AngleVerticalUp, 0);
    bindNode(node, std::move(entity));
    grow(node, row.widens);
    if (!named_) {
        return node;  // links are drawn at the first copy
    }
    if constexpr (std::is_same_v<Entity, ParameterProperties>) {
        showConstants(node, shown, row);
    }
    linkMember(form_, shown, nullptr);
    return node;
}

void Unfolding::showConstants(const LabelsD& node, const ParameterProperties& parameter, const ExpansionRow& row) {
    if (row.constants == LinkUnset) {
        return;
    }
    const CanvasSettings& sizes = form_.settings();
    for (const RegulatorProperties& link : parameter.RegulatedFrom) {
        const LabelsD* inDesign = form_.ParForm.nodeNamed(link.Regulator_name);
        const bool named = form_.isNameTaken(link.Regulator_name) || form_.isNameTaken(link.Regulator_Key());
        if (link.Regulator_type != row.constants || named || link.Regulator_Key().empty() ||
            (inDesign && inDesign->recordSet())) {
            continue;
        }
        LabelsD& constant =
            form_.Labels.Add({node.Left() - sizes.WDist - sizes.Width, node.Top(), sizes.BigHeight, sizes.BigHeight},
                             link.Regulator_Key(), canvas::NodeTypeConstant);
        auto& entity = *constant.entity<ParameterProperties>();
        entity.Parameter_Type = parameter.Parameter_Type;
        entity.Key = link.Regulator_Key();
        constant.setToolTipText(typedName(form_, link.Regulator_Key(), parameter.Parameter_Type));
    }
}

void Unfolding::collapse(Members members) {
    const ExpansionRow& row = expansionRow(members);
    ActivityProperties* activity = owner_.activity();
    FunctionProperties* function = owner_.entity<FunctionProperties>();
    RecordSetProperties* recordSet = owner_.recordSet();
    const auto ofActivity = [&](auto& items) {
        if (items.peek() && items->Expanded) {
            fold(items, row);
            items->Expanded = false;
        }
    };
    if (members == Members::Inputs && activity) {
        ofActivity(activity->Act_Inputs);
    } else if (members == Members::Outputs && activity) {
        ofActivity(activity->Act_Outputs);
    } else if (members == Members::Parameters && activity) {
        ofActivity(activity->Act_Parameters);
    } else if (members == Members::FunctionInputs && function && owner_.Expanded) {
        fold(function->Function_Inputs, row);
    } else if (members == Members::FunctionOutputs && function && owner_.Expanded) {
        fold(function->Function_Outputs, row);
    } else if (members == Members::RecordSet && recordSet && owner_.Expanded) {
        fold(recordSet->RecordSet_Outputs, row);
        owner_.Expanded = false;
    }
}

void Unfolding::collapseActivity() {
    if (!owner_.activity()) {
        return;
    }
    collapseFunctions();
    for (const Members members : {Members::Parameters, Members::Outputs, Members::Inputs}) {
        collapse(members);
    }
    owner_.Expanded = false;
}

void Unfolding::collapseWhole() {
    collapseActivity();
    collapse(Members::RecordSet);
    collapseFunction();
}

// From the last edge to the first, since a node that goes shortens the owner's list.
template <class List>
void Unfolding::fold(Lazy<List>& items, const ExpansionRow& row) {
    using Entity = EntityOf<List>;
    std::vector<std::shared_ptr<Entity>> folded;
    for (const std::int32_t edge : partOfEdges(form_, owner_)) {
        LabelsD* node = targetOf(form_, edge);
        const auto* held = std::get_if<std::shared_ptr<Entity>>(&node->Properties);
        if (held && *held && (*held)->NodeKind == row.kind &&
            ((*held)->ParentKeyName == ownerName_ || isFree(form_, (*held)->ParentKeyName))) {
            folded.push_back(*held);
            form_.Labels.Remove(node->Index());
        }
    }
    if (order_ == FoldedOrder::reversed && named_) {
        form_.order.keep(ownerName_, row.kind, keysOf(items));
    }
    refill(*items, folded, order_);
}

}  // namespace orvent::zoom
