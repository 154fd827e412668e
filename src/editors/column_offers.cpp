#include "editors/column_offers.h"

#include "canvas/owners.h"
#include "entities/key_grammar.h"
#include "links/edge_links.h"
#include "links/synchronize_functions.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;

namespace {

constexpr std::int16_t kControlPoint = 5;  // of an activity, where control comes in

const AttributeCollection* givenBy(const LabelsD& node) {
    if (const ActivityProperties* activity = node.activity()) {
        return activity->Act_Outputs.peek();
    }
    return node.recordSet() ? node.recordSet()->RecordSet_Outputs.peek() : nullptr;
}

/// The key by which links name a column of the source.
std::string keyAt(const LabelsD& source, const AttributeProperties& column) {
    return wholeKey(source.KeyName(), source.activity() ? KindOutput : KindRecordSetAttribute, column.Key);
}

bool hasName(const AttributeCollection& list, const std::string& name) {
    for (const AttributeProperties& item : list) {
        if (item.Attribute_Name == name || item.Key == name) {
            return true;
        }
    }
    return false;
}

/// The input of the activity that reads a column, as a drag onto its list makes it, and the output behind it.
void takeInput(canvas::Canvas& form, LabelsD& target, const LabelsD& source, const AttributeProperties& column,
               bool shortNames) {
    ActivityProperties& activity = *target.activity();
    const std::string key = source.KeyName() + "_" + column.Key;
    if (activity.Act_Inputs->Item(key)) {
        return;
    }
    const std::string bare = AfterLastDot(column.Key);
    const bool isFree = !hasName(*activity.Act_Inputs, bare) && !hasName(*activity.Act_Outputs, bare);
    const LinkType type = source.activity() ? LinkActivity : LinkRecordSet;
    AttributeProperties& input =
        activity.Act_Inputs->Add(shortNames && isFree ? bare : key, column.Attribute_Type, tagOf(type), key);
    input.ParentKeyName = target.KeyName();
    input.ProvidedFrom->Add(source.KeyName(), type, keyAt(source, column));
    activity.Act_Inputs->Changed = true;
    links::SynchronizeAttribute(form, input, nullptr);
    if (!activity.Act_Outputs->Item(key)) {
        const TagCode tag = passedOn(input.Tag);
        AttributeProperties& output = activity.Act_Outputs->Add(input.Attribute_Name, input.Attribute_Type, tag, key);
        output.ParentKeyName = target.KeyName();
        output.ProvidedFrom->Add(target.KeyName(), static_cast<LinkType>(tag), relativeKey(KindInput, key));
        links::SynchronizeAttribute(form, output, nullptr);
    }
}

/// The column of the record set that an output fills; one of its name that nothing fills is taken.
void takeColumn(canvas::Canvas& form, RecordSetProperties& recordSet, const LabelsD& source,
                const AttributeProperties& output) {
    const std::string name = AfterLastDot(output.Attribute_Name);
    AttributeProperties* column = recordSet.RecordSet_Outputs->Item(name);
    if (column && (column->ProvidedFrom.count() > 0 || column->Attribute_Type != output.Attribute_Type)) {
        return;
    }
    if (!column) {
        column = &recordSet.RecordSet_Outputs->Add(name, output.Attribute_Type, name);
        column->ParentKeyName = recordSet.RecordSet_Name;
    }
    column->ProvidedFrom->Add(source.KeyName(), LinkRecordSet, keyAt(source, output));
    links::SynchronizeAttribute(form, *column, nullptr);
}

}  // namespace

std::optional<canvas::Offer> ColumnOffers::offerFor(const canvas::DrawForm& form, const canvas::LinesD& edge) const {
    const LabelsD* from = form.Labels.byIndex(edge.FromLabel());
    const LabelsD* to = form.Labels.byIndex(edge.ToLabel());
    const bool control = to && to->activity() && edge.ToGrabbingPoint() == kControlPoint;
    if (edge.EdgeType() != canvas::EdgeTypeProvider || !from || !to || from == to || control ||
        (!to->activity() && !from->activity())) {
        return std::nullopt;
    }
    const AttributeCollection* columns = givenBy(*from);
    if (!columns || columns->Count() == 0 || !links::linksBehind(form, edge).empty()) {
        return std::nullopt;
    }
    return canvas::Offer{to->Caption() + " has nothing of " + from->Caption() + " yet.", "Take Over Columns"};
}

void ColumnOffers::take(canvas::DrawForm& form, const canvas::LinesD& edge) const {
    LabelsD* from = form.Labels.byIndex(edge.FromLabel());
    LabelsD* to = form.Labels.byIndex(edge.ToLabel());
    const AttributeCollection* columns = from ? givenBy(*from) : nullptr;
    if (!columns || !to) {
        return;
    }
    for (const AttributeProperties& column : *columns) {
        if (to->activity()) {
            takeInput(form, *to, *from, column, shortNames_);
        } else if (RecordSetProperties* recordSet = to->recordSet()) {
            recordSet->RecordSet_Name = to->KeyName();
            takeColumn(form, *recordSet, *from, column);
        }
    }
    if (to->recordSet()) {
        to->setReady(true);
    }
    for (const LabelsD* node : {from, to}) {
        form.tellChanged(*node);
        if (form.touched) {
            form.touched->node(node->Index());
        }
    }
}

}  // namespace orvent::editors
