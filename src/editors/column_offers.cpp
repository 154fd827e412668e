#include "editors/column_offers.h"

#include "editors/taken_columns.h"
#include "entities/key_grammar.h"
#include "links/edge_links.h"
#include "links/synchronize_functions.h"
#include "platform/name_list.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;

namespace {

/// The column of the record set that an output fills; one of its name that nothing fills is taken. False where that has
/// another type.
bool takeColumn(canvas::Canvas& form, RecordSetProperties& recordSet, const LabelsD& source,
                const AttributeProperties& output) {
    const std::string name = AfterLastDot(output.Attribute_Name);
    AttributeProperties* column = recordSet.RecordSet_Outputs->Item(name);
    if (column && column->Attribute_Type != output.Attribute_Type) {
        return false;
    }
    if (column && column->ProvidedFrom.count() > 0) {
        return true;
    }
    if (!column) {
        column = &recordSet.RecordSet_Outputs->Add(name, output.Attribute_Type, name);
        column->ParentKeyName = recordSet.RecordSet_Name;
    }
    column->ProvidedFrom->Add(source.KeyName(), LinkRecordSet, keyAt(source, output));
    links::SynchronizeAttribute(form, *column, nullptr);
    return true;
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
    std::vector<std::string> leftOut;
    for (const AttributeProperties& column : *columns) {
        if (to->activity()) {
            takeInput(form, *to, *from, column, shortNames_);
        } else if (RecordSetProperties* recordSet = to->recordSet()) {
            recordSet->RecordSet_Name = to->KeyName();
            if (!takeColumn(form, *recordSet, *from, column)) {
                leftOut.push_back(AfterLastDot(column.Attribute_Name));
            }
        }
    }
    if (to->recordSet()) {
        to->setReady(true);
    }
    for (const LabelsD* node : {from, to}) {
        tellMembers(form, *node);
    }
    if (!leftOut.empty()) {
        form.messages().tell("Left out, since " + to->Caption() +
                                 " has columns of these names and other types: " + platform::nameList(leftOut) + ".",
                             {}, platform::Icon::information);
    }
}

}  // namespace orvent::editors
