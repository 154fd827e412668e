#include "zoom/expansion.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "canvas/owners.h"
#include "entities/link_types.h"
#include "links/member_links.h"
#include "links/members.h"
#include "zoom/part_of.h"
#include "zoom/relationship_matrix.h"
#include "zoom/typed_name.h"

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
void refill(List& list, const std::vector<std::shared_ptr<EntityOf<List>>>& items, CollapsedOrder order) {
    if (!holdsReversed(list, items)) {
        for (const auto& item : items) {
            const std::string& key = keyOf(*item);
            if (list.Item(key) != item.get()) {
                list.Remove(key);
                list.append(item, key);
            }
        }
    }
    if (order == CollapsedOrder::reversed) {
        std::vector<std::string> keys;
        keys.reserve(items.size());
        for (const auto& item : items) {
            keys.push_back(keyOf(*item));
        }
        list.reorder(keys);
    }
}

/// The row of a kind that has one.
const ExpansionRow& expansionRow(NodeKindCode kind) {
    return *std::find_if(kExpansions.begin(), kExpansions.end(),
                         [&](const ExpansionRow& each) { return each.kind == kind; });
}

}  // namespace

std::int16_t ownerGrabPoint(const LabelsD& member) {
    const RelationEnd end(member);
    const auto row = std::find_if(kExpansions.begin(), kExpansions.end(),
                                  [&](const ExpansionRow& each) { return end.present() && each.kind == end.kind(); });
    return row == kExpansions.end() ? kFunctionGrab : row->fromGrab;
}

void requireAllTypes(const ZoomView& view, const FunctionProperties& function) {
    eachList(function, [&view](const auto& list, NodeKindCode) { requireTypes(view, list); });
}

float Expansion::rowTop(int halfRows) const {
    return owner_.Top() + owner_.Height() + static_cast<float>(halfRows) * view_.settings().HDist;
}

void Expansion::grow(const LabelsD& node, bool widens) {
    const float bottom = node.box().bottom();
    const float right = node.box().right();
    const float height = view_.PicForm.Height(), width = view_.PicForm.Width();
    view_.PicForm.setSize(widens && right > width ? right + node.Width() : width,
                          bottom > height ? bottom + 3 * view_.settings().BigHeight : height);
}

void Expansion::expand(NodeKindCode kind) {
    const ExpansionRow& row = expansionRow(kind);
    canvas::withOwner(owner_, [&](auto& owner) {
        withList(owner, kind, [&](auto& items, NodeKindCode) {
            if constexpr (requires { owner.Act_Inputs; }) {
                if (!items->Expanded) {
                    // Parameters stand below the outputs.
                    show(items, row, kind == KindParameter ? owner.Act_Outputs.count() : 0);
                    items->Expanded = true;
                }
            } else if (!owner_.Expanded) {
                show(items, row, 0);
            }
        });
    });
}

void Expansion::expandRecordSet() {
    if (owner_.recordSet()) {
        expand(KindRecordSetAttribute);
        owner_.Expanded = true;
    }
}

template <class List>
void Expansion::show(Lazy<List>& items, const ExpansionRow& row, int firstRow) {
    List* list = items.peek();
    if (!list) {
        return;
    }
    requireTypes(view_, items);
    const canvas::NodeNumber active = view_.ActiveLabel;
    for (int position = 1; position <= list->Count(); ++position) {
        if (canvas::isGiven(NearEnd(*list->Item(position)).labelIn(view_))) {
            continue;  // it was drawn at its owner while the others were collapsed
        }
        showMember(list->share(position), row, rowTop(2 * (firstRow + position - 1) + 1));
    }
    view_.ActiveLabel = active;
}

LabelsD* Expansion::showAlone(NodeKindCode kind, const std::string& key) {
    LabelsD* shown = nullptr;
    if (ActivityProperties* activity = owner_.activity()) {
        withList(*activity, kind, [&](auto& items, NodeKindCode) {
            auto entity = items->share(key);
            if (entity && !canvas::isGiven(NearEnd(*entity).labelIn(view_))) {
                shown = &showMember(entity, expansionRow(kind), rowTop(2 * items->positionOf(key) - 1));
            }
        });
    }
    return shown;
}

