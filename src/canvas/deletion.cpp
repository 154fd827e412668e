#include "canvas/deletion.h"

#include <algorithm>

#include "canvas/canvas_rules.h"
#include "canvas/owners.h"
#include "entities/key_grammar.h"

namespace orvent::canvas {

using namespace entities;

namespace {

/// The collection of its owner in which a member stands, or nothing when the owner is not on the canvas.
template <class Member>
EntityCollection<Member>* listOf(Canvas& canvas, const Member& member) {
    LabelsD* owner = canvas.nodeNamed(member.ParentKeyName);
    return owner ? canvas::listOf<Member>(*owner, member.NodeKind) : nullptr;
}

// A removed input is found missing at the next save only when the inputs are written.
void markInputs(Canvas& canvas, const AttributeProperties& attribute) {
    LabelsD* owner = canvas.nodeNamed(attribute.ParentKeyName);
    if (ActivityProperties* activity = owner ? owner->activity() : nullptr;
        activity && attribute.NodeKind == KindInput) {
        activity->Act_Inputs->Changed = true;
    }
}

/// Notes the row of an entity and takes it out of its owner's list.
template <class Entity>
void leaveOwner(Canvas& canvas, const Entity& entity) {
    auto* list = listOf(canvas, entity);
    const Entity* listed = list ? list->Item(entity.Key) : nullptr;
    canvas.DeletedNodes->Add(listed ? listed->SubNode_ID : entity.SubNode_ID, entity.NodeKind);
    if (listed) {
        list->Remove(entity.Key);
    }
}

bool listed(NodeKindCode nodeKind) {
    return nodeKind == KindInput || nodeKind == KindOutput || nodeKind == KindRecordSetAttribute;
}

// Each of these gives up what stands behind a node. False: the node stays.

bool releaseAttribute(Canvas& canvas, LabelsD& node, EntityLinks& links) {
    const auto* attribute = node.entity<AttributeProperties>();
    if (attribute && listed(attribute->NodeKind)) {
        links.unsynchronise(canvas, node);
        markInputs(canvas, *attribute);
        leaveOwner(canvas, *attribute);
    }
    return true;
}

bool releaseParameter(Canvas& canvas, LabelsD& node, EntityLinks& links) {
    const auto* parameter = node.entity<ParameterProperties>();
    if (!parameter || parameter->NodeKind == KindFree) {
        return true;
    }
    if (parameter->NodeKind != KindParameter) {
        return false;  // inputs and outputs belong to their function, deliberately
    }
    leaveOwner(canvas, *parameter);
    links.unsynchronise(canvas, node);
    return true;
}

/// A node whose row goes with it.
void releaseWhole(Canvas& canvas, LabelsD& node, EntityLinks& links) {
    const std::int16_t* row = node.rowIdentifier();
    canvas.DeletedNodes->Add(row ? *row : std::int16_t{0}, nodeKind(node.NodeType()).deleted);
    if (node.activity() || node.recordSet()) {
        links.unsynchronise(canvas, node);
    }
}

bool release(Canvas& canvas, LabelsD& node, EntityLinks& links, CanvasRules& rules) {
    if (!rules.mayDelete(canvas, node)) {
        return false;
    }
    switch (node.NodeType()) {
        case NodeTypeFunction:
            return rules.releaseFunction(canvas, node);
        case NodeTypeConstant:
            links.unsynchronise(canvas, node);
            return true;
        case NodeTypeAttribute:
            return releaseAttribute(canvas, node, links);
        case NodeTypeParameter:
            return releaseParameter(canvas, node, links);
        case NodeTypeActivity:
        case NodeTypeRecordSet:
        case NodeTypeLog:
        case NodeTypeComment:
            releaseWhole(canvas, node, links);
            return true;
        default:
            return false;
    }
}

}  // namespace

void DeleteSelectedNodes(Canvas& canvas, NodeTypeCode OnlyType, EntityLinks& links, CanvasRules& rules) {
    canvas.ActiveLabel = kNoNode;
    for (const NodeNumber index : canvas.SelectedLabels.members()) {
        LabelsD* node = canvas.Labels.byIndex(index);
        if (!node || (OnlyType != kEveryNodeType && node->NodeType() != OnlyType) ||
            !release(canvas, *node, links, rules)) {
            continue;
        }
        canvas.Labels.Remove(index);
    }
    canvas.ClearCrop();
    rules.edited(canvas);
}

void DeleteSelectedEdges(Canvas& canvas, CanvasRules& rules) {
    canvas.ActiveEdge = kNoEdge;
    auto selected = canvas.SelectedLines.members();
    std::reverse(selected.begin(), selected.end());
    for (const EdgeNumber index : selected) {
        LinesD* edge = canvas.Lines.byIndex(index);
        if (edge && !rules.releaseEdge(canvas, *edge)) {
            continue;
        }
        canvas.Lines.RemoveFull(index);
    }
    rules.edited(canvas);
}

}  // namespace orvent::canvas
