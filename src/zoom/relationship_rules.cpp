#include "zoom/relationship_rules.h"

#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"
#include "zoom/beyond_view.h"
#include "zoom/drawn_edge.h"
#include "zoom/member_ties.h"
#include "zoom/part_of.h"
#include "zoom/relationship_matrix.h"
#include "zoom/typed_name.h"
#include "zoom/waiting_functions.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

const RelationRow* rowOf(canvas::EdgeTypeCode kind, const RelationEnd& from, const RelationEnd& to) {
    if (!from.present() || !to.present()) {
        return nullptr;
    }
    return kind == canvas::EdgeTypeProvider ? providerRow(from, to) : regulatorRow(from, to);
}

/// A free function and the activity that it comes to by an edge to one of its parameters.
template <class Node>
struct AttachmentOf {
    Node* function = nullptr;
    Node* activity = nullptr;

    template <class Form>
    AttachmentOf(Form& view, const RelationRow& row, const RelationEnd& from, const RelationEnd& to) {
        const RelationEnd& ofFunction = from.isFunctionParameter() ? from : to;
        if (row.attach && ofFunction.activityName().empty()) {
            function = view.nodeNamed(ofFunction.parentKeyName());
            activity = view.nodeNamed((&ofFunction == &from ? to : from).parentKeyName());
        }
    }
    bool due() const { return function && activity; }
    /// The activity has one of that key already, be it shown or not.
    bool refused() const {
        const auto* functions = due() ? activity->activity()->Act_Functions.peek() : nullptr;
        return functions && functions->Item(function->KeyName());
    }
};
using Attachment = AttachmentOf<LabelsD>;
using AttachmentView = AttachmentOf<const LabelsD>;

// Links

template <class Call>
void withLists(LabelsD& node, Call call) {
    if (auto* attribute = node.entity<AttributeProperties>()) {
        call(*attribute);
    } else if (auto* parameter = node.entity<ParameterProperties>()) {
        call(*parameter);
    }
}

/// The two ends by the direction of the links: the source provides or regulates.
struct LinkEnds {
    LabelsD& source;
    LabelsD& target;
};

void writeLinks(canvas::EdgeTypeCode kind, const LinkEnds& ends, const RelationRow& row, LinkType type,
                canvas::EdgeNumber edge) {
    const RelationEnd source(ends.source), target(ends.target);
    if (kind == canvas::EdgeTypeProvider) {
        ends.source.entity<AttributeProperties>()->ProviderFor->Add(target.linkName(), type,
                                                                    target.near().keyAs(row.targetKey), edge);
        ends.target.entity<AttributeProperties>()->ProvidedFrom->Add(source.linkName(), type,
                                                                     source.near().keyAs(row.sourceKey), edge);
        return;
    }
    withLists(ends.source, [&](auto& entity) {
        entity.RegulatorFor->Add(target.linkName(), type, target.near().keyAs(row.targetKey), edge);
    });
    withLists(ends.target, [&](auto& entity) {
        entity.RegulatedFrom->Add(source.linkName(), type, source.near().keyAs(row.sourceKey), edge);
    });
}

void removeLinks(canvas::EdgeTypeCode kind, const LinkEnds& ends, const RelationRow& row) {
    const RelationEnd source(ends.source), target(ends.target);
    const std::string targetKey = target.near().keyAs(row.targetKey);
    const std::string sourceKey = source.near().keyAs(row.sourceKey);
    if (kind == canvas::EdgeTypeProvider) {
        ends.source.entity<AttributeProperties>()->ProviderFor->Remove(targetKey);
        ends.target.entity<AttributeProperties>()->ProvidedFrom->Remove(sourceKey);
        return;
    }
    withLists(ends.source, [&](auto& entity) {
        entity.RegulatorFor->Remove(targetKey);
        // A function's input had another key while its function was free.
        entity.RegulatorFor->Remove(target.near().keyAs(KeyForm::whole));
    });
    withLists(ends.target, [&](auto& entity) { entity.RegulatedFrom->Remove(sourceKey); });
}

/// What stands in the way of an edge and is not seen.
std::string refusedBeyond(const ZoomView& view, const LabelsD& target) {
    const std::string words = wordsOfBeyond(view, target);
    return words.empty() ? words : target.Caption() + " is " + words + ".";
}

void relate(ZoomView& view, canvas::EdgeNumber& edge, canvas::EdgeTypeCode kind, LabelsD& from, LabelsD& to) {
    const RelationEnd drawnFrom(from), drawnTo(to);
    const RelationRow* row = rowOf(kind, drawnFrom, drawnTo);
    if (!row || !row->allowed(drawnFrom, drawnTo) || Attachment(view, *row, drawnFrom, drawnTo).refused()) {
        RejectRelationship(view, edge, row ? refusedBeyond(view, row->flip ? from : to) : std::string());
        return;
    }
    if (!CheckDataTypes(view, from, to, edge)) {
        return;
    }
    if (row->flip) {
        FlipLine(view, edge);
        if (!CheckDuplicateLine(view, edge)) {
            return;
        }
    }
    const LinkEnds ends = row->flip ? LinkEnds{to, from} : LinkEnds{from, to};
    writeLinks(kind, ends, *row, row->type(drawnFrom, drawnTo), edge);
    if (row->setTag) {
        to.entity<AttributeProperties>()->Tag = *row->setTag;
    }
    if (const Attachment attachment(view, *row, drawnFrom, drawnTo); attachment.due()) {
        AttachFunction(view, *attachment.function, *attachment.activity, true);
    }
}