template <class Entity>
LabelsD& Expansion::showMember(std::shared_ptr<Entity> entity, const ExpansionRow& row, float top) {
    const CanvasSettings& sizes = view_.settings();
    Entity& shown = *entity;
    shown.ParentKeyName = ownerName_;
    shown.NodeKind = row.kind;
    LabelsD& node =
        view_.Labels.AddShown({row.left(owner_, sizes), top, sizes.Width, sizes.Height}, nameOf(shown), row.nodeType,
                              named_ ? wholeKey(ownerName_, row.kind, shown.Key) : std::string(), std::int16_t{0});
    node.setToolTipText(typedName(view_, nameOf(shown), typeOf(shown)));
    view_.Lines.addFullLine(owner_.Index(), row.fromGrab, node.Index(), 2, canvas::EdgeTypePartOf,
                            canvas::AngleVerticalUp, 0);
    bindNode(node, std::move(entity));
    grow(node, row.widens);
    if (!named_) {
        return node;  // links are drawn at the first copy
    }
    if constexpr (std::is_same_v<Entity, ParameterProperties>) {
        showConstants(node, shown, row);
    }
    linkMember(view_, shown, nullptr);
    return node;
}

void Expansion::showConstants(const LabelsD& node, const ParameterProperties& parameter, const ExpansionRow& row) {
    if (row.constants == LinkUnset) {
        return;
    }
    const CanvasSettings& sizes = view_.settings();
    for (const RegulatorProperties& link : parameter.RegulatedFrom) {
        const LabelsD* inDesign = view_.ParForm().nodeNamed(link.Regulator_name);
        const bool named = view_.isNameTaken(link.Regulator_name) || view_.isNameTaken(link.Regulator_Key());
        if (link.Regulator_type != row.constants || named || link.Regulator_Key().empty() ||
            (inDesign && inDesign->recordSet())) {
            continue;
        }
        LabelsD& constant =
            view_.Labels.Add({node.Left() - sizes.WDist - sizes.Width, node.Top(), sizes.BigHeight, sizes.BigHeight},
                             link.Regulator_Key(), canvas::NodeTypeConstant);
        auto& entity = *constant.entity<ParameterProperties>();
        entity.Parameter_Type = parameter.Parameter_Type;
        entity.Key = link.Regulator_Key();
        constant.setToolTipText(typedName(view_, link.Regulator_Key(), parameter.Parameter_Type));
    }
}

void Expansion::collapse(NodeKindCode kind) {
    const ExpansionRow& row = expansionRow(kind);
    canvas::withOwner(owner_, [&](auto& owner) {
        withList(owner, kind, [&](auto& items, NodeKindCode) {
            if constexpr (requires { owner.Act_Inputs; }) {
                if (items.peek() && items->Expanded) {
                    takeBack(items, row);
                    items->Expanded = false;
                }
            } else if (owner_.Expanded) {
                takeBack(items, row);
            }
        });
    });
}

void Expansion::collapseRecordSet() {
    if (owner_.recordSet()) {
        collapse(KindRecordSetAttribute);
        owner_.Expanded = false;
    }
}

void Expansion::expandFunction() {
    const auto* function = owner_.entity<FunctionProperties>();
    if (!function || owner_.Expanded) {
        return;
    }
    requireAllTypes(view_, *function);
    expand(KindFunctionInput);
    expand(KindFunctionOutput);
    owner_.Expanded = true;
}

void Expansion::collapseFunction() {
    if (owner_.entity<FunctionProperties>() && owner_.Expanded) {
        collapse(KindFunctionInput);
        collapse(KindFunctionOutput);
        owner_.Expanded = false;
    }
}

// From the last edge to the first, since a node that goes shortens the owner's list.
template <class List>
void Expansion::takeBack(Lazy<List>& items, const ExpansionRow& row) {
    using Entity = EntityOf<List>;
    std::vector<std::shared_ptr<Entity>> taken;
    for (const canvas::EdgeNumber edge : partOfEdges(view_, owner_)) {
        LabelsD* node = targetOf(view_, edge);
        auto* held = std::get_if<platform::Shared<Entity>>(&node->Properties);
        if (held && *held && (*held)->NodeKind == row.kind &&
            ((*held)->ParentKeyName == ownerName_ || isFree(view_, (*held)->ParentKeyName))) {
            taken.push_back(held->share());
            view_.Labels.Remove(node->Index());
        }
    }
    if (order_ == CollapsedOrder::reversed && named_) {
        view_.order.keep(ownerName_, row.kind, keysOf(items));
    }
    refill(*items, taken, order_);
}

}  // namespace orvent::zoom
