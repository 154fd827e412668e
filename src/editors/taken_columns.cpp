#include "editors/taken_columns.h"

#include "canvas/owners.h"
#include "entities/key_grammar.h"
#include "links/synchronize_functions.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;

namespace {

bool hasName(const AttributeCollection& list, const std::string& name) {
    for (const AttributeProperties& item : list) {
        if (item.Attribute_Name == name || item.Key == name) {
            return true;
        }
    }
    return false;
}

}  // namespace

const AttributeCollection* givenBy(const LabelsD& node) {
    if (const ActivityProperties* activity = node.activity()) {
        return activity->Act_Outputs.peek();
    }
    return node.recordSet() ? node.recordSet()->RecordSet_Outputs.peek() : nullptr;
}

std::string keyAt(const LabelsD& source, const AttributeProperties& column) {
    return wholeKey(source.KeyName(), source.activity() ? KindOutput : KindRecordSetAttribute, column.Key);
}

std::string takeInput(canvas::Canvas& form, LabelsD& node, const LabelsD& source, const AttributeProperties& column,
                      bool shortNames) {
    ActivityProperties& activity = *node.activity();
    std::string key = source.KeyName() + "_" + column.Key;
    if (activity.Act_Inputs->Item(key)) {
        return key;
    }
    const std::string bare = AfterLastDot(column.Attribute_Name);
    const bool isFree = !hasName(*activity.Act_Inputs, bare) && !hasName(*activity.Act_Outputs, bare);
    const LinkType type = source.activity() ? LinkActivity : LinkRecordSet;
    AttributeProperties& input =
        activity.Act_Inputs->Add(shortNames && isFree ? bare : key, column.Attribute_Type, tagOf(type), key);
    input.ParentKeyName = node.KeyName();
    input.ProvidedFrom->Add(source.KeyName(), type, keyAt(source, column));
    activity.Act_Inputs->Changed = true;
    links::SynchronizeAttribute(form, input, nullptr);
    if (!activity.Act_Outputs->Item(key)) {
        const TagCode tag = passedOn(input.Tag);
        AttributeProperties& output = activity.Act_Outputs->Add(input.Attribute_Name, input.Attribute_Type, tag, key);
        output.ParentKeyName = node.KeyName();
        output.ProvidedFrom->Add(node.KeyName(), static_cast<LinkType>(tag), relativeKey(KindInput, key));
        links::SynchronizeAttribute(form, output, nullptr);
    }
    return key;
}

void tellMembers(canvas::Canvas& form, const LabelsD& node) {
    form.tellChanged(node);
    if (form.touched) {
        form.touched->node(node.Index());
    }
}

}  // namespace orvent::editors