/// Nothing of what is drawn at a second copy would reach the scenario.
void rejectAtCopy(ZoomView& view, canvas::EdgeNumber edge, const LabelsD& copy) {
    const LabelsD* first = firstCopyOf(view, copy);
    RejectRelationship(view, edge,
                       first ? copy.Caption() + " is shown twice. Its edges are drawn at the other copy." : "");
    if (first) {
        view.leadTo(*first);
    }
}

}  // namespace

void CreateRelationship(ZoomView& view, canvas::EdgeNumber& edge) {
    if (!CheckDuplicateLine(view, edge)) {
        return;
    }
    const LinesD& drawn = *view.Lines.byIndex(edge);
    LabelsD* from = view.Labels.byIndex(drawn.FromLabel());
    LabelsD* to = view.Labels.byIndex(drawn.ToLabel());
    if (!from || !to) {
        return;
    }
    const canvas::EdgeTypeCode kind = drawn.EdgeType();
    if (!view.bearsName(*from) || !view.bearsName(*to)) {
        rejectAtCopy(view, edge, view.bearsName(*from) ? *to : *from);
        return;
    }
    switch (kind) {
        case canvas::EdgeTypeProvider:
        case canvas::EdgeTypeRegulator:
            relate(view, edge, kind, *from, *to);
            break;
        case canvas::EdgeTypePartOf:
            makeMember(view, edge, *from, *to);
            break;
        default:
            break;
    }
}

void RemoveRelationship(ZoomView& view, canvas::EdgeNumber edge) {
    const LinesD& drawn = *view.Lines.byIndex(edge);
    const canvas::EdgeTypeCode kind = drawn.EdgeType();
    LabelsD* from = view.Labels.byIndex(drawn.FromLabel());
    LabelsD* to = view.Labels.byIndex(drawn.ToLabel());
    if (!from || !to) {
        return;
    }
    if (kind == canvas::EdgeTypePartOf) {
        if (to->entity<FunctionProperties>()) {
            DetachFunction(view, *to, from->activity() ? from : nullptr);
        } else if (from->activity()) {
            freeMember(view, *from->activity(), *to);
        }
        return;
    }
    const RelationEnd source(*from), target(*to);
    const RelationRow* row = rowOf(kind, source, target);
    if (!row) {
        return;
    }
    // What else the two take part in stays as it is, edges, numbers and order.
    removeLinks(kind, {*from, *to}, *row);
}

bool CheckDataTypes(ZoomView& view, const LabelsD& from, LabelsD& to, canvas::EdgeNumber edge) {
    const std::int16_t source = RelationEnd(from).dataType();
    const std::int16_t target = RelationEnd(to).dataType();
    if (source == target) {
        return true;
    }
    const NameTable& types = view.catalogue().dataTypes;
    if (types.name(target) != kDefinedBySource) {
        const std::string text =
            "This Relationship Is Not Valid!\nDifferent Data Types Found.\nSource: " + types.name(source) +
            ".\nTarget: " + types.name(target) + ".";
        view.Lines.RemoveFull(edge);
        view.messages().tell(text, "", platform::Icon::warning);
        return false;
    }
    const auto take = [&](auto& entity, std::int16_t& type, const std::string& name) {
        type = source;
        entity.Changed = true;
        to.setToolTipText(typedName(view, name, source));
    };
    if (auto* attribute = to.entity<AttributeProperties>()) {
        take(*attribute, attribute->Attribute_Type, attribute->Attribute_Name);
    } else if (auto* parameter = to.entity<ParameterProperties>()) {
        take(*parameter, parameter->Parameter_Type, parameter->Parameter_Name);
    }
    return true;
}

bool mayRelate(const ZoomView& view, canvas::EdgeTypeCode kind, const LabelsD& from, const LabelsD& to) {
    if (!view.bearsName(from) || !view.bearsName(to)) {
        return false;
    }
    if (kind == canvas::EdgeTypePartOf) {
        const LabelsD& owner = to.activity() ? to : from;
        const LabelsD& member = to.activity() ? from : to;
        if (!owner.activity() || &owner == &member) {
            return false;
        }
        if (const auto* function = member.entity<FunctionProperties>()) {
            return isFree(view, function->ParentKeyName()) && !awaitedActivity(view, member);
        }
        const RelationEnd end(member);
        return !to.activity() && end.present() && end.kind() != KindConstant && isFree(view, end.parentKeyName());
    }
    const RelationEnd source(from), target(to);
    const RelationRow* row = rowOf(kind, source, target);
    if (!row || !row->allowed(source, target) || AttachmentView(view, *row, source, target).refused()) {
        return false;
    }
    const NameTable& types = view.catalogue().dataTypes;
    return source.dataType() == target.dataType() || types.name(target.dataType()) == kDefinedBySource;
}

}  // namespace orvent::zoom
